// Tool 3: polygons, drawn vertex by vertex or placed whole by one press. The picture changes only when the figure is
// finished; until then its edges are shown over it.
#include <optional>

#include "canvas/engine/rubber_band.h"
#include "canvas/engine/shape_polygon.h"
#include "canvas/engine/stroke_picture.h"
#include "canvas/tools/tool_table.h"

namespace ruvo {
namespace {

using shape::PolygonInk;

constexpr int kAutomatic = 1;
constexpr int kOperations = 9;

// An operation is one of three inks, done to the picture, done to it with a copy of the figure on the clipboard, or done
// to the copy that then becomes the picture.
enum class Use { Picture, Clipboard, Crop };
PolygonInk inkOf(int operation) {
  return static_cast<PolygonInk>(operation % 3);
}
Use useOf(int operation) {
  return static_cast<Use>(operation / 3);
}

void finish(ToolContext& context, const shape::PolygonFigure& figure) {
  const CanvasSettings& settings = context.settings;
  CanvasBitmaps& bitmaps = context.bitmaps;
  const Use use = useOf(settings.PolygonOperationType);
  const bool clears = inkOf(settings.PolygonOperationType) == PolygonInk::Clear;
  const Colour outside = settings.TransparentColor;
  const Colour colour = clears ? outside : settings.ColorToUse;
  if (figure.pixels.empty()) return;
  Rect painted;
  // The picture that a host does not let go for a crop stays as it was.
  if (use != Use::Crop) context.changed(painted = shape::paintPolygon(bitmaps.DIB, figure, colour));
  if (use != Use::Picture) {
    bitmaps.DIBregion = shape::cutOutPolygon(bitmaps.DIB, figure, colour, outside);
    if (!bitmaps.DIBregion.empty()) {
      if (use == Use::Crop) {
        context.events.NotifyPolygonCrop();
      } else {
        context.copyToClipboard(bitmaps.DIBregion);
      }
    }
    bitmaps.DIBregion.ClearUp();
  }
  if (!painted.empty()) context.events.NotifyToPrepareUndo();
}

class PolygonTool final : public CanvasTool {
 public:
  void press(ToolContext& context, const ToolPoint& at) override {
    if (at.button == MouseButton::Right || !operationKnown(context.settings)) return;
    if (context.PolygonDrawMethod() == kAutomatic) {
      const CanvasSettings& s = context.settings;
      finish(context,
             shape::automaticFigure(
                 at.image, {s.PolygonNumPoints, double(s.PolygonRadius), s.PolygonConcaveFactor, s.PolygonAngle},
                 inkOf(s.PolygonOperationType), s.BrushSize));
    } else if (!picture_.isStill(context.bitmaps.DIB)) {
      picture_.begin(context.bitmaps.DIB);
      vertices_ = {at.image};
      pointer_.reset();
      context.overlayChanged();
    }
  }

  void move(ToolContext& context, const ToolPoint& at) override {
    if (!ours(context)) return;
    const Size shown = context.view().displaySize();
    const bool within =
        at.display.x > 0 && at.display.y > 0 && at.display.x < shown.width && at.display.y < shown.height;
    pointer_ = within ? std::optional(at.image) : std::nullopt;
    context.overlayChanged();
  }

  void release(ToolContext& context, const ToolPoint& at) override {
    if (!ours(context)) return;
    // The release of the press that began the figure makes a vertex too, when the button was held for the first edge.
    const bool room = vertices_.size() < shape::kMaxPolygonVertices;
    if (room && at.image != vertices_.back()) vertices_.push_back(at.image);
    pointer_.reset();
    if (at.button != MouseButton::Right) return context.overlayChanged();
    const std::vector<Point> vertices = std::move(vertices_);
    abort(context);
    const CanvasSettings& s = context.settings;
    if (operationKnown(s)) finish(context, shape::figureByHand(vertices, inkOf(s.PolygonOperationType), s.BrushSize));
  }

  void abort(ToolContext& context) override {
    if (!inProgress()) return;
    drop();
    context.overlayChanged();
  }
  void drop() override {
    picture_.end();
    vertices_.clear();
    pointer_.reset();
  }
  bool abandon(ToolContext& context) override {
    const bool was = inProgress();
    abort(context);
    return was;
  }

  // The edges that stand in the figure's colour, the one to the pointer so that it shows everywhere.
  OverlayFigures overlay(const ToolContext& context) override {
    if (!picture_.isStill(context.bitmaps.DIB)) return {};
    const ViewGeometry& view = context.view();
    std::vector<Point> standing;
    for (const Point& vertex : vertices_) standing.push_back(shape::middleOf(view, vertex));
    OverlayPen pen;
    pen.invert = false;
    pen.on = context.settings.ColorToUse;
    OverlayFigures figures = {OverlayFigure::polyline(std::move(standing), pen)};
    if (pointer_) {
      figures.push_back(OverlayFigure::line(shape::middleOf(view, vertices_.back()), shape::middleOf(view, *pointer_)));
    }
    return figures;
  }

  bool inProgress() const override { return picture_.active(); }

 private:
  static bool operationKnown(const CanvasSettings& settings) {
    return settings.PolygonOperationType >= 0 && settings.PolygonOperationType < kOperations;
  }
  // A polygon of this picture is in progress; one of a picture that is gone is forgotten.
  bool ours(ToolContext& context) {
    if (!picture_.isStill(context.bitmaps.DIB)) abort(context);
    return inProgress();
  }

  StrokePicture picture_;
  std::vector<Point> vertices_;
  std::optional<Point> pointer_;  // the end of the edge that is not fixed yet
};

}  // namespace

std::unique_ptr<CanvasTool> makePolygonTool() {
  return std::make_unique<PolygonTool>();
}

}  // namespace ruvo
