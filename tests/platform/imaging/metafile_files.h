// Metafiles record by record, for tests: fields are given in the order in which the formats lay them out.
#pragma once

#include <gtest/gtest.h>
#include <uemf.h>

#include <cstdint>
#include <vector>

#include "base/byte_writer.h"
#include "platform/imaging/metafile.h"
#include "support/pictures.h"

namespace ruvo::test {

using Bytes = std::vector<std::uint8_t>;

// 32-bit fields.
inline Bytes longs(std::initializer_list<std::int64_t> values) {
  ByteWriter w;
  for (const std::int64_t v : values) w.u32(static_cast<std::uint32_t>(v));
  return w.take();
}
// 16-bit fields.
inline Bytes words(std::initializer_list<std::int64_t> values) {
  ByteWriter w;
  for (const std::int64_t v : values) w.u16(static_cast<std::uint16_t>(v));
  return w.take();
}
inline Bytes floats(std::initializer_list<float> values) {
  ByteWriter w;
  for (const float v : values) w.u32(std::bit_cast<std::uint32_t>(v));
  return w.take();
}
inline Bytes operator+(Bytes a, const Bytes& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

// A device of 96 pixels an inch; sizes that are multiples of 24 have frames without a rest, so that one logical unit of
// the start is one pixel of the picture.
class EmfFile {
 public:
  EmfFile(int width, int height) : width_(width), height_(height) {}

  EmfFile& add(std::uint32_t type, Bytes body = {}) {
    body.resize((body.size() + 3) / 4 * 4);
    records_.u32(type);
    records_.u32(static_cast<std::uint32_t>(8 + body.size()));
    records_.append(body);
    return *this;
  }
  // Records that begin with the bounds of what they draw.
  EmfFile& draw(std::uint32_t type, const Bytes& body) { return add(type, longs({0, 0, -1, -1}) + body); }
  EmfFile& pen(int number, int style, int width, Colour colour) {
    add(38, longs({number, style, width, 0, colour}));
    return add(37, longs({number}));
  }
  EmfFile& brush(int number, Colour colour, int style = 0, int hatch = 0) {
    add(39, longs({number, style, colour, hatch}));
    return add(37, longs({number}));
  }
  EmfFile& save() { return add(U_EMR_SAVEDC); }
  EmfFile& restore(int number) { return add(U_EMR_RESTOREDC, longs({number})); }
  EmfFile& move(int x, int y) { return add(U_EMR_MOVETOEX, longs({x, y})); }
  EmfFile& line(int x, int y) { return add(U_EMR_LINETO, longs({x, y})); }
  EmfFile& stock(int number) { return add(37, longs({0x80000000LL + number})); }
  // Solid black areas without an outline.
  EmfFile& blackAreas() { return stock(4).stock(8); }
  EmfFile& box(int left, int top, int right, int bottom) { return add(43, longs({left, top, right, bottom})); }

  Bytes bytes() const {
    ByteWriter file;
    const auto total = static_cast<std::uint32_t>(kHeader + records_.size() + kEnd);
    for (const std::uint32_t v : {1u, kHeader, 0u, 0u, 0u, 0u, 0u, 0u}) file.u32(v);
    file.u32(static_cast<std::uint32_t>(frameLess ? 0 : width_ * 2540 / 96));
    file.u32(static_cast<std::uint32_t>(frameLess ? 0 : height_ * 2540 / 96));
    for (const std::uint32_t v : {0x464D4520u, 0x10000u, total, 99u, 99u, 0u, 0u, 0u}) file.u32(v);
    for (const std::uint32_t v : {960u, 960u, 254u, 254u}) file.u32(v);
    file.append(records_.bytes());
    for (const std::uint32_t v : {14u, kEnd, 0u, 0u, kEnd}) file.u32(v);
    Bytes all = file.take();
    if (frameLess) {
      all[16] = static_cast<std::uint8_t>(width_ - 1);
      all[20] = static_cast<std::uint8_t>(height_ - 1);
    }
    return all;
  }

  bool frameLess = false;

 private:
  static constexpr std::uint32_t kHeader = 88, kEnd = 20;
  int width_;
  int height_;
  ByteWriter records_;
};

// Placeable with `inch` units an inch, or plain.
class WmfFile {
 public:
  WmfFile& add(std::uint32_t function, Bytes body = {}) {
    body.resize((body.size() + 1) / 2 * 2);
    records_.u32(static_cast<std::uint32_t>(3 + body.size() / 2));
    records_.u16(static_cast<std::uint16_t>(function));
    records_.append(body);
    return *this;
  }
  WmfFile& window(int width, int height) { return add(0x020B, words({0, 0})).add(0x020C, words({height, width})); }
  // Solid black areas without an outline, as objects 0 and 1.
  WmfFile& blackAreas() {
    add(0x02FC, words({0, 0, 0, 0})).add(0x012D, words({0}));
    return add(0x02FA, words({5, 0, 0, 0, 0})).add(0x012D, words({1}));
  }
  WmfFile& box(int left, int top, int right, int bottom) { return add(0x041B, words({bottom, right, top, left})); }

  Bytes plain(bool ended = true) const {
    const Bytes end = ended ? longs({3}) + words({0}) : Bytes();
    const auto size = static_cast<std::int64_t>(9 + (records_.size() + end.size()) / 2);
    return words({1, 9, 0x300}) + longs({size}) + words({9}) + longs({99}) + words({0}) + records_.bytes() + end;
  }
  Bytes placeable(int left, int top, int right, int bottom, int inch) const {
    Bytes head = longs({0x9AC6CDD7}) + words({0, left, top, right, bottom, inch}) + longs({0});
    std::uint16_t sum = 0;
    for (std::size_t i = 0; i < head.size(); i += 2) sum ^= static_cast<std::uint16_t>(head[i] | head[i + 1] << 8);
    return head + words({sum}) + plain();
  }

 private:
  ByteWriter records_;
};

// The picture on white at its own size; empty when it does not load.
inline raster::Surface drawn(const Bytes& file) {
  raster::Surface surface;
  const imaging::LoadResult loaded = imaging::readMetafile(file);
  if (!loaded || !surface.create(loaded.width, loaded.height, 32)) return surface;
  raster::fillRect(surface, surface.bounds(), kWhite);
  imaging::playMetafile(loaded.picture, surface, surface.bounds());
  return surface;
}
inline raster::Surface drawn(const EmfFile& file) {
  return drawn(file.bytes());
}

constexpr Colour kRed = rgb(255, 0, 0), kGreen = rgb(0, 255, 0), kBlue = rgb(0, 0, 255);
inline const Ink kInks = {{'.', kWhite}, {'#', kBlack}, {'r', kRed}, {'g', kGreen}, {'b', kBlue}};

// Part of a picture as text.
inline Rows rowsIn(const raster::Surface& surface, const Rect& part, const Ink& ink = kInks) {
  raster::Surface piece;
  if (surface.empty() || !piece.create(part.width(), part.height(), 32)) return {};
  raster::blit(piece, 0, 0, part.width(), part.height(), surface, part.left, part.top);
  return rowsOf(piece, ink);
}
inline Colour colourAt(const raster::Surface& surface, int x, int y) {
  return surface.bounds().contains(x, y) ? pixelAt(surface, x, y).colour() : 0xFFFFFFFF;
}
// The letters of some pixels.
inline std::string inkAt(const raster::Surface& surface, const std::vector<Point>& points) {
  std::string letters;
  for (const Point& p : points) letters += rowsIn(surface, {p.x, p.y, p.x + 1, p.y + 1}).at(0);
  return letters;
}
// The smallest box that holds everything that is not white.
inline Rect inkBox(const raster::Surface& surface) {
  Rect box;
  for (int y = 0; y < surface.height(); ++y) {
    for (int x = 0; x < surface.width(); ++x) {
      if (colourAt(surface, x, y) != kWhite) box = box.united({x, y, x + 1, y + 1});
    }
  }
  return box;
}

}  // namespace ruvo::test
