#include "canvas/engine/canvas_core.h"

#include <algorithm>
#include <string>

#include "base/letter_case.h"
#include "canvas/tools/tool_table.h"
#include "platform/raster/blit.h"

namespace ruvo {

const char* cursorWordText(CursorWord word) {
  static constexpr const char* kTexts[] = {"",           "PAINT",       "ERASE",  "FILL",      "POLIGON", "LINE",
                                           "ARC",        "BEZIERSTART", "BEZIER", "RECTANGLE", "OVAL",    "REGION",
                                           "REGIONDRAG", "PASTEDRAG",   "STAMP",  "SPRAY",     "REPLACE", "COLORPICKER",
                                           "HANDOFF",    "HANDON",      "",       "",          ""};
  return kTexts[static_cast<std::size_t>(word)];
}

CanvasCore::CanvasCore(CanvasEvents& e, CanvasWindow& window) : ToolContext(e), window_(window) {
  for (const ToolRow& tool : toolTable()) {
    if (tool.make) tools_[static_cast<std::size_t>(tool.op)] = tool.make();
  }
}

CanvasCore::~CanvasCore() = default;

const ToolRow& CanvasCore::row() const {
  return toolTable()[static_cast<std::size_t>(op_)];
}

// --- Properties

void CanvasCore::setCanvasOp(int op) {
  if (op < 0 || op > kScrollOp) return;
  if (op != kScrollOp && op == op_) return;
  if (tool()) tool()->abort(*this);
  region_.commit();
  resetStroke();
  op_ = op;
  if (tool() && !blank()) tool()->enter(*this);
  chooseCursor({-1, -1});
  repaintAll();
  window_.arrange();
}

void CanvasCore::setCanvasScreenMode(int mode) {
  screenMode_ = mode;
  renderer_.pictureChanged();
  if (!blank()) CanvasResize();
}

void CanvasCore::setSuspendCanvasResizeByEdgeDragging(bool suspend) {
  edgesSuspended_ = suspend;
  window_.arrange();
}

void CanvasCore::setToShowPixelRGB(bool show) {
  showPixelRgb_ = show;
  if (!show) window_.setToolTip("");
}

void CanvasCore::setPolygonDrawMethod(int method) {
  polygonDrawMethod_ = method;
  PolygonAbort();
}

void CanvasCore::PolygonAbort() {
  if (toolInProgress(kPolygonOp)) tool()->abort(*this);
}

bool CanvasCore::toolInProgress(int op) const {
  return op_ == op && tool() && tool()->inProgress();
}

// --- Layout and painting

void CanvasCore::setClient(Size client, Size bars, int scale) {
  client_ = client;
  bars_ = bars;
  scale_ = scale;
}

void CanvasCore::layoutView() {
  region_.checkPicture();
  ViewLayout in{client_, bitmaps.DIB.size(), settings.Magnify, settings.FitInView, {}, bars_};
  if (settings.FitInView && !blank()) {
    in.fitted = fittedPlace(bitmaps.DIB, client_, settings.FitInEvenIfSmaller);
  }
  view_.layout(in);
  edgeDrag_.place(view_.picDisp, client_, scale_);
  renderer_.pictureChanged();
}

Size CanvasCore::grossSize() const {
  if (settings.FitInView) return view_.displaySize();
  return {bitmaps.DIB.DIBWidth() * settings.Magnify, bitmaps.DIB.DIBHeight() * settings.Magnify};
}

void CanvasCore::CanvasResize() {
  if (scalars.Busy) return;
  if (blank()) {
    CanvasCleanse();
    return;
  }
  scalars.Busy = true;
  layoutView();
  window_.arrange();
  scalars.Busy = false;
  repaintAll();
}

void CanvasCore::CanvasPicPaint() {
  // A host that has put another picture or magnification in place gets its layout, too.
  const bool stale = view_.image != bitmaps.DIB.size() || view_.Magnify != std::max(1, settings.Magnify) ||
                     view_.FitInView != settings.FitInView;
  if (stale && !scalars.Busy && !blank()) {
    CanvasResize();
    return;
  }
  renderer_.pictureChanged();
  repaintAll();
}

void CanvasCore::CanvasCleanse() {
  resetStroke();
  window_.hideLoadingMsg();
  bitmaps.DIB.ClearUp();
  bitmaps.DIBsnap.ClearUp();
  bitmaps.DIBregion.ClearUp();
  bitmaps.DIBmask.ClearUp();
  op_ = kScrollOp;
  settings.Magnify = 1;
  const bool wasBusy = std::exchange(scalars.Busy, true);
  layoutView();
  window_.arrange();
  scalars.Busy = wasBusy;
  window_.setCursor(CursorWord::Arrow);
  repaintAll();
  events.NotifyScroll();
  events.DispMeasureClear();
}

void CanvasCore::SetScrollValues(int x, int y, bool repaint, bool syncBars) {
  PolygonAbort();
  view_.setScroll(x, y);
  if (repaint) {
    renderer_.pictureChanged();
    repaintAll();
  }
  if (syncBars) {
    const bool wasBusy = std::exchange(scalars.Busy, true);
    window_.arrange();
    scalars.Busy = wasBusy;
  }
  events.NotifyScroll();
}

void CanvasCore::render(const Rect& area, RenderTarget target) {
  if (blank()) return;
  renderer_.render(bitmaps.DIB, view_, smooth(), area, target);
  paintOverlay(overlay_, area, target);
  if (scalars.XYlinesShown) invertCrossHair(xyLines_, area, target);
}

OverlayFigures CanvasCore::overlayNow() {
  return tool() && !blank() ? tool()->overlay(*this) : OverlayFigures{};
}

void CanvasCore::overlayChanged() {
  OverlayFigures now = overlayNow();
  const Size shown = view_.displaySize();
  const Rect display{0, 0, shown.width, shown.height};
  const auto repaintMissing = [&](const OverlayFigures& figures, const OverlayFigures& others) {
    for (const OverlayFigure& figure : figures) {
      if (std::find(others.begin(), others.end(), figure) != others.end()) continue;
      forTouchedParts(figure, display, [this](const Rect& part) { repaintDisplay(part); });
    }
  };
  const OverlayFigures before = std::exchange(overlay_, std::move(now));
  repaintMissing(before, overlay_);
  repaintMissing(overlay_, before);
}

void CanvasCore::repaintAll() {
  scalars.XYlinesShown = false;
  overlay_ = overlayNow();
  window_.repaint({0, 0, client_.width, client_.height});
}

void CanvasCore::repaintDisplay(const Rect& display) {
  if (display.empty()) return;
  const Rect& pic = view_.picDisp;
  window_.repaint({display.left + pic.left, display.top + pic.top, display.right + pic.left, display.bottom + pic.top});
}

// --- Strokes

void CanvasCore::resetStroke() {
  if (tool()) tool()->drop();
  region_.forget();
  window_.setTicking(false);
  window_.setToolTip("");
  heldButton_ = MouseButton::None;
  backgroundPressed_ = false;
  edgeDrag_.end();
  const bool busy = scalars.Busy;
  scalars = {};
  scalars.Busy = busy;
}

void CanvasCore::finishStroke() {
  if (tool()) tool()->abort(*this);
  heldButton_ = MouseButton::None;
}

bool CanvasCore::commitFloating() {
  finishStroke();
  return region_.commit();
}

void CanvasCore::dropFloating() {
  region_.drop();
  resetStroke();
  bitmaps.DIBsnap.ClearUp();
  bitmaps.DIBregion.ClearUp();
  bitmaps.DIBmask.ClearUp();
}

bool CanvasCore::startPaste(const clsDIB& picture, const PasteManner& manner) {
  commitFloating();
  return !blank() && region_.startPaste(picture, manner);
}

void CanvasCore::changed(const Rect& imageRect) {
  if (imageRect.empty()) return;
  renderer_.pictureChanged();
  // A smooth stretch mixes each pixel with its neighbours.
  const int reach = smooth() && view_.Magnify > 1 ? 1 : 0;
  repaintDisplay(view_.toDisplay(
      Rect{imageRect.left - reach, imageRect.top - reach, imageRect.right + reach, imageRect.bottom + reach}));
}

void CanvasCore::scrollTo(int x, int y) {
  SetScrollValues(x, y, true, true);
}

void CanvasCore::setWorking(bool working) {
  scalars.Busy = working;
  window_.setWaiting(working);
}

// --- Edges

bool CanvasCore::edgesFree() const {
  return !edgesSuspended_ && !blank() && !view_.anyBar() && !view_.FitInView && view_.Magnify == 1 &&
         !region_.HasRegion();
}

bool CanvasCore::edgeHandlesShown() const {
  return edgesFree() && op_ == kScrollOp && screenMode_ != 0 &&
         (bitmaps.DIB.DIBWidth() >= kMinEdgeHandleSide || bitmaps.DIB.DIBHeight() >= kMinEdgeHandleSide);
}

void CanvasCore::edgePress(CanvasEdge edge, Point at) {
  if (edge == CanvasEdge::None || !edgesFree()) return;
  edgeDrag_.begin(edge, at);
  events.NotifyDragResizeProforma(edgeDrag_.size().width, edgeDrag_.size().height);
  window_.arrange();
  repaintAll();
}

void CanvasCore::edgeMove(Point at) {
  if (!edgeDrag_.active() || !edgeDrag_.move(at)) return;
  window_.arrange();
  repaintAll();
  events.NotifyDragResizeProforma(edgeDrag_.size().width, edgeDrag_.size().height);
}

void CanvasCore::edgeRelease() {
  if (!edgeDrag_.active()) return;
  const Size size = edgeDrag_.size();
  const Point oldAt = edgeDrag_.oldPictureAt();
  const bool wanted = size != view_.displaySize() && edgeHandlesShown();
  edgeDrag_.end();
  const bool sizeChanged = wanted && takeNewSize(size, oldAt);
  if (sizeChanged) CanvasResize();
  window_.arrange();
  repaintAll();
  events.NotifyDragResize(sizeChanged);
}

bool CanvasCore::takeNewSize(Size size, Point oldAt) {
  const clsDIB& old = bitmaps.DIB;
  clsDIB resized;
  if (!resized.CreateBlankDIB(size.width, size.height, 32, kWhite)) return false;
  if (old.DIBhasAlpha()) {
    raster::fillRect(resized.surface(), resized.surface().bounds(), kWhite, 255);
    resized.setDIBhasAlpha(true);
  }
  raster::blit(resized.surface(), oldAt.x, oldAt.y, old.surface());
  bitmaps.DIB = std::move(resized);
  return true;
}

// --- Dropped files

bool CanvasCore::dropAllowed(std::string_view fileName) const {
  constexpr std::size_t kShortestName = 5;
  const std::size_t dot = fileName.find_last_of('.');
  if (fileName.size() < kShortestName || dot == std::string_view::npos || dot + 1 == fileName.size()) return false;
  return upperCase(settings.FileExtAllowed).find(upperCase(fileName.substr(dot + 1))) != std::string::npos;
}

}  // namespace ruvo
