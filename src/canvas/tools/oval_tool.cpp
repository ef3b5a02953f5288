// Tools 9 and 10: the outline of an oval, and a filled one.
#include "canvas/engine/rubber_band.h"
#include "canvas/engine/shape_oval.h"
#include "canvas/tools/band_tool.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class OvalTool final : public BandTool {
 public:
  explicit OvalTool(bool filled) : filled_(filled) {}

 private:
  Point constrained(Point anchor, Point end, Size display, int magnify) const override {
    return shape::constrainedBox(anchor, end, display, magnify);
  }
  OverlayFigure figure(Point from, Point to) const override {
    return OverlayFigure::shape(OverlayFigure::Kind::Ellipse, Band{from, to}.box());
  }
  // The radius of a circle, and between the two of an oval.
  void measure(CanvasEvents& events, const Band& band) const override {
    const Rect box = band.box();
    events.DispMeasureOval(box.left, box.top, (box.width() + box.height()) / 4.0, box.width(), box.height());
  }
  Rect draw(clsDIB& picture, const CanvasSettings& settings, const Band& band) const override {
    if (band.from == band.to) return {};
    const int enhancement = settings.AllowAntialiasing ? settings.OvalEnhancement : int{shape::kNormalOval};
    return filled_ ? shape::fillOval(picture, band.box(), settings.ColorToUse, enhancement)
                   : shape::drawOval(picture, band.box(), settings.ColorToUse, settings.BrushSize, enhancement);
  }

  bool filled_;
};

}  // namespace

std::unique_ptr<CanvasTool> makeOvalTool() {
  return std::make_unique<OvalTool>(false);
}
std::unique_ptr<CanvasTool> makeFilledOvalTool() {
  return std::make_unique<OvalTool>(true);
}

}  // namespace ruvo
