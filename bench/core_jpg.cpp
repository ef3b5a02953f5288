// Writing a photograph of 12 megapixels as JPEG at quality 75, chroma halved both ways, into memory: clsJPG beside
// libjpeg-turbo with Huffman tables made for the picture. The counter tells the size of the result.
#include <cstdio>  // jpeglib.h needs FILE

#include <benchmark/benchmark.h>
#include <jpeglib.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/random_source.h"
#include "base/rounding.h"
#include "formats/clsJPG.h"

namespace {

using ruvo::raster::Surface;

constexpr int kWidth = 4000;
constexpr int kHeight = 3000;

// Random points on a grid, interpolated between.
class Clouds {
 public:
  Clouds(ruvo::RandomSource& random, int cell)
      : cell_(cell), columns_(kWidth / cell + 2), values_(static_cast<std::size_t>(columns_) * (kHeight / cell + 2)) {
    for (float& value : values_) value = static_cast<float>(random.next()) - 0.5f;
  }
  float at(int x, int y) const {
    const float fx = static_cast<float>(x % cell_) / static_cast<float>(cell_);
    const float fy = static_cast<float>(y % cell_) / static_cast<float>(cell_);
    const float* row = &values_[static_cast<std::size_t>(y / cell_) * columns_ + x / cell_];
    const float upper = row[0] + (row[1] - row[0]) * fx;
    const float lower = row[columns_] + (row[columns_ + 1] - row[columns_]) * fx;
    return upper + (lower - upper) * fy;
  }

 private:
  int cell_;
  int columns_;
  std::vector<float> values_;
};

// Detail at every scale, weaker as it gets finer, colours that change slowly, edges, and a sensor's grain.
const Surface& photograph() {
  static const Surface surface = [] {
    ruvo::RandomSource random;
    const Clouds broad(random, 500), middle(random, 80), fine(random, 12), finest(random, 3), warm(random, 300);
    Surface made;
    made.create(kWidth, kHeight, 32);
    for (int y = 0; y < kHeight; ++y) {
      auto* row = reinterpret_cast<ruvo::Pixel32*>(made.pictureRow(y));
      for (int x = 0; x < kWidth; ++x) {
        const bool inShade = middle.at(x, y) > 0.1f;
        const float light = 130 + 120 * broad.at(x, y) + 60 * middle.at(x, y) + 30 * fine.at(x, y) +
                            14 * finest.at(x, y) + 6 * static_cast<float>(random.next()) - (inShade ? 50.0f : 0.0f);
        const float tint = 60 * warm.at(x, y);
        row[x] = {ruvo::clampToByte(static_cast<int>(light - tint)), ruvo::clampToByte(static_cast<int>(light)),
                  ruvo::clampToByte(static_cast<int>(light + tint)), 0};
      }
    }
    return made;
  }();
  return surface;
}

std::vector<std::uint8_t> ours(int quality) {
  ruvo::clsJPG jpg;
  jpg.setQuality(quality);
  jpg.SampleHDC(photograph(), kWidth, kHeight);
  return jpg.saveBytes();
}

std::vector<std::uint8_t> peers(int quality) {
  jpeg_error_mgr errors;
  jpeg_compress_struct info;
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* memory = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &memory, &size);
  info.image_width = kWidth;
  info.image_height = kHeight;
  info.input_components = 4;
  info.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, quality, TRUE);
  info.optimize_coding = TRUE;
  jpeg_start_compress(&info, TRUE);
  for (int y = 0; y < kHeight; ++y) {
    auto row = const_cast<JSAMPROW>(photograph().pictureRow(y));
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  std::vector<std::uint8_t> bytes(memory, memory + size);
  jpeg_destroy_compress(&info);
  std::free(memory);
  return bytes;
}

void jpegOurs(benchmark::State& state) {
  const auto quality = static_cast<int>(state.range(0));
  photograph();
  std::size_t size = 0;
  for (auto _ : state) size = ours(quality).size();
  state.SetLabel(std::to_string(size) + " bytes; to the peer's: " +
                 std::to_string(static_cast<double>(size) / static_cast<double>(peers(quality).size())));
}
void jpegTurbo(benchmark::State& state) {
  const auto quality = static_cast<int>(state.range(0));
  photograph();
  std::size_t size = 0;
  for (auto _ : state) size = peers(quality).size();
  state.SetLabel(std::to_string(size) + " bytes");
}
BENCHMARK(jpegOurs)->Arg(75)->Arg(95)->Unit(benchmark::kMillisecond);
BENCHMARK(jpegTurbo)->Arg(75)->Arg(95)->Unit(benchmark::kMillisecond);

}  // namespace
