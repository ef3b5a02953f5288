// What filling areas costs against one memset of as many bytes: the whole of 24 megapixels by flood fill
// (fillWholeSolid), and filled figures of 4 megapixels.
#include <benchmark/benchmark.h>

#include <cstring>

#include "canvas/engine/shape_oval.h"
#include "canvas/engine/shape_polygon.h"

namespace {

using namespace ruvo;

void memsetOf(benchmark::State& state) {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(state.range(0)) * 4'000'000);
  int value = 0;
  for (auto _ : state) {
    std::memset(bytes.data(), ++value & 1, bytes.size());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(memsetOf)->ArgName("megapixels")->Arg(4)->Arg(24)->Unit(benchmark::kMillisecond);

// An octagon, and the pixels worked out each time as a gesture does it. The argument says whether the picture has alpha.
void filledPolygon(benchmark::State& state) {
  constexpr double kRadius = 1189.2;  // 4 million pixels: 2 x the root of 2 x the square of it
  clsDIB picture;
  picture.CreateBlankDIB(2600, 2600, 32, kWhite);
  picture.setDIBhasAlpha(state.range(0) != 0);
  Colour colour = 0;
  for (auto _ : state) {
    const auto figure = shape::automaticFigure({1300, 1300}, {8, kRadius, 1, 22}, shape::PolygonInk::Filled, 1);
    shape::paintPolygon(picture, figure, colour ^= 0x123456);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(filledPolygon)->ArgName("alpha")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void filledOval(benchmark::State& state) {
  constexpr int kSide = 2257;  // 4 million pixels: a quarter of pi x the square of it
  clsDIB picture;
  picture.CreateBlankDIB(2600, 2600, 32, kWhite);
  picture.setDIBhasAlpha(state.range(0) != 0);
  const int enhancement = static_cast<int>(state.range(1));
  Colour colour = 0;
  for (auto _ : state) {
    shape::fillOval(picture, Rect::fromSize(170, 170, kSide, kSide), colour ^= 0x123456, enhancement);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(filledOval)
    ->ArgNames({"alpha", "soft"})
    ->Args({0, 0})
    ->Args({1, 0})
    ->Args({0, 1})
    ->Unit(benchmark::kMillisecond);

}  // namespace
