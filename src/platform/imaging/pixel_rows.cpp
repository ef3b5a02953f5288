#include "platform/imaging/pixel_rows.h"

#include <algorithm>

namespace ruvo::imaging {

void unmultiplyAlpha(Pixel32* row, int width) {
  for (int x = 0; x < width; ++x) {
    Pixel32& p = row[x];
    if (p.alpha == 255 || p.alpha == 0) continue;
    const int half = p.alpha / 2;
    const auto straight = [&](int value) {
      return static_cast<std::uint8_t>(std::min(255, (value * 255 + half) / p.alpha));
    };
    p = {straight(p.blue), straight(p.green), straight(p.red), p.alpha};
  }
}

RowExpander::RowExpander(const raster::Surface& surface) : surface_(surface) {
  if (surface.depth() != 32) scratch_.resize(static_cast<std::size_t>(surface.width()));
}

const Pixel32* RowExpander::row(int pictureRow) {
  const std::uint8_t* bits = surface_.pictureRow(pictureRow);
  const int width = surface_.width();
  const int depth = surface_.depth();
  if (depth == 32) return reinterpret_cast<const Pixel32*>(bits);
  if (depth == 24) {
    for (int x = 0; x < width; ++x, bits += 3) scratch_[x] = {bits[0], bits[1], bits[2], 0};
  } else {
    const auto table = surface_.table();
    for (int x = 0; x < width; ++x) {
      const raster::TableEntry& entry = table[indexAt(bits, x, depth)];
      scratch_[x] = {entry.blue, entry.green, entry.red, 0};
    }
  }
  return scratch_.data();
}

}  // namespace ruvo::imaging
