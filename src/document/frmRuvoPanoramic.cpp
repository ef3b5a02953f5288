#include "document/frmRuvoPanoramic.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "canvas/picture_view.h"
#include "canvas/ucCanvas.h"

namespace ruvo {
namespace {

constexpr QSize kUsualSize(240, 190);
constexpr QSize kLeastSize(96, 72);
// The frame keeps this length on the screen, however small the visible part is (logical pixels).
constexpr int kLeastFrame = 6;

}  // namespace

// The reduced picture. It is worked out once for a picture and a size; a drag paints the frame over it.
class NavigatorView final : public PictureView {
 public:
  NavigatorView(ucCanvas& canvas, QWidget& window) : PictureView(window), canvas_(&canvas) {
    connect(&canvas, &ucCanvas::NotifyScroll, this, [this] { update(); });
  }

  void layOut() {
    const clsDIB& picture = canvas_ ? canvas_->DIB() : nothing_;
    geometry_.layout({.client = deviceClient(),
                      .image = picture.size(),
                      .fitInView = true,
                      .fitted = fittedPlace(picture, deviceClient(), false),
                      .bars = {}});
    renderer_.pictureChanged();
    update();
  }

 protected:
  const ViewGeometry& shown() const override { return geometry_; }
  QColor surround() const override { return workspaceColour(*this); }
  void sizeChanged() override { layOut(); }
  void render(const Rect& area, RenderTarget target) override {
    if (stale()) return;
    renderer_.render(canvas_->DIB(), geometry_, true, area, target);
  }
  void paintOver(QPainter& painter, QPoint origin) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent*) override { dragging_ = false; }

 private:
  // The host has put another picture in place and not told yet.
  bool stale() const { return !canvas_ || canvas_->DIB().size() != geometry_.image; }
  QRectF frame() const;
  void moveFrameTo(QPointF corner);
  QPointF pointer(const QMouseEvent& event) const;

  QPointer<ucCanvas> canvas_;
  clsDIB nothing_;
  ViewGeometry geometry_;
  ViewRenderer renderer_;
  bool dragging_ = false;
  QPointF grab_;  // from the pointer to the frame's corner
};

// The visible part in device pixels of the window.
QRectF NavigatorView::frame() const {
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  canvas_->GetVisibleInfo(x1, y1, x2, y2);
  const QRectF whole(toQRect(geometry_.picDisp));
  const double across = whole.width() / geometry_.image.width, down = whole.height() / geometry_.image.height;
  return QRectF(QPointF(x1 * across, y1 * down), QPointF((x2 + 1) * across, (y2 + 1) * down))
      .translated(whole.topLeft())
      .intersected(whole);
}

void NavigatorView::paintOver(QPainter& painter, QPoint origin) {
  if (geometry_.blank() || stale()) return;
  const int thick = markerScale();
  const double least = kLeastFrame * devicePixelRatioF();
  QRectF box = frame();
  const QPointF middle = box.center();
  box.setSize(box.size().expandedTo(QSizeF(least, least)));
  box.moveCenter(middle);
  const QRect outer = box.toRect().translated(origin);
  // Dark, light and dark again, so that it is seen on every picture.
  const auto ring = [&](int inset, QColor colour, int width) {
    const QRect from = outer.adjusted(inset, inset, -inset, -inset);
    const QRect to = from.adjusted(width, width, -width, -width);
    for (const QRect& part : QRegion(from) - QRegion(to)) painter.fillRect(part, colour);
  };
  ring(0, QColor(30, 32, 36), thick);
  ring(thick, palette().color(QPalette::Highlight), 2 * thick);
  ring(3 * thick, QColor(245, 246, 248), thick);
}

QPointF NavigatorView::pointer(const QMouseEvent& event) const {
  const Point at = toDevice(event, *this);
  return {at.x + 0.5, at.y + 0.5};
}

void NavigatorView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || geometry_.blank() || stale()) return;
  const QPointF at = pointer(*event);
  const QRectF box = frame();
  dragging_ = true;
  if (box.contains(at)) {
    grab_ = box.topLeft() - at;
    return;
  }
  // Beside the frame the press brings it under the pointer.
  grab_ = QPointF(-box.width() / 2, -box.height() / 2);
  moveFrameTo(at + grab_);
}

void NavigatorView::mouseMoveEvent(QMouseEvent* event) {
  if (dragging_ && !geometry_.blank() && !stale()) moveFrameTo(pointer(*event) + grab_);
}

void NavigatorView::moveFrameTo(QPointF corner) {
  if (canvas_->settings().FitInView) return;
  const Rect& whole = geometry_.picDisp;
  Point hidden, now;
  canvas_->GetScrollMaxInfo(hidden.x, hidden.y);
  canvas_->GetScrollValues(now.x, now.y);
  const auto scrollFor = [&](double distance, int image, int length, int limit) {
    const std::int64_t pixel = std::llround(distance * image / length);
    return static_cast<int>(std::clamp<std::int64_t>(pixel * canvas_->settings().Magnify, 0, limit));
  };
  const int x = scrollFor(corner.x() - whole.left, geometry_.image.width, whole.width(), hidden.x);
  const int y = scrollFor(corner.y() - whole.top, geometry_.image.height, whole.height(), hidden.y);
  if (x != now.x || y != now.y) canvas_->SetScrollValues(x, y, true, true);
}

frmRuvoPanoramic::frmRuvoPanoramic(ucCanvas& canvas, QWidget* parent)
    : QWidget(parent, Qt::Tool), view_(new NavigatorView(canvas, *this)) {
  setObjectName("frmRuvoPanoramic");
  setWindowTitle("Panoramic navigator");
  setAttribute(Qt::WA_DeleteOnClose);
  // The keys stay with the document.
  setAttribute(Qt::WA_ShowWithoutActivating);
  setMinimumSize(kLeastSize);
}

void frmRuvoPanoramic::refresh() {
  view_->layOut();
}

QSize frmRuvoPanoramic::sizeHint() const {
  return kUsualSize;
}

void frmRuvoPanoramic::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  view_->setGeometry(rect());
  view_->layOut();
}

void frmRuvoPanoramic::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (isVisible() && moved) moved(geometry().topLeft());
}

void frmRuvoPanoramic::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

}  // namespace ruvo
