// Modes, zoom and scrolling.
#include "base/limits.h"
#include "document/frmRuvoPaint_Private.h"

namespace ruvo {
namespace {

constexpr int kLargestMagnify = 8;  // the last item of cboMagnify
// Between the navigator, when it is first shown, and the upper right corner of the canvas (logical pixels).
constexpr int kNavigatorMargin = 24;

enum ZoomButton { kPaintIn, kPaintOut, kPaintOriginal, kViewIn, kViewOut, kViewOriginal };

bool scaleAllowed(Size picture, int scale) {
  const std::int64_t longest = std::max(picture.width, picture.height);
  return longest * scale <= kMaxPictureSide;
}

// The part of the magnified picture that is seen, device pixels: all but what the bars hide. Where the picture is longer
// than a bar can say, no more than the canvas is long.
Size seenOf(const ucCanvas& canvas) {
  Size gross;
  Size hidden;
  canvas.GetCurrentGrossImageSize(gross.width, gross.height);
  canvas.GetScrollMaxInfo(hidden.width, hidden.height);
  const QSizeF client = QSizeF(canvas.size()) * canvas.devicePixelRatioF();
  return {std::min(gross.width - hidden.width, qRound(client.width())),
          std::min(gross.height - hidden.height, qRound(client.height()))};
}

}  // namespace

// A picture that took the place of a smaller one may be too large for the scale of that.
void frmRuvoPaint::Private::limitMagnify() {
  if (!link.toolbox().viewMode || scaleAllowed(canvas->DIB().size(), canvas->settings().Magnify)) return;
  canvas->settings().Magnify = 1;
  if (isActive()) link.setZoomScale(1);
}

// Keeps the middle of what is seen in the middle.
void frmRuvoPaint::Private::setMagnify(int magnify) {
  CanvasSettings& settings = canvas->settings();
  if (magnify < 1 || magnify == settings.Magnify) return;
  canvas->letGo();
  Point scroll;
  canvas->GetScrollValues(scroll.x, scroll.y);
  const Size seen = seenOf(*canvas);
  const int before = settings.Magnify;
  settings.Magnify = magnify;
  canvas->CanvasResize();
  const Size sees = seenOf(*canvas);
  // In halves of a pixel, so that a row of steps does not creep.
  const auto scrollFor = [&](int start, int length, int now) {
    const std::int64_t middle = (2 * static_cast<std::int64_t>(start) + length) * magnify / before;
    return static_cast<int>(std::max<std::int64_t>(0, (middle - now) / 2));
  };
  canvas->SetScrollValues(scrollFor(scroll.x, seen.width, sees.width), scrollFor(scroll.y, seen.height, sees.height));
  showPicture();
}

void frmRuvoPaint::Do_cboMagnifyClick() {
  if (!d_->link.toolbox().viewMode) d_->setMagnify(d_->link.toolbox().magnify);
}

void frmRuvoPaint::Do_zoomScaleChanged() {
  if (!d_->link.toolbox().viewMode || !d_->hasPicture()) return;
  const int scale = d_->link.toolbox().zoomScale;
  if (scale < 1 || !scaleAllowed(d_->canvas->DIB().size(), scale)) {
    d_->link.setZoomScale(d_->canvas->settings().Magnify);
    d_->tell(tr("Will result in width or height exceeding the maximum allowed (%1 pixels)").arg(kMaxPictureSide));
    return;
  }
  d_->setMagnify(scale);
}

void frmRuvoPaint::Do_cmdZoomClick(int index) {
  if (!d_->hasPicture()) return;
  const bool view = index >= kViewIn;
  if (view != d_->link.toolbox().viewMode) return;
  const int now = d_->canvas->settings().Magnify;
  int wanted = 1;
  if (index == kPaintIn || index == kViewIn) wanted = now + 1;
  if (index == kPaintOut || index == kViewOut) wanted = now - 1;
  if (wanted < 1 || (!view && wanted > kLargestMagnify)) return;
  if (view) {
    d_->link.setZoomScale(wanted);
    if (scaleAllowed(d_->canvas->DIB().size(), wanted)) {
      d_->setMagnify(wanted);
    } else {
      Do_zoomScaleChanged();  // refuses in words
    }
  } else {
    d_->link.setMagnify(wanted);
    d_->setMagnify(wanted);
  }
}

// A step at a time, so that each limit is met as by the buttons.
void frmRuvoPaint::Private::zoomBySteps(int steps) {
  if (canvas->settings().FitInView) return;
  const bool view = link.toolbox().viewMode;
  const int button = steps > 0 ? (view ? kViewIn : kPaintIn) : (view ? kViewOut : kPaintOut);
  for (int i = 0; i < std::abs(steps); ++i) self.Do_cmdZoomClick(button);
}

void frmRuvoPaint::Do_ckbFitInClick() {
  const ToolboxState tools = d_->link.toolbox();
  if (!tools.viewMode) return;
  d_->canvas->settings().FitInView = tools.fitIn;
  d_->showPicture();
}

void frmRuvoPaint::Do_UpdateZoomButtons() {
  const CanvasSettings& settings = d_->canvas->settings();
  if (!d_->hasPicture() || settings.FitInView) {
    d_->link.setZoomButtons(false, false, false);
    return;
  }
  const int magnify = settings.Magnify;
  const bool view = d_->link.toolbox().viewMode;
  const bool in = view ? scaleAllowed(d_->canvas->DIB().size(), magnify + 1) : magnify < kLargestMagnify;
  d_->link.setZoomButtons(in, magnify > 1, magnify > 1);
}

void frmRuvoPaint::Do_UpdateModeChange() {
  d_->commitFloatingAndPush();
  const ToolboxState tools = d_->link.toolbox();
  CanvasSettings& settings = d_->canvas->settings();
  settings.Magnify = 1;
  settings.FitInView = tools.viewMode && tools.fitIn;
  d_->endRunningOperation();
  d_->canvas->setCanvasScreenMode(tools.viewMode ? 0 : 1);
  d_->canvas->setCanvasOp(d_->operationOfMode());
  settings.BrushSize = d_->effectiveBrushSize();
  d_->showPicture();
}

// --- Quick scroll: the hand, while a bar shows and no tool is chosen

void frmRuvoPaint::AllowOrDisallowQuickScroll() {
  d_->link.setScrollButtons(d_->hasPicture() && d_->canvas->HasScrollBarVisible(), d_->hasPicture());
}

void frmRuvoPaint::OnOffQuickScroll() {
  d_->canvas->settings().HandScrollEnabled =
      d_->canvas->HasScrollBarVisible() && d_->canvas->CanvasOp() == Private::kNoTool;
  // Every change of the tool comes by here.
  Do_UpdateGlassButton();
}

void frmRuvoPaint::Do_imgUpperLeftClick() {
  d_->canvas->SetScrollValues(0, 0, true, true);
}

void frmRuvoPaint::Do_imgLowerRightClick() {
  int x = 0;
  int y = 0;
  d_->canvas->GetScrollMaxInfo(x, y);
  d_->canvas->SetScrollValues(x, y, true, true);
}

// --- Navigator

void frmRuvoPaint::Do_imgPanoramicClick() {
  if (d_->panoramic && d_->panoramic->isVisible()) {
    d_->panoramic->close();
  } else if (d_->hasPicture()) {
    d_->showPanoramic();
  }
}

// Where it stood last; at first in the upper right corner of the picture.
void frmRuvoPaint::Private::showPanoramic() {
  panoramic = new frmRuvoPanoramic(*canvas, link.window());
  const QSize size = panoramic->sizeHint();
  QPoint at = canvas->mapToGlobal(QPoint(canvas->width() - size.width() - kNavigatorMargin, kNavigatorMargin));
  if (const auto& kept = session().panoramicPosition) at = QPoint(kept->x, kept->y);
  panoramic->setGeometry(QRect(at, size));
  panoramic->moved = [&state = session()](const QPoint& place) { state.panoramicPosition = {place.x(), place.y()}; };
  panoramic->show();
}

void frmRuvoPaint::Private::refreshPanoramic() {
  if (panoramic) panoramic->refresh();
}

// --- Magnifying glass

void frmRuvoPaint::Do_UpdateGlassButton() {
  d_->link.setGlass(d_->hasPicture() && !d_->link.toolbox().viewMode, d_->glassOut());
}

void frmRuvoPaint::Do_cmdGlassClick() {
  if (!d_->hasPicture() || d_->link.toolbox().viewMode) return;
  if (d_->glassOut()) {
    d_->endRunningOperation();
  } else {
    d_->commitFloatingAndPush();
    // With the lens out no tool is chosen, and putting it away leaves none.
    d_->link.FlatAllToolsImages();
    d_->canvas->setCanvasOp(Private::kGlassTool);
  }
  d_->setPixelPanel("");
  OnOffQuickScroll();
}

void frmRuvoPaint::Do_cboGlassClick() {
  d_->take(&CanvasSettings::MagnifyGlassFactor, &ToolboxState::glassFactor);
  d_->take(&CanvasSettings::UseConvexGlass, &ToolboxState::convexGlass);
  d_->canvas->updateGlass();
}

}  // namespace ruvo
