// Colour reduction, colour counting and quality resizing beside ImageMagick on the same pixels, in one run. Both sides
// use one thread and leave the source alone.
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <vector>

#include "image/basGDIProc.h"
#include "image/clsPal.h"
#include "image/clsPalDither.h"
#include "magick_wand.h"
#include "photograph.h"
#include "platform/imaging/imaging_service.h"

namespace ruvo {
namespace {

constexpr int kWidth = 4000, kHeight = 3000;            // 12 megapixels
constexpr int kLargeWidth = 6000, kLargeHeight = 4000;  // 24
constexpr int kSmallWidth = 1732, kSmallHeight = 1155;  // 2

const clsDIB& picture() {
  static const clsDIB dib = bench::photograph(kWidth, kHeight);
  return dib;
}
const clsDIB& largePicture() {
  static const clsDIB dib = bench::photograph(kLargeWidth, kLargeHeight);
  return dib;
}

// Each round starts from a fresh copy, whose making is not measured.
void reduceTo256Ours(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    clsDIB copy;
    clsDIB::CloneDIB(picture(), copy, kWhite, false);
    clsPal pal;
    clsPalDither dither;
    state.ResumeTiming();
    pal.CreateOptimal(copy, 256);
    dither.DitherToPalette256(copy, pal);
    benchmark::DoNotOptimize(dither.TableEntry().data());
  }
}
BENCHMARK(reduceTo256Ours)->Unit(benchmark::kMillisecond);

void reduceTo256Magick(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    MagickWand* wand = bench::wandOf(picture());
    state.ResumeTiming();
    MagickQuantizeImage(wand, 256, RGBColorspace, 0, MagickTrue, MagickFalse);
    state.PauseTiming();
    DestroyMagickWand(wand);
    state.ResumeTiming();
  }
}
BENCHMARK(reduceTo256Magick)->Unit(benchmark::kMillisecond);

void countColours(benchmark::State& state) {
  const clsDIB& dib = largePicture();
  int count = 0;
  for (auto _ : state) benchmark::DoNotOptimize(count = clsDIB::CountColorsDIB(dib));
  state.SetLabel(std::to_string(count) + " colours");
}
BENCHMARK(countColours)->Unit(benchmark::kMillisecond);

// One pass that reads each pixel as one, with nothing done but a sum.
void onePass(benchmark::State& state) {
  const raster::Surface& surface = largePicture().surface();
  for (auto _ : state) {
    std::uint32_t sum = 0;
    for (int y = 0; y < surface.height(); ++y) {
      const auto* row = reinterpret_cast<const Pixel32*>(surface.memoryRow(y));
      for (int x = 0; x < surface.width(); ++x) {
        const Colour colour = row[x].colour();
        sum += colour;
        benchmark::DoNotOptimize(sum);
      }
    }
  }
}
BENCHMARK(onePass)->Unit(benchmark::kMillisecond);

void resizeOurs(benchmark::State& state) {
  imaging::startImagingService();
  for (auto _ : state) {
    state.PauseTiming();
    clsDIB copy;
    clsDIB::CloneDIB(largePicture(), copy, kWhite, false);
    state.ResumeTiming();
    ResizeDIBQuality(copy, kSmallWidth, kSmallHeight, true);
  }
}
BENCHMARK(resizeOurs)->Unit(benchmark::kMillisecond);

// How near our result is to ImageMagick's, in decibels.
double likeness(MagickWand* wand) {
  clsDIB ours;
  clsDIB::CloneDIB(largePicture(), ours, kWhite, false);
  ResizeDIBQuality(ours, kSmallWidth, kSmallHeight, true);
  std::vector<std::uint8_t> theirs(static_cast<std::size_t>(kSmallWidth) * kSmallHeight * 4);
  MagickExportImagePixels(wand, 0, 0, kSmallWidth, kSmallHeight, "BGRP", CharPixel, theirs.data());
  double sum = 0;
  for (std::size_t i = 0; i < theirs.size(); ++i) {
    if (i % 4 == 3) continue;
    const double d = static_cast<double>(theirs[i]) - ours.DIBBitsPtr()[i];
    sum += d * d;
  }
  return 10 * std::log10(255.0 * 255.0 / (sum / (static_cast<double>(theirs.size()) * 3 / 4)));
}

void resizeMagick(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    MagickWand* wand = bench::wandOf(largePicture());
    state.ResumeTiming();
    MagickResizeImage(wand, kSmallWidth, kSmallHeight, CatromFilter, 1.0);
    state.PauseTiming();
    state.SetLabel("likeness to ours " + std::to_string(likeness(wand)) + " dB");
    DestroyMagickWand(wand);
    state.ResumeTiming();
  }
}
BENCHMARK(resizeMagick)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ruvo
