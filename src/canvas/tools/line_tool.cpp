// Tool 4: a line in one of nine types.
#include <cmath>
#include <numbers>

#include "canvas/engine/rubber_band.h"
#include "canvas/engine/shape_line_types.h"
#include "canvas/tools/band_tool.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

// As on paper: 45 rises to the right. A line has no direction, so half a turn is all there is.
double angleOf(Point from, Point to) {
  double angle = std::atan2(from.y - to.y, to.x - from.x) * 180 / std::numbers::pi;
  if (angle < 0) angle += 360;
  return angle >= 180 ? angle - 180 : angle;
}

class LineTool final : public BandTool {
  Point constrained(Point anchor, Point end, Size display, int magnify) const override {
    return shape::constrainedLine(anchor, end, display, magnify);
  }
  OverlayFigure figure(Point from, Point to) const override { return OverlayFigure::line(from, to); }
  void measure(CanvasEvents& events, const Band& band) const override {
    events.DispMeasureLine(band.from.x, band.from.y, band.to.x, band.to.y, angleOf(band.from, band.to));
  }
  Rect draw(clsDIB& picture, const CanvasSettings& settings, const Band& band) const override {
    return shape::drawLine(picture, band.from, band.to, settings.ColorToUse,
                           {settings.LineType, settings.BrushSize, settings.AllowAntialiasing});
  }
};

}  // namespace

std::unique_ptr<CanvasTool> makeLineTool() {
  return std::make_unique<LineTool>();
}

}  // namespace ruvo
