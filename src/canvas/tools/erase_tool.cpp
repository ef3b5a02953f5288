// Tool 1: paints in the see-through colour.
#include "canvas/engine/brush_styles.h"
#include "canvas/tools/freehand_tool.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class EraseTool final : public FreehandTool {
  Colour ink(const CanvasSettings& settings) const override { return settings.TransparentColor; }
  int style(const CanvasSettings& settings) const override { return brush::eraserStyle(settings.BrushStyle); }
  bool& heldFlag(CanvasScalars& scalars) const override { return scalars.EraseDown; }
};

}  // namespace

std::unique_ptr<CanvasTool> makeEraseTool() {
  return std::make_unique<EraseTool>();
}

}  // namespace ruvo
