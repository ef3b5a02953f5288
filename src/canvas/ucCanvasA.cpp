#include "canvas/ucCanvasA.h"

#include <QMouseEvent>
#include <QWheelEvent>

#include "canvas/canvas_bars.h"
#include "canvas/canvas_cursors.h"
#include "canvas/engine/hand_scroll.h"
#include "canvas/picture_view.h"

namespace ruvo {

// What the pointer does, and the picture in device pixels.
class ucCanvasA::View final : public PictureView {
 public:
  View(ucCanvasA& control, Private& inside) : PictureView(control), q_(control), d_(inside) {}
  void layOut();
  void paintAnew();
  void scrollTo(int x, int y);

 protected:
  const ViewGeometry& shown() const override;
  QColor surround() const override;
  void sizeChanged() override { q_.CanvasResize(); }
  void render(const Rect& area, RenderTarget target) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent*) override { leavePicture(); }
  void wheelEvent(QWheelEvent* event) override;

 private:
  Point displayOf(const QMouseEvent& event) const;
  void showHand();
  void follow(Point display);
  void moveLines(std::optional<Point> to);
  void leavePicture();

  ucCanvasA& q_;
  Private& d_;
  ViewRenderer renderer_;
  HandScroll hand_;
  bool dragging_ = false;
  bool rightPressed_ = false;
  bool over_ = false;           // the pointer is on the picture
  std::optional<Point> lines_;  // where the cross hair is shown
};

struct ucCanvasA::Private {
  explicit Private(ucCanvasA& control)
      : picDisp(new View(control, *this)),
        bars(control, [&control](int x, int y) { control.SetScrollValues(x, y, true, false); }) {}

  clsDIB DIB;
  int magnify = 1;
  bool fitInView = false;
  ViewGeometry view;
  QColor backColor;  // not valid: the theme's workspace colour
  bool notifyMove = false;
  bool reportRightClick = false;
  bool monitor = false;
  bool showRgb = false;
  bool showLines = false;
  View* picDisp;
  CanvasBars bars;
};

// --- The view

const ViewGeometry& ucCanvasA::View::shown() const {
  return d_.view;
}

QColor ucCanvasA::View::surround() const {
  return d_.backColor.isValid() ? d_.backColor : workspaceColour(q_);
}

void ucCanvasA::View::render(const Rect& area, RenderTarget target) {
  renderer_.render(d_.DIB, d_.view, d_.fitInView, area, target);
  if (lines_) invertCrossHair(*lines_, area, target);
}

void ucCanvasA::View::layOut() {
  d_.view.layout({.client = deviceClient(),
                  .image = d_.DIB.size(),
                  .magnify = d_.magnify,
                  .fitInView = d_.fitInView,
                  .fitted = d_.fitInView ? fittedPlace(d_.DIB, deviceClient(), false) : Rect{},
                  .bars = d_.bars.deviceThickness()});
  d_.bars.arrange(d_.view);
  showHand();
  paintAnew();
}

void ucCanvasA::View::paintAnew() {
  lines_.reset();
  renderer_.pictureChanged();
  update();
}

void ucCanvasA::View::scrollTo(int x, int y) {
  q_.SetScrollValues(x, y, true, true);
}

Point ucCanvasA::View::displayOf(const QMouseEvent& event) const {
  const Point control = toDevice(event, *this);
  return {control.x - d_.view.picDisp.left, control.y - d_.view.picDisp.top};
}

void ucCanvasA::View::showHand() {
  const CursorWord word = !d_.view.anyBar() ? CursorWord::Arrow : dragging_ ? CursorWord::HandOn : CursorWord::HandOff;
  setCursor(canvasCursor(word, devicePixelRatioF()));
}

void ucCanvasA::View::mousePressEvent(QMouseEvent* event) {
  const Point display = displayOf(*event);
  const Size size = d_.view.displaySize();
  if (d_.DIB.empty() || dragging_ || !Rect{0, 0, size.width, size.height}.contains(display.x, display.y)) return;
  if (event->button() == Qt::RightButton) rightPressed_ = true;
  if (event->button() != Qt::LeftButton || !d_.view.anyBar()) return;
  moveLines(std::nullopt);
  hand_.begin(d_.view, display);
  dragging_ = true;
  showHand();
}

void ucCanvasA::View::mouseMoveEvent(QMouseEvent* event) {
  const Point display = displayOf(*event);
  // A menu or a dialog that opened by a key meanwhile has taken the release.
  if (dragging_ && !event->buttons().testFlag(Qt::LeftButton)) {
    dragging_ = false;
    showHand();
  }
  if (dragging_) {
    const Point to = hand_.follow(d_.view, display);
    if (to != Point{d_.view.ScrollX, d_.view.ScrollY}) scrollTo(to.x, to.y);
    return;
  }
  const Size size = d_.view.displaySize();
  if (d_.view.blank() || !Rect{0, 0, size.width, size.height}.contains(display.x, display.y)) return leavePicture();
  over_ = true;
  follow(display);
}

void ucCanvasA::View::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && dragging_) {
    dragging_ = false;
    showHand();
  }
  if (event->button() != Qt::RightButton || !std::exchange(rightPressed_, false) || !d_.reportRightClick) return;
  const Point image = d_.view.toImage(displayOf(*event));
  if (const auto colour = seenColour(d_.DIB, image)) Q_EMIT q_.NotifyClickData(2, *colour, image.x, image.y);
}

void ucCanvasA::View::follow(Point display) {
  moveLines(d_.showLines ? std::optional(display) : std::nullopt);
  const Point image = d_.view.toImage(display);
  const auto colour = seenColour(d_.DIB, image);
  if (!colour) return;
  if (d_.showRgb) setToolTip(QString::fromStdString(rgbText(*colour)));
  if (d_.monitor) Q_EMIT q_.MonitorXYdata(image.x, image.y);
}

void ucCanvasA::View::moveLines(std::optional<Point> to) {
  const std::optional<Point> from = std::exchange(lines_, to);
  const Rect& pic = d_.view.picDisp;
  for (const auto& at : {from, to}) {
    if (!at || from == to) continue;
    repaintDevice({pic.left, pic.top + at->y, pic.right, pic.top + at->y + 1});
    repaintDevice({pic.left + at->x, pic.top, pic.left + at->x + 1, pic.bottom});
  }
}

void ucCanvasA::View::leavePicture() {
  if (!std::exchange(over_, false)) return;
  moveLines(std::nullopt);
  setToolTip({});
  if (d_.notifyMove) Q_EMIT q_.NotifyCanvasMouseMove();
}

void ucCanvasA::View::wheelEvent(QWheelEvent* event) {
  if (dragging_ || !d_.view.anyBar()) return event->ignore();
  const Point travel = wheelTravel(*event);
  scrollTo(d_.view.ScrollX - travel.x, d_.view.ScrollY - travel.y);
  event->accept();
}

// --- The control

ucCanvasA::ucCanvasA(QWidget* parent) : QWidget(parent), d_(std::make_unique<Private>(*this)) {
  setFocusProxy(d_->picDisp);
}

ucCanvasA::~ucCanvasA() = default;

clsDIB& ucCanvasA::DIB() {
  return d_->DIB;
}
const clsDIB& ucCanvasA::DIB() const {
  return d_->DIB;
}
int ucCanvasA::Magnify() const {
  return d_->magnify;
}
void ucCanvasA::setMagnify(int magnify) {
  d_->magnify = std::max(1, magnify);
}
void ucCanvasA::setFitInView(bool fit) {
  d_->fitInView = fit;
}
void ucCanvasA::setCanvasBackColor(const QColor& color) {
  d_->backColor = color;
  d_->picDisp->update();
}

void ucCanvasA::setToNotifyCanvasMouseMove(bool on) {
  d_->notifyMove = on;
}
void ucCanvasA::setToReportRightClickDataInScrollMode(bool on) {
  d_->reportRightClick = on;
}
void ucCanvasA::setToMonitorXYdata(bool on) {
  d_->monitor = on;
}
void ucCanvasA::setToShowPixelRGB(bool on) {
  d_->showRgb = on;
  if (!on) d_->picDisp->setToolTip({});
}
void ucCanvasA::setToShowXYlines(bool on) {
  d_->showLines = on;
  if (!on) d_->picDisp->paintAnew();
}

void ucCanvasA::CanvasResize() {
  d_->picDisp->layOut();
}

void ucCanvasA::CanvasPicPaint() {
  const bool stale = d_->view.image != d_->DIB.size() || d_->view.Magnify != d_->magnify ||
                     d_->view.FitInView != d_->fitInView;
  if (stale) return CanvasResize();
  d_->picDisp->paintAnew();
}

void ucCanvasA::CanvasCleanse() {
  d_->DIB.ClearUp();
  d_->magnify = 1;
  CanvasResize();
  Q_EMIT NotifyScroll();
}

void ucCanvasA::GetScrollValues(int& x, int& y) const {
  x = d_->view.ScrollX;
  y = d_->view.ScrollY;
}

void ucCanvasA::SetScrollValues(int x, int y, bool repaint, bool syncBars) {
  d_->view.setScroll(x, y);
  if (repaint) d_->picDisp->paintAnew();
  if (syncBars) d_->bars.arrange(d_->view);
  Q_EMIT NotifyScroll();
}

void ucCanvasA::GetPicdispStartPos(int& left, int& top) const {
  left = d_->view.picDisp.left;
  top = d_->view.picDisp.top;
}

void ucCanvasA::GetVisibleStartInfo(int& x, int& y) const {
  x = d_->view.VisStartX;
  y = d_->view.VisStartY;
}

std::optional<Colour> ucCanvasA::DIB_XY_Color(int x, int y) const {
  return seenColour(d_->DIB, {x, y});
}

void ucCanvasA::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  d_->picDisp->setGeometry(rect());
  CanvasResize();
}

void ucCanvasA::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  CanvasResize();
}

void ucCanvasA::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) CanvasPicPaint();
}

}  // namespace ruvo
