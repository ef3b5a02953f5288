// A whole animation of 120 frames: loading it with its masks beside giflib, which reads the frames and draws them on one
// canvas; saving it beside giflib writing the same frames; and a tick of the player. A drawing whose frames are mostly
// see-through, and a grainy film.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

#include "animation/model/gif_view.h"
#include "base/random_source.h"
#include "base/rounding.h"
#include "giflib_memory.h"

namespace ruvo {
namespace {

constexpr int kWidth = 480;
constexpr int kHeight = 360;
enum Kind { kDrawing, kFilm };

using Bytes = std::vector<std::uint8_t>;

// Index 0 is see-through. Bars and a disc that wander over a ground that only the first frame has.
std::uint8_t drawn(int frame, int x, int y) {
  const int dx = x - 4 * frame % kWidth, dy = y - kHeight / 2;
  if (dx * dx + dy * dy < 60 * 60) return static_cast<std::uint8_t>(1 + (dx + dy) / 16 % 5);
  if (frame > 1) return (x + frame) % 97 < 3 ? 7 : 0;
  return static_cast<std::uint8_t>(8 + x / 60 + 8 * (y / 90));
}

clsDIB frameOf(int kind, int frame, int width, int height) {
  RandomSource random;
  clsDIB dib;
  dib.CreateBlankDIB(width, height, 8, kWhite);
  for (int i = 0; i < 256; ++i)
    dib.surface().table()[static_cast<std::size_t>(i)] = {clampToByte(i), clampToByte(i), 0, 0};
  for (int y = 0; y < height; ++y) {
    std::uint8_t* row = dib.surface().pictureRow(y);
    for (int x = 0; x < width; ++x) {
      const double wave = std::sin((x + 3 * frame) / 60.0) * std::cos((y - frame) / 45.0);
      row[x] =
          kind == kDrawing ? drawn(frame, x, y) : clampToByte(static_cast<int>(120 + 80 * wave + random.next() * 8));
    }
  }
  return dib;
}

clsGIF animationOf(int kind, int frames, int width, int height) {
  clsGIF gif;
  GifFrameSettings settings;
  settings.UseTransparentColor = kind == kDrawing;
  settings.TransparentColorIndex = 0;
  for (int i = 1; i <= frames; ++i) {
    settings.DisposalMethod = i % 10 == 0 ? kDisposalToBackground : kDisposalKeep;
    gif.FrameInsertImage(frameOf(kind, i, width, height), i, settings);
  }
  gif.setBgdWidth(width);
  gif.setBgdHeight(height);
  return gif;
}

const clsGIF& animation(int kind) {
  static const clsGIF animations[] = {animationOf(kDrawing, clsGIF::kMostFrames, kWidth, kHeight),
                                      animationOf(kFilm, clsGIF::kMostFrames, kWidth, kHeight)};
  return animations[kind];
}

const Bytes& fileOf(int kind) {
  static const Bytes files[] = {animation(kDrawing).saveBytes(), animation(kFilm).saveBytes()};
  return files[kind];
}

void ourGifLoad(benchmark::State& state) {
  const Bytes& file = fileOf(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Bytes bytes = file;
    clsGIF gif;
    if (gif.LoadStream(bytes) != kGifOk || gif.FramesCount() != clsGIF::kMostFrames) state.SkipWithError("not loaded");
  }
}

void compose(const GifFileType& gif, int number, std::vector<Pixel32>& canvas) {
  const SavedImage& image = gif.SavedImages[number];
  GraphicsControlBlock control{};
  control.TransparentColor = NO_TRANSPARENT_COLOR;
  DGifSavedExtensionToGCB(const_cast<GifFileType*>(&gif), number, &control);
  const ColorMapObject* map = image.ImageDesc.ColorMap ? image.ImageDesc.ColorMap : gif.SColorMap;
  Pixel32 colours[256];
  for (int i = 0; i < map->ColorCount; ++i) {
    colours[i] = {map->Colors[i].Blue, map->Colors[i].Green, map->Colors[i].Red, 255};
  }
  const GifByteType* index = image.RasterBits;
  for (int y = 0; y < image.ImageDesc.Height; ++y) {
    Pixel32* row = &canvas[static_cast<std::size_t>((y + image.ImageDesc.Top) * gif.SWidth + image.ImageDesc.Left)];
    for (int x = 0; x < image.ImageDesc.Width; ++x, ++index) {
      if (*index != control.TransparentColor) row[x] = colours[*index];
    }
  }
  if (control.DisposalMode == DISPOSE_BACKGROUND) std::fill(canvas.begin(), canvas.end(), Pixel32{});
}

void giflibLoad(benchmark::State& state) {
  bench::GiflibMemory memory{fileOf(static_cast<int>(state.range(0)))};
  for (auto _ : state) {
    memory.at = 0;
    GifFileType* gif = DGifOpen(&memory, bench::GiflibMemory::read, nullptr);
    if (DGifSlurp(gif) != GIF_OK || gif->ImageCount != clsGIF::kMostFrames) state.SkipWithError("not loaded");
    std::vector<Pixel32> canvas(static_cast<std::size_t>(gif->SWidth) * static_cast<std::size_t>(gif->SHeight));
    for (int i = 0; i < gif->ImageCount; ++i) compose(*gif, i, canvas);
    benchmark::DoNotOptimize(canvas.data());
    DGifCloseFile(gif, nullptr);
  }
}

void ourGifSave(benchmark::State& state) {
  const clsGIF& gif = animation(static_cast<int>(state.range(0)));
  std::size_t size = 0;
  for (auto _ : state) benchmark::DoNotOptimize(size = gif.saveBytes().size());
  state.SetLabel(std::to_string(size) + " bytes");
}

void giflibSave(benchmark::State& state) {
  bench::GiflibMemory source{fileOf(static_cast<int>(state.range(0)))};
  GifFileType* read = DGifOpen(&source, bench::GiflibMemory::read, nullptr);
  DGifSlurp(read);
  std::size_t size = 0;
  for (auto _ : state) {
    bench::GiflibMemory memory;
    GifFileType* gif = EGifOpen(&memory, bench::GiflibMemory::write, nullptr);
    EGifSetGifVersion(gif, true);
    gif->SWidth = read->SWidth;
    gif->SHeight = read->SHeight;
    gif->SColorResolution = read->SColorResolution;
    gif->SColorMap = read->SColorMap;  // the writing copies it
    gif->ImageCount = read->ImageCount;
    gif->SavedImages = read->SavedImages;
    if (EGifSpew(gif) != GIF_OK) state.SkipWithError("not written");
    benchmark::DoNotOptimize(size = memory.bytes.size());
  }
  DGifCloseFile(read, nullptr);
  state.SetLabel(std::to_string(size) + " bytes");
}

// Every ground is prepared anew and every pixel is asked for its mask: the dearest tick.
void playerTick(benchmark::State& state) {
  clsGIF gif = animationOf(kDrawing, 4, 640, 480);
  for (int i = 1; i <= gif.FramesCount(); ++i) gif.setFrameDisposalMethod(i, kDisposalToBackground);
  GifView view;
  view.create(gif, kWhite);
  view.start();
  for (auto _ : state) {
    benchmark::DoNotOptimize(view.tick(gif, static_cast<BgdPattern>(state.range(0))).frame);
    benchmark::ClobberMemory();
  }
}

BENCHMARK(giflibLoad)->DenseRange(kDrawing, kFilm)->Unit(benchmark::kMillisecond);
BENCHMARK(ourGifLoad)->DenseRange(kDrawing, kFilm)->Unit(benchmark::kMillisecond);
BENCHMARK(giflibSave)->DenseRange(kDrawing, kFilm)->Unit(benchmark::kMillisecond);
// Frames are coded on several threads, so the time of all of them counts.
BENCHMARK(ourGifSave)->DenseRange(kDrawing, kFilm)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(playerTick)->DenseRange(kPatternOriginal, kPatternTile)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ruvo
