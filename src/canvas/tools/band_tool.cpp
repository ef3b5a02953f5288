#include "canvas/tools/band_tool.h"

#include <algorithm>

#include "canvas/engine/rubber_band.h"

namespace ruvo {

Rect BandTool::Band::box() const {
  return {std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1, std::max(from.y, to.y) + 1};
}

void BandTool::press(ToolContext& context, const ToolPoint& at) {
  picture_.begin(context.bitmaps.DIB);
  context.scalars.StrokeDown = true;
  band_ = {at.image, at.image};
  pointer_ = at.display;
  showBand(context);
}

void BandTool::move(ToolContext& context, const ToolPoint& at) {
  if (!picture_.active()) return;
  if (!picture_.isStill(context.bitmaps.DIB)) return takeAway(context);
  follow(context, at);
}

void BandTool::follow(ToolContext& context, const ToolPoint& at) {
  const ViewGeometry& view = context.view();
  const Size display = view.displaySize();
  pointer_ = at.display;
  // The far rim of the view still moves a tool, and lies one pixel outside of it.
  const Point inside{std::clamp(at.display.x, 0, display.width - 1), std::clamp(at.display.y, 0, display.height - 1)};
  Point to = view.toImage(inside);
  if (at.keys.any()) {
    const int magnify = view.FitInView ? 1 : view.Magnify;
    const Point anchor = shape::middleOf(view, band_.from), end = shape::middleOf(view, to);
    to = view.toImage(constrained(anchor, end, display, magnify));
  }
  if (to == band_.to) return;
  band_.to = to;
  showBand(context);
  measure(context.events, band_);
}

void BandTool::showBand(ToolContext& context) {
  const ViewGeometry& view = context.view();
  context.scalars.LineRect = {shape::middleOf(view, band_.from), shape::middleOf(view, band_.to)};
  context.overlayChanged();
}

void BandTool::takeAway(ToolContext& context) {
  drop();
  context.scalars.StrokeDown = false;
  context.overlayChanged();
}

void BandTool::release(ToolContext& context, const ToolPoint& at) {
  clsDIB& dib = context.bitmaps.DIB;
  const bool ours = picture_.isStill(dib);
  const Size display = context.view().displaySize();
  const bool inside = Rect{0, 0, display.width, display.height}.contains(at.display.x, at.display.y);
  // A key that was let go just before the button must not move what is shown.
  if (ours && inside && at.display != pointer_) follow(context, at);
  takeAway(context);
  if (!ours) return;
  const Rect landed = draw(dib, context.settings, band_);
  if (landed.empty()) return;
  context.changed(landed);
  context.events.NotifyToPrepareUndo();
}

void BandTool::abort(ToolContext& context) {
  // Nothing is in the picture yet, so a band that its owner leaves goes without a trace.
  if (picture_.active()) takeAway(context);
}

bool BandTool::abandon(ToolContext& context) {
  if (!picture_.active()) return false;
  takeAway(context);
  context.events.DispMeasureClear();
  return true;
}

OverlayFigures BandTool::overlay(const ToolContext& context) {
  if (!picture_.isStill(context.bitmaps.DIB)) return {};
  const ViewGeometry& view = context.view();
  return {figure(shape::middleOf(view, band_.from), shape::middleOf(view, band_.to))};
}

}  // namespace ruvo
