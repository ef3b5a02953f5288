// PNG through libpng.
#include <png.h>

#include <csetjmp>

#include "base/file_io.h"
#include "platform/imaging/encoders.h"
#include "platform/imaging/pixel_rows.h"

namespace ruvo::imaging {
namespace {

// Takes the next bytes of the file; false ends the encoding.
using Sink = std::function<bool(std::span<const std::uint8_t>)>;

// Everything that must outlive a jump out of the library lives here, in the frame above the one that jumps back.
struct Encoder {
  png_structp png = nullptr;
  png_infop info = nullptr;
  Sink sink;
  bool alpha;
  RowExpander rows;
  std::vector<png_color> table;

  Encoder(const raster::Surface& surface, bool hasAlpha, Sink to)
      : sink(std::move(to)), alpha(hasAlpha && surface.depth() == 32), rows(surface) {}
  ~Encoder() { png_destroy_write_struct(&png, &info); }
};

[[noreturn]] void onError(png_structp png, png_const_charp) {
  png_longjmp(png, 1);
}
void ignoreWarning(png_structp, png_const_charp) {}
void writeBytes(png_structp png, png_bytep bytes, std::size_t count) {
  if (!static_cast<Encoder*>(png_get_io_ptr(png))->sink({bytes, count})) png_error(png, "not written");
}
void flushNothing(png_structp) {}

void writeHeader(Encoder& encoder, const raster::Surface& surface) {
  const int depth = surface.depth();
  const int type = depth <= 8 ? PNG_COLOR_TYPE_PALETTE : encoder.alpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB;
  png_set_IHDR(encoder.png, encoder.info, static_cast<png_uint_32>(surface.width()),
               static_cast<png_uint_32>(surface.height()), std::min(depth, 8), type, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  if (depth <= 8) {
    for (const raster::TableEntry& e : surface.table()) encoder.table.push_back({e.red, e.green, e.blue});
    png_set_PLTE(encoder.png, encoder.info, encoder.table.data(), static_cast<int>(encoder.table.size()));
  }
  png_write_info(encoder.png, encoder.info);
  if (depth <= 8) return;
  png_set_bgr(encoder.png);
  if (!encoder.alpha) png_set_filler(encoder.png, 0, PNG_FILLER_AFTER);
}

bool encode(Encoder& encoder, const raster::Surface& surface) {
  encoder.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, onError, ignoreWarning);
  if (encoder.png) encoder.info = png_create_info_struct(encoder.png);
  if (!encoder.info) return false;
  if (setjmp(png_jmpbuf(encoder.png)) != 0) return false;
  png_set_write_fn(encoder.png, &encoder, writeBytes, flushNothing);
  writeHeader(encoder, surface);
  for (int y = 0; y < surface.height(); ++y) {
    // A packed row with a table lies in a surface just as it lies in the file.
    png_write_row(encoder.png, surface.depth() <= 8 ? surface.pictureRow(y)
                                                    : reinterpret_cast<png_const_bytep>(encoder.rows.row(y)));
  }
  png_write_end(encoder.png, nullptr);
  return true;
}

}  // namespace

bool savePng(const raster::Surface& surface, const std::filesystem::path& path, bool hasAlpha) {
  if (surface.empty()) return false;
  FileReplacement file(path);
  Encoder encoder(surface, hasAlpha, [&](std::span<const std::uint8_t> bytes) { return file.write(bytes); });
  return encode(encoder, surface) && file.commit();
}

std::vector<std::uint8_t> pngBytes(const raster::Surface& surface, bool hasAlpha) {
  std::vector<std::uint8_t> all;
  if (surface.empty()) return all;
  Encoder encoder(surface, hasAlpha, [&](std::span<const std::uint8_t> bytes) {
    all.insert(all.end(), bytes.begin(), bytes.end());
    return true;
  });
  if (!encode(encoder, surface)) all.clear();
  return all;
}

}  // namespace ruvo::imaging
