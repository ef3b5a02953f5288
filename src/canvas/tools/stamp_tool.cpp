// Tool 13: puts the loaded stamp down where the button is let go.
#include "canvas/engine/stamp.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class StampTool final : public CanvasTool {
  void release(ToolContext& context, const ToolPoint& at) override {
    CanvasBitmaps& bitmaps = context.bitmaps;
    if (bitmaps.DIBStamp.empty() || bitmaps.DIBStampMask.empty()) {
      context.events.NoStamp();
      return;
    }
    const Rect painted = brush::paintStamp(bitmaps.DIB, at.image, bitmaps.DIBStamp, bitmaps.DIBStampMask,
                                           context.settings.StampStyle, context.settings.StampTextureWeight);
    if (painted.empty()) return;
    context.changed(painted);
    context.events.NotifyToPrepareUndo();
  }
};

}  // namespace

std::unique_ptr<CanvasTool> makeStampTool() {
  return std::make_unique<StampTool>();
}

}  // namespace ruvo
