// PNG through libpng, decoded straight into the picture's surface.
#include <png.h>

#include <csetjmp>

#include "platform/imaging/codecs.h"

namespace ruvo::imaging {
namespace {

// How much of the file may follow the last row before the stream ends: it is inflated only to check it, and a small
// file can hold hours of that.
constexpr std::size_t kMaxTail = 1 << 16;

// Everything that must outlive a jump out of the library lives here, in the frame above the one that jumps back.
struct Decoder {
  png_structp png = nullptr;
  png_infop info = nullptr;
  SequentialReader reader;
  std::int64_t maxPixels;
  std::vector<png_bytep> rows;
  raster::Surface surface;
  bool alpha = false;
  bool reading = false;  // the rows
  std::size_t tail = 0;  // bytes taken since the last row
  LoadResult result;

  Decoder(ByteSource& source, std::int64_t limit) : reader(source), maxPixels(limit) {
    result.error = LoadError::Broken;
  }
  ~Decoder() { png_destroy_read_struct(&png, &info, nullptr); }
};

[[noreturn]] void onError(png_structp png, png_const_charp) {
  png_longjmp(png, 1);
}
void ignoreWarning(png_structp, png_const_charp) {}
bool lastRowDone(png_structp png, const Decoder& decoder) {
  const bool interlaced = png_get_interlace_type(png, decoder.info) != PNG_INTERLACE_NONE;
  return interlaced ? png_get_current_pass_number(png) >= PNG_INTERLACE_ADAM7_PASSES
                    : png_get_current_row_number(png) >= png_get_image_height(png, decoder.info);
}
void readBytes(png_structp png, png_bytep target, std::size_t count) {
  auto& decoder = *static_cast<Decoder*>(png_get_io_ptr(png));
  if (decoder.reading && lastRowDone(png, decoder)) decoder.tail += count;
  if (decoder.tail > kMaxTail) png_error(png, "no end");
  if (decoder.reader.read({target, count}) != count) png_error(png, "early end");
}

// Whatever the file's type: eight bits a channel, blue first, four bytes a pixel. Gamma and colour profiles are left
// aside, as the classic loaders leave them.
void chooseConversions(Decoder& decoder) {
  png_structp png = decoder.png;
  const int type = png_get_color_type(png, decoder.info);
  const bool keyed = png_get_valid(png, decoder.info, PNG_INFO_tRNS) != 0;
  decoder.alpha = (type & PNG_COLOR_MASK_ALPHA) != 0 || keyed;
  png_set_expand(png);
  png_set_scale_16(png);
  if ((type & PNG_COLOR_MASK_COLOR) == 0) png_set_gray_to_rgb(png);
  png_set_bgr(png);
  if (!decoder.alpha) png_set_filler(png, 0, PNG_FILLER_AFTER);
}

bool readHeader(Decoder& decoder) {
  png_structp png = decoder.png;
  png_read_info(png, decoder.info);
  const png_uint_32 width = png_get_image_width(png, decoder.info);
  const png_uint_32 height = png_get_image_height(png, decoder.info);
  decoder.result.width = static_cast<int>(width);
  decoder.result.height = static_cast<int>(height);
  decoder.result.fileDepth = png_get_bit_depth(png, decoder.info) * png_get_channels(png, decoder.info);
  if (sizeAllowed(width, height, decoder.maxPixels)) return true;
  decoder.result.error = LoadError::TooLarge;
  return false;
}

void readPixels(Decoder& decoder) {
  png_read_update_info(decoder.png, decoder.info);
  if (!decoder.surface.create(decoder.result.width, decoder.result.height, 32)) {
    decoder.result.error = LoadError::NoMemory;
    return;
  }
  if (png_get_rowbytes(decoder.png, decoder.info) != static_cast<std::size_t>(decoder.surface.stride())) return;
  decoder.rows.resize(static_cast<std::size_t>(decoder.surface.height()));
  for (int y = 0; y < decoder.surface.height(); ++y) decoder.rows[y] = decoder.surface.pictureRow(y);
  decoder.reading = true;
  png_read_image(decoder.png, decoder.rows.data());
  // What follows the last row is not read: a picture that is whole is not lost by a damaged end.
  decoder.result.error = LoadError::None;
}

void decode(Decoder& decoder) {
  decoder.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, onError, ignoreWarning);
  if (decoder.png) decoder.info = png_create_info_struct(decoder.png);
  if (!decoder.info) {
    decoder.result.error = LoadError::NoMemory;
    return;
  }
  if (setjmp(png_jmpbuf(decoder.png)) != 0) return;
  png_set_read_fn(decoder.png, &decoder, readBytes);
  // The size is ours to judge, so that the caller learns it. Texts, profiles and the like are skipped unread: they take
  // no part in the picture, and a small file can inflate them to gigabytes.
  png_set_user_limits(decoder.png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
  png_set_keep_unknown_chunks(decoder.png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
  if (!readHeader(decoder)) return;
  chooseConversions(decoder);
  readPixels(decoder);
}

}  // namespace

LoadResult readPng(ByteSource& source, std::int64_t maxPixels) {
  Decoder decoder(source, maxPixels);
  decode(decoder);
  if (decoder.result.error == LoadError::None) {
    decoder.result.picture = Picture::ofBitmap(std::move(decoder.surface), decoder.alpha);
  }
  return std::move(decoder.result);
}

}  // namespace ruvo::imaging
