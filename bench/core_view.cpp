// What the view costs: a whole repaint against a plain copy of the view's bytes, and one brush move with its repaint on
// a small and on a large picture.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "canvas/engine/canvas_core.h"

namespace {

using namespace ruvo;

constexpr Size kView{1600, 900};

// A window that paints at once what it is asked to paint.
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

void copyOfTheViewsBytes(benchmark::State& state) {
  const std::size_t bytes = std::size_t{4} * kView.width * kView.height;
  std::vector<std::uint8_t> from(bytes, 1), to(bytes);
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), bytes);
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(copyOfTheViewsBytes)->Unit(benchmark::kMicrosecond);

void viewRepaint(benchmark::State& state) {
  PaintingWindow window(6000, 4000, static_cast<int>(state.range(0)));
  window.core.SetScrollValues(1000, 1000, false, false);
  for (auto _ : state) {
    window.core.CanvasPicPaint();
    benchmark::ClobberMemory();
  }
}
BENCHMARK(viewRepaint)->Arg(1)->Arg(3)->Arg(8)->Unit(benchmark::kMicrosecond);

// The viewer's stretches, worked out anew: the argument is the magnification, 0 is a picture of 24 megapixels fitted.
void viewerStretch(benchmark::State& state) {
  PaintingWindow window(6000, 4000, std::max(1, static_cast<int>(state.range(0))));
  window.core.settings.FitInView = state.range(0) == 0;
  window.core.setCanvasScreenMode(0);
  for (auto _ : state) {
    window.core.CanvasPicPaint();
    benchmark::ClobberMemory();
  }
}
BENCHMARK(viewerStretch)->Arg(0)->Arg(3)->Arg(8)->Unit(benchmark::kMicrosecond);

// Size 20, smoothed round, moves of ten pixels to and fro; the argument is the picture's width in thousands.
void brushMoveAndRepaint(benchmark::State& state) {
  const int width = static_cast<int>(state.range(0)) * 1000;
  PaintingWindow window(width, width * 2 / 3, 1);
  window.core.settings.ColorToUse = kBlack;
  window.core.settings.BrushSize = 20;
  window.core.settings.BrushStyle = 2;
  window.core.setCanvasOp(0);
  window.core.mousePress({400, 300}, MouseButton::Left, {});
  int step = 0;
  for (auto _ : state) {
    ++step;
    window.core.mouseMove({400 + (step % 40) * 10, 300 + (step / 40 % 30) * 10}, {});
  }
}
BENCHMARK(brushMoveAndRepaint)->Arg(2)->Arg(6)->ArgName("thousand_wide")->Unit(benchmark::kMicrosecond);

}  // namespace
