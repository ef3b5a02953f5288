// Tool 14: bursts of dots, one at the press and one at each move; they deepen where they meet.
#include "canvas/engine/brush_dab.h"
#include "canvas/engine/stroke_picture.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class SprayTool final : public CanvasTool {
 public:
  void press(ToolContext& context, const ToolPoint& at) override {
    context.scalars.StrokeDown = true;
    picture_.begin(context.bitmaps.DIB);
    stroke_.setRandomSource(context.random());
    stroke_.BrushStrokeBegin(context.bitmaps.DIB, context.settings.ColorToUse);
    burst(context, at.image);
  }

  void move(ToolContext& context, const ToolPoint& at) override {
    if (!picture_.isStill(context.bitmaps.DIB)) return drop();
    burst(context, at.image);
  }

  void release(ToolContext& context, const ToolPoint&) override { finish(context); }
  void abort(ToolContext& context) override { finish(context); }

  void drop() override {
    picture_.end();
    if (stroke_.active()) stroke_.BrushStrokeEnd();
  }

 private:
  void burst(ToolContext& context, Point at) {
    const CanvasSettings& settings = context.settings;
    context.scalars.CurX = at.x;
    context.scalars.CurY = at.y;
    context.changed(
        stroke_.SprayBurst(at.x, at.y, settings.BrushSize, settings.SprayTranslucencyPercent, settings.SprayDensity));
  }

  void finish(ToolContext& context) {
    const bool ours = picture_.isStill(context.bitmaps.DIB);
    context.scalars.StrokeDown = false;
    drop();
    if (ours) context.events.NotifyToPrepareUndo();
  }

  StrokePicture picture_;
  brush::BrushStroke stroke_;
};

}  // namespace

std::unique_ptr<CanvasTool> makeSprayTool() {
  return std::make_unique<SprayTool>();
}

}  // namespace ruvo
