// A region's life: how it comes to float, how it is composed, and how it ends.
#include "canvas/engine/region_engine.h"

#include <utility>

#include "canvas/engine/brush_mix.h"
#include "canvas/engine/image_shape.h"
#include "canvas/engine/region_compose.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

Point cornerOf(const Rect& box) {
  return {box.left, box.top};
}

bool isQuarterTurn(int kind) {
  return kind >= 2;
}

// A pasted picture as the target keeps its pixels: 32 bits, byte 3 as there; a soft one keeps its own.
bool takePasted(const clsDIB& picture, const clsDIB& target, bool soft, clsDIB& region) {
  if (!region.CreateBlankDIB(picture.DIBWidth(), picture.DIBHeight(), 32, kWhite)) return false;
  const bool keepsAlpha = soft || target.DIBhasAlpha();
  const bool flatten = picture.DIBhasAlpha() && !keepsAlpha;
  if (flatten) {
    clsDIB::Display_DIB_With_Alpha(picture, region.surface(), kWhite);
  } else {
    raster::blit(region.surface(), 0, 0, picture.surface());
  }
  region.setDIBhasAlpha(keepsAlpha);
  if (picture.DIBhasAlpha()) return true;
  const auto pixels = region.surface().view32();
  for (int y = 0; y < pixels.height(); ++y) {
    for (int x = 0; x < pixels.width(); ++x) pixels.at(x, y).alpha = keepsAlpha ? 255 : 0;
  }
  return true;
}

// Byte 3 of pictures of one size and row order.
void takeAlpha(const clsDIB& from, clsDIB& to) {
  for (int y = 0; y < to.DIBHeight(); ++y) {
    const auto* source = from.surface().view32().row(y);
    auto* row = to.surface().view32().row(y);
    for (int x = 0; x < to.DIBWidth(); ++x) row[x].alpha = source[x].alpha;
  }
}

bool turnedCopy(const clsDIB& from, int kind, clsDIB& to) {
  if (from.empty()) return true;
  if (!clsDIB::CloneDIB(from, to, kWhite, from.BottomUp())) return false;
  const Size size = from.size();
  clsDIB::RotateDIB(to, kind);
  return to.size() == (isQuarterTurn(kind) ? Size{size.height, size.width} : size);
}

}  // namespace

// A mirror turns the sense of the quarters before it; top to bottom is left to right with half a turn.
void TurnsMade::add(int kind) {
  if (isQuarterTurn(kind)) {
    quarters += kind == 2 ? 1 : 3;
  } else {
    mirrored = !mirrored;
    quarters = (kind == 0 ? 4 : 6) - quarters;
  }
  quarters %= 4;
}

bool TurnsMade::redo(clsDIB& picture) const {
  if (mirrored) clsDIB::RotateDIB(picture, 0);
  for (int i = 0; i < quarters; ++i) {
    const Size before = picture.size();
    clsDIB::RotateDIB(picture, 2);
    if (picture.size() != Size{before.height, before.width}) return false;
  }
  return true;
}

// --- What it is

bool RegionEngine::GetRegionData(int& x1, int& y1, int& x2, int& y2) const {
  if (!HasRegion()) return false;
  x1 = box_.left;
  y1 = box_.top;
  x2 = box_.right - 1;
  y2 = box_.bottom - 1;
  return true;
}

Rect RegionEngine::onDisplay(const Rect& box) const {
  const ViewGeometry& view = context_.view();
  const Point from = view.toDisplay(Point{box.left, box.top}), to = view.toDisplay(Point{box.right, box.bottom});
  return {from.x, from.y, to.x, to.y};
}

Rect RegionEngine::RegionRect() const {
  return HasRegion() ? onDisplay(box_) : Rect{};
}

bool RegionEngine::contains(Point image) const {
  if (!box_.contains(image.x, image.y)) return false;
  return !oval_ || inRegionOval({box_.width(), box_.height()}, {image.x - box_.left, image.y - box_.top});
}

std::optional<Colour> RegionEngine::keyColour() const {
  const bool keyed = flags_.RegionTranslucent ? flags_.TranslucentTransparent : flags_.RegionTransparent;
  return keyed ? std::optional(context_.settings.TransparentColor) : std::nullopt;
}

void RegionEngine::setFlags(const RegionFlags& flags) {
  flags_ = flags;
  flags_.TranslucentPercent = std::clamp(flags.TranslucentPercent, 0, 100);
  pending_ = pending_ && flags_.RegionTranslucent;
  if (floats()) UpdateRegionDragging();
}

void RegionEngine::setPaste(bool& flag, bool on) {
  if (!on && flag && floats()) return context_.selectTool(kScrollOp);
  flag = on;
}

void RegionEngine::setSuspendAntsMarching(bool suspend) {
  antsSuspended_ = suspend;
  showMarquee();
}

// --- Floating

bool RegionEngine::PrepareRegionDragging() {
  checkPicture();
  if (!HasRegion() || floats()) return floats();
  clsDIB region, shape, mask, snap;
  const clsDIB& picture = bitmaps().DIB;
  if (picture.surface().depth() != 32 || !takeRegionPixels(picture, box_, region) ||
      !makeRegionMask(region, oval_, std::nullopt, shape) || !makeRegionMask(region, oval_, keyColour(), mask) ||
      !clsDIB::CloneDIB(picture, snap, kWhite, picture.BottomUp())) {
    return false;
  }
  ClearAreasOutsideImageShape(region, shape, kBlack);
  clearBeneath(snap, mask, box_, context_.settings.TransparentColor);
  bitmaps().DIBregion = std::move(region);
  bitmaps().DIBmask = std::move(mask);
  bitmaps().DIBsnap = std::move(snap);
  maskKey_ = keyColour();
  home_ = box_;
  liftedOval_ = oval_;
  copiesLeft_ = false;
  stage_ = Stage::Floating;
  if (flags_.RegionTranslucent) UpdateRegionDragging();
  return true;
}

bool RegionEngine::startPaste(const clsDIB& picture, const PasteManner& manner) {
  clsDIB region, mask, snap;
  const clsDIB& target = bitmaps().DIB;
  if (target.surface().depth() != 32 || picture.empty() || !takePasted(picture, target, manner.soft, region))
    return false;
  const Colour topLeft = clsDIB::GetTopPixelColor(region, true);
  const std::optional<Colour> key = manner.transparent ? std::optional(topLeft) : std::nullopt;
  if (!makeRegionMask(region, false, key, mask) || (manner.soft && !leaveOutSeeThrough(region, mask))) return false;
  if (!clsDIB::CloneDIB(target, snap, kWhite, target.BottomUp())) return false;

  context_.selectTool(kRectangleRegionOp);
  forget();
  bitmaps().DIBregion = std::move(region);
  bitmaps().DIBmask = std::move(mask);
  bitmaps().DIBsnap = std::move(snap);
  if (key) {
    colourBeforePaste_ = std::exchange(context_.settings.TransparentColor, *key);
    pasteKey_ = key;
  }
  maskKey_ = key;
  oval_ = false;
  soft_ = manner.soft;
  (manner.text ? pasteOnText_ : pasteOn_) = true;
  flags_ = {manner.transparent, manner.translucent, manner.transparent && manner.translucent,
            std::clamp(manner.percent, 0, 100)};
  const ViewGeometry& view = context_.view();
  settle(Stage::Floating, Rect::fromSize(view.VisStartX, view.VisStartY, bitmaps().DIBregion.DIBWidth(),
                                         bitmaps().DIBregion.DIBHeight()));
  compose(box_, flags_.RegionTranslucent);
  measure();
  context_.events.NotifyRegionStatus();
  return true;
}

bool RegionEngine::replacePaste(const clsDIB& picture) {
  endGesture();
  checkPicture();
  CanvasBitmaps& b = bitmaps();
  clsDIB region, mask;
  if (!floats() || !isPaste() || picture.empty() || !takePasted(picture, b.DIB, soft_, region) ||
      !turns_.redo(region) || !makeMask(region, mask)) {
    return false;
  }
  b.DIBregion = std::move(region);
  b.DIBmask = std::move(mask);
  maskKey_ = keyColour();
  const Size size = b.DIBregion.size();
  const Point at = heldWithin(regionLimits(size, b.DIB.size()), cornerOf(box_));
  const Rect before = std::exchange(box_, Rect::fromSize(at.x, at.y, size.width, size.height));
  compose(before, flags_.RegionTranslucent);
  context_.events.NotifyRegionMoved();
  measure();
  return true;
}

bool RegionEngine::turn(int kind) {
  endGesture();
  if (kind < 0 || kind > 3 || !PrepareRegionDragging()) return false;
  CanvasBitmaps& b = bitmaps();
  clsDIB region, mask;
  if (!turnedCopy(b.DIBregion, kind, region) || !turnedCopy(b.DIBmask, kind, mask)) return false;
  if (!isPaste() && lifted_.empty()) lifted_ = std::move(b.DIBregion);
  b.DIBregion = std::move(region);
  b.DIBmask = std::move(mask);
  turns_.add(kind);
  const Rect before = box_;
  if (isQuarterTurn(kind)) {
    const Size size = b.DIBregion.size();
    const Point corner{before.left + (before.width() - size.width) / 2,
                       before.top + (before.height() - size.height) / 2};
    const Point at = heldWithin(regionLimits(size, b.DIB.size()), corner);
    box_ = Rect::fromSize(at.x, at.y, size.width, size.height);
  }
  compose(before, flags_.RegionTranslucent);
  context_.events.NotifyRegionMoved();
  measure();
  return true;
}

// A region of this rectangle stands on the present picture.
void RegionEngine::settle(Stage stage, const Rect& box) {
  stage_ = stage;
  box_ = home_ = box;
  copiesLeft_ = false;
  marqueePhase_ = 0;
  picture_.begin(bitmaps().DIB);
  showMarquee();
}

// --- Composing

bool RegionEngine::makeMask(const clsDIB& region, clsDIB& mask) const {
  return makeRegionMask(region, oval_, keyColour(), mask) && (!soft_ || leaveOutSeeThrough(region, mask));
}

// DIBmask follows the flags and the colour; false when there is no memory for it, and it is as before.
bool RegionEngine::refreshMask() {
  const std::optional<Colour> key = keyColour();
  if (key == maskKey_) return true;
  clsDIB mask;
  if (!makeMask(bitmaps().DIBregion, mask)) return false;
  bitmaps().DIBmask = std::move(mask);
  maskKey_ = key;
  return true;
}

void RegionEngine::UpdateRegionDragging() {
  checkPicture();
  if (!floats()) return;
  refreshMask();
  pending_ = flags_.RegionTranslucent && gesture_ == Gesture::Drag;
  compose(box_, flags_.RegionTranslucent && !pending_);
}

void RegionEngine::UpdateRegionDragging_Process_Translucent() {
  if (!std::exchange(pending_, false)) return;
  checkPicture();
  if (floats() && flags_.RegionTranslucent) compose(box_, true);
}

// Brings DIB from the region at `before` to the region at its box. Only pixels of these two rectangles are touched.
void RegionEngine::compose(const Rect& before, bool blended) {
  CanvasBitmaps& b = bitmaps();
  for (const Rect& part : partsOutside(before, box_)) restoreUnder(part);
  const Point at = cornerOf(box_);
  if (soft_) {
    composeSoft(b.DIB, b.DIBsnap, b.DIBregion, b.DIBmask, at, blended ? flags_.TranslucentPercent : 100);
  } else if (!blended || !composeBlended(b.DIB, b.DIBsnap, b.DIBregion, b.DIBmask, at, flags_.TranslucentPercent)) {
    composeFlat(b.DIB, b.DIBsnap, b.DIBregion, b.DIBmask, at);
  }
  context_.changed(box_);
  showMarquee();
}

// The picture without the region.
void RegionEngine::restoreUnder(const Rect& box) {
  if (box.empty()) return;
  raster::blit(bitmaps().DIB.surface(), box.left, box.top, box.width(), box.height(), bitmaps().DIBsnap.surface(),
               box.left, box.top);
  context_.changed(box);
}

// What DIB shows under the region becomes part of what lies beneath; false when there is no memory to take it back.
bool RegionEngine::leaveCopy() {
  UpdateRegionDragging_Process_Translucent();
  CanvasBitmaps& b = bitmaps();
  if (!takeRegionPixels(b.DIBsnap, box_, beneathCopy_)) return false;
  raster::blit(b.DIBsnap.surface(), box_.left, box_.top, box_.width(), box_.height(), b.DIB.surface(), box_.left,
               box_.top);
  // At home it only fills the place that the lift has emptied.
  const bool filledHome = !isPaste() && box_ == home_ && !flags_.RegionTranslucent;
  copiesLeft_ = copiesLeft_ || !filledHome;
  return true;
}

// What floats goes back to where it was lifted; a paste goes.
void RegionEngine::takeBack() {
  CanvasBitmaps& b = bitmaps();
  restoreUnder(box_);
  if (isPaste()) return;
  clsDIB shape;
  const clsDIB& pixels = lifted_.empty() ? b.DIBregion : lifted_;
  if (!makeRegionMask(pixels, liftedOval_, std::nullopt, shape) && lifted_.empty()) shape = std::move(b.DIBmask);
  composeFlat(b.DIB, b.DIB, pixels, shape, cornerOf(home_));
  context_.changed(home_);
}

// --- Ends

void RegionEngine::clearBitmaps() {
  bitmaps().DIBsnap.ClearUp();
  bitmaps().DIBregion.ClearUp();
  bitmaps().DIBmask.ClearUp();
  lifted_.ClearUp();
  maskKey_.reset();
  soft_ = false;
  turns_ = {};
  pending_ = false;
}

void RegionEngine::forget() {
  if (floats()) clearBitmaps();
  // Only a paste's own colour gives way to the one before it; another has been chosen meanwhile.
  if (pasteKey_ && context_.settings.TransparentColor == *pasteKey_)
    context_.settings.TransparentColor = colourBeforePaste_;
  pasteKey_.reset();
  beneathCopy_.ClearUp();
  stage_ = Stage::None;
  gesture_ = Gesture::None;
  context_.scalars.RegionDown = false;
  pasteOn_ = pasteOnText_ = copiesLeft_ = false;
  flags_ = {};
  picture_.end();
}

// Nothing is seen or told of it any more.
void RegionEngine::end() {
  forget();
  showMarquee();
  context_.events.DispMeasureClear();
}

void RegionEngine::checkPicture() {
  if ((HasRegion() || gesture_ != Gesture::None) && !picture_.isStill(bitmaps().DIB)) forget();
}

bool RegionEngine::commit() {
  endGesture();
  checkPicture();
  if (!HasRegion()) return false;
  const bool landed = floats();
  // DIB shows the region composed, so letting it land is letting it go.
  UpdateRegionDragging_Process_Translucent();
  end();
  if (landed) context_.events.NotifyToPrepareUndo();
  context_.events.NotifyRegionStatus();
  return landed;
}

bool RegionEngine::drop() {
  endGesture();
  checkPicture();
  if (!HasRegion()) return false;
  const bool copies = floats() && copiesLeft_;
  if (floats()) takeBack();
  end();
  return copies;
}

bool RegionEngine::erase() {
  endGesture();
  checkPicture();
  if (!HasRegion()) return false;
  bool changes = true;
  if (floats()) {
    changes = !isPaste() || copiesLeft_;
    restoreUnder(box_);
  } else {
    clsDIB pixels, shape;
    if (!takeRegionPixels(bitmaps().DIB, box_, pixels) || !makeRegionMask(pixels, oval_, std::nullopt, shape))
      return false;
    clearBeneath(bitmaps().DIB, shape, box_, kWhite);
    context_.changed(box_);
  }
  end();
  return changes;
}

// The pixels of what floats, or those under a bare marquee; nothing is left out.
bool RegionEngine::takeHeld(clsDIB& out) const {
  const CanvasBitmaps& b = bitmaps();
  if (!HasRegion() || !picture_.isStill(b.DIB)) return false;
  return floats() ? takeRegionPixels(b.DIBregion, b.DIBregion.surface().bounds(), out)
                  : takeRegionPixels(b.DIB, box_, out);
}

// The mask of the pixels that the region holds; null without memory. What floats may have been turned, and its mask with
// it; else it is made.
const clsDIB* RegionEngine::coverMask(const clsDIB& pixels, clsDIB& made) const {
  if (floats() && maskKey_ == keyColour()) return &bitmaps().DIBmask;
  return makeMask(pixels, made) ? &made : nullptr;
}

bool RegionEngine::copy(clsDIB& out) const {
  if (!takeHeld(out)) return false;
  // Letters keep their colour where they are see-through: white there would come back as a rim.
  if (soft_ && !keyColour()) return true;
  clsDIB made;
  const clsDIB* mask = coverMask(out, made);
  if (!mask) return false;
  ClearAreasOutsideImageShape(out, *mask, kWhite, soft_ ? 0 : brush::writtenAlpha(out));
  return true;
}

bool RegionEngine::copyCovered(clsDIB& out) const {
  clsDIB made;
  const clsDIB* mask = takeHeld(out) ? coverMask(out, made) : nullptr;
  if (!mask) return false;
  const bool alphaCounts = soft_ || bitmaps().DIB.DIBhasAlpha();
  for (int y = 0; y < out.DIBHeight(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(out.surface().pictureRow(y));
    const auto* left = mask->empty() ? nullptr : reinterpret_cast<const Pixel32*>(mask->surface().pictureRow(y));
    for (int x = 0; x < out.DIBWidth(); ++x) {
      const bool covered = !left || left[x].colour() == kBlack;
      if (!covered && !soft_) row[x] = Pixel32::plain(kWhite);
      row[x].alpha = !covered ? 0 : alphaCounts ? row[x].alpha : 255;
    }
  }
  out.setDIBhasAlpha(true);
  return true;
}

bool RegionEngine::grow(const clsDIB& pixels, Point corner) {
  endGesture();
  checkPicture();
  if (!HasRegion() || pixels.surface().depth() != 32 || !pixels.DIBhasAlpha()) return false;
  if (floats()) return growFloating(pixels, corner);
  clsDIB seeThrough;
  if (!leaveOutSeeThrough(pixels, seeThrough)) return false;
  clsDIB& picture = bitmaps().DIB;
  composeSoft(picture, picture, pixels, seeThrough, corner, 100);
  context_.changed(Rect::fromSize(corner.x, corner.y, pixels.DIBWidth(), pixels.DIBHeight())
                       .intersected(picture.surface().bounds()));
  context_.events.NotifyToPrepareUndo();
  return true;
}

bool RegionEngine::growFloating(const clsDIB& pixels, Point corner) {
  CanvasBitmaps& b = bitmaps();
  clsDIB region, mask;
  if (!clsDIB::CloneDIB(pixels, region, kBlack, pixels.BottomUp()) || !leaveOutSeeThrough(region, mask)) return false;
  if (!isPaste() && lifted_.empty()) lifted_ = std::move(b.DIBregion);
  b.DIBregion = std::move(region);
  b.DIBmask = std::move(mask);
  soft_ = true;
  oval_ = false;
  const Rect before = std::exchange(box_, Rect::fromSize(corner.x, corner.y, pixels.DIBWidth(), pixels.DIBHeight()));
  compose(before, flags_.RegionTranslucent);
  context_.events.NotifyRegionMoved();
  measure();
  return true;
}

bool RegionEngine::replace(const clsDIB& pixels) {
  endGesture();
  checkPicture();
  const Size size = floats() ? bitmaps().DIBregion.size() : Size{box_.width(), box_.height()};
  if (!HasRegion() || pixels.surface().depth() != 32 || pixels.size() != size) return false;
  if (floats()) return replaceFloating(pixels);
  clsDIB held, mask;
  clsDIB& picture = bitmaps().DIB;
  if (!takeRegionPixels(picture, box_, held) || !makeRegionMask(held, oval_, keyColour(), mask)) return false;
  composeFlat(picture, picture, pixels, mask, {box_.left, box_.top});
  context_.changed(box_);
  context_.events.NotifyToPrepareUndo();
  return true;
}

// The mask stays: what was left out of the region has no part in it. A soft region is covered by the alpha of the new
// pixels, or goes on with its own when they have none.
bool RegionEngine::replaceFloating(const clsDIB& pixels) {
  clsDIB& region = bitmaps().DIBregion;
  clsDIB changed, mask;
  if (!clsDIB::CloneDIB(region, changed, kBlack, region.BottomUp())) return false;
  if (soft_ && pixels.DIBhasAlpha()) {
    raster::blit(changed.surface(), 0, 0, pixels.surface());
    if (!makeMask(changed, mask)) return false;
    bitmaps().DIBmask = std::move(mask);
  } else {
    composeFlat(changed, changed, pixels, bitmaps().DIBmask, {0, 0});
    if (soft_) takeAlpha(region, changed);
  }
  std::swap(region, changed);
  if (!isPaste() && lifted_.empty()) lifted_ = std::move(changed);
  compose(box_, flags_.RegionTranslucent);
  context_.events.NotifyRegionMoved();
  return true;
}

// --- Showing

void RegionEngine::showMarquee() {
  context_.setTicking(pending_ || (HasRegion() && !antsSuspended_));
  context_.overlayChanged();
}

void RegionEngine::measure() const {
  const int width = box_.width(), height = box_.height();
  if (oval_) {
    context_.events.DispMeasureOval(box_.left, box_.top, (width + height) / 4.0, width, height);
  } else {
    context_.events.DispMeasureRectangle(box_.left, box_.top, width, height);
  }
}

}  // namespace ruvo
