// Tools 7 to 10: rectangles and ovals, as outlines and filled. They fill the box that the band spans.
#include "canvas/engine/rubber_band.h"
#include "canvas/engine/shape_oval.h"
#include "canvas/engine/shape_rectangle.h"
#include "canvas/tools/band_tool.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

using Kind = OverlayFigure::Kind;

class BoxTool : public BandTool {
 protected:
  BoxTool(Kind kind, bool filled) : kind_(kind), filled_(filled) {}
  bool filled() const { return filled_; }

 private:
  Point constrained(Point anchor, Point end, Size display, int magnify) const final {
    return shape::constrainedBox(anchor, end, display, magnify);
  }
  OverlayFigure figure(Point from, Point to) const final { return OverlayFigure::shape(kind_, Band{from, to}.box()); }

  Kind kind_;
  bool filled_;
};

class RectangleTool final : public BoxTool {
 public:
  explicit RectangleTool(bool filled) : BoxTool(Kind::Rectangle, filled) {}

 private:
  void measure(CanvasEvents& events, const Band& band) const override {
    const Rect box = band.box();
    events.DispMeasureRectangle(box.left, box.top, box.width(), box.height());
  }
  Rect draw(clsDIB& picture, const CanvasSettings& settings, const Band& band) const override {
    const Colour colour = settings.ColorToUse;
    const int corners = settings.RectangleCornerShape;
    return filled() ? shape::fillRectangle(picture, band.box(), colour, corners)
                    : shape::outlineRectangle(picture, band.box(), colour, corners, settings.BrushSize);
  }
};

class OvalTool final : public BoxTool {
 public:
  explicit OvalTool(bool filled) : BoxTool(Kind::Ellipse, filled) {}

 private:
  // The radius of a circle, and between the two of an oval.
  void measure(CanvasEvents& events, const Band& band) const override {
    const Rect box = band.box();
    events.DispMeasureOval(box.left, box.top, (box.width() + box.height()) / 4.0, box.width(), box.height());
  }
  Rect draw(clsDIB& picture, const CanvasSettings& settings, const Band& band) const override {
    if (band.from == band.to) return {};
    const Colour colour = settings.ColorToUse;
    const int enhancement = settings.AllowAntialiasing ? settings.OvalEnhancement : int{shape::kNormalOval};
    return filled() ? shape::fillOval(picture, band.box(), colour, enhancement)
                    : shape::drawOval(picture, band.box(), colour, settings.BrushSize, enhancement);
  }
};

}  // namespace

std::unique_ptr<CanvasTool> makeRectangleTool() {
  return std::make_unique<RectangleTool>(false);
}
std::unique_ptr<CanvasTool> makeFilledRectangleTool() {
  return std::make_unique<RectangleTool>(true);
}
std::unique_ptr<CanvasTool> makeOvalTool() {
  return std::make_unique<OvalTool>(false);
}
std::unique_ptr<CanvasTool> makeFilledOvalTool() {
  return std::make_unique<OvalTool>(true);
}

}  // namespace ruvo
