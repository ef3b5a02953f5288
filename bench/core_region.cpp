// What a floating region costs: a drag's move with its repaint on a small and on a large picture, and the blend that
// follows when the mouse stops. The region has one megapixel.
#include <benchmark/benchmark.h>

#include "painting_window.h"

namespace {

using namespace ruvo;
using ruvo::bench::PaintingWindow;

constexpr int kSide = 1000;

// A pasted region over a picture of so many megapixels, held by the mouse.
struct HeldRegion : PaintingWindow {
  Point at{600, 400};  // on the region, wherever bars let it begin

  HeldRegion(int megapixels, const PasteManner& manner) : PaintingWindow(2000, megapixels * 500, 1) {
    core.CanvasResize();
    clsDIB pasted;
    pasted.CreateBlankDIB(kSide, kSide, 32, rgb(90, 120, 40));
    if (manner.soft) makeLetters(pasted);
    core.startPaste(pasted, manner);
    core.mousePress(at, MouseButton::Left, {});
  }
  // As a text is: a third covered, a tenth in part.
  static void makeLetters(clsDIB& pasted) {
    pasted.setDIBhasAlpha(true);
    for (int y = 0; y < kSide; ++y) {
      auto* row = reinterpret_cast<Pixel32*>(pasted.surface().pictureRow(y));
      for (int x = 0; x < kSide; ++x) {
        const int at = x % 30;
        row[x].alpha = static_cast<std::uint8_t>(at < 9 ? 255 : at < 12 ? 80 * (at - 8) : 0);
      }
    }
  }
  // To and fro, ten pixels at a time.
  void step(int count) {
    const int way = count / 30 % 2 == 0 ? count % 30 : 30 - count % 30;
    core.mouseMove({at.x + 10 * way, at.y + 5 * way}, {});
  }
};

void dragMove(benchmark::State& state, const PasteManner& manner) {
  HeldRegion region(static_cast<int>(state.range(0)), manner);
  int count = 0;
  for (auto _ : state) region.step(++count);
}
void regionMove(benchmark::State& state) {
  dragMove(state, {});
}
void regionMoveTransparent(benchmark::State& state) {
  dragMove(state, {true, false, false, 100});
}
void regionMoveSoft(benchmark::State& state) {
  PasteManner letters;
  letters.soft = true;
  dragMove(state, letters);
}
BENCHMARK(regionMove)->Arg(2)->Arg(8)->ArgName("megapixels")->Unit(benchmark::kMicrosecond);
BENCHMARK(regionMoveTransparent)->Arg(8)->ArgName("megapixels")->Unit(benchmark::kMicrosecond);
BENCHMARK(regionMoveSoft)->Arg(8)->ArgName("megapixels")->Unit(benchmark::kMicrosecond);

// The moves between are not counted. The argument says whether one colour stays out.
void regionBlend(benchmark::State& state) {
  HeldRegion region(8, {state.range(0) != 0, true, false, 60});
  int count = 0;
  for (auto _ : state) {
    state.PauseTiming();
    region.step(++count);
    state.ResumeTiming();
    region.core.region().UpdateRegionDragging_Process_Translucent();
  }
}
BENCHMARK(regionBlend)->Arg(0)->Arg(1)->ArgName("transparent")->Unit(benchmark::kMicrosecond);

}  // namespace
