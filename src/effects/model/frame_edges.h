// A band along the edges of a picture, whose four sides meet in mitres.
#pragma once

#include <algorithm>
#include <array>

#include "effects/model/pixel_cover.h"

namespace ruvo {

enum FrameSide { kLeftSide, kTopSide, kRightSide, kBottomSide };

// Something for each of the four sides, in the order of FrameSide.
using OfEachSide = std::array<double, 4>;

// How much each side of a band that rises inwards is turned to a light (degrees, clockwise from upwards): -1 to 1,
// where the best lit side has 1.
OfEachSide sidesInLight(double lightFrom);

// Calls paint(pixel, depth, first, second) for each pixel of the band: its distance from the edge (0 at the edge), and
// the side that it belongs to; on a mitre, which belongs to two, `second` is the other one and else the same again.
template <typename Paint>
bool forEachFramePixel(clsDIB& picture, int bandWidth, const Progress& progress, const Paint& paint) {
  const int width = picture.DIBWidth(), height = picture.DIBHeight();
  return forEachRow(height, progress, [&](int y) {
    Pixel32* row = pixelRow(picture.surface(), y);
    const int below = height - 1 - y;
    const int upright = std::min(y, below);
    const FrameSide near = y <= below ? kTopSide : kBottomSide;
    const auto at = [&](int x) {
      const int right = width - 1 - x;
      const int level = std::min(x, right);
      const FrameSide side = x <= right ? kLeftSide : kRightSide;
      if (level < upright) {
        paint(row[x], level, side, x == right ? kRightSide : side);
      } else if (upright < level) {
        paint(row[x], upright, near, y == below ? kBottomSide : near);
      } else {
        paint(row[x], level, side, near);
      }
    };
    if (upright < bandWidth || 2 * bandWidth >= width) {
      for (int x = 0; x < width; ++x) {
        if (std::min({upright, x, width - 1 - x}) < bandWidth) at(x);
      }
    } else {
      for (int x = 0; x < bandWidth; ++x) at(x);
      for (int x = width - bandWidth; x < width; ++x) at(x);
    }
  });
}

// Lighter for amounts above 0 and darker below, up to white at 1 and black at -1. Byte 3 stays.
inline Pixel32 lit(Pixel32 pixel, double amount) {
  const Pixel32 towards = Pixel32::plain(amount > 0 ? kWhite : kBlack);
  const int cover = coverOf(amount > 0 ? amount : -amount);
  return {coverByte(pixel.blue, towards.blue, cover), coverByte(pixel.green, towards.green, cover),
          coverByte(pixel.red, towards.red, cover), pixel.alpha};
}

}  // namespace ruvo
