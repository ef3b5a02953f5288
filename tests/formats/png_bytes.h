// PNG files built chunk by chunk, whole or broken on purpose, and what libpng reads in them.
#pragma once

#include <zlib.h>

#include <random>
#include <string_view>
#include <vector>

#include "base/byte_writer.h"
#include "base/limits.h"
#include "formats/clsPNG_Format.h"
#include "platform/imaging/codecs.h"
#include "platform/raster/blit.h"

namespace ruvo::test {

using Bytes = std::vector<std::uint8_t>;

inline Bytes chunk(std::string_view name, const Bytes& data) {
  ByteWriter out;
  out.u32be(static_cast<std::uint32_t>(data.size()));
  for (const char c : name) out.u8(static_cast<std::uint8_t>(c));
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

// True colour of any kind, long enough to be taken for a file.
inline PngParts randomPng(std::uint32_t width = 20, std::uint32_t height = 3) {
  std::mt19937 random(8);
  PngParts parts{{width, height, 8, 2, 0, 0, 0}};
  parts.rows = randomRows(parts.header, random);
  return parts;
}

// The picture at 32 bits with alpha (255 without any), as the platform reads it by libpng; empty when it refuses.
inline raster::Surface readByLibpng(const Bytes& file) {
  imaging::MemorySource source(file);
  const imaging::LoadResult read = imaging::readPng(source, kMaxPicturePixels);
  if (!read) return {};
  raster::Surface surface = raster::copyOf(*read.picture.bitmap);
  for (std::size_t i = 3; i < surface.byteCount() && !read.picture.hasAlpha; i += 4) surface.bits()[i] = 255;
  return surface;
}

}  // namespace ruvo::test
