#include "canvas/ucCanvas_View.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QUrl>
#include <QWheelEvent>
#include <cmath>
#include <optional>

#include "canvas/ucCanvas_Private.h"

namespace ruvo {
namespace {

constexpr int kWheelNotch = 120;        // eighths of a degree that a wheel reports for one notch
constexpr double kScrollPerNotch = 60;  // logical pixels

MouseButton buttonOf(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return MouseButton::Left;
  return button == Qt::RightButton ? MouseButton::Right : MouseButton::None;
}

KeyModifiers keysOf(Qt::KeyboardModifiers keys) {
  return {keys.testFlag(Qt::ShiftModifier), keys.testFlag(Qt::ControlModifier), keys.testFlag(Qt::AltModifier)};
}

std::optional<CanvasKey> keyOf(int key) {
  switch (key) {
    case Qt::Key_Escape:
      return CanvasKey::Escape;
    case Qt::Key_Left:
      return CanvasKey::Left;
    case Qt::Key_Right:
      return CanvasKey::Right;
    case Qt::Key_Up:
      return CanvasKey::Up;
    case Qt::Key_Down:
      return CanvasKey::Down;
    default:
      return std::nullopt;
  }
}

QRect rectOf(const Rect& r) {
  return {r.left, r.top, r.width(), r.height()};
}
Rect rectOf(const QRect& r) {
  return Rect::fromSize(r.x(), r.y(), r.width(), r.height());
}

QString firstFile(const QMimeData* data) {
  for (const QUrl& url : data->urls()) {
    if (url.isLocalFile()) return url.toLocalFile();
  }
  return {};
}

}  // namespace

CanvasView::CanvasView(ucCanvas& canvas, ucCanvas::Private& inside) : QWidget(&canvas), canvas_(canvas), d_(inside) {
  setObjectName(QStringLiteral("picDisp"));
  setMouseTracking(true);
  setAcceptDrops(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

// Everything is painted in device pixels: the painter's scale is taken away, and the picture lands on whole pixels
// whatever the scale of the screen.
void CanvasView::paintEvent(QPaintEvent* event) {
  if (d_.deviceClient() != d_.core.view().client) {
    QMetaObject::invokeMethod(
        &canvas_, [this] { canvas_.CanvasResize(); }, Qt::QueuedConnection);
  }
  QPainter painter(this);
  const QTransform device = painter.deviceTransform();
  const QPointF corner = device.map(QPointF(0, 0));
  const QPoint origin(static_cast<int>(std::lround(corner.x())), static_cast<int>(std::lround(corner.y())));
  painter.setWorldTransform(device.inverted());

  QRegion dirty;
  for (const QRect& rect : event->region()) dirty += device.mapRect(QRectF(rect)).toAlignedRect().translated(-origin);
  paintSurround(painter, origin, dirty);
  const QRegion picture = dirty & rectOf(d_.core.view().picDisp);
  for (const QRect& rect : picture) paintPicture(painter, origin, rect);
  if (d_.core.edgeDrag().active()) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
    painter.drawRect(rectOf(d_.core.edgeDrag().outline()).translated(origin).adjusted(0, 0, -1, -1));
  }
}

void CanvasView::paintSurround(QPainter& painter, QPoint origin, const QRegion& dirty) {
  const ViewGeometry& view = d_.core.view();
  const QRect picture = d_.core.blank() ? QRect() : rectOf(view.picDisp);
  const QColor colour = d_.surround();
  for (const QRect& rect : dirty - picture) painter.fillRect(rect.translated(origin), colour);
  if (picture.isEmpty()) return;
  // A thin line keeps a picture of the surround's own colour apart from it.
  const QColor edge = colour.lightness() > 110 ? colour.darker(135) : colour.lighter(190);
  const QRect line = picture.adjusted(-1, -1, 1, 1);
  for (const QRect& rect : (QRegion(line) - picture) & dirty) painter.fillRect(rect.translated(origin), edge);
}

void CanvasView::paintPicture(QPainter& painter, QPoint origin, const QRect& dirty) {
  if (buffer_.width() < dirty.width() || buffer_.height() < dirty.height()) {
    buffer_ = QImage(dirty.size().expandedTo(buffer_.size()), QImage::Format_RGB32);
    if (buffer_.isNull()) return;
  }
  const Rect& picDisp = d_.core.view().picDisp;
  const Rect area = rectOf(dirty.translated(-picDisp.left, -picDisp.top));
  d_.core.render(area, {buffer_.bits(), buffer_.bytesPerLine()});
  painter.drawImage(dirty.topLeft() + origin, buffer_, QRect(QPoint(0, 0), dirty.size()));
}

void CanvasView::mousePressEvent(QMouseEvent* event) {
  d_.core.mousePress(d_.toDevice(*event, *this), buttonOf(event->button()), keysOf(event->modifiers()));
}

void CanvasView::mouseMoveEvent(QMouseEvent* event) {
  // A menu or a dialog that opened by a key meanwhile has taken the release.
  if (!(event->buttons() & (Qt::LeftButton | Qt::RightButton))) d_.core.letGo();
  d_.core.mouseMove(d_.toDevice(*event, *this), keysOf(event->modifiers()));
}

void CanvasView::mouseReleaseEvent(QMouseEvent* event) {
  d_.core.mouseRelease(d_.toDevice(*event, *this), buttonOf(event->button()), keysOf(event->modifiers()));
}

// The second press of a quick pair is a press like any other.
void CanvasView::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

void CanvasView::leaveEvent(QEvent*) {
  d_.core.mouseLeave();
}

void CanvasView::keyPressEvent(QKeyEvent* event) {
  const auto key = keyOf(event->key());
  if (!key || !d_.core.keyPress(*key, keysOf(event->modifiers()))) QWidget::keyPressEvent(event);
}

// Whole notches of a wheel; fine wheels add up in `rest`.
int CanvasView::wholeSteps(int angle, int& rest) {
  rest += angle;
  const int steps = rest / kWheelNotch;
  rest -= steps * kWheelNotch;
  return steps;
}

// The host decides on the magnification; what lay under the pointer then lies there again, as far as the bars allow.
void CanvasView::zoomAt(QPointF pointer, int steps) {
  const ViewGeometry& view = d_.core.view();
  const double before = view.Magnify;
  const double x = pointer.x() - view.picDisp.left + view.ScrollX;
  const double y = pointer.y() - view.picDisp.top + view.ScrollY;
  Q_EMIT canvas_.zoomRequested(steps);
  if (view.Magnify == before || view.FitInView || !view.anyBar()) return;
  const double growth = view.Magnify / before;
  d_.core.SetScrollValues(static_cast<int>(std::lround(x * growth - pointer.x() + view.picDisp.left)),
                          static_cast<int>(std::lround(y * growth - pointer.y() + view.picDisp.top)), true, true);
}

void CanvasView::wheelEvent(QWheelEvent* event) {
  if (d_.core.held()) return event->ignore();
  const QPoint angle = event->angleDelta();
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    if (const int steps = wholeSteps(angle.y(), zoomRest_)) zoomAt(event->position() * devicePixelRatioF(), steps);
    event->accept();
    return;
  }
  const ViewGeometry& view = d_.core.view();
  if (!view.anyBar()) return event->ignore();
  QPointF travel =
      event->pixelDelta().isNull() ? QPointF(angle) * (kScrollPerNotch / kWheelNotch) : QPointF(event->pixelDelta());
  // Shift turns the wheel sideways; some platforms have done so already.
  if (event->modifiers().testFlag(Qt::ShiftModifier) && travel.x() == 0) travel = QPointF(travel.y(), 0);
  travel *= devicePixelRatioF();
  const int x = view.ScrollX - static_cast<int>(std::lround(travel.x()));
  const int y = view.ScrollY - static_cast<int>(std::lround(travel.y()));
  d_.core.SetScrollValues(x, y, true, true);
  event->accept();
}

void CanvasView::dragEnterEvent(QDragEnterEvent* event) {
  dragMoveEvent(event);
}

void CanvasView::dragMoveEvent(QDragMoveEvent* event) {
  if (d_.core.dropAllowed(QFileInfo(firstFile(event->mimeData())).fileName().toStdString())) {
    event->acceptProposedAction();
  } else {
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
  }
}

void CanvasView::dropEvent(QDropEvent* event) {
  const QString file = firstFile(event->mimeData());
  if (!d_.core.dropAllowed(QFileInfo(file).fileName().toStdString())) {
    event->ignore();
    return;
  }
  event->acceptProposedAction();
  Q_EMIT canvas_.doLoadFileByDragDrop(file);
}

}  // namespace ruvo
