#include "dialogs/frmRuvoColorChart.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

#include "base/paths.h"
#include "dialogs/color_fields.h"

namespace ruvo {
namespace {

// A plain rectangle in a colour, with a thin border.
class Specimen : public QWidget {
 public:
  explicit Specimen(QWidget* parent) : QWidget(parent) {
    setObjectName("picSpecimen");
    setFixedSize(60, 26);
  }
  void show(const QColor& colour) {
    colour_ = colour;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(colour_);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

 private:
  QColor colour_;
};

}  // namespace

frmRuvoColorChart::frmRuvoColorChart(QWidget* parent, std::function<void(Colour)> chosen)
    : QWidget(parent, Qt::Tool), chosen_(std::move(chosen)) {
  setObjectName("frmRuvoColorChart");
  setWindowTitle("Color chart");
  setAttribute(Qt::WA_DeleteOnClose);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(10);
  auto* fields = new QHBoxLayout;
  field_ = new HueField(this);
  bar_ = new LightnessBar(this);
  fields->addWidget(field_);
  fields->addWidget(bar_);
  column->addLayout(fields);
  buildChannels();
  auto* last = new QHBoxLayout;
  specimen_ = new Specimen(this);
  last->addWidget(specimen_);
  last->addStretch();
  last->addWidget(new QLabel("HTML   #", this));
  html_ = new QLineEdit(this);
  html_->setObjectName("txbHTML");
  html_->setFixedWidth(78);
  html_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9A-Fa-f]{6}"), html_));
  last->addWidget(html_);
  column->addLayout(last);
  layout()->setSizeConstraint(QLayout::SetFixedSize);

  field_->picked = [this](double hue, double saturation) {
    // Black and white have no place in the field: picking there means a full colour.
    const float lightness = colour_.lightnessF() <= 0 || colour_.lightnessF() >= 1 ? 0.5F : colour_.lightnessF();
    change(QColor::fromHslF(static_cast<float>(hue), static_cast<float>(saturation), lightness));
  };
  bar_->picked = [this](double lightness) {
    change(
        QColor::fromHslF(std::max(0.0F, colour_.hslHueF()), colour_.hslSaturationF(), static_cast<float>(lightness)));
  };
  connect(html_, &QLineEdit::editingFinished, this, [this] {
    if (html_->hasAcceptableInput())
      change(QColor("#" + html_->text()));
    else
      showAll();
  });
  showAll();
}

void frmRuvoColorChart::buildChannels() {
  static constexpr const char* kNames[] = {"Red", "Green", "Blue"};
  auto* grid = new QGridLayout;
  for (int i = 0; i < 3; ++i) {
    const auto at = static_cast<std::size_t>(i);
    sliders_[at] = new QSlider(Qt::Horizontal, this);
    sliders_[at]->setObjectName(QStringLiteral("hsbColor(%1)").arg(i));
    sliders_[at]->setRange(0, 255);
    values_[at] = new QSpinBox(this);
    values_[at]->setObjectName(QStringLiteral("txbColor(%1)").arg(i));
    values_[at]->setRange(0, 255);
    grid->addWidget(new QLabel(kNames[i], this), i, 0);
    grid->addWidget(sliders_[at], i, 1);
    grid->addWidget(values_[at], i, 2);
    const auto taken = [this, i](int value) {
      int channels[] = {colour_.red(), colour_.green(), colour_.blue()};
      channels[i] = value;
      change(QColor(channels[0], channels[1], channels[2]));
    };
    connect(sliders_[at], &QSlider::valueChanged, this, taken);
    connect(values_[at], &QSpinBox::valueChanged, this, taken);
  }
  static_cast<QVBoxLayout*>(layout())->addLayout(grid);
}

Colour frmRuvoColorChart::colour() const {
  return rgb(colour_.red(), colour_.green(), colour_.blue());
}

void frmRuvoColorChart::setColour(Colour colour) {
  if (colour == this->colour()) return;
  colour_ = QColor(redOf(colour), greenOf(colour), blueOf(colour));
  showAll();
}

void frmRuvoColorChart::change(const QColor& colour) {
  if (showing_) return;
  colour_ = colour;
  showAll();
  chosen_(this->colour());
}

void frmRuvoColorChart::showAll() {
  showing_ = true;
  const double hue = std::max(0.0F, colour_.hslHueF());
  field_->setValues(hue, colour_.hslSaturationF());
  bar_->setValues(hue, colour_.hslSaturationF(), colour_.lightnessF());
  const int channels[] = {colour_.red(), colour_.green(), colour_.blue()};
  for (std::size_t i = 0; i < 3; ++i) {
    sliders_[i]->setValue(channels[i]);
    values_[i]->setValue(channels[i]);
  }
  static_cast<Specimen*>(specimen_)->show(colour_);
  html_->setText(QString::fromStdString(hexColour({colour_.red(), colour_.green(), colour_.blue()})));
  showing_ = false;
}

void frmRuvoColorChart::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (isVisible() && moved) moved(geometry().topLeft());
}

void frmRuvoColorChart::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) close();
}

}  // namespace ruvo
