// Rows of a surface of any depth as 24- or 32-bit pixels, one at a time: what pixel walks and writers share.
#pragma once

#include <cstdint>
#include <vector>

#include "base/colour.h"
#include "platform/raster/pixel_rows.h"
#include "platform/raster/surface.h"

namespace ruvo {

class RowReader {
 public:
  // Depth is 24 or 32. The surface must outlive the reader.
  explicit RowReader(const raster::Surface& surface, int depth = 32)
      : surface_(surface),
        converter_(surface.depth(), surface.table(), depth, {}),
        loose_(static_cast<std::size_t>(surface.width())) {
    if (!converter_.identity()) scratch_.resize(loose_.size() * raster::looseBytes(depth));
  }

  // Copies the pixels of a memory row.
  void read(int memoryRow, std::uint8_t* to) { converter_.convert(loose(memoryRow), to, surface_.width()); }
  // The pixels of a memory row, valid until the next call and while the surface is. Rows of the wanted depth are the
  // surface's own; byte 3 of converted ones is zero.
  const std::uint8_t* bytes(int memoryRow) {
    if (converter_.identity()) return loose(memoryRow);
    read(memoryRow, scratch_.data());
    return scratch_.data();
  }
  // The same at 32 bits.
  const Pixel32* pixels(int memoryRow) { return reinterpret_cast<const Pixel32*>(bytes(memoryRow)); }

 private:
  const std::uint8_t* loose(int memoryRow) {
    return raster::looseRow(surface_, surface_.memoryRowOf(memoryRow), 0, surface_.width(), loose_.data());
  }

  const raster::Surface& surface_;
  raster::RowConverter converter_;
  std::vector<std::uint8_t> loose_;
  std::vector<std::uint8_t> scratch_;
};

// Calls visit(colour) for the pixels in memory order, once for each run of equal ones, and rowDone(memoryRow) after
// each row; stops when visit answers false.
template <typename Visit, typename RowDone>
void forEachColourRun(const raster::Surface& surface, Visit&& visit, RowDone&& rowDone) {
  RowReader reader(surface);
  constexpr Colour kNone = 0xFFFFFFFF;
  Colour last = kNone;
  for (int y = 0; y < surface.height(); ++y) {
    const Pixel32* row = reader.pixels(y);
    for (int x = 0; x < surface.width(); ++x) {
      const Colour colour = row[x].colour();
      if (colour == last) continue;
      last = colour;
      if (!visit(colour)) return;
    }
    rowDone(y);
  }
}
template <typename Visit>
void forEachColourRun(const raster::Surface& surface, Visit&& visit) {
  forEachColourRun(surface, visit, [](int) {});
}

}  // namespace ruvo
