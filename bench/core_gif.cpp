// Coding the image data of a GIF beside giflib, whole frames in memory: decoding from the same bytes, encoding the same
// pixels. A dithered photograph, a grainy grey scan, and a flat drawing.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

#include "base/random_source.h"
#include "formats/basGIFLZWDec.h"
#include "formats/basGIFLZWEnc.h"
#include "giflib_memory.h"
#include "image/clsPal.h"
#include "image/clsPalDither.h"

namespace ruvo {
namespace {

constexpr int kWidth = 2000;
constexpr int kHeight = 1500;
enum Kind { kDithered, kGrainy, kFlat };

// Soft shapes with the grain of a photograph, in true colour.
clsDIB photo() {
  clsDIB dib;
  dib.CreateBlankDIB(kWidth, kHeight, 32, kWhite);
  RandomSource random;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const double grain = random.next() * 8;
      const auto wave = [&](double across, double down) {
        return static_cast<std::uint8_t>(120 + 110 * std::sin(x / across) * std::cos(y / down) + grain);
      };
      dib.surface().view32().at(x, y) = {wave(300, 210), wave(170, 400), wave(410, 130), 0};
    }
  }
  return dib;
}

clsDIB dithered() {
  clsDIB colours = photo();
  clsPal table;
  table.CreateOptimal(colours, 256);
  clsPalDither dither;
  dither.DitherToPalette256(colours, table);
  clsDIB dib;
  dib.CreateBlankDIB(kWidth, kHeight, 8, kWhite);
  for (int y = 0; y < kHeight; ++y) std::copy_n(dither.row(y).begin(), kWidth, dib.surface().memoryRow(y));
  return dib;
}

template <typename Index>
clsDIB indexed(Index index) {
  clsDIB dib;
  dib.CreateBlankDIB(kWidth, kHeight, 8, kWhite);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) dib.surface().view8().at(x, y) = static_cast<std::uint8_t>(index(x, y));
  }
  return dib;
}

const clsDIB& frame(int kind) {
  static const clsDIB frames[] = {
      dithered(),
      indexed([random = RandomSource()](int x, int y) mutable {
        return 90 + 80 * std::sin(x / 300.0) * std::cos(y / 200.0) + random.next() * 40;
      }),
      // Windows, frames and some lines of text.
      indexed([](int x, int y) {
        if (y % 40 > 28 && x % 700 < 500 && (x * 31 + y * 17) % 11 < 3) return 1;
        return x % 700 < 3 || y % 300 < 3 ? 2 : 3 + x / 700 + 4 * (y / 300);
      }),
  };
  return frames[kind];
}

std::vector<std::uint8_t> blocksOf(int kind) {
  ByteWriter out;
  basGIFLZWEnc::Encode(out, frame(kind), 9, false);
  return out.take();
}

void ourGifDecode(benchmark::State& state) {
  const auto blocks = blocksOf(static_cast<int>(state.range(0)));
  clsDIB dib;
  dib.CreateBlankDIB(kWidth, kHeight, 8, kWhite, true);
  for (auto _ : state) {
    std::vector<std::uint8_t> data;
    data.reserve(blocks.size());
    for (auto block = blocks.begin(); block != blocks.end(); block += 1 + *block) {
      data.insert(data.end(), block + 1, block + 1 + *block);
    }
    basGIFLZWDec::Decode(dib, false, 8, data);
    benchmark::DoNotOptimize(dib.DIBBitsPtr());
  }
  if (!std::equal(dib.surface().bytes().begin() + static_cast<std::ptrdiff_t>(kWidth) * (kHeight - 1),
                  dib.surface().bytes().end(),
                  frame(static_cast<int>(state.range(0))).surface().pictureRow(kHeight - 1))) {
    state.SkipWithError("other pixels");
  }
}

void giflibDecode(benchmark::State& state) {
  ByteWriter file;
  file.append("GIF89a");
  const auto size = [&] {
    file.u16(kWidth);
    file.u16(kHeight);
  };
  size();
  file.append(std::vector<std::uint8_t>{0xF7, 0, 0});
  file.zeros(768);
  file.append(std::vector<std::uint8_t>{0x2C, 0, 0, 0, 0});
  size();
  file.append(std::vector<std::uint8_t>{0, 8});
  file.append(blocksOf(static_cast<int>(state.range(0))));
  file.append(std::vector<std::uint8_t>{0, 0x3B});
  bench::GiflibMemory memory{file.bytes()};
  std::vector<GifPixelType> pixels(static_cast<std::size_t>(kWidth) * kHeight);
  for (auto _ : state) {
    memory.at = 0;
    GifFileType* gif = DGifOpen(&memory, bench::GiflibMemory::read, nullptr);
    GifRecordType record{};
    if (DGifGetRecordType(gif, &record) != GIF_OK || DGifGetImageDesc(gif) != GIF_OK ||
        DGifGetLine(gif, pixels.data(), static_cast<int>(pixels.size())) != GIF_OK) {
      state.SkipWithError("not read");
    }
    DGifCloseFile(gif, nullptr);
    benchmark::DoNotOptimize(pixels.data());
  }
}

void ourGifEncode(benchmark::State& state) {
  const clsDIB& dib = frame(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    ByteWriter out;
    benchmark::DoNotOptimize(basGIFLZWEnc::Encode(out, dib, 9, false));
  }
}

void giflibEncode(benchmark::State& state) {
  const clsDIB& dib = frame(static_cast<int>(state.range(0)));
  std::vector<GifPixelType> pixels;
  for (int y = 0; y < kHeight; ++y) {
    pixels.insert(pixels.end(), dib.surface().pictureRow(y), dib.surface().pictureRow(y) + kWidth);
  }
  ColorMapObject* map = GifMakeMapObject(256, nullptr);
  for (auto _ : state) {
    bench::GiflibMemory memory;
    GifFileType* gif = EGifOpen(&memory, bench::GiflibMemory::write, nullptr);
    if (EGifPutScreenDesc(gif, kWidth, kHeight, 8, 0, map) != GIF_OK ||
        EGifPutImageDesc(gif, 0, 0, kWidth, kHeight, false, nullptr) != GIF_OK ||
        EGifPutLine(gif, pixels.data(), static_cast<int>(pixels.size())) != GIF_OK) {
      state.SkipWithError("not written");
    }
    EGifCloseFile(gif, nullptr);
    benchmark::DoNotOptimize(memory.bytes.data());
  }
  GifFreeMapObject(map);
}

BENCHMARK(giflibDecode)->DenseRange(kDithered, kFlat)->Unit(benchmark::kMillisecond);
BENCHMARK(ourGifDecode)->DenseRange(kDithered, kFlat)->Unit(benchmark::kMillisecond);
BENCHMARK(giflibEncode)->DenseRange(kDithered, kFlat)->Unit(benchmark::kMillisecond);
BENCHMARK(ourGifEncode)->DenseRange(kDithered, kFlat)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ruvo
