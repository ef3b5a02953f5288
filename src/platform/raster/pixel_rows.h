// Rows of pixels on their way between surfaces. In between they are "loose": one byte an index for 1, 4 and 8 bits,
// three bytes B G R for 24, four bytes for 32. Shared by blits, stretches, pens and brushes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/raster/palette_match.h"
#include "platform/raster/raster_op.h"
#include "platform/raster/surface.h"

namespace ruvo::raster {

constexpr int looseBytes(int depth) {
  return depth == 32 ? 4 : depth == 24 ? 3 : 1;
}

// How a colour becomes an index: pens and brushes take the exact nearest entry; blits into 8 bits first reduce each
// channel to the middle of its cell of eight.
enum class MatchRule { Exact, Blit };

// The `count` pixels from column x of a surface row, loose. Answers a pointer into the row when it is loose already,
// else fills `buffer` (count x looseBytes).
const std::uint8_t* looseRow(const Surface& surface, int pictureRow, int x, int count, std::uint8_t* buffer);

// Turns loose pixels of one depth and table into those of another. Byte 3 of 32 bits is kept from 32 bits and 0 from
// others. Between indexed depths, equal tables keep the index and others take the exact nearest entry.
class RowConverter {
 public:
  RowConverter(int fromDepth, std::span<const TableEntry> fromTable, int toDepth, std::span<const TableEntry> toTable,
               MatchRule rule = MatchRule::Blit);
  RowConverter(const Surface& from, const Surface& to, MatchRule rule = MatchRule::Blit)
      : RowConverter(from.depth(), from.table(), to.depth(), to.table(), rule) {}

  // Pixels stay as they are.
  bool identity() const { return kind_ == Kind::Identity; }
  // `from` and `to` must not overlap.
  void convert(const std::uint8_t* from, std::uint8_t* to, int count);

 private:
  enum class Kind { Identity, IndexToIndex, IndexTo24, IndexTo32, To24, To32, DeepToIndex };
  void deepToIndex(const std::uint8_t* from, std::uint8_t* to, int count);
  std::uint8_t coarseIndexOf(const std::uint8_t* pixel);

  Kind kind_ = Kind::Identity;
  int fromBytes_ = 1;
  int toBytes_ = 1;
  bool coarse_ = false;
  std::array<std::uint8_t, 256> indexMap_{};
  std::array<std::uint32_t, 256> colourMap_{};
  PaletteMatcher matcher_;
  std::vector<std::int16_t> coarseIndex_;  // by five bits a channel; -1: not asked yet
};

// Combines loose pixels with a row of a surface.
class RowStore {
 public:
  // opaqueAlpha: byte 3 of every touched 32-bit pixel ends as 255.
  RowStore(Surface& surface, Rop2 op, bool opaqueAlpha = false)
      : surface_(surface), op_(op), opaqueAlpha_(opaqueAlpha && surface.depth() == 32) {}

  // True when put() would only copy bytes, so that the caller may write to direct() instead.
  bool copies() const { return op_ == Rop2::CopyPen && surface_.depth() >= 8 && !opaqueAlpha_; }
  std::uint8_t* direct(int x, int y) {
    return surface_.pictureRow(y) + static_cast<std::ptrdiff_t>(x) * looseBytes(surface_.depth());
  }
  // The run must lie inside the surface. `loose` holds pixels of the surface's depth.
  void put(int x, int y, int count, const std::uint8_t* loose);

 private:
  void putPacked(int x, int y, int count, const std::uint8_t* loose);

  Surface& surface_;
  Rop2 op_;
  bool opaqueAlpha_;
  std::vector<std::uint8_t> unpacked_;
};

// The loose pixel of a surface that a pen or brush of this colour writes (byte 3 zero), as up to four bytes in memory
// order; byte 3 becomes `alpha` at 32 bits.
std::array<std::uint8_t, 4> loosePixel(const Surface& surface, Colour colour, std::uint8_t alpha = 0);
// `count` copies of it.
void fillLoose(std::uint8_t* to, int count, std::array<std::uint8_t, 4> pixel, int bytes);

}  // namespace ruvo::raster
