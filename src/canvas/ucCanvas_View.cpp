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

constexpr int kWheelNotch = 120;  // eighths of a degree that a wheel reports for one notch

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

QString firstFile(const QMimeData* data) {
  for (const QUrl& url : data->urls()) {
    if (url.isLocalFile()) return url.toLocalFile();
  }
  return {};
}

}  // namespace

CanvasView::CanvasView(ucCanvas& canvas, ucCanvas::Private& inside) : PictureView(canvas), canvas_(canvas), d_(inside) {
  setAcceptDrops(true);
  setFocusPolicy(Qt::StrongFocus);
}

const ViewGeometry& CanvasView::shown() const {
  return d_.core.view();
}

QColor CanvasView::surround() const {
  return d_.surround();
}

void CanvasView::render(const Rect& area, RenderTarget target) {
  d_.core.render(area, target);
}

void CanvasView::paintOver(QPainter& painter, QPoint origin) {
  if (!d_.core.edgeDrag().active()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
  painter.drawRect(toQRect(d_.core.edgeDrag().outline()).translated(origin).adjusted(0, 0, -1, -1));
}

void CanvasView::mousePressEvent(QMouseEvent* event) {
  d_.core.mousePress(toDevice(*event, *this), buttonOf(event->button()), keysOf(event->modifiers()));
}

void CanvasView::mouseMoveEvent(QMouseEvent* event) {
  // A menu or a dialog that opened by a key meanwhile has taken the release.
  if (!(event->buttons() & (Qt::LeftButton | Qt::RightButton))) d_.core.letGo();
  d_.core.mouseMove(toDevice(*event, *this), keysOf(event->modifiers()));
}

void CanvasView::mouseReleaseEvent(QMouseEvent* event) {
  d_.core.mouseRelease(toDevice(*event, *this), buttonOf(event->button()), keysOf(event->modifiers()));
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
  const Point travel = wheelTravel(*event);
  d_.core.SetScrollValues(view.ScrollX - travel.x, view.ScrollY - travel.y, true, true);
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
