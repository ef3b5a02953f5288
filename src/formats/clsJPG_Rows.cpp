#include "formats/clsJPG_Rows.h"

#include <algorithm>
#include <bit>

namespace ruvo::jpg {

// Two channels at a time in one word; a sum of four bytes needs ten of its sixteen bits.
void halveRows(const Pixel32* upper, const Pixel32* lower, int width, Pixel32* to) {
  constexpr std::uint32_t kPairs = 0x00FF00FF, kHalves = 0x00020002;
  const auto mean = [](std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    const std::uint32_t blueAndRed = (a & kPairs) + (b & kPairs) + (c & kPairs) + (d & kPairs) + kHalves;
    const std::uint32_t green = (a >> 8 & 0xFF) + (b >> 8 & 0xFF) + (c >> 8 & 0xFF) + (d >> 8 & 0xFF) + 2;
    return (blueAndRed >> 2 & kPairs) | green >> 2 << 8;
  };
  const auto at = [](const Pixel32* row, int x) { return std::bit_cast<std::uint32_t>(row[x]); };
  const auto put = [&](int x, std::uint32_t pixel) { to[x] = std::bit_cast<Pixel32>(pixel); };
  const int pairs = width / 2;
  for (int x = 0; x < pairs; ++x) {
    put(x, mean(at(upper, 2 * x), at(upper, 2 * x + 1), at(lower, 2 * x), at(lower, 2 * x + 1)));
  }
  if (width % 2 != 0) {
    const std::uint32_t a = at(upper, width - 1), b = at(lower, width - 1);
    put(pairs, mean(a, a, b, b));
  }
}

BlockRows::BlockRows(const raster::Surface& picture, bool halved)
    : picture_(picture),
      first_(picture),
      second_(picture),
      halved_(halved),
      width_(halved ? (picture.width() + 1) / 2 : picture.width()),
      height_(halved ? (picture.height() + 1) / 2 : picture.height()),
      stride_((width_ + kBlockSide - 1) / kBlockSide * kBlockSide),
      pixels_(static_cast<std::size_t>(stride_) * kBlockSide) {}

const Pixel32* BlockRows::line(RowReader& reader, int y) {
  return reader.pixels(picture_.memoryRowOf(std::min(y, picture_.height() - 1)));
}

const Pixel32* BlockRows::load(int blockRow) {
  Pixel32* to = pixels_.data();
  for (int i = 0; i < kBlockSide; ++i, to += stride_) {
    const int y = blockRow * kBlockSide + i;
    if (y >= height_) {
      std::copy_n(to - stride_, stride_, to);
      continue;
    }
    if (halved_) {
      halveRows(line(first_, 2 * y), line(second_, 2 * y + 1), picture_.width(), to);
    } else {
      std::copy_n(line(first_, y), width_, to);
    }
    std::fill(to + width_, to + stride_, to[width_ - 1]);
  }
  return pixels_.data();
}

}  // namespace ruvo::jpg
