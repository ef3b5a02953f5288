// The eight ways in which a file may store a picture (TIFF 6, Orientation; the same numbers in EXIF).
#pragma once

#include "platform/raster/surface.h"

namespace ruvo::imaging {

// True for the values that lay the picture on its side, 5 to 8.
constexpr bool swapsSides(int orientation) {
  return orientation >= 5 && orientation <= 8;
}
// Turns a 32-bit surface as stored into the picture as seen; 1 and unknown values leave it. False, with the surface as
// it was, when there is no memory.
bool turnUpright(raster::Surface& surface, int orientation);

}  // namespace ruvo::imaging
