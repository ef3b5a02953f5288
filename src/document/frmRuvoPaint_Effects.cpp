// Effects on the picture or on what a region holds.
#include "document/frmRuvoPaint_Private.h"
#include "effects/effect_windows.h"
#include "effects/frmRuvoRotate.h"
#include "effects/model/room.h"

namespace ruvo {

namespace {

// Room that an effect gets around a region: enough for what falls close by, and the sample still shows the region large.
int roomAround(Size region) {
  constexpr int kLeast = 48, kMost = 160;
  return std::clamp(std::max(region.width, region.height) / 4, kLeast, kMost);
}

}  // namespace

clsDIB frmRuvoPaint::Private::beneath(const Rect& box) const {
  clsDIB ground;
  const clsDIB& picture = canvas->RegionMoveReady() ? canvas->DIBsnap() : canvas->DIB();
  if (ground.CreateBlankDIB(box.width(), box.height(), 32, kWhite))
    clsDIB::PaintFromDIBtoDIB(picture, ground, -box.left, -box.top);
  return ground;
}

bool frmRuvoPaint::Private::changeSubject(const Make& make, bool movesPixels) {
  if (!hasPicture()) return false;
  if (!canvas->HasRegion()) {
    return changePicture([&](clsDIB& picture) {
      clsDIB result;
      if (!make({picture}, result)) return false;
      if (movesPixels || result.size() != picture.size()) iconMask = {};
      picture = std::move(result);
      return true;
    });
  }
  clsDIB held, result;
  if (!canvas->copyRegion(held)) {
    tellNoMemory();
    return false;
  }
  const std::optional<Rect> box = regionBox();
  const clsDIB ground = box && held.DIBhasAlpha() ? beneath(*box) : clsDIB();
  if (!make({held, true, ground.empty() ? nullptr : &ground}, result)) return false;
  const bool replaced = canvas->replaceRegion(result);
  if (!replaced) tellNoMemory();
  return replaced;
}

bool frmRuvoPaint::Private::changeAroundRegion(const Make& make) {
  const std::optional<Rect> box = regionBox();
  clsDIB held, result;
  if (!box || !canvas->copyCoveredRegion(held)) return tellNoMemory(), false;
  const int room = roomAround(held.size());
  if (!makeRoom(held, {room, room, room, room}, {})) return tellNoMemory(), false;
  // A region at the limits of a picture gets none.
  const int given = (held.DIBWidth() - box->width()) / 2;
  const Point corner{box->left - given, box->top - given};
  const clsDIB ground = beneath(Rect::fromSize(corner.x, corner.y, held.DIBWidth(), held.DIBHeight()));
  if (!make({held, true, ground.empty() ? nullptr : &ground}, result)) return false;
  return growTrimmed(result, corner);
}

// The region becomes what is not see-through of a picture that lies at `corner`.
bool frmRuvoPaint::Private::growTrimmed(const clsDIB& picture, Point corner) {
  const Rect shown = shownPart(picture);
  if (shown.empty()) return false;
  clsDIB part;
  const bool made = part.CreateBlankDIB(shown.width(), shown.height(), 32, kWhite);
  if (made) {
    clsDIB::PaintFromDIBtoDIB(picture, part, 0, 0, 0, 0, shown.left, shown.top);
    part.setDIBhasAlpha(true);
  }
  const bool done = made && canvas->growRegion(part, {corner.x + shown.left, corner.y + shown.top});
  if (!done) tellNoMemory();
  return done;
}

void frmRuvoPaint::Private::tellNoMemory() {
  tell(tr(kNoMemoryText));
}

void frmRuvoPaint::Private::runEffect(const EffectItem& item) {
  const auto make = [&](const EffectSubject& subject, clsDIB& result) {
    if (!item.window) return applyEffect(item, subject, result);
    const std::unique_ptr<EffectWindow> window = makeEffectWindow(item, subject, effectHost, link.window());
    return window && showEffectWindow(*window, result);
  };
  const Effect* effect = item.effects.empty() ? nullptr : effectOf(item.effects.front());
  if (effect && effect->reachesOut && hasPicture() && canvas->HasRegion()) {
    changeAroundRegion(make);
  } else {
    changeSubject(make, effect && effect->movesPixels);
  }
}

void frmRuvoPaint::Private::rotateByAngle() {
  const auto make = [&](const EffectSubject& subject, clsDIB& result) {
    frmRuvoRotate window(subject, link.window());
    return showEffectWindow(window, result);
  };
  if (hasPicture() && canvas->HasRegion()) {
    turnRegion(make);
  } else {
    changeSubject(make, true);
  }
}

// Around its middle, with its outline: what is turned floats, as after a quarter turn.
bool frmRuvoPaint::Private::turnRegion(const Make& make) {
  const std::optional<Rect> box = regionBox();
  clsDIB held, result;
  if (!box || !canvas->copyCoveredRegion(held)) return tellNoMemory(), false;
  const clsDIB ground = beneath(*box);
  if (!make({held, false, ground.empty() ? nullptr : &ground}, result)) return false;
  const Point corner{box->left + (box->width() - result.DIBWidth()) / 2,
                     box->top + (box->height() - result.DIBHeight()) / 2};
  return canvas->PrepareRegionDragging() ? growTrimmed(result, corner) : (tellNoMemory(), false);
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
