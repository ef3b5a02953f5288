// What the view costs: a whole repaint against a plain copy of the view's bytes, and one brush move with its repaint on
// a small and on a large picture.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "painting_window.h"

namespace {

using namespace ruvo;
using ruvo::bench::kView;
using ruvo::bench::PaintingWindow;

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
