// What the mouse, the keys and the ticks do to a region.
#include <utility>

#include "canvas/engine/region_compose.h"
#include "canvas/engine/region_engine.h"
#include "canvas/engine/region_marquee.h"
#include "canvas/engine/rubber_band.h"

namespace ruvo {
namespace {

constexpr int kLongStep = 10;  // of the arrow keys with Shift

Rect boxBetween(Point a, Point b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x) + 1, std::max(a.y, b.y) + 1};
}

}  // namespace

// --- Press

void RegionEngine::press(const ToolPoint& at, bool oval) {
  checkPicture();
  if (at.button == MouseButton::Right) return pressRight(at);
  if (!HasRegion()) {
    oval_ = oval;
    begin(Gesture::Band, at);
    pressed_.image = heldInPicture(at.image);
    box_ = boxBetween(pressed_.image, pressed_.image);
    picture_.begin(bitmaps().DIB);
    context_.overlayChanged();
  } else if ((edge_ = catchableEdge(at.display)) != CanvasEdge::None) {
    begin(Gesture::Edge, at);
  } else if (contains(at.image)) {
    begin(Gesture::Drag, at);
    copyWanted_ = at.keys.shift || at.keys.ctrl;
  } else {
    commit();
  }
}

void RegionEngine::begin(Gesture gesture, const ToolPoint& at) {
  gesture_ = gesture;
  context_.scalars.RegionDown = true;
  pressed_ = at;
  boxAtPress_ = box_;
  copyWanted_ = liftedInGesture_ = false;
  copiesBefore_ = copiesLeft_;
  beneathCopy_.ClearUp();
}

void RegionEngine::pressRight(const ToolPoint& at) {
  if (!HasRegion() || !contains(at.image)) return;
  if (pasteOnText_) {
    context_.events.NotifyRightClickOnPastedText();
  } else if (at.keys.ctrl) {
    const Rect shown = onDisplay(box_);
    const ViewGeometry& view = context_.view();
    const Size size = view.displaySize();
    context_.scrollTo(view.ScrollX + (shown.left + shown.right - size.width) / 2,
                      view.ScrollY + (shown.top + shown.bottom - size.height) / 2);
  }
}

Point RegionEngine::heldInPicture(Point image) const {
  const Size size = bitmaps().DIB.size();
  return {std::clamp(image.x, 0, size.width - 1), std::clamp(image.y, 0, size.height - 1)};
}

// --- Move

void RegionEngine::move(const ToolPoint& at) {
  checkPicture();
  switch (gesture_) {
    case Gesture::Band:
      return moveBand(at.image, at.keys.any());
    case Gesture::Edge:
      return moveEdge(at);
    case Gesture::Drag:
      return moveTo(
          {boxAtPress_.left + at.image.x - pressed_.image.x, boxAtPress_.top + at.image.y - pressed_.image.y});
    case Gesture::None:
      return;
  }
}

void RegionEngine::moveBand(Point image, bool equalSides) {
  Point corner = heldInPicture(image);
  if (equalSides) corner = shape::constrainedBox(pressed_.image, corner, bitmaps().DIB.size(), 1);
  const Rect box = boxBetween(pressed_.image, corner);
  if (box == box_) return;
  box_ = box;
  context_.overlayChanged();
  measure();
}

void RegionEngine::moveEdge(const ToolPoint& at) {
  const ViewGeometry& view = context_.view();
  const Size shown = view.displaySize();
  const Point held =
      view.toImage({std::clamp(at.display.x, 0, shown.width - 1), std::clamp(at.display.y, 0, shown.height - 1)});
  const Point travel{held.x - pressed_.image.x, held.y - pressed_.image.y};
  const Rect box = withEdgeMoved(boxAtPress_, edge_, travel, view.visibleImage(), view.Magnify);
  // Too near to the edge across: the last place holds.
  if (box == box_ || (box == boxAtPress_ && travel != Point{})) return;
  box_ = box;
  context_.overlayChanged();
  measure();
}

// Everything that a first move brings about; false when there is no memory for it.
bool RegionEngine::readyToMove() {
  if (!floats()) {
    if (!PrepareRegionDragging()) return false;
    liftedInGesture_ = true;
  }
  if (copyWanted_) copyWanted_ = !leaveCopy();
  return !copyWanted_;
}

// The region goes as far as its limits let it.
void RegionEngine::moveTo(Point corner) {
  const Size size{box_.width(), box_.height()};
  corner = heldWithin(regionLimits(size, bitmaps().DIB.size()), corner);
  if (corner == Point{box_.left, box_.top} || !readyToMove()) return;
  const Rect before = std::exchange(box_, Rect::fromSize(corner.x, corner.y, size.width, size.height));
  pending_ = flags_.RegionTranslucent;
  movedSinceTick_ = true;
  compose(before, false);
  context_.events.NotifyRegionMoved();
  measure();
}

// --- Release and other ends

void RegionEngine::release(const ToolPoint& at) {
  checkPicture();
  const Size shown = context_.view().displaySize();
  const bool outside =
      at.display.x < 0 || at.display.y < 0 || at.display.x >= shown.width || at.display.y >= shown.height;
  // Moves beyond the view are not told, so a band drawn past its rim ends where the button was let go.
  if (gesture_ == Gesture::Band && outside) moveBand(at.image, at.keys.any());
  if (gesture_ == Gesture::Band) return endBand();
  endGesture();
}

void RegionEngine::endBand() {
  gesture_ = Gesture::None;
  context_.scalars.RegionDown = false;
  if (box_.width() < kSmallestRegion || box_.height() < kSmallestRegion) return end();
  flags_ = {};
  pasteOn_ = pasteOnText_ = false;
  settle(Stage::Standing, box_);
  measure();
  context_.events.NotifyRegionStatus();
}

void RegionEngine::endGesture() {
  const Gesture ended = std::exchange(gesture_, Gesture::None);
  if (ended == Gesture::None) return;
  context_.scalars.RegionDown = false;
  beneathCopy_.ClearUp();
  if (ended == Gesture::Band) end();
  UpdateRegionDragging_Process_Translucent();
}

bool RegionEngine::abandon() {
  checkPicture();
  const Gesture gesture = gesture_;
  if (gesture == Gesture::None && !HasRegion()) return false;
  switch (gesture) {
    case Gesture::Drag:
      abandonDrag();
      break;
    case Gesture::Edge:
      box_ = boxAtPress_;
      break;
    case Gesture::Band:
      break;
    case Gesture::None:
      abandonFloat();
      return true;
  }
  endGesture();
  showMarquee();
  if (HasRegion()) measure();
  return true;
}

// Back to where it was at the press, with the copy that the drag has left behind.
void RegionEngine::abandonDrag() {
  if (!floats()) return;
  CanvasBitmaps& b = bitmaps();
  if (!beneathCopy_.empty()) clsDIB::PaintFromDIBtoDIB(beneathCopy_, b.DIBsnap, boxAtPress_.left, boxAtPress_.top);
  copiesLeft_ = copiesBefore_;
  const Rect before = std::exchange(box_, boxAtPress_);
  pending_ = false;
  if (!liftedInGesture_) return compose(before, flags_.RegionTranslucent);
  for (const Rect& part : {before, home_}) restoreUnder(part);
  takeBack();
  clearBitmaps();
  stage_ = Stage::Standing;
}

// With no button held: a paste goes, lifted pixels go back to where they were, and a bare marquee goes.
void RegionEngine::abandonFloat() {
  const bool marqueeStays = floats() && !isPaste();
  const Rect home = home_;
  const bool copies = drop();
  if (marqueeStays) {
    oval_ = liftedOval_;
    settle(Stage::Standing, home);
    measure();
  }
  if (copies) context_.events.NotifyToPrepareUndo();
  context_.events.NotifyRegionStatus();
}

// --- Keys and time

bool RegionEngine::arrow(CanvasKey key, KeyModifiers keys) {
  checkPicture();
  if (gesture_ != Gesture::None) return true;
  if (!HasRegion()) return false;
  const int step = keys.shift ? kLongStep : 1;
  const int dx = key == CanvasKey::Left ? -step : key == CanvasKey::Right ? step : 0;
  const int dy = key == CanvasKey::Up ? -step : key == CanvasKey::Down ? step : 0;
  copyWanted_ = false;
  moveTo({box_.left + dx, box_.top + dy});
  return true;
}

void RegionEngine::tick() {
  checkPicture();
  if (!std::exchange(movedSinceTick_, false)) UpdateRegionDragging_Process_Translucent();
  if (gesture_ != Gesture::None) return;
  // The rectangle knows two phases; the oval counts on.
  if (HasRegion() && !antsSuspended_) marqueePhase_ = oval_ ? (marqueePhase_ + 1) % 0x8000 : 1 - marqueePhase_;
  showMarquee();
}

// --- What is seen

OverlayFigures RegionEngine::overlay() const {
  if (!HasRegion() && gesture_ != Gesture::Band) return {};
  MarqueeStyle style;
  style.oval = oval_;
  style.suspended = antsSuspended_;
  style.alternative = context_.settings.UseAlternativeRegionMarquee;
  style.phase = marqueePhase_;
  return {DrawRegionMarquee(onDisplay(box_), style)};
}

CanvasEdge RegionEngine::catchableEdge(Point display) const {
  if (floats() || isPaste() || context_.settings.SuspendRegionResizeByEdgeDragging) return CanvasEdge::None;
  return edgeAt(onDisplay(box_), display, oval_, context_.scale());
}

CursorWord RegionEngine::cursor(Point display, CursorWord noRegion) const {
  if (!HasRegion()) return noRegion;
  const CanvasEdge edge = gesture_ == Gesture::Edge ? edge_ : catchableEdge(display);
  if (gesture_ != Gesture::Drag && edge != CanvasEdge::None) {
    const bool upright = edge == CanvasEdge::Top || edge == CanvasEdge::Bottom;
    return upright ? CursorWord::SizeVertical : CursorWord::SizeHorizontal;
  }
  if (gesture_ == Gesture::Drag || contains(context_.view().toImage(display)))
    return isPaste() ? CursorWord::PasteDrag : CursorWord::RegionDrag;
  const bool plain = !isPaste() && context_.settings.SuspendRegionResizeByEdgeDragging;
  return plain ? CursorWord::Arrow : noRegion;
}

}  // namespace ruvo
