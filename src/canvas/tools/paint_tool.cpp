// Tool 0: paints in the drawing colour with any brush style.
#include "canvas/tools/freehand_tool.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class PaintTool final : public FreehandTool {
  Colour ink(const CanvasSettings& settings) const override { return settings.ColorToUse; }
  int style(const CanvasSettings& settings) const override { return settings.BrushStyle; }
  bool& heldFlag(CanvasScalars& scalars) const override { return scalars.StrokeDown; }
};

}  // namespace

std::unique_ptr<CanvasTool> makePaintTool() {
  return std::make_unique<PaintTool>();
}

}  // namespace ruvo
