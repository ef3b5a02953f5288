// Tool 2: fills the connected area of one colour when the button is let go.
#include "canvas/engine/fill.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class FillTool final : public CanvasTool {
  void release(ToolContext& context, const ToolPoint& at) override {
    const CanvasSettings& settings = context.settings;
    const Rect painted = brush::floodFill(context.bitmaps.DIB, at.image.x, at.image.y, settings.FillPattern,
                                          settings.ColorToUse, context.bitmaps.DIBCustomPattern);
    if (painted.empty()) return;
    context.changed(painted);
    context.events.NotifyToPrepareUndo();
  }
};

}  // namespace

std::unique_ptr<CanvasTool> makeFillTool() {
  return std::make_unique<FillTool>();
}

}  // namespace ruvo
