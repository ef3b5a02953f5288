// What the mouse does to the canvas: which events reach the tool, the pointer's shape, the cross hair and the readout.
#include "canvas/engine/canvas_core.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

bool inside(const ViewGeometry& view, Point display) {
  // The far rim counts: a pointer one past the last column still moves the tool.
  return !view.blank() && display.x >= 0 && display.y >= 0 && display.x <= view.picDisp.width() &&
         display.y <= view.picDisp.height();
}

}  // namespace

ToolPoint CanvasCore::toolPoint(Point display, MouseButton button, KeyModifiers keys) const {
  return {display, view_.toImage(display), button, keys};
}

void CanvasCore::mousePress(Point at, MouseButton button, KeyModifiers keys) {
  if (button == MouseButton::None || held()) return;
  heldAt_ = at;
  heldKeys_ = keys;
  wipeXYlines();
  if (!view_.picDisp.contains(at.x, at.y)) {
    backgroundPressed_ = true;
    return;
  }
  if (blank()) return;
  const bool rightOnRegion = button == MouseButton::Right && region_.HasRegion();
  if (button == MouseButton::Right && !row().rightPress && !rightOnRegion && !(tool() && tool()->takesRightPress())) {
    // The press itself does nothing, not even to the measures; but some tools act when this button is let go.
    if (row().rightRelease) heldButton_ = button;
    return;
  }
  // Nothing of a region hangs on the right button being held, and the menu that a host may show takes its release away.
  if (!rightOnRegion) heldButton_ = button;
  events.DispMeasureClear();
  if (tool()) tool()->press(*this, toolPoint(toDisplay(at), button, keys));
}

void CanvasCore::mouseMove(Point at, KeyModifiers keys) {
  const Point display = toDisplay(at);
  if (!inside(view_, display)) {
    region_.UpdateRegionDragging_Process_Translucent();
    if (!held()) leavePicture();
    return;
  }
  scalars.MouseOver = true;
  heldAt_ = at;
  heldKeys_ = keys;
  wipeXYlines();
  chooseCursor(display);
  const ToolPoint point = toolPoint(display, heldButton_, keys);
  if (!held()) {
    if (settings.TurnOnXYlines && row().crossHair) showXYlines(display);
    if (showPixelRgb_ && row().pixelReadout) showPixel(point.image);
  }
  const bool onPicture = bitmaps.DIB.surface().bounds().contains(point.image.x, point.image.y);
  if (settings.ToMonitorXYdata && onPicture) events.MonitorXYdata(point.image.x, point.image.y);
  if (tool() && (held() || tool()->inProgress())) tool()->move(*this, point);
}

void CanvasCore::mouseRelease(Point at, MouseButton button, KeyModifiers keys) {
  if (std::exchange(backgroundPressed_, false)) {
    const bool onBackground = !view_.picDisp.contains(at.x, at.y);
    if (onBackground && settings.ToNotifyCanvasMouseClick) events.NotifyCanvasMouseClick();
    return;
  }
  if (button == MouseButton::None || button != heldButton_) return;
  heldButton_ = MouseButton::None;
  if (blank()) return;
  wipeXYlines();
  if (tool()) tool()->release(*this, toolPoint(toDisplay(at), button, keys));
}

void CanvasCore::letGo() {
  if (held()) mouseRelease(heldAt_, heldButton_, heldKeys_);
}

void CanvasCore::mouseLeave() {
  region_.UpdateRegionDragging_Process_Translucent();
  if (!held()) leavePicture();
}

bool CanvasCore::keyPress(CanvasKey key, KeyModifiers keys) {
  if (blank() || !tool()) return false;
  if (key != CanvasKey::Escape) return tool()->arrow(*this, key, keys);
  if (!tool()->abandon(*this)) return false;
  heldButton_ = MouseButton::None;
  return true;
}

void CanvasCore::tick() {
  if (!blank() && tool()) tool()->tick(*this);
}

void CanvasCore::leavePicture() {
  wipeXYlines();
  if (showPixelRgb_ && row().pixelReadout) window_.setToolTip("");
  if (op_ != kGlassOp) window_.setCursor(CursorWord::Arrow);
  if (op_ == kScrollOp && settings.ToNotifyCanvasMouseMove && scalars.MouseOver) events.NotifyCanvasMouseMove();
  scalars.MouseOver = false;
}

void CanvasCore::chooseCursor(Point display) {
  const CursorWord word = row().cursor;
  window_.setCursor(tool() ? tool()->cursor(*this, display, word) : word);
}

void CanvasCore::showXYlines(Point display) {
  xyLines_ = display;
  scalars.XYlinesShown = true;
  const Size shown = view_.displaySize();
  repaintDisplay({0, display.y, shown.width, display.y + 1});
  repaintDisplay({display.x, 0, display.x + 1, shown.height});
}

void CanvasCore::wipeXYlines() {
  if (!std::exchange(scalars.XYlinesShown, false)) return;
  const Size shown = view_.displaySize();
  repaintDisplay({0, xyLines_.y, shown.width, xyLines_.y + 1});
  repaintDisplay({xyLines_.x, 0, xyLines_.x + 1, shown.height});
}

void CanvasCore::showPixel(Point image) {
  const auto colour = seenColour(image);
  if (!colour) return;
  window_.setToolTip(rgbText(*colour));
}

}  // namespace ruvo
