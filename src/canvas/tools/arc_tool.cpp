// Tool 5: an arc through three pressed points; the last one can be dragged until the button is let go.
#include <algorithm>

#include "base/rounding.h"
#include "canvas/engine/rubber_band.h"
#include "canvas/engine/shape_arc.h"
#include "canvas/engine/shape_lines.h"
#include "canvas/engine/stroke_picture.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class ArcTool final : public CanvasTool {
 public:
  void press(ToolContext& context, const ToolPoint& at) override {
    if (!stillOurs(context)) drop();
    if (points_.empty()) picture_.begin(context.bitmaps.DIB);
    points_.push_back(at.image);
    context.scalars.StrokeDown = true;
    bend(context, at);
  }

  void move(ToolContext& context, const ToolPoint& at) override {
    if (!bending(context)) return;
    points_.back() = at.image;
    bend(context, at);
  }

  void release(ToolContext& context, const ToolPoint& at) override {
    const bool complete = bending(context);
    context.scalars.StrokeDown = false;
    if (!stillOurs(context)) return forget(context);
    if (!complete) return;
    const shape::ArcRecord arc = record();
    // The key may come just before the button goes, and what has been shown stays.
    const bool chord = chord_ || at.keys.shift;
    forget(context);
    if (!arc.valid) return;
    draw(context, arc, chord);
    context.events.NotifyToPrepareUndo();
  }

  void abort(ToolContext& context) override { abandon(context); }

  bool abandon(ToolContext& context) override {
    if (points_.empty()) return false;
    forget(context);
    context.events.DispMeasureClear();
    return true;
  }

  void drop() override {
    points_.clear();
    picture_.end();
  }

  OverlayFigures overlay(const ToolContext& context) override;

  bool inProgress() const override { return !points_.empty(); }

 private:
  static constexpr std::size_t kPoints = 3;

  bool stillOurs(const ToolContext& context) const { return picture_.isStill(context.bitmaps.DIB); }
  bool bending(const ToolContext& context) const {
    return context.scalars.StrokeDown && points_.size() == kPoints && stillOurs(context);
  }
  shape::ArcRecord record() const { return shape::ComputeArc(points_[0], points_[1], points_[2]); }

  void bend(ToolContext& context, const ToolPoint& at) {
    chord_ = at.keys.shift;
    context.overlayChanged();
    if (points_.size() < kPoints) return;
    const shape::ArcRecord arc = record();
    if (!arc.valid) return;
    // Three points nearly on a line have a centre beyond all numbers that can be shown.
    constexpr double kFarthest = 1e9;
    const auto shown = [=](double v) { return std::clamp(v, -kFarthest, kFarthest); };
    context.events.DispMeasureArc(arc.first.x, arc.first.y, arc.third.x, arc.third.y, roundToInt(shown(arc.centreX)),
                                  roundToInt(shown(arc.centreY)), shown(arc.radius));
  }

  static void draw(ToolContext& context, const shape::ArcRecord& arc, bool chord) {
    clsDIB& dib = context.bitmaps.DIB;
    const CanvasSettings& settings = context.settings;
    Rect painted = shape::drawArc(dib, arc, settings.ColorToUse, settings.BrushSize);
    if (chord) {
      const Rect line = settings.AllowAntialiasing
                            ? shape::AAWideLine(dib, arc.first, arc.third, settings.ColorToUse, settings.BrushSize)
                            : shape::PenLine(dib, arc.first, arc.third, settings.ColorToUse, settings.BrushSize);
      painted = painted.united(line);
    }
    context.changed(painted);
  }

  void forget(ToolContext& context) {
    drop();
    context.scalars.StrokeDown = false;
    context.overlayChanged();
  }

  std::vector<Point> points_;  // in image pixels, as pressed
  bool chord_ = false;
  StrokePicture picture_;
};

// Markers on the first two points; the arc and its chord as thin lines through the middles of the pixels.
OverlayFigures ArcTool::overlay(const ToolContext& context) {
  OverlayFigures figures;
  if (!stillOurs(context)) return figures;
  const ViewGeometry& view = context.view();
  std::vector<Point> shown;
  for (const Point& p : points_) shown.push_back(shape::middleOf(view, p));
  if (points_.size() == kPoints) {
    const Size size = view.displaySize();
    const shape::ArcRecord arc = shape::ComputeArc(shown[0], shown[1], shown[2]);
    for (std::vector<Point>& run : shape::arcPixels(arc, {0, 0, size.width, size.height})) {
      figures.push_back(OverlayFigure::polyline(std::move(run)));
    }
    if (chord_ && arc.valid) figures.push_back(OverlayFigure::line(shown[0], shown[2]));
  }
  OverlayPen pen;
  pen.on = context.settings.ColorToUse;
  const int side = 5 * context.scale();
  for (std::size_t i = 0; i < std::min(shown.size(), kPoints - 1); ++i) {
    figures.push_back(OverlayFigure::shape(
        OverlayFigure::Kind::Disc, Rect::fromSize(shown[i].x - side / 2, shown[i].y - side / 2, side, side), pen));
  }
  return figures;
}

}  // namespace

std::unique_ptr<CanvasTool> makeArcTool() {
  return std::make_unique<ArcTool>();
}

}  // namespace ruvo
