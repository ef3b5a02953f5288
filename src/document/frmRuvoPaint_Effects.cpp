// Effects on the picture or on what a region holds.
#include "document/frmRuvoPaint_Private.h"
#include "effects/effect_windows.h"
#include "effects/frmRuvoRotate.h"

namespace ruvo {

// Under what floats and can be seen through; else empty.
clsDIB frmRuvoPaint::Private::beneathRegion(const clsDIB& held) const {
  clsDIB beneath;
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  if (!held.DIBhasAlpha() || !canvas->RegionMoveReady() || !canvas->GetRegionData(x1, y1, x2, y2) ||
      !beneath.CreateBlankDIB(held.DIBWidth(), held.DIBHeight(), 32, kWhite)) {
    return beneath;
  }
  clsDIB::PaintFromDIBtoDIB(canvas->DIBsnap(), beneath, -x1, -y1);
  return beneath;
}

bool frmRuvoPaint::Private::changeSubject(const Make& make) {
  if (!hasPicture()) return false;
  if (!canvas->HasRegion()) {
    return changePicture([&](clsDIB& picture) {
      clsDIB result;
      if (!make({picture}, result)) return false;
      if (result.size() != picture.size()) iconMask = {};
      picture = std::move(result);
      return true;
    });
  }
  clsDIB held, result;
  if (!canvas->copyRegion(held)) {
    tellNoMemory();
    return false;
  }
  const clsDIB beneath = beneathRegion(held);
  if (!make({held, true, beneath.empty() ? nullptr : &beneath}, result)) return false;
  const bool replaced = canvas->replaceRegion(result);
  if (!replaced) tellNoMemory();
  return replaced;
}

void frmRuvoPaint::Private::tellNoMemory() {
  tell(tr("Not enough memory for this operation."));
}

void frmRuvoPaint::Private::runEffect(const EffectItem& item) {
  changeSubject([&](const EffectSubject& subject, clsDIB& result) {
    if (!item.window) return applyEffect(item, subject, result);
    const std::unique_ptr<EffectWindow> window = makeEffectWindow(item, subject, effectHost, link.window());
    return window && showEffectWindow(*window, result);
  });
}

void frmRuvoPaint::Private::rotateByAngle() {
  changeSubject([&](const EffectSubject& subject, clsDIB& result) {
    frmRuvoRotate window(subject, link.window());
    return showEffectWindow(window, result);
  });
}

bool frmRuvoPaint::Private::showEffectWindow(EffectWindow& window, clsDIB& result) {
  if (window.exec() != QDialog::Accepted) return false;
  result = window.takeResult();
  return true;
}

// At once, without a window.
bool frmRuvoPaint::Private::applyEffect(const EffectItem& item, const EffectSubject& subject, clsDIB& result) {
  const Effect* effect = effectOf(item.effects.front());
  std::vector<EffectValue> values = standardValues(*effect);
  if (!values.empty() && item.value != 0) values.front().number = item.value;
  EffectInput input(std::move(values));
  input.keepSize = subject.region;
  const WaitCursor wait;
  const ProgressShown shown(link);
  const bool done = clsDIB::CloneDIB(subject.picture, result, kWhite, subject.picture.BottomUp()) &&
                    effect->apply(result, input, shown.progress());
  if (!done) tellNoMemory();
  return done;
}

void frmRuvoPaint::mnuEffectsBrightenSub_Click(int index) {
  d_->runMenu(QStringLiteral("mnuEffectsBrightenSub"), index);
}

void frmRuvoPaint::mnuEffectsDarkenSub_Click(int index) {
  d_->runMenu(QStringLiteral("mnuEffectsDarkenSub"), index);
}

// The region's own commands: 0 its border, 1 its shadow.
void frmRuvoPaint::Do_cmdRegionOperation(int index) {
  const char* window = index == 0 ? "frmRuvoRegionOp" : index == 1 ? "frmRuvoAddShadow" : "";
  for (const EffectItem& item : effectMenu()) {
    if (item.window && QLatin1String(item.window) == QLatin1String(window)) return d_->runEffect(item);
  }
}

}  // namespace ruvo
