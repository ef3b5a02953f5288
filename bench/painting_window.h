// A canvas with a window that paints at once what it is asked to paint.
#pragma once

#include <vector>

#include "canvas/engine/canvas_core.h"

namespace ruvo::bench {

inline constexpr Size kView{1600, 900};

struct PaintingWindow : CanvasEvents, CanvasWindow {
  CanvasCore core{*this, *this};
  std::vector<std::uint8_t> pixels = std::vector<std::uint8_t>(std::size_t{1700} * 1000 * 4);

  PaintingWindow(int width, int height, int magnify) {
    // The bars and the rim come off the control, so that the display has the view's size.
    core.setClient({kView.width + 14, kView.height + 14}, {10, 10});
    core.bitmaps.DIB.CreateBlankDIB(width, height, 32, kWhite);
    core.settings.Magnify = magnify;
    core.setCanvasScreenMode(1);
  }
  void repaint(const Rect& control) override {
    const Rect& pic = core.view().picDisp;
    const Rect part = control.intersected(pic);
    if (part.empty()) return;
    core.render({part.left - pic.left, part.top - pic.top, part.right - pic.left, part.bottom - pic.top},
                {pixels.data(), part.width() * 4});
  }
  void arrange() override {}
  void setCursor(CursorWord) override {}
  void setToolTip(const std::string&) override {}
  void setWaiting(bool) override {}
  void hideLoadingMsg() override {}
  void setTicking(bool) override {}
  void copyToClipboard(const clsDIB&) override {}
  void NotifyScroll() override {}
  void NotifyClickData(int, Colour, int, int) override {}
  void NotifyRightClickOnPastedText() override {}
  void NotifyRegionMoved() override {}
  void NotifyToPrepareUndo() override {}
  void NotifyDragResize(bool) override {}
  void NotifyDragResizeProforma(int, int) override {}
  void NotifyCancelGlassOp() override {}
  void NotifyRegionStatus() override {}
  void NotifyPolygonCrop() override {}
  void NotifyBezierStatus() override {}
  void NotifyCanvasMouseClick() override {}
  void NotifyCanvasMouseMove() override {}
  void MonitorXYdata(int, int) override {}
  void NoStamp() override {}
  void DispPointOfClick(int, int, Colour) override {}
  void DispMeasureRectangle(int, int, int, int) override {}
  void DispMeasureLine(int, int, int, int, double) override {}
  void DispMeasureArc(int, int, int, int, int, int, double) override {}
  void DispMeasureOval(int, int, double, int, int) override {}
  void DispMeasureClear() override {}
  void DIBProgress(int) override {}
  void DIBProgressEnd() override {}
};

}  // namespace ruvo::bench
