// Tool 16: tells the host the colour at which a button was let go.
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class ColorPickerTool final : public CanvasTool {
  void release(ToolContext& context, const ToolPoint& at) override {
    const auto colour = context.seenColour(at.image);
    if (colour)
      context.events.NotifyClickData(at.button == MouseButton::Right ? 2 : 1, *colour, at.image.x, at.image.y);
  }
};

}  // namespace

std::unique_ptr<CanvasTool> makeColorPickerTool() {
  return std::make_unique<ColorPickerTool>();
}

}  // namespace ruvo
