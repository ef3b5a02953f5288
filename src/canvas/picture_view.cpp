#include "canvas/picture_view.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

namespace ruvo {
namespace {

constexpr int kWheelNotch = 120;        // eighths of a degree that a wheel reports for one notch
constexpr double kScrollPerNotch = 60;  // logical pixels

// The widget's corner on the device, less the whole pixel at which painting begins.
QPointF fractionOfOrigin(const QWidget& view) {
  const QPointF corner = view.mapTo(view.window(), QPointF(0, 0)) * view.devicePixelRatioF();
  return corner - QPointF(std::round(corner.x()), std::round(corner.y()));
}

}  // namespace

QColor workspaceColour(const QWidget& control) {
  const QColor window = control.palette().color(QPalette::Window);
  return window.lightness() > 127 ? window.darker(122) : window.darker(140);
}

PictureView::PictureView(QWidget& control) : QWidget(&control) {
  setObjectName(QStringLiteral("picDisp"));
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

// A widget is told whole logical pixels, which on a scaled screen leave device pixels out; the place in the window has
// kept them. Made-up events may have no such place and are taken as they come.
Point PictureView::toDevice(const QMouseEvent& event, const QWidget& receiver) const {
  constexpr double kRoundingSlack = 0.01;
  const QWidget& control = *parentWidget();
  const QPointF told = receiver.mapTo(&control, event.position());
  const QPointF exact = control.mapFrom(control.window(), event.scenePosition());
  const bool samePlace = std::abs(exact.x() - told.x()) < 1 && std::abs(exact.y() - told.y()) < 1;
  const QPointF at = (samePlace ? exact : told) * devicePixelRatioF() + fractionOfOrigin(*this);
  return {static_cast<int>(std::floor(at.x() + kRoundingSlack)), static_cast<int>(std::floor(at.y() + kRoundingSlack))};
}

Size PictureView::deviceClient() const {
  const QWidget& control = *parentWidget();
  const QPointF end = QPointF(control.width(), control.height()) * devicePixelRatioF() + fractionOfOrigin(*this);
  return {static_cast<int>(std::lround(end.x())), static_cast<int>(std::lround(end.y()))};
}

QRect PictureView::toLogical(const Rect& device) const {
  const double scale = devicePixelRatioF();
  const QPointF shift = fractionOfOrigin(*this);
  const QRectF exact(QPointF(device.left, device.top) - shift, QPointF(device.right, device.bottom) - shift);
  return QRectF(exact.topLeft() / scale, exact.bottomRight() / scale).toAlignedRect();
}

int PictureView::markerScale() const {
  return std::max(1, static_cast<int>(std::lround(devicePixelRatioF())));
}

Point PictureView::wheelTravel(const QWheelEvent& event) const {
  QPointF travel = event.pixelDelta().isNull() ? QPointF(event.angleDelta()) * (kScrollPerNotch / kWheelNotch)
                                               : QPointF(event.pixelDelta());
  // Some platforms have turned it already.
  if (event.modifiers().testFlag(Qt::ShiftModifier) && travel.x() == 0) travel = QPointF(travel.y(), 0);
  travel *= devicePixelRatioF();
  return {static_cast<int>(std::lround(travel.x())), static_cast<int>(std::lround(travel.y()))};
}

void PictureView::repaintDevice(const Rect& control) {
  if (!control.empty()) update(toLogical(control));
}

// Everything is painted in device pixels: the painter's scale is taken away, and the picture lands on whole pixels
// whatever the scale of the screen.
void PictureView::paintEvent(QPaintEvent* event) {
  if (deviceClient() != shown().client)
    QMetaObject::invokeMethod(
        this, [this] { sizeChanged(); }, Qt::QueuedConnection);
  QPainter painter(this);
  const QTransform device = painter.deviceTransform();
  const QPointF corner = device.map(QPointF(0, 0));
  const QPoint origin(static_cast<int>(std::lround(corner.x())), static_cast<int>(std::lround(corner.y())));
  painter.setWorldTransform(device.inverted());

  QRegion dirty;
  for (const QRect& rect : event->region()) dirty += device.mapRect(QRectF(rect)).toAlignedRect().translated(-origin);
  paintSurround(painter, origin, dirty);
  const QRegion picture = dirty & toQRect(shown().picDisp);
  for (const QRect& rect : picture) paintPicture(painter, origin, rect);
  paintOver(painter, origin);
}

void PictureView::paintSurround(QPainter& painter, QPoint origin, const QRegion& dirty) {
  const QRect picture = shown().blank() ? QRect() : toQRect(shown().picDisp);
  const QColor colour = surround();
  for (const QRect& rect : dirty - picture) painter.fillRect(rect.translated(origin), colour);
  if (picture.isEmpty()) return;
  // A thin line keeps a picture of the surround's own colour apart from it.
  const QColor edge = colour.lightness() > 110 ? colour.darker(135) : colour.lighter(190);
  const QRect line = picture.adjusted(-1, -1, 1, 1);
  for (const QRect& rect : (QRegion(line) - picture) & dirty) painter.fillRect(rect.translated(origin), edge);
}

void PictureView::paintPicture(QPainter& painter, QPoint origin, const QRect& dirty) {
  if (buffer_.width() < dirty.width() || buffer_.height() < dirty.height()) {
    buffer_ = QImage(dirty.size().expandedTo(buffer_.size()), QImage::Format_RGB32);
    if (buffer_.isNull()) return;
  }
  const Rect& picDisp = shown().picDisp;
  const QRect area = dirty.translated(-picDisp.left, -picDisp.top);
  render(Rect::fromSize(area.x(), area.y(), area.width(), area.height()), {buffer_.bits(), buffer_.bytesPerLine()});
  painter.drawImage(dirty.topLeft() + origin, buffer_, QRect(QPoint(0, 0), dirty.size()));
}

}  // namespace ruvo
