#include "effects/frmRuvoCast.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "dialogs/named_controls.h"
#include "effects/number_combo.h"

namespace ruvo {
namespace {

constexpr double kStandardLevel = 128;
// Of embossing and engraving.
constexpr double kWeight = 1;

}  // namespace

frmRuvoCast::frmRuvoCast(const EffectSubject& subject, QWidget* parent)
    : StepWindow("frmRuvoCast", tr("Cast, Emboss, Engrave"), subject, parent) {
  // The second word is spelled so.
  cboOperation_ = namedComboBox("cboOperation", {tr("  Cast"), tr("  Emboas"), tr("  Engrave")}, this);
  connect(cboOperation_, &QComboBox::currentIndexChanged, this, &frmRuvoCast::makeLive);
  auto* label = new QLabel(tr("&Operation:"), this);
  label->setBuddy(cboOperation_);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(cboOperation_, 1);
  controls()->addLayout(row);
  addLevels();
  addButtons();
  controls()->addStretch();
  makeLive();
}

void frmRuvoCast::addLevels() {
  auto* grid = new QGridLayout;
  levels_ = new ElementRows("lblCast", kStandardLevel, *grid, this);
  connect(levels_, &ElementRows::changed, this, &frmRuvoCast::makeLive);
  hsbAllElements_ = new QSlider(Qt::Horizontal, this);
  hsbAllElements_->setObjectName("hsbAllElements");
  hsbAllElements_->setAccessibleName(tr("All elements"));
  hsbAllElements_->setRange(-static_cast<int>(ElementRows::kMost), static_cast<int>(ElementRows::kMost));
  hsbAllElements_->setValue(static_cast<int>(kStandardLevel));
  connect(hsbAllElements_, &QSlider::valueChanged, this, [this](int value) {
    const double level = value;
    levels_->setValues({level, level, level});
    makeLive();
  });
  auto* all = new QLabel(tr("A&ll elements:"), this);
  all->setBuddy(hsbAllElements_);
  const int row = grid->rowCount();
  grid->addWidget(all, row, ElementRows::kLabel);
  grid->addWidget(hsbAllElements_, row, ElementRows::kNumber);
  grid->setColumnStretch(ElementRows::kNumber, 1);
  controls()->addLayout(grid);
}

void frmRuvoCast::addButtons() {
  auto* adjust = namedButton("cmdAdjElement", tr("&Apply Step"), this);
  adjust->setToolTip(tr("Keeps it; more can be applied on top"));
  connect(adjust, &QPushButton::clicked, this, [this] {
    if (!steps_.hasLive()) makeLive();
    steps_.take();
    choiceChanged();
  });
  auto* restore = namedButton("cmdRestore", tr("Re&store"), this);
  restore->setToolTip(tr("Back to the picture as it was"));
  connect(restore, &QPushButton::clicked, this, [this] {
    steps_.clear();
    choiceChanged();
  });
  auto* row = new QHBoxLayout;
  row->addWidget(adjust);
  row->addWidget(restore);
  row->addStretch();
  controls()->addLayout(row);
}

void frmRuvoCast::makeLive() {
  const ElementRows::Values& level = levels_->values();
  const double red = level[0], green = level[1], blue = level[2];
  const int operation = cboOperation_->currentIndex();
  if (operation == 0) {
    steps_.setLive({effectStep("cast", {red, green, blue})});
  } else {
    steps_.setLive({effectStep(operation == 1 ? "emboss" : "engrave", {kWeight, red, green, blue})});
  }
  choiceChanged();
}

QString frmRuvoCast::refusal() {
  return refusalOf(levels_->numbers());
}

}  // namespace ruvo
