// What painting costs, whatever the size of the picture: each pair runs the same strokes on 2 and on 24 megapixels.
#include <benchmark/benchmark.h>

#include "canvas/engine/brush_dab.h"
#include "canvas/engine/fill.h"
#include "canvas/engine/view_geometry.h"
#include "canvas/engine/view_render.h"

namespace {

using namespace ruvo;

// A white picture of 2 or 24 megapixels.
clsDIB blank(const benchmark::State& state) {
  const bool large = state.range(0) == 24;
  raster::Surface surface;
  surface.create(large ? 6000 : 1600, large ? 4000 : 1250, 32);
  std::fill(surface.bytes().begin(), surface.bytes().end(), std::uint8_t{255});
  clsDIB dib;
  dib.adopt(std::move(surface), false);
  return dib;
}

void pair(benchmark::internal::Benchmark* b) {
  b->ArgName("megapixels")->Arg(2)->Arg(24);
}

// A move of 8 pixels as a person sees it: the dabs, and the part of a 1600 x 900 view at magnify 1 that shows them.
void brushMove(benchmark::State& state, int percent) {
  clsDIB dib = blank(state);
  ViewGeometry view;
  ViewLayout layout;
  layout.client = {1600, 900};
  layout.image = dib.size();
  layout.bars = {16, 16};
  view.layout(layout);
  std::vector<std::uint8_t> window(std::size_t{1600} * 900 * 4);
  const RenderTarget all{window.data(), 1600 * 4};
  ViewRenderer renderer;
  brush::BrushStroke stroke;
  stroke.BrushStrokeBegin(dib, rgb(20, 90, 200));
  constexpr int kMovesPerLine = 150;
  Point last{192, 200};
  int i = 0;
  for (auto _ : state) {
    const Point next{200 + 8 * (i % kMovesPerLine), 200 + i / kMovesPerLine % 70 * 8};
    const Rect shown = view.toDisplay(stroke.walk(last, next, 20, percent, 2));
    const RenderTarget part{all.pixels + shown.top * all.stride + shown.left * 4, all.stride};
    renderer.render(dib, view, false, shown, part);
    last = i % kMovesPerLine == kMovesPerLine - 1 ? Point{192, next.y} : next;
    ++i;
  }
}
void brushMoveCovering(benchmark::State& state) {
  brushMove(state, 100);
}
void brushMoveTranslucent(benchmark::State& state) {
  brushMove(state, 50);
}
BENCHMARK(brushMoveCovering)->Apply(pair);
BENCHMARK(brushMoveTranslucent)->Apply(pair);

void pressAndRelease(benchmark::State& state) {
  clsDIB dib = blank(state);
  for (auto _ : state) {
    brush::BrushStroke stroke;
    stroke.BrushStrokeBegin(dib, rgb(20, 90, 200));
    benchmark::DoNotOptimize(stroke.BrushDab(700, 600, 20, 50, 2));
  }
}
BENCHMARK(pressAndRelease)->Apply(pair);

// The whole picture, solid and with a hatch; per pixel these should be near a plain write of the pixels.
void fillWhole(benchmark::State& state, int pattern) {
  clsDIB dib = blank(state);
  bool white = true;
  for (auto _ : state) {
    const Colour colour = white ? rgb(20, 90, 200) : kWhite;
    benchmark::DoNotOptimize(brush::floodFill(dib, 10, 10, pattern, pattern == 0 ? colour : kWhite, clsDIB()));
    white = !white;
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(dib.surface().byteCount()));
}
void fillWholeSolid(benchmark::State& state) {
  fillWhole(state, brush::kSolid);
}
void fillWholeHatched(benchmark::State& state) {
  fillWhole(state, brush::kFirstHatch);
}
BENCHMARK(fillWholeSolid)->Apply(pair)->Unit(benchmark::kMillisecond);
BENCHMARK(fillWholeHatched)->Apply(pair)->Unit(benchmark::kMillisecond);

void replaceWhole(benchmark::State& state) {
  clsDIB dib = blank(state);
  bool white = true;
  for (auto _ : state) {
    const Colour other = rgb(20, 90, 200);
    benchmark::DoNotOptimize(brush::ReplaceColor(dib, white ? kWhite : other, white ? other : kWhite));
    white = !white;
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(dib.surface().byteCount()));
}
BENCHMARK(replaceWhole)->Apply(pair)->Unit(benchmark::kMillisecond);

}  // namespace
