// The inside of ucCanvas: its child controls, and the two ways between them and the core.
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>

#include "canvas/canvas_bars.h"
#include "canvas/engine/canvas_core.h"
#include "canvas/ucCanvas.h"
#include "canvas/ucCanvas_View.h"

namespace ruvo {

struct ucCanvas::Private final : CanvasEvents, CanvasWindow {
  explicit Private(ucCanvas& canvas);

  void takeClient();  // hands size and bars to the core

  // --- CanvasEvents: each becomes the signal of its name
  void NotifyScroll() override { Q_EMIT q.NotifyScroll(); }
  void NotifyClickData(int button, Colour colour, int x, int y) override {
    Q_EMIT q.NotifyClickData(button, colour, x, y);
  }
  void NotifyRightClickOnPastedText() override { Q_EMIT q.NotifyRightClickOnPastedText(); }
  void NotifyRegionMoved() override { Q_EMIT q.NotifyRegionMoved(); }
  void NotifyToPrepareUndo() override { Q_EMIT q.NotifyToPrepareUndo(); }
  void NotifyDragResize(bool sizeChanged) override { Q_EMIT q.NotifyDragResize(sizeChanged); }
  void NotifyDragResizeProforma(int width, int height) override { Q_EMIT q.NotifyDragResizeProforma(width, height); }
  void NotifyCancelGlassOp() override { Q_EMIT q.NotifyCancelGlassOp(); }
  void NotifyRegionStatus() override { Q_EMIT q.NotifyRegionStatus(); }
  void NotifyPolygonCrop() override { Q_EMIT q.NotifyPolygonCrop(); }
  void NotifyBezierStatus() override { Q_EMIT q.NotifyBezierStatus(); }
  void NotifyCanvasMouseClick() override { Q_EMIT q.NotifyCanvasMouseClick(); }
  void NotifyCanvasMouseMove() override { Q_EMIT q.NotifyCanvasMouseMove(); }
  void MonitorXYdata(int x, int y) override { Q_EMIT q.MonitorXYdata(x, y); }
  void NoStamp() override { Q_EMIT q.NoStamp(); }
  void DispPointOfClick(int x, int y, Colour colour) override { Q_EMIT q.DispPointOfClick(x, y, colour); }
  void DispMeasureRectangle(int x1, int y1, int width, int height) override {
    Q_EMIT q.DispMeasureRectangle(x1, y1, width, height);
  }
  void DispMeasureLine(int x1, int y1, int x2, int y2, double angle) override {
    Q_EMIT q.DispMeasureLine(x1, y1, x2, y2, angle);
  }
  void DispMeasureArc(int x1, int y1, int x2, int y2, int cx, int cy, double radius) override {
    Q_EMIT q.DispMeasureArc(x1, y1, x2, y2, cx, cy, radius);
  }
  void DispMeasureOval(int x, int y, double measure, int width, int height) override {
    Q_EMIT q.DispMeasureOval(x, y, measure, width, height);
  }
  void DispMeasureClear() override { Q_EMIT q.DispMeasureClear(); }
  void DIBProgress(int percent) override { Q_EMIT q.DIBProgress(percent); }
  void DIBProgressEnd() override { Q_EMIT q.DIBProgressEnd(); }

  // --- CanvasWindow
  void repaint(const Rect& control) override;
  void arrange() override;
  void setCursor(CursorWord word) override;
  void setToolTip(const std::string& text) override;
  void setWaiting(bool waiting) override;
  void hideLoadingMsg() override;
  void setTicking(bool on) override;
  void copyToClipboard(const clsDIB& picture) override;

  void arrangeEdges();
  void scrolledByBar(int x, int y);
  QColor surround() const;

  ucCanvas& q;
  CanvasCore core{*this, *this};
  CanvasView* picDisp;
  CanvasBars bars;
  std::array<QWidget*, 4> picDrag;
  QWidget* picDragHorizontal;
  QWidget* picDragVertical;
  QWidget* picLoadingMsg;
  QTimer Timer1;
  QColor backColor;  // not valid: the theme's workspace colour
  CursorWord cursorShown = CursorWord::Arrow;
  double cursorScale = 1;
};

}  // namespace ruvo
