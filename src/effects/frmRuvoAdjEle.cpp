#include "effects/frmRuvoAdjEle.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/named_controls.h"
#include "effects/number_combo.h"
#include "effects/optional_colour.h"
#include "effects/sample_panel.h"

namespace ruvo {

frmRuvoAdjEle::frmRuvoAdjEle(const EffectSubject& subject, QWidget* parent)
    : StepWindow("frmRuvoAdjEle", tr("Adjust Color Element"), subject, parent) {
  auto* grid = new QGridLayout;
  amounts_ = new ElementRows("lblAdj", 0, *grid, this);
  amounts_->addSliders(*grid, this);
  connect(amounts_, &ElementRows::changed, this, &frmRuvoAdjEle::makeLive);
  for (int i = 0; i < ElementRows::kElements; ++i) {
    auto* adjust = namedButton(controlName("cmdAdjElement", i), tr("Apply Step"), this);
    adjust->setToolTip(tr("Keeps it; more can be applied on top"));
    connect(adjust, &QPushButton::clicked, this, [this, i] { applyStep(i); });
    amounts_->addBeside(i, adjust, *grid);
  }
  exclude_ = new OptionalColour("ckbExcludeWhiteBgd", "picExcludeBgdColor", tr("E&xclude white background"), kNoColour,
                                kWhite, this);
  connect(exclude_, &OptionalColour::changed, this, &frmRuvoAdjEle::makeLive);
  connect(sample(), &SamplePanel::colourPicked, exclude_, &OptionalColour::take);
  auto* cmdRestore = namedButton("cmdRestore", tr("Re&store"), this);
  cmdRestore->setToolTip(tr("Back to the picture as it was"));
  connect(cmdRestore, &QPushButton::clicked, this, &frmRuvoAdjEle::restore);
  auto* row = new QHBoxLayout;
  row->addWidget(cmdRestore);
  row->addStretch();

  controls()->addLayout(grid);
  controls()->addWidget(exclude_);
  controls()->addLayout(row);
  controls()->addStretch();
}

EffectStep frmRuvoAdjEle::stepOf(int element) const {
  const double amount = amounts_->values()[static_cast<std::size_t>(element)];
  return effectStep("adjust", {static_cast<double>(element), amount, exclude_->value()});
}

void frmRuvoAdjEle::makeLive() {
  std::vector<EffectStep> live;
  for (int i = 0; i < ElementRows::kElements; ++i) {
    if (amounts_->values()[static_cast<std::size_t>(i)] != 0) live.push_back(stepOf(i));
  }
  steps_.setLive(std::move(live));
  choiceChanged();
}

// The element's amount begins at 0 again, so that the sample shows what it showed.
void frmRuvoAdjEle::applyStep(int element) {
  ElementRows::Values amounts = amounts_->values();
  double& amount = amounts[static_cast<std::size_t>(element)];
  if (amount == 0) return;
  steps_.take(stepOf(element));
  amount = 0;
  amounts_->setValues(amounts);
  makeLive();
}

void frmRuvoAdjEle::restore() {
  steps_.clear();
  amounts_->setValues({});
  choiceChanged();
}

QString frmRuvoAdjEle::refusal() {
  return refusalOf(amounts_->numbers());
}

}  // namespace ruvo
