// JPEG through libjpeg-turbo, written row by row.
#include <cstdio>  // jpeglib.h needs FILE

#include <jpeglib.h>

#include <csetjmp>

#include "base/file_io.h"
#include "platform/imaging/encoders.h"
#include "platform/imaging/pixel_rows.h"

namespace ruvo::imaging {
namespace {

constexpr std::size_t kOutputBytes = 1 << 16;

// Everything that must outlive a jump out of the library lives here, in the frame above the one that jumps back.
struct Encoder {
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  jpeg_destination_mgr output{};
  std::jmp_buf giveUp{};
  std::vector<JOCTET> buffer = std::vector<JOCTET>(kOutputBytes);
  FileReplacement file;
  RowExpander rows;

  Encoder(const raster::Surface& surface, const std::filesystem::path& path) : file(path), rows(surface) {}
  ~Encoder() { jpeg_destroy_compress(&info); }
};

Encoder& encoderOf(j_common_ptr info) {
  return *static_cast<Encoder*>(info->client_data);
}
Encoder& encoderOf(j_compress_ptr info) {
  return *static_cast<Encoder*>(info->client_data);
}

void onError(j_common_ptr info) {
  std::longjmp(encoderOf(info).giveUp, 1);
}
void ignoreMessage(j_common_ptr) {}

void startOutput(j_compress_ptr info) {
  info->dest->next_output_byte = encoderOf(info).buffer.data();
  info->dest->free_in_buffer = kOutputBytes;
}
// The library hands the whole buffer over here, whatever its counters say.
boolean emptyOutput(j_compress_ptr info) {
  Encoder& encoder = encoderOf(info);
  if (!encoder.file.write(encoder.buffer)) onError(reinterpret_cast<j_common_ptr>(info));
  startOutput(info);
  return TRUE;
}
void endOutput(j_compress_ptr info) {
  Encoder& encoder = encoderOf(info);
  encoder.file.write(std::span(encoder.buffer).first(kOutputBytes - info->dest->free_in_buffer));
}

bool encode(Encoder& encoder, const raster::Surface& surface, int quality) {
  jpeg_compress_struct& info = encoder.info;
  info.err = jpeg_std_error(&encoder.errors);
  encoder.errors.error_exit = onError;
  encoder.errors.output_message = ignoreMessage;
  if (setjmp(encoder.giveUp) != 0) return false;
  info.client_data = &encoder;
  jpeg_create_compress(&info);
  encoder.output.init_destination = startOutput;
  encoder.output.empty_output_buffer = emptyOutput;
  encoder.output.term_destination = endOutput;
  info.dest = &encoder.output;
  info.image_width = static_cast<JDIMENSION>(surface.width());
  info.image_height = static_cast<JDIMENSION>(surface.height());
  info.input_components = 4;
  info.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, quality, TRUE);
  jpeg_start_compress(&info, TRUE);
  for (int y = 0; y < surface.height(); ++y) {
    auto row = reinterpret_cast<JSAMPROW>(const_cast<Pixel32*>(encoder.rows.row(y)));
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  return encoder.file.ok();
}

}  // namespace

bool saveJpeg(const raster::Surface& surface, const std::filesystem::path& path, int quality) {
  if (surface.empty()) return false;
  Encoder encoder(surface, path);
  return encode(encoder, surface, std::clamp(quality, 1, 100)) && encoder.file.commit();
}

}  // namespace ruvo::imaging
