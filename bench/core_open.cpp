// Opening a 20-megapixel file by the program's loader beside the bare library decoding the same file into memory, each
// pair in one run. The bare side reads through the library's own file access into packed rows of red, green and blue.
#include <cstdio>  // jpeglib.h needs FILE

#include <benchmark/benchmark.h>
#include <jpeglib.h>
#include <png.h>
#include <tiffio.h>

#include <filesystem>
#include <memory>

#include "base/random_source.h"
#include "platform/imaging/encoders.h"
#include "platform/imaging/imaging_service.h"
#include "platform/imaging/picture_loader.h"

namespace {

using ruvo::raster::Surface;
constexpr int kWidth = 5000;
constexpr int kHeight = 4000;

// A gradient with the grain of a photograph.
Surface photo() {
  Surface surface;
  surface.create(kWidth, kHeight, 32);
  ruvo::RandomSource random;
  for (int y = 0; y < kHeight; ++y) {
    auto* row = reinterpret_cast<ruvo::Pixel32*>(surface.pictureRow(y));
    for (int x = 0; x < kWidth; ++x) {
      const int grain = static_cast<int>(random.next() * 8);
      row[x] = {static_cast<std::uint8_t>(x * 240 / kWidth + grain),
                static_cast<std::uint8_t>(y * 240 / kHeight + grain),
                static_cast<std::uint8_t>((x + y) * 240 / (kWidth + kHeight) + grain), 0};
    }
  }
  return surface;
}

void uncompressedTiff(const Surface& surface, const std::filesystem::path& path) {
  TIFF* tiff = TIFFOpen(path.c_str(), "w");
  TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, kWidth);
  TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, kHeight);
  TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
  TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 3);
  TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
  TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, 16);
  std::vector<std::uint8_t> row(3 * kWidth);
  for (int y = 0; y < kHeight; ++y) {
    const auto* from = reinterpret_cast<const ruvo::Pixel32*>(surface.pictureRow(y));
    for (int x = 0; x < kWidth; ++x) {
      row[3 * x] = from[x].red;
      row[3 * x + 1] = from[x].green;
      row[3 * x + 2] = from[x].blue;
    }
    TIFFWriteScanline(tiff, row.data(), static_cast<std::uint32_t>(y), 0);
  }
  TIFFClose(tiff);
}

// The files, made once and removed at the end.
class Files {
 public:
  static const std::filesystem::path& folder() {
    static const Files files;
    return files.folder_;
  }

 private:
  Files() {
    std::string pattern = (std::filesystem::temp_directory_path() / "ruvo-bench-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    const Surface surface = photo();
    ruvo::imaging::saveJpeg(surface, folder_ / "photo.jpg", 90);
    ruvo::imaging::savePng(surface, folder_ / "photo.png", false);
    ruvo::imaging::saveTiff(surface, folder_ / "lzw.tif", 24, false);
    uncompressedTiff(surface, folder_ / "plain.tif");
  }
  ~Files() { std::filesystem::remove_all(folder_); }
  std::filesystem::path folder_;
};

using Memory = std::unique_ptr<std::uint8_t[]>;
Memory memoryFor(std::size_t bytes) {
  return std::make_unique_for_overwrite<std::uint8_t[]>(bytes);
}

void bareJpeg(const std::filesystem::path& path) {
  jpeg_decompress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  std::FILE* file = std::fopen(path.c_str(), "rb");
  jpeg_stdio_src(&info, file);
  jpeg_read_header(&info, TRUE);
  info.out_color_space = JCS_RGB;
  jpeg_start_decompress(&info);
  const Memory pixels = memoryFor(std::size_t{3} * info.output_width * info.output_height);
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = pixels.get() + std::size_t{3} * info.output_width * info.output_scanline;
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
  jpeg_destroy_decompress(&info);
  std::fclose(file);
  benchmark::DoNotOptimize(pixels.get());
}

void barePng(const std::filesystem::path& path) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_init_io(png, file);
  png_read_info(png, info);
  const std::size_t height = png_get_image_height(png, info), bytes = png_get_rowbytes(png, info);
  const Memory pixels = memoryFor(bytes * height);
  for (std::size_t y = 0; y < height; ++y) png_read_row(png, pixels.get() + y * bytes, nullptr);
  png_destroy_read_struct(&png, &info, nullptr);
  std::fclose(file);
  benchmark::DoNotOptimize(pixels.get());
}

void bareTiff(const std::filesystem::path& path) {
  TIFF* tiff = TIFFOpen(path.c_str(), "r");
  const auto strip = static_cast<std::size_t>(TIFFStripSize(tiff));
  const std::uint32_t strips = TIFFNumberOfStrips(tiff);
  const Memory pixels = memoryFor(strip * strips);
  for (std::uint32_t i = 0; i < strips; ++i) TIFFReadEncodedStrip(tiff, i, pixels.get() + i * strip, -1);
  TIFFClose(tiff);
  benchmark::DoNotOptimize(pixels.get());
}

using Decode = void (*)(const std::filesystem::path&);

void bareLibrary(benchmark::State& state, Decode bare, const char* name) {
  const auto path = Files::folder() / name;
  for (auto _ : state) bare(path);
}

void ourLoader(benchmark::State& state, const char* name) {
  ruvo::imaging::startImagingService();
  const auto path = Files::folder() / name;
  for (auto _ : state) {
    const auto loaded = ruvo::imaging::LoadImageThroughGDIPlus(path);
    if (!loaded) state.SkipWithError("not loaded");
    benchmark::DoNotOptimize(loaded.picture.bitmap->bits());
  }
}

BENCHMARK_CAPTURE(bareLibrary, open_jpeg_bare, bareJpeg, "photo.jpg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ourLoader, open_jpeg, "photo.jpg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bareLibrary, open_png_bare, barePng, "photo.png")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ourLoader, open_png, "photo.png")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bareLibrary, open_tiff_lzw_bare, bareTiff, "lzw.tif")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ourLoader, open_tiff_lzw, "lzw.tif")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bareLibrary, open_tiff_plain_bare, bareTiff, "plain.tif")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ourLoader, open_tiff_plain, "plain.tif")->Unit(benchmark::kMillisecond);

}  // namespace
