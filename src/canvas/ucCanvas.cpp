#include "canvas/ucCanvas.h"

#include "canvas/engine/glass_lens.h"
#include "canvas/ucCanvas_Private.h"

namespace ruvo {

ucCanvas::ucCanvas(QWidget* parent) : QWidget(parent), d_(std::make_unique<Private>(*this)) {
  setFocusProxy(d_->picDisp);
  d_->takeClient();
}

ucCanvas::~ucCanvas() = default;

clsDIB& ucCanvas::DIB() {
  return d_->core.bitmaps.DIB;
}
const clsDIB& ucCanvas::DIB() const {
  return d_->core.bitmaps.DIB;
}
clsDIB& ucCanvas::DIBregion() {
  return d_->core.bitmaps.DIBregion;
}
clsDIB& ucCanvas::DIBCustomBrush() {
  return d_->core.bitmaps.DIBCustomBrush;
}
clsDIB& ucCanvas::DIBCustomBrushMask() {
  return d_->core.bitmaps.DIBCustomBrushMask;
}
clsDIB& ucCanvas::DIBCustomPattern() {
  return d_->core.bitmaps.DIBCustomPattern;
}
clsDIB& ucCanvas::DIBStamp() {
  return d_->core.bitmaps.DIBStamp;
}
clsDIB& ucCanvas::DIBStampMask() {
  return d_->core.bitmaps.DIBStampMask;
}
bool ucCanvas::CustomBrushPresent() const {
  return !d_->core.bitmaps.DIBCustomBrush.empty();
}
bool ucCanvas::CustomPatternPresent() const {
  return !d_->core.bitmaps.DIBCustomPattern.empty();
}
bool ucCanvas::StampPresent() const {
  return !d_->core.bitmaps.DIBStamp.empty();
}

CanvasSettings& ucCanvas::settings() {
  return d_->core.settings;
}
const CanvasSettings& ucCanvas::settings() const {
  return d_->core.settings;
}

int ucCanvas::CanvasOp() const {
  return d_->core.CanvasOp();
}
void ucCanvas::setCanvasOp(int op) {
  d_->core.setCanvasOp(op);
}
int ucCanvas::CanvasScreenMode() const {
  return d_->core.CanvasScreenMode();
}
void ucCanvas::setCanvasScreenMode(int mode) {
  d_->core.setCanvasScreenMode(mode);
}
int ucCanvas::PolygonDrawMethod() const {
  return d_->core.PolygonDrawMethod();
}
void ucCanvas::setPolygonDrawMethod(int method) {
  d_->core.setPolygonDrawMethod(method);
}
bool ucCanvas::SuspendCanvasResizeByEdgeDragging() const {
  return d_->core.SuspendCanvasResizeByEdgeDragging();
}
void ucCanvas::setSuspendCanvasResizeByEdgeDragging(bool suspend) {
  d_->core.setSuspendCanvasResizeByEdgeDragging(suspend);
}
void ucCanvas::setToShowPixelRGB(bool show) {
  d_->core.setToShowPixelRGB(show);
}

void ucCanvas::setCanvasBackColor(const QColor& color) {
  d_->backColor = color;
  d_->picDisp->update();
  d_->picLoadingMsg->update();
}

bool ucCanvas::held() const {
  return d_->core.held();
}
void ucCanvas::letGo() {
  d_->core.letGo();
}
void ucCanvas::finishStroke() {
  d_->core.finishStroke();
}

bool ucCanvas::PolygonInProgress() const {
  return d_->core.toolInProgress(kPolygonOp);
}
bool ucCanvas::BezierInProgress() const {
  return d_->core.toolInProgress(kBezierOp);
}
void ucCanvas::BezierAbort() {
  if (BezierInProgress()) d_->core.finishStroke();
}

void ucCanvas::CanvasResize() {
  d_->takeClient();
  d_->core.CanvasResize();
}
void ucCanvas::CanvasPicPaint() {
  d_->core.CanvasPicPaint();
}
void ucCanvas::CanvasCleanse() {
  d_->core.CanvasCleanse();
}

void ucCanvas::GetScrollValues(int& x, int& y) const {
  x = d_->core.view().ScrollX;
  y = d_->core.view().ScrollY;
}
void ucCanvas::SetScrollValues(int x, int y, bool repaint, bool syncBars) {
  d_->core.SetScrollValues(x, y, repaint, syncBars);
}
void ucCanvas::GetScrollMaxInfo(int& x, int& y) const {
  x = d_->core.view().ScrollMaxX;
  y = d_->core.view().ScrollMaxY;
}
void ucCanvas::GetScrollBarVisibilityInfo(bool& horizontal, bool& vertical) const {
  horizontal = d_->core.view().horizontalBar;
  vertical = d_->core.view().verticalBar;
}
bool ucCanvas::HasScrollBarVisible() const {
  return d_->core.view().anyBar();
}

void ucCanvas::GetCurrentGrossImageSize(int& width, int& height) const {
  const Size gross = d_->core.grossSize();
  width = gross.width;
  height = gross.height;
}
void ucCanvas::GetPicdispStartPos(int& left, int& top) const {
  left = d_->core.view().picDisp.left;
  top = d_->core.view().picDisp.top;
}
void ucCanvas::GetVisibleStartInfo(int& x, int& y) const {
  x = d_->core.view().VisStartX;
  y = d_->core.view().VisStartY;
}
void ucCanvas::GetVisibleInfo(int& x1, int& y1, int& x2, int& y2) const {
  d_->core.view().visibleInfo(x1, y1, x2, y2);
}

void ucCanvas::GetLineInfo(int& x1, int& y1, int& x2, int& y2) const {
  const auto [from, to] = d_->core.GetLineInfo();
  x1 = from.x, y1 = from.y;
  x2 = to.x, y2 = to.y;
}

void ucCanvas::ShowLoadingMsg() {
  QWidget& notice = *d_->picLoadingMsg;
  notice.move((width() - notice.width()) / 2, (height() - notice.height()) / 2);
  notice.show();
  notice.raise();
  // What follows does not return to the event loop for a while.
  notice.repaint();
}
void ucCanvas::RemoveLoadingMsg() {
  d_->picLoadingMsg->hide();
}

void ucCanvas::updateGlass() {
  d_->core.overlayChanged();
}
void ucCanvas::GetMagnifyGlassSizeInfo(int& width, int& height) const {
  width = height = glass::kSide * d_->picDisp->markerScale();
}

void ucCanvas::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  d_->picDisp->setGeometry(rect());
  CanvasResize();
}

void ucCanvas::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  CanvasResize();
}

void ucCanvas::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) CanvasPicPaint();
}

}  // namespace ruvo
