#include "canvas/engine/brush_bits_line.h"

#include <algorithm>
#include <cmath>

#include "base/rounding.h"
#include "canvas/engine/brush_mix.h"

namespace ruvo::brush {

Rect BitsBrushLine(clsDIB& picture, int x1, int y1, int x2, int y2, Colour colour, int size, bool round) {
  if (picture.empty()) return {};
  constexpr int kLongest = 32767;
  const int dx = std::clamp(x2 - x1, -kLongest, kLongest);
  const int dy = std::clamp(y2 - y1, -kLongest, kLongest);
  const int steps = std::max(std::abs(dx), std::abs(dy)) + 1;
  const double stride = std::max(size, 1) / 10.0;
  const double stepX = stride * dx / steps;
  const double stepY = stride * dy / steps;
  // A brush wider than ten lines would not mark a short one at all.
  const int rounds = std::max(roundToInt(steps / stride), 1);
  const int h = roundToInt(size * 0.5);
  const int limit = h * h + 1;

  raster::Surface& surface = picture.surface();
  const Pixel32 ink{blueOf(colour), greenOf(colour), redOf(colour), writtenAlpha(picture)};
  Rect changed;
  for (int i = 0; i < rounds; ++i) {
    const double x = x1 + i * stepX;
    const double y = y1 + i * stepY;
    for (int v = -h; v <= h; ++v) {
      for (int u = -h; u <= h; ++u) {
        if (round && u * u + v * v >= limit) continue;
        const int column = roundToInt(x + u);
        const int row = roundToInt(y + v);
        if (!surface.bounds().contains(column, row)) continue;
        reinterpret_cast<Pixel32*>(surface.pictureRow(row))[column] = ink;
        changed = changed.united({column, row, column + 1, row + 1});
      }
    }
  }
  return changed;
}

}  // namespace ruvo::brush
