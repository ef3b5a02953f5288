// JPEG through libjpeg-turbo, decoded row by row straight into the picture's surface.
#include <cstdio>  // jpeglib.h needs FILE

#include <jerror.h>
#include <jpeglib.h>

#include <algorithm>
#include <csetjmp>
#include <cstring>

#include "platform/imaging/codecs.h"
#include "platform/imaging/pixel_rows.h"

namespace ruvo::imaging {
namespace {

constexpr std::size_t kInputBytes = 1 << 16;
// A progressive file may repeat scans without end over a picture of full size. Real ones have about ten.
constexpr int kMaxScans = 200;
constexpr int kMaxRowsPerCall = 16;

// Everything that must outlive a jump out of the library lives here, in the frame above the one that jumps back.
struct Decoder {
  jpeg_decompress_struct info{};
  jpeg_error_mgr errors{};
  jpeg_source_mgr input{};
  jpeg_progress_mgr monitor{};
  std::jmp_buf giveUp{};
  ByteSource* source = nullptr;
  std::uint64_t offset = 0;
  std::int64_t maxPixels = 0;
  bool sourceEnded = false;  // without an end marker
  bool dataMissing = false;  // the data of a scan stopped before its last row
  std::vector<JOCTET> buffer = std::vector<JOCTET>(kInputBytes);
  std::vector<JSAMPLE> inks;  // one row of CMYK
  raster::Surface surface;
  LoadResult result;

  ~Decoder() { jpeg_destroy_decompress(&info); }
};

Decoder& decoderOf(j_common_ptr info) {
  return *static_cast<Decoder*>(info->client_data);
}
Decoder& decoderOf(j_decompress_ptr info) {
  return *static_cast<Decoder*>(info->client_data);
}

void onError(j_common_ptr info) {
  std::longjmp(decoderOf(info).giveUp, 1);
}
void ignoreMessage(j_common_ptr) {}
void noteWarning(j_common_ptr info, int level) {
  if (level >= 0) return;
  ++info->err->num_warnings;
  const bool atEnd = reinterpret_cast<j_decompress_ptr>(info)->unread_marker == JPEG_EOI;
  if (atEnd && info->err->msg_code == JWRN_HIT_MARKER) decoderOf(info).dataMissing = true;
}

void startInput(j_decompress_ptr) {}
boolean fillInput(j_decompress_ptr info) {
  Decoder& decoder = decoderOf(info);
  std::size_t got = decoder.source->readAt(decoder.offset, decoder.buffer);
  decoder.offset += got;
  if (got == 0) {
    // An end marker makes the library finish with the rows that it has; whether they are all is judged afterwards. The
    // arithmetic decoder takes zeros for what is missing and never warns.
    decoder.sourceEnded = true;
    if (info->arith_code && info->input_iMCU_row + 1 < info->total_iMCU_rows) decoder.dataMissing = true;
    decoder.buffer[0] = 0xFF;
    decoder.buffer[1] = JPEG_EOI;
    got = 2;
  }
  info->src->next_input_byte = decoder.buffer.data();
  info->src->bytes_in_buffer = got;
  return TRUE;
}
void skipInput(j_decompress_ptr info, long count) {
  if (count <= 0) return;
  jpeg_source_mgr& input = *info->src;
  const auto wanted = static_cast<std::size_t>(count);
  if (wanted <= input.bytes_in_buffer) {
    input.next_input_byte += wanted;
    input.bytes_in_buffer -= wanted;
  } else {
    decoderOf(info).offset += wanted - input.bytes_in_buffer;
    input.bytes_in_buffer = 0;
  }
}
void endInput(j_decompress_ptr) {}

void limitScans(j_common_ptr info) {
  if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > kMaxScans) onError(info);
}

void prepare(Decoder& decoder, ByteSource& source, std::int64_t maxPixels) {
  decoder.source = &source;
  decoder.maxPixels = maxPixels;
  decoder.result.error = LoadError::Broken;
  decoder.info.err = jpeg_std_error(&decoder.errors);
  decoder.errors.error_exit = onError;
  decoder.errors.output_message = ignoreMessage;
  decoder.errors.emit_message = noteWarning;
  decoder.input.init_source = startInput;
  decoder.input.fill_input_buffer = fillInput;
  decoder.input.skip_input_data = skipInput;
  decoder.input.resync_to_restart = jpeg_resync_to_restart;
  decoder.input.term_source = endInput;
  decoder.monitor.progress_monitor = limitScans;
}

// Four inks to blue, green, red. Adobe's files, marked as such, store how much light the ink lets through.
void convertInks(const JSAMPLE* inks, Pixel32* out, int width, bool storedAsLight) {
  const int flip = storedAsLight ? 0 : 255;
  for (int x = 0; x < width; ++x, inks += 4) {
    const int key = inks[3] ^ flip;
    out[x] = {multiplyBytes(inks[2] ^ flip, key), multiplyBytes(inks[1] ^ flip, key),
              multiplyBytes(inks[0] ^ flip, key), 0};
  }
}

void readInkRows(Decoder& decoder) {
  jpeg_decompress_struct& info = decoder.info;
  decoder.inks.resize(static_cast<std::size_t>(info.output_width) * 4);
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = decoder.inks.data();
    const int y = static_cast<int>(info.output_scanline);
    if (jpeg_read_scanlines(&info, &row, 1) != 1) return;
    convertInks(row, reinterpret_cast<Pixel32*>(decoder.surface.pictureRow(y)), decoder.surface.width(),
                info.saw_Adobe_marker);
  }
}

void readColourRows(Decoder& decoder) {
  jpeg_decompress_struct& info = decoder.info;
  while (info.output_scanline < info.output_height) {
    const int y = static_cast<int>(info.output_scanline);
    const int count = std::min(kMaxRowsPerCall, decoder.surface.height() - y);
    JSAMPROW rows[kMaxRowsPerCall];
    for (int i = 0; i < count; ++i) rows[i] = decoder.surface.pictureRow(y + i);
    const int done = static_cast<int>(jpeg_read_scanlines(&info, rows, static_cast<JDIMENSION>(count)));
    if (done == 0) return;
    // The library leaves byte 3 undefined. Cleared here the row is still in the processor's cache.
    for (int i = 0; i < done; ++i) clearAlpha(reinterpret_cast<Pixel32*>(rows[i]), decoder.surface.width());
  }
}

// Notes what the frame header states; false when that is too large.
bool noteSize(Decoder& decoder) {
  const jpeg_decompress_struct& info = decoder.info;
  decoder.result.width = static_cast<int>(info.image_width);
  decoder.result.height = static_cast<int>(info.image_height);
  decoder.result.fileDepth = 8 * info.num_components;
  if (!sizeAllowed(info.image_width, info.image_height, decoder.maxPixels)) decoder.result.error = LoadError::TooLarge;
  return decoder.result.error != LoadError::TooLarge;
}

bool readHeader(Decoder& decoder) {
  jpeg_decompress_struct& info = decoder.info;
  jpeg_read_header(&info, TRUE);
  if (!noteSize(decoder)) return false;
  switch (info.jpeg_color_space) {
    case JCS_GRAYSCALE:
    case JCS_RGB:
    case JCS_YCbCr:
      info.out_color_space = JCS_EXT_BGRX;
      return true;
    case JCS_CMYK:
    case JCS_YCCK:
      info.out_color_space = JCS_CMYK;
      return true;
    default:
      return false;
  }
}

// Whether every row came out of the file. Where data are missing the library leaves grey, or a coarse picture, which a
// save would make lasting. An absent end marker alone does no harm.
bool isWhole(const Decoder& decoder) {
  const jpeg_decompress_struct& info = decoder.info;
  if (decoder.dataMissing) return false;
  for (int c = 0; c < info.num_components; ++c) {
    // A component gets its table with its first scan.
    if (!info.comp_info[c].quant_table) return false;
    const bool exact = !info.coef_bits ||
                       std::all_of(info.coef_bits[c], info.coef_bits[c] + DCTSIZE2, [](int bits) { return bits == 0; });
    if (decoder.sourceEnded && !exact) return false;
  }
  return true;
}

void decode(Decoder& decoder) {
  jpeg_decompress_struct& info = decoder.info;
  if (setjmp(decoder.giveUp) != 0) {
    // Sizes beyond the library's own limit never come back from its header reading.
    if (info.image_width > 0 && info.image_height > 0) noteSize(decoder);
    return;
  }
  // Creating clears the structure, all but the error handler and the caller's pointer.
  info.client_data = &decoder;
  jpeg_create_decompress(&info);
  info.src = &decoder.input;
  info.progress = &decoder.monitor;
  if (!readHeader(decoder)) return;
  if (!decoder.surface.create(decoder.result.width, decoder.result.height, 32)) {
    decoder.result.error = LoadError::NoMemory;
    return;
  }
  jpeg_start_decompress(&info);
  if (info.out_color_space == JCS_CMYK) {
    readInkRows(decoder);
  } else {
    readColourRows(decoder);
  }
  if (isWhole(decoder)) decoder.result.error = LoadError::None;
}

}  // namespace

LoadResult readJpeg(ByteSource& source, std::int64_t maxPixels) {
  Decoder decoder;
  prepare(decoder, source, maxPixels);
  decode(decoder);
  if (decoder.result.error == LoadError::None) decoder.result.picture = Picture::ofBitmap(std::move(decoder.surface));
  return std::move(decoder.result);
}

}  // namespace ruvo::imaging
