// Tool 6: a line is drawn out, then bent by its four nodes until the right button fixes it. DIB shows the curve all the
// while; DIBsnap is the picture without it.
#include <utility>

#include "canvas/engine/rubber_band.h"
#include "canvas/engine/shape_bezier.h"
#include "canvas/engine/stroke_picture.h"
#include "canvas/tools/tool_table.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

class BezierTool final : public CanvasTool {
 public:
  void press(ToolContext& context, const ToolPoint& at) override {
    if (!stillOurs(context)) forget(context);
    if (at.button == MouseButton::Right) return fix(context);
    if (stage_ == Stage::Curve) return grab(context, at);
    const clsDIB& dib = context.bitmaps.DIB;
    if (!clsDIB::CloneDIB(dib, context.bitmaps.DIBsnap, kWhite, dib.BottomUp())) return;
    picture_.begin(dib);
    nodes_.fill(at.image);
    stage_ = Stage::Line;
    context.scalars.BezierDown = true;
    context.overlayChanged();
  }

  void move(ToolContext& context, const ToolPoint& at) override {
    if (!context.scalars.BezierDown) return;
    if (!stillOurs(context)) return forget(context);
    if (stage_ == Stage::Line) {
      nodes_[3] = at.image;
    } else {
      const Point node{at.image.x + grip_.x, at.image.y + grip_.y};
      if (node == nodes_[held_]) return;
      nodes_[held_] = node;
      render(context);
    }
    context.overlayChanged();
  }

  void release(ToolContext& context, const ToolPoint&) override {
    if (!std::exchange(context.scalars.BezierDown, false)) return;
    if (!stillOurs(context)) return forget(context);
    if (stage_ != Stage::Line) return;
    if (!shape::longEnough(nodes_[0], nodes_[3])) return forget(context);
    stage_ = Stage::Curve;
    shape::NodesOnThirds(nodes_);
    render(context);
    context.overlayChanged();
    context.setCursor(CursorWord::Bezier);
    context.events.NotifyBezierStatus();
  }

  void abort(ToolContext& context) override { abandon(context); }

  bool abandon(ToolContext& context) override {
    if (stage_ == Stage::None) return false;
    if (stillOurs(context)) context.changed(restore(context));
    forget(context);
    return true;
  }

  void drop() override {
    stage_ = Stage::None;
    painted_ = {};
    picture_.end();
  }

  OverlayFigures overlay(const ToolContext& context) override {
    OverlayFigures figures;
    if (!stillOurs(context)) return figures;
    if (stage_ == Stage::Line) {
      figures.push_back(
          OverlayFigure::line(shape::middleOf(context.view(), nodes_[0]), shape::middleOf(context.view(), nodes_[3])));
    } else if (stage_ == Stage::Curve) {
      OverlayPen pen;
      pen.on = kWhite;
      pen.off = kBlack;
      for (const Rect& box : imgNode(context)) {
        figures.push_back(OverlayFigure::shape(OverlayFigure::Kind::Box, box, pen));
      }
    }
    return figures;
  }

  bool inProgress() const override { return stage_ == Stage::Curve; }

  CursorWord cursor(const ToolContext&, Point, CursorWord tableWord) const override {
    return inProgress() ? CursorWord::Bezier : tableWord;
  }

 private:
  enum class Stage { None, Line, Curve };

  bool stillOurs(const ToolContext& context) const { return picture_.isStill(context.bitmaps.DIB); }

  std::array<Rect, 4> imgNode(const ToolContext& context) const {
    constexpr int kSide = 9;
    return shape::updateBezierNodePositions(nodes_, context.view(), kSide * context.scale());
  }

  // Of nodes that lie on each other the last one is on top.
  void grab(ToolContext& context, const ToolPoint& at) {
    const std::array<Rect, 4> boxes = imgNode(context);
    for (std::size_t i = boxes.size(); i-- > 0;) {
      if (!boxes[i].contains(at.display.x, at.display.y)) continue;
      held_ = i;
      grip_ = {nodes_[i].x - at.image.x, nodes_[i].y - at.image.y};
      context.scalars.BezierDown = true;
      return;
    }
  }

  Rect restore(ToolContext& context) {
    CanvasBitmaps& b = context.bitmaps;
    const Rect area = std::exchange(painted_, Rect{});
    raster::blit(b.DIB.surface(), area.left, area.top, area.width(), area.height(), b.DIBsnap.surface(), area.left,
                 area.top);
    return area;
  }

  // With the settings of this moment, so that another colour or size shows from the next move on.
  void render(ToolContext& context) {
    const CanvasSettings& settings = context.settings;
    const Rect before = restore(context);
    painted_ =
        shape::drawBezier(context.bitmaps.DIB, nodes_,
                          {settings.BezierType, settings.ColorToUse, settings.BezierFillColor, settings.BrushSize});
    context.changed(before.united(painted_));
  }

  void fix(ToolContext& context) {
    if (stage_ != Stage::Curve) return;
    forget(context);
    context.events.NotifyToPrepareUndo();
  }

  void forget(ToolContext& context) {
    if (stage_ == Stage::None) return;
    const bool ends = inProgress();
    drop();
    context.bitmaps.DIBsnap.ClearUp();
    context.scalars.BezierDown = false;
    context.setCursor(CursorWord::BezierStart);
    context.overlayChanged();
    if (ends) context.events.NotifyBezierStatus();
  }

  Stage stage_ = Stage::None;
  shape::BezierNodes nodes_;
  std::size_t held_ = 0;
  Point grip_;    // from the pointer to the node that it holds
  Rect painted_;  // where DIB shows the curve
  StrokePicture picture_;
};

}  // namespace

std::unique_ptr<CanvasTool> makeBezierTool() {
  return std::make_unique<BezierTool>();
}

}  // namespace ruvo
