// Tool 17, the magnifying glass: a lens that is carried over the view with the left button and put away by a press beside
// it.
#include "canvas/engine/canvas_core.h"
#include "canvas/engine/glass_lens.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

class GlassTool final : public CanvasTool {
 public:
  void enter(ToolContext& context) override {
    const Size display = context.view().displaySize();
    stand({display.width / 2, display.height / 2}, display);
  }

  void press(ToolContext& context, const ToolPoint& at) override {
    if (at.button != MouseButton::Left) return;
    if (!inLens(context, at.display)) return putAway(context);
    const Rect box = boxIn(context);
    grab_ = {box.left - at.display.x, box.top - at.display.y};
    before_ = {middle_, display_};
    context.scalars.GlassDown = true;
  }

  void move(ToolContext& context, const ToolPoint& at) override {
    if (!context.scalars.GlassDown) return;
    const int side = manner(context).side();
    const Size display = context.view().displaySize();
    const Rect box =
        glass::placed({at.display.x + grab_.x + side / 2, at.display.y + grab_.y + side / 2}, side, display);
    stand({box.left + side / 2, box.top + side / 2}, display);
    context.overlayChanged();
  }

  void release(ToolContext& context, const ToolPoint&) override { context.scalars.GlassDown = false; }
  void abort(ToolContext& context) override { context.scalars.GlassDown = false; }

  // A lens under way goes back to where it was taken; one that stands is put away.
  bool abandon(ToolContext& context) override {
    if (!context.scalars.GlassDown) {
      putAway(context);
      return true;
    }
    context.scalars.GlassDown = false;
    stand(before_.middle, before_.display);
    context.overlayChanged();
    return true;
  }

  OverlayFigures overlay(const ToolContext& context) override {
    if (!shown(context)) return {};
    const Rect box = boxIn(context);
    if (!lens_.compose(context.bitmaps.DIB, context.view(), {box.left, box.top}, manner(context))) return {};
    OverlayFigure figure = OverlayFigure::shape(OverlayFigure::Kind::Picture, box);
    figure.picture = &lens_.contents();
    figure.mask = &lens_.mask();
    figure.revision = ++revision_;
    return {figure};
  }

 private:
  struct Stand {
    Point middle;
    Size display;
  };

  static glass::Manner manner(const ToolContext& context) {
    return {std::max(1, context.settings.MagnifyGlassFactor), context.settings.UseConvexGlass, context.scale()};
  }

  static bool shown(const ToolContext& context) { return glass::allowedOn(context.bitmaps.DIB.size()); }

  void stand(Point middle, Size display) {
    middle_ = middle;
    display_ = display;
  }

  // In a view of another size than it was put down in (another magnification, another window) the lens keeps its place
  // in proportion; scrolling moves the picture beneath it.
  Rect boxIn(const ToolContext& context) const {
    const Size now = context.view().displaySize();
    const auto follow = [](int middle, int before, int length) {
      return before > 0 && before != length ? static_cast<int>(std::int64_t{middle} * length / before) : middle;
    };
    const Point middle{follow(middle_.x, display_.width, now.width), follow(middle_.y, display_.height, now.height)};
    return glass::placed(middle, manner(context).side(), now);
  }

  bool inLens(const ToolContext& context, Point display) const {
    if (!shown(context)) return false;
    const Rect box = boxIn(context);
    const std::int64_t right = 2 * (display.x - box.left) + 1 - box.width();
    const std::int64_t down = 2 * (display.y - box.top) + 1 - box.height();
    return right * right + down * down < std::int64_t{box.width()} * box.width();
  }

  static void putAway(ToolContext& context) {
    CanvasEvents& events = context.events;
    context.selectTool(kScrollOp);
    events.NotifyCancelGlassOp();
  }

  glass::Lens lens_;
  std::uint64_t revision_ = 0;
  // The lens's middle, and the size of the display in which it was there.
  Point middle_;
  Size display_;
  Stand before_;  // where it was taken
  Point grab_;    // from the pointer to the box's corner
};

}  // namespace

std::unique_ptr<CanvasTool> makeGlassTool() {
  return std::make_unique<GlassTool>();
}

}  // namespace ruvo
