#include "effects/frmRuvoSwapEle.h"

#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>

#include "dialogs/named_controls.h"
#include "effects/model/effect_steps.h"
#include "effects/model/effect_table.h"

namespace ruvo {

frmRuvoSwapEle::frmRuvoSwapEle(const EffectSubject& subject, QWidget* parent)
    : EffectWindow("frmRuvoSwapEle", tr("Swap Color Elements"), subject, parent) {
  const EffectArgument& order = effectOf("swap")->arguments.front();
  QStringList items;
  for (const char* item : order.choices) items << tr(item);
  cboSwap_ = namedComboBox("cboSwap", items, this);
  cboSwap_->setCurrentIndex(static_cast<int>(order.standard));
  connect(cboSwap_, &QComboBox::currentIndexChanged, this, &frmRuvoSwapEle::choiceChanged);
  auto* label = new QLabel(tr("S&wap \"R.G.B.\" (current) with:"), this);
  label->setBuddy(cboSwap_);
  auto* remark = new QLabel(tr("(Remarks: If current image is of mono color, no change will take place)"), this);
  remark->setWordWrap(true);
  controls()->addWidget(label);
  controls()->addWidget(cboSwap_);
  controls()->addWidget(remark);
  controls()->addStretch();
}

bool frmRuvoSwapEle::apply(clsDIB& picture, double, const Progress& progress) {
  const EffectStep step = effectStep("swap", {static_cast<double>(cboSwap_->currentIndex())});
  return step.effect->apply(picture, EffectInput(step.values), progress);
}

}  // namespace ruvo
