// Reading PNG files of 12 megapixels by the program's own reader beside libpng with zlib, from the same bytes in memory
// into the same kind of surface rows. The files are libpng's own, with its usual filters at level 6.
#include <benchmark/benchmark.h>
#include <png.h>

#include <cmath>
#include <string>
#include <vector>

#include "base/random_source.h"
#include "formats/clsPNG.h"

namespace {

using ruvo::raster::Surface;
constexpr int kWidth = 4000;
constexpr int kHeight = 3000;
using Bytes = std::vector<std::uint8_t>;

// Smooth shades with edges and some grain, as photographs have.
int shade(int x, int y, int channel) {
  const double slow = std::sin(x / 310.0 + channel) + std::cos(y / 270.0 - channel * 0.5) + std::sin((x + y) / 95.0);
  const int edge = ((x / 220 + y / 180) % 3) * 22;
  return static_cast<int>(100 + 28 * slow) + edge;
}

struct Writer {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  Bytes bytes;

  Writer(int type, const std::vector<png_color>& table) {
    png_set_write_fn(
        png, &bytes,
        [](png_structp p, png_bytep from, std::size_t n) {
          auto& out = *static_cast<Bytes*>(png_get_io_ptr(p));
          out.insert(out.end(), from, from + n);
        },
        nullptr);
    png_set_compression_level(png, 6);
    png_set_IHDR(png, info, kWidth, kHeight, 8, type, 0, 0, 0);
    if (!table.empty()) png_set_PLTE(png, info, table.data(), static_cast<int>(table.size()));
    png_write_info(png, info);
  }
  ~Writer() { png_destroy_write_struct(&png, &info); }
};

Bytes deepFile(int type, int channels) {
  Writer writer(type, {});
  ruvo::RandomSource random;
  Bytes row(static_cast<std::size_t>(kWidth) * static_cast<std::size_t>(channels));
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      for (int c = 0; c < channels; ++c) {
        const int grain = static_cast<int>((random.next() + random.next()) * 6);
        row[x * channels + c] = static_cast<std::uint8_t>(c == 3 ? (y / 64 % 4) * 85 : shade(x, y, c) + grain);
      }
    }
    png_write_row(writer.png, row.data());
  }
  png_write_end(writer.png, nullptr);
  return writer.bytes;
}

Bytes paletteFile() {
  std::vector<png_color> table;
  for (int i = 0; i < 256; ++i) table.push_back({static_cast<png_byte>(i), static_cast<png_byte>(255 - i), 90});
  Writer writer(PNG_COLOR_TYPE_PALETTE, table);
  ruvo::RandomSource random;
  Bytes row(kWidth);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      row[x] = static_cast<std::uint8_t>((shade(x, y, 0) + static_cast<int>(random.next() * 8)) / 12 * 12);
    }
    png_write_row(writer.png, row.data());
  }
  png_write_end(writer.png, nullptr);
  return writer.bytes;
}

const Bytes& fileOf(int type) {
  static const Bytes colour = deepFile(PNG_COLOR_TYPE_RGB, 3);
  static const Bytes alpha = deepFile(PNG_COLOR_TYPE_RGB_ALPHA, 4);
  static const Bytes palette = paletteFile();
  return type == PNG_COLOR_TYPE_RGB ? colour : type == PNG_COLOR_TYPE_RGB_ALPHA ? alpha : palette;
}

void pngByLibpng(benchmark::State& state, int type) {
  const Bytes& file = fileOf(type);
  for (auto _ : state) {
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    const std::uint8_t* at = file.data();
    png_set_read_fn(png, &at, [](png_structp p, png_bytep to, std::size_t n) {
      auto& from = *static_cast<const std::uint8_t**>(png_get_io_ptr(p));
      std::copy_n(from, n, to);
      from += n;
    });
    png_read_info(png, info);
    png_set_bgr(png);
    Surface surface;
    surface.create(kWidth, kHeight, 8 * png_get_channels(png, info));
    for (int y = 0; y < kHeight; ++y) png_read_row(png, surface.pictureRow(y), nullptr);
    png_destroy_read_struct(&png, &info, nullptr);
    benchmark::DoNotOptimize(surface.bits());
  }
}

void pngByOurs(benchmark::State& state, int type) {
  const Bytes& file = fileOf(type);
  for (auto _ : state) {
    ruvo::clsPNG png;
    png.AlphaSet = true;
    if (png.openBytes(file) != ruvo::kPngOpened) state.SkipWithError("not read");
    benchmark::DoNotOptimize(png.dib().DIBBitsPtr());
  }
  state.SetLabel(std::to_string(file.size()) + " bytes packed");
}

BENCHMARK_CAPTURE(pngByLibpng, true_colour, PNG_COLOR_TYPE_RGB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pngByOurs, true_colour, PNG_COLOR_TYPE_RGB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pngByLibpng, alpha, PNG_COLOR_TYPE_RGB_ALPHA)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pngByOurs, alpha, PNG_COLOR_TYPE_RGB_ALPHA)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pngByLibpng, paletted, PNG_COLOR_TYPE_PALETTE)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pngByOurs, paletted, PNG_COLOR_TYPE_PALETTE)->Unit(benchmark::kMillisecond);

}  // namespace
