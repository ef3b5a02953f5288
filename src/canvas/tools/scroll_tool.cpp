// Tool 18, no drawing: the left button drags the picture by the hand, the right one tells the host what lies there.
#include "canvas/engine/hand_scroll.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

// A free hand this near to the rim of the view shows the arrow, so that handles and bars beside it can be aimed at.
constexpr int kRim = 3;

class ScrollTool final : public CanvasTool {
 public:
  void press(ToolContext& context, const ToolPoint& at) override {
    if (at.button == MouseButton::Right) {
      if (const auto colour = context.seenColour(at.image))
        context.events.DispPointOfClick(at.image.x, at.image.y, *colour);
      return;
    }
    if (!handUsable(context)) return;
    context.setCursor(CursorWord::HandOn);
    hand_.begin(context.view(), at.display);
    context.scalars.HandDown = true;
  }

  void move(ToolContext& context, const ToolPoint& at) override {
    if (!context.scalars.HandDown) return;
    const ViewGeometry& view = context.view();
    const Point to = hand_.follow(view, at.display);
    if (to != Point{view.ScrollX, view.ScrollY}) context.scrollTo(to.x, to.y);
  }

  void release(ToolContext& context, const ToolPoint& at) override {
    if (at.button == MouseButton::Right) {
      if (!context.settings.ToReportRightClickDataInScrollMode) return;
      if (const auto colour = context.seenColour(at.image))
        context.events.NotifyClickData(2, *colour, at.image.x, at.image.y);
      return;
    }
    if (!context.settings.HandScrollEnabled) return;
    context.scalars.HandDown = false;
    const ViewGeometry& view = context.view();
    if (view.FitInView) return;
    context.setCursor(view.ScrollMaxX == 0 && view.ScrollMaxY == 0 ? CursorWord::Arrow : CursorWord::HandOff);
  }

  void abort(ToolContext& context) override { context.scalars.HandDown = false; }

  CursorWord cursor(const ToolContext& context, Point display, CursorWord) const override {
    if (!handUsable(context)) return CursorWord::Arrow;
    if (context.scalars.HandDown) return CursorWord::HandOn;
    const Size shown = context.view().displaySize();
    const bool inner =
        display.x >= kRim && display.y >= kRim && display.x < shown.width - kRim && display.y < shown.height - kRim;
    return inner ? CursorWord::HandOff : CursorWord::Arrow;
  }

 private:
  static bool handUsable(const ToolContext& context) {
    return context.settings.HandScrollEnabled && !context.view().FitInView && context.view().anyBar();
  }

  HandScroll hand_;
};

}  // namespace

std::unique_ptr<CanvasTool> makeScrollTool() {
  return std::make_unique<ScrollTool>();
}

}  // namespace ruvo
