#include "platform/imaging/orientation.h"

namespace ruvo::imaging {

bool turnUpright(raster::Surface& surface, int orientation) {
  if (orientation < 2 || orientation > 8) return true;
  const bool sideways = swapsSides(orientation);
  const int storedWidth = surface.width();
  const int storedHeight = surface.height();
  raster::Surface seen;
  if (!seen.create(sideways ? storedHeight : storedWidth, sideways ? storedWidth : storedHeight, 32, surface.order())) {
    return false;
  }
  // The stored row 0 is the seen bottom in 3 and 4, the right side in 6 and 7; the stored column 0 is the seen right
  // side in 2 and 3, the bottom in 7 and 8.
  const bool rowsBackwards = orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
  const bool columnsBackwards = orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
  for (int y = 0; y < seen.height(); ++y) {
    auto* out = reinterpret_cast<Pixel32*>(seen.pictureRow(y));
    for (int x = 0; x < seen.width(); ++x) {
      const int r = sideways ? x : y;
      const int c = sideways ? y : x;
      const auto* row = reinterpret_cast<const Pixel32*>(surface.pictureRow(rowsBackwards ? storedHeight - 1 - r : r));
      out[x] = row[columnsBackwards ? storedWidth - 1 - c : c];
    }
  }
  surface = std::move(seen);
  return true;
}

}  // namespace ruvo::imaging
