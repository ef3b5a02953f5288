// A widget that shows a picture in the device pixels of its screen, whatever the scale: where the pointer is, what part is
// to be painted, and the surround. It covers the whole of its parent, the control that owns it.
#pragma once

#include <QImage>
#include <QWidget>

#include "canvas/engine/view_render.h"

class QMouseEvent;
class QWheelEvent;

namespace ruvo {

class PictureView : public QWidget {
 public:
  explicit PictureView(QWidget& control);

  // Where the pointer is, counted from the device pixel at which the control begins. The receiver may be another child of
  // the control.
  Point toDevice(const QMouseEvent& event, const QWidget& receiver) const;
  // Size of the control in device pixels.
  Size deviceClient() const;
  // The logical rectangle that holds device pixels.
  QRect toLogical(const Rect& device) const;
  // How many times as large as on an ordinary screen handles and markers are; 1 or more.
  int markerScale() const;
  // How far a wheel turns the picture, device pixels; Shift turns it sideways.
  Point wheelTravel(const QWheelEvent& event) const;
  // Paints device pixels of the control again.
  void repaintDevice(const Rect& control);

 protected:
  void paintEvent(QPaintEvent* event) override;

  // How the picture lies in the control; a blank one shows the surround only.
  virtual const ViewGeometry& shown() const = 0;
  virtual QColor surround() const = 0;
  // Pixels of the display; see ViewRenderer::render.
  virtual void render(const Rect& area, RenderTarget target) = 0;
  // The control's size in device pixels is not the one that was laid out. Called from the event loop.
  virtual void sizeChanged() = 0;
  // What lies over the picture; `origin` is the control's corner, device pixels.
  virtual void paintOver(QPainter&, QPoint /*origin*/) {}

 private:
  void paintSurround(QPainter& painter, QPoint origin, const QRegion& dirty);
  void paintPicture(QPainter& painter, QPoint origin, const QRect& dirty);

  QImage buffer_;
};

inline QRect toQRect(const Rect& r) {
  return {r.left, r.top, r.width(), r.height()};
}

// The workspace's colour of a control that was given none.
QColor workspaceColour(const QWidget& control);

}  // namespace ruvo
