// The viewport of the canvas: shows the picture and takes mouse, wheel, keys and dropped files.
#pragma once

#include "canvas/picture_view.h"
#include "canvas/ucCanvas.h"

namespace ruvo {

class CanvasView final : public PictureView {
 public:
  CanvasView(ucCanvas& canvas, ucCanvas::Private& inside);

 protected:
  const ViewGeometry& shown() const override;
  QColor surround() const override;
  void render(const Rect& area, RenderTarget target) override;
  void sizeChanged() override { canvas_.CanvasResize(); }
  void paintOver(QPainter& painter, QPoint origin) override;
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
  void zoomAt(QPointF pointer, int steps);  // device pixels of the control
  int wholeSteps(int angle, int& rest);

  ucCanvas& canvas_;
  ucCanvas::Private& d_;
  int zoomRest_ = 0;
};

}  // namespace ruvo
