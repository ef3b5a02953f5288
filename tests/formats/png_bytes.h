// PNG files built chunk by chunk, whole or broken on purpose, and what libpng reads in them.
#pragma once

#include <png.h>
#include <zlib.h>

#include <random>
#include <string_view>
#include <vector>

#include "base/byte_writer.h"
#include "formats/clsPNG_Format.h"
#include "platform/raster/surface.h"

namespace ruvo::test {

using Bytes = std::vector<std::uint8_t>;

inline Bytes chunk(std::string_view name, const Bytes& data) {
  ByteWriter out;
  out.u32be(static_cast<std::uint32_t>(data.size()));
  out.append(name);
  out.append(data);
  out.u32be(static_cast<std::uint32_t>(crc32(0, out.bytes().data() + 4, static_cast<uInt>(data.size() + 4))));
  return out.take();
}

inline Bytes zlibOf(const Bytes& plain) {
  uLongf size = compressBound(static_cast<uLong>(plain.size()));
  Bytes packed(size);
  compress2(packed.data(), &size, plain.data(), static_cast<uLong>(plain.size()), 6);
  packed.resize(size);
  return packed;
}

inline Bytes headerBytes(const png::Header& h) {
  ByteWriter out;
  out.u32be(h.width);
  out.u32be(h.height);
  for (const int v : {h.depth, h.type, h.compression, h.filter, h.interlace}) out.u8(static_cast<std::uint8_t>(v));
  return out.take();
}

struct PngParts {
  png::Header header;
  std::vector<Bytes> before = {};  // whole chunks between IHDR and IDAT
  Bytes rows = {};                 // filter bytes and samples of all passes
  std::size_t split = 1000;        // of the compressed bytes an IDAT
  Bytes packed = {};               // in place of the rows' compressed bytes
  std::vector<Bytes> after = {};   // between IDAT and IEND

  Bytes bytes() const {
    ByteWriter out;
    out.append(png::kSignature);
    out.append(chunk("IHDR", headerBytes(header)));
    for (const Bytes& c : before) out.append(c);
    const Bytes all = packed.empty() ? zlibOf(rows) : packed;
    for (std::size_t at = 0; at < all.size(); at += split) {
      const auto end = std::min(all.size(), at + split);
      out.append(chunk("IDAT", Bytes(all.begin() + static_cast<std::ptrdiff_t>(at),
                                     all.begin() + static_cast<std::ptrdiff_t>(end))));
    }
    for (const Bytes& c : after) out.append(c);
    out.append(chunk("IEND", {}));
    return out.take();
  }
};

// Rows of any bytes are a picture; each gets one of the filters.
inline Bytes randomRows(const png::Header& header, std::mt19937& random) {
  Bytes all;
  for (const png::Pass& pass : png::passesOf(header)) {
    for (int y = 0; y < pass.rows; ++y) {
      all.push_back(static_cast<std::uint8_t>(random() % 5));
      for (std::size_t i = 0; i < pass.rowBytes; ++i) all.push_back(static_cast<std::uint8_t>(random() >> 9));
    }
  }
  return all;
}

// The picture at 32 bits with alpha (255 without any), as libpng reads it; empty when it refuses.
inline raster::Surface readByLibpng(const Bytes& file) {
  raster::Surface surface;
  png_structp png =
      png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, [](png_structp, png_const_charp) {});
  png_infop info = png_create_info_struct(png);
  if (setjmp(png_jmpbuf(png)) == 0) {
    auto rest = std::pair(file.data(), file.size());
    png_set_read_fn(png, &rest, [](png_structp p, png_bytep to, std::size_t count) {
      auto& source = *static_cast<std::pair<const std::uint8_t*, std::size_t>*>(png_get_io_ptr(p));
      if (count > source.second) png_error(p, "early end");
      std::copy_n(source.first, count, to);
      source.first += count;
      source.second -= count;
    });
    png_read_info(png, info);
    png_set_expand(png);
    png_set_strip_16(png);
    if ((png_get_color_type(png, info) & PNG_COLOR_MASK_COLOR) == 0) png_set_gray_to_rgb(png);
    png_set_bgr(png);
    png_set_add_alpha(png, 255, PNG_FILLER_AFTER);
    png_set_interlace_handling(png);
    png_read_update_info(png, info);
    surface.create(static_cast<int>(png_get_image_width(png, info)), static_cast<int>(png_get_image_height(png, info)),
                   32);
    std::vector<png_bytep> rows;
    for (int y = 0; y < surface.height(); ++y) rows.push_back(surface.pictureRow(y));
    png_read_image(png, rows.data());
    png_read_end(png, nullptr);
  } else {
    surface.clear();
  }
  png_destroy_read_struct(&png, &info, nullptr);
  return surface;
}

}  // namespace ruvo::test
