#include "effects/element_rows.h"

#include <QGridLayout>
#include <QLabel>
#include <QSlider>

#include "dialogs/named_controls.h"
#include "effects/number_combo.h"

namespace ruvo {
namespace {

std::vector<double> usualNumbers() {
  std::vector<double> all = evenNumbers(-224, 224, 32);
  all.insert(all.begin(), -ElementRows::kMost);
  all.push_back(ElementRows::kMost);
  return all;
}

}  // namespace

ElementRows::ElementRows(const QString& labels, double standard, QGridLayout& grid, QWidget* window)
    : QObject(window), firstRow_(grid.rowCount()) {
  values_.fill(standard);
  const QStringList names = {tr("&Red"), tr("&Green"), tr("&Blue")};
  for (int i = 0; i < kElements; ++i) {
    auto* number = new NumberCombo(controlName("cboElement", i), QString(names[i]).remove('&'), {-kMost, kMost},
                                   usualNumbers(), window);
    number->setValue(standard);
    numbers_[static_cast<std::size_t>(i)] = number;
    auto* label = namedLabel(controlName(labels, i), names[i] + ':', window);
    label->setBuddy(number);
    grid.addWidget(label, firstRow_ + i, kLabel);
    grid.addWidget(number, firstRow_ + i, kNumber);
    connect(number, &NumberCombo::valueChanged, this, [this, i](double value) {
      values_[static_cast<std::size_t>(i)] = value;
      Q_EMIT changed();
    });
  }
}

void ElementRows::addSliders(QGridLayout& grid, QWidget* window) {
  for (int i = 0; i < kElements; ++i) {
    auto* slider = numbers_[static_cast<std::size_t>(i)]->makeSlider(controlName("hsrElement", i), window);
    grid.addWidget(slider, firstRow_ + i, kSlider);
  }
  grid.setColumnStretch(kSlider, 1);
}

void ElementRows::addBeside(int element, QWidget* widget, QGridLayout& grid) {
  grid.addWidget(widget, firstRow_ + element, kBeside);
}

void ElementRows::setValues(const Values& values) {
  values_ = values;
  for (std::size_t i = 0; i < numbers_.size(); ++i) numbers_[i]->setValue(values[i]);
}

}  // namespace ruvo
