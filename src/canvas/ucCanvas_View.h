// The viewport of the canvas: paints the picture and what surrounds it, and takes mouse, wheel and dropped files.
#pragma once

#include <QImage>
#include <QWidget>

#include "canvas/ucCanvas.h"

namespace ruvo {

class CanvasView final : public QWidget {
 public:
  CanvasView(ucCanvas& canvas, ucCanvas::Private& inside);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void paintPicture(QPainter& painter, QPoint origin, const QRect& dirty);
  void paintSurround(QPainter& painter, QPoint origin, const QRegion& dirty);
  void zoomAt(QPointF pointer, int steps);  // device pixels of the control
  int wholeSteps(int angle, int& rest);

  ucCanvas& canvas_;
  ucCanvas::Private& d_;
  QImage buffer_;
  int zoomRest_ = 0;
};

}  // namespace ruvo
