// Tools 11 and 12: select a rectangle or an oval, and move what it holds. The region's engine does the work, since what
// is pasted and what commands do to a region need no mouse.
#include "canvas/engine/region_engine.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class RegionTool final : public CanvasTool {
 public:
  explicit RegionTool(bool oval) : oval_(oval) {}

  void press(ToolContext& context, const ToolPoint& at) override { context.region().press(at, oval_); }
  void move(ToolContext& context, const ToolPoint& at) override { context.region().move(at); }
  void release(ToolContext& context, const ToolPoint& at) override { context.region().release(at); }
  void abort(ToolContext& context) override { context.region().endGesture(); }
  bool abandon(ToolContext& context) override { return context.region().abandon(); }
  bool arrow(ToolContext& context, CanvasKey key, KeyModifiers keys) override {
    return context.region().arrow(key, keys);
  }
  void tick(ToolContext& context) override { context.region().tick(); }
  OverlayFigures overlay(const ToolContext& context) override { return context.region().overlay(); }
  CursorWord cursor(const ToolContext& context, Point display, CursorWord tableWord) const override {
    return context.region().cursor(display, tableWord);
  }

 private:
  bool oval_;
};

}  // namespace

std::unique_ptr<CanvasTool> makeRegionTool() {
  return std::make_unique<RegionTool>(false);
}

std::unique_ptr<CanvasTool> makeOvalRegionTool() {
  return std::make_unique<RegionTool>(true);
}

}  // namespace ruvo
