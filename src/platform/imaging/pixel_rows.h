// Row helpers that the decoders, the encoders and the resampler share.
#pragma once

#include <cstdint>
#include <vector>

#include "base/colour.h"
#include "platform/raster/surface.h"

namespace ruvo::imaging {

// a x b / 255, rounded, exact for all bytes.
constexpr std::uint8_t multiplyBytes(int a, int b) {
  const int t = a * b + 128;
  return static_cast<std::uint8_t>((t + (t >> 8)) >> 8);
}

inline void clearAlpha(Pixel32* row, int width) {
  for (int x = 0; x < width; ++x) row[x].alpha = 0;
}
// Colours that were multiplied by their alpha become straight again.
void unmultiplyAlpha(Pixel32* row, int width);

// One row of a surface of any depth as 32-bit pixels. A 32-bit surface answers its own row; others fill the scratch
// row.
class RowExpander {
 public:
  explicit RowExpander(const raster::Surface& surface);
  // Valid until the next call. Byte 3 is zero unless the surface has 32 bits.
  const Pixel32* row(int pictureRow);

 private:
  const raster::Surface& surface_;
  std::vector<Pixel32> scratch_;
};

// The table index at column x of a row of 1, 4 or 8 bits a pixel.
inline int indexAt(const std::uint8_t* row, int x, int depth) {
  switch (depth) {
    case 1:
      return row[x >> 3] >> (7 - (x & 7)) & 1;
    case 4:
      return row[x >> 1] >> ((x & 1) ? 0 : 4) & 15;
    default:
      return row[x];
  }
}
// Sets it; the bits there must be zero.
inline void placeIndex(std::uint8_t* row, int x, int depth, int index) {
  switch (depth) {
    case 1:
      row[x >> 3] = static_cast<std::uint8_t>(row[x >> 3] | index << (7 - (x & 7)));
      break;
    case 4:
      row[x >> 1] = static_cast<std::uint8_t>(row[x >> 1] | index << ((x & 1) ? 0 : 4));
      break;
    default:
      row[x] = static_cast<std::uint8_t>(index);
  }
}

}  // namespace ruvo::imaging
