// Tools 7 and 8: the outline of a rectangle, and a filled one.
#include "canvas/engine/rubber_band.h"
#include "canvas/engine/shape_rectangle.h"
#include "canvas/tools/band_tool.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class RectangleTool final : public BandTool {
 public:
  explicit RectangleTool(bool filled) : filled_(filled) {}

 private:
  Point constrained(Point anchor, Point end, Size display, int magnify) const override {
    return shape::constrainedBox(anchor, end, display, magnify);
  }
  OverlayFigure figure(Point from, Point to) const override {
    return OverlayFigure::shape(OverlayFigure::Kind::Rectangle, Band{from, to}.box());
  }
  void measure(CanvasEvents& events, const Band& band) const override {
    const Rect box = band.box();
    events.DispMeasureRectangle(box.left, box.top, box.width(), box.height());
  }
  Rect draw(clsDIB& picture, const CanvasSettings& settings, const Band& band) const override {
    return filled_ ? shape::fillRectangle(picture, band.box(), settings.ColorToUse, settings.RectangleCornerShape)
                   : shape::outlineRectangle(picture, band.box(), settings.ColorToUse, settings.RectangleCornerShape,
                                             settings.BrushSize);
  }

  bool filled_;
};

}  // namespace

std::unique_ptr<CanvasTool> makeRectangleTool() {
  return std::make_unique<RectangleTool>(false);
}
std::unique_ptr<CanvasTool> makeFilledRectangleTool() {
  return std::make_unique<RectangleTool>(true);
}

}  // namespace ruvo
