// A move of the magnifying glass with what it repaints, on a picture of 24 megapixels.
#include <benchmark/benchmark.h>

#include "painting_window.h"

namespace {

using namespace ruvo;
using ruvo::bench::kView;
using ruvo::bench::PaintingWindow;

// The arguments: flat or convex, magnification of the view, and scale of the screen.
void glassMove(benchmark::State& state) {
  PaintingWindow window(6000, 4000, static_cast<int>(state.range(1)));
  window.core.setClient(kView, {10, 10}, static_cast<int>(state.range(2)));
  window.core.CanvasResize();
  window.core.settings.MagnifyGlassFactor = 4;
  window.core.settings.UseConvexGlass = state.range(0) == 1;
  window.core.setCanvasOp(kGlassOp);
  window.core.mousePress({kView.width / 2, kView.height / 2}, MouseButton::Left, {});
  int step = 0;
  for (auto _ : state) {
    ++step;
    window.core.mouseMove({400 + (step % 40) * 20, 300 + (step / 40 % 30) * 10}, {});
  }
}
BENCHMARK(glassMove)
    ->ArgNames({"convex", "magnify", "scale"})
    ->Args({0, 1, 1})
    ->Args({1, 1, 1})
    ->Args({0, 4, 1})
    ->Args({1, 1, 2})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
