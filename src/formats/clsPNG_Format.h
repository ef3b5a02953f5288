// What reader and writer of PNG files share: the header, the passes of an interlaced picture and their row sizes.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/limits.h"

namespace ruvo::png {

inline constexpr std::array<std::uint8_t, 8> kSignature = {137, 'P', 'N', 'G', 13, 10, 26, 10};
inline constexpr std::size_t kHeaderBytes = 13;
// Of a chunk beside its data: length, name and sum.
inline constexpr std::size_t kChunkFrame = 12;

enum Type { kGrey = 0, kColour = 2, kPalette = 3, kGreyAlpha = 4, kColourAlpha = 6 };

struct Header {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  int depth = 0;
  int type = 0;
  int compression = 0;
  int filter = 0;
  int interlace = 0;

  bool indexed() const { return (type == kGrey || type == kPalette) && depth <= 8; }
  bool alphaChannel() const { return type == kGreyAlpha || type == kColourAlpha; }
};

constexpr int channelsOf(int type) {
  return type == kColour ? 3 : type == kGreyAlpha ? 2 : type == kColourAlpha ? 4 : 1;
}
// Type, depth and interlace that exist, and a size that is taken.
bool allowed(const Header& header);

// One pass over the picture: every stepX-th column from startX and every stepY-th row from startY.
struct Pass {
  int startX = 0;
  int startY = 0;
  int stepX = 1;
  int stepY = 1;
  int columns = 0;
  int rows = 0;
  std::size_t rowBytes = 0;  // without the filter's
};
// The passes that have any pixel, in the order of the file: one, or up to seven.
std::vector<Pass> passesOf(const Header& header);
// Filter bytes and rows of all passes.
std::int64_t bytesOf(const std::vector<Pass>& passes);

}  // namespace ruvo::png
