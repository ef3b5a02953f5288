// Tool 15: one colour becomes the drawing colour everywhere in the picture.
#include "canvas/engine/fill.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class ReplaceTool final : public CanvasTool {
  void release(ToolContext& context, const ToolPoint& at) override {
    clsDIB& dib = context.bitmaps.DIB;
    const raster::Surface& surface = dib.surface();
    if (surface.depth() != 32 || !surface.bounds().contains(at.image.x, at.image.y)) return;
    // The stored colour, not the one seen over white: only that one is found again in a see-through picture.
    const Colour clicked = reinterpret_cast<const Pixel32*>(surface.pictureRow(at.image.y))[at.image.x].colour();
    context.setWorking(true);
    const Rect painted = brush::ReplaceColor(dib, clicked, context.settings.ColorToUse);
    context.setWorking(false);
    context.changed(painted);
    // Equal colours change nothing and are a step of the history all the same.
    context.events.NotifyToPrepareUndo();
  }
};

}  // namespace

std::unique_ptr<CanvasTool> makeReplaceTool() {
  return std::make_unique<ReplaceTool>();
}

}  // namespace ruvo
