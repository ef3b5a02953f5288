// What the filters share: rows of pixels as words, the exclude colour, rounding without a library call.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <limits>

#include "base/rounding.h"
#include "image/clsDIB.h"

namespace ruvo::filter {

static_assert(std::endian::native == std::endian::little, "pixels are handled as little-endian words");

inline constexpr std::uint32_t kColourBytes = 0x00FFFFFF;

inline bool workable(const raster::Surface& surface) {
  return !surface.empty() && surface.depth() == 32;
}
inline bool workable(const clsDIB& dib) {
  return workable(dib.surface());
}

inline std::uint32_t* words(raster::Surface& surface, int memoryRow) {
  return reinterpret_cast<std::uint32_t*>(surface.memoryRow(memoryRow));
}
inline const std::uint32_t* words(const raster::Surface& surface, int memoryRow) {
  return reinterpret_cast<const std::uint32_t*>(surface.memoryRow(memoryRow));
}

// A pixel as the word that holds it in memory.
inline std::uint32_t blueIn(std::uint32_t pixel) {
  return pixel & 0xFF;
}
inline std::uint32_t greenIn(std::uint32_t pixel) {
  return pixel >> 8 & 0xFF;
}
inline std::uint32_t redIn(std::uint32_t pixel) {
  return pixel >> 16 & 0xFF;
}
inline std::uint32_t wordOf(std::uint32_t blue, std::uint32_t green, std::uint32_t red) {
  return blue | green << 8 | red << 16;
}
inline std::uint32_t wordOf(Colour colour) {
  return wordOf(blueOf(colour), greenOf(colour), redOf(colour));
}
// The pixel with other colour bytes and its own byte 3.
inline std::uint32_t recoloured(std::uint32_t pixel, std::uint32_t colourWord) {
  return (pixel & ~kColourBytes) | (colourWord & kColourBytes);
}

// Compares pixels with the exclude colour.
class Exclusion {
 public:
  // Below 0, and beyond any colour, no pixel equals it.
  explicit Exclusion(std::int64_t colour)
      : word_(colour < 0 || colour > kColourBytes ? kNone : wordOf(static_cast<Colour>(colour))) {}
  bool none() const { return word_ == kNone; }
  bool covers(std::uint32_t pixel) const { return (pixel & kColourBytes) == word_; }
  // The new colour, or the pixel itself where it is excluded.
  std::uint32_t choose(std::uint32_t pixel, std::uint32_t colourWord) const {
    return covers(pixel) ? pixel : recoloured(pixel, colourWord);
  }

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
  std::uint32_t word_;
};

// Replaces each pixel of a row by recolour(pixel), but for byte 3 and excluded pixels. The loop stands twice so that the
// usual one, with no exclude colour, has no comparison.
template <typename Recolour>
void recolourRow(std::uint32_t* row, int first, int end, const Exclusion& exclusion, const Recolour& recolour) {
  if (exclusion.none()) {
    for (int x = first; x < end; ++x) row[x] = recoloured(row[x], recolour(row[x]));
  } else {
    for (int x = first; x < end; ++x) row[x] = exclusion.choose(row[x], recolour(row[x]));
  }
}

// As roundToInt for |value| below 2^31, with no library call: adding the constant leaves the rounded integer, ties to
// even, in the low bits.
inline std::int32_t quickRound(double value) {
  return static_cast<std::int32_t>(std::bit_cast<std::uint64_t>(value + 0x1.8p52));
}
// Rounded and clamped, whatever the value: one that is not a number gives 0.
inline std::uint8_t roundToByte(double value) {
  return value > 0 ? (value < 255 ? static_cast<std::uint8_t>(roundToInt(value)) : 255) : 0;
}

using ByteTable = std::array<std::uint8_t, 256>;

template <typename Value>
ByteTable byteTable(const Value& value) {
  ByteTable table{};
  for (int c = 0; c < 256; ++c) table[static_cast<std::size_t>(c)] = value(c);
  return table;
}

// What a function of the difference of two channels (-255 to 255) comes to.
template <typename T>
class DifferenceTable {
 public:
  template <typename Value>
  explicit DifferenceTable(const Value& value) {
    for (int d = -255; d <= 255; ++d) entries_[static_cast<std::size_t>(d + 255)] = value(d);
  }
  T of(std::uint32_t pixel, std::uint32_t neighbour) const { return entries_[pixel + 255 - neighbour]; }

 private:
  std::array<T, 511> entries_{};
};

}  // namespace ruvo::filter
