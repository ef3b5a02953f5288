// How large a picture becomes when it is turned with nothing cut off, and whether it may.
#pragma once

#include <cmath>

#include "base/geometry.h"
#include "base/limits.h"
#include "base/rounding.h"

namespace ruvo {

// The side of the square that holds the picture at any angle: its diagonal and two pixels.
inline int rotatedSide(Size size) {
  const double w = size.width, h = size.height;
  return roundToInt(std::sqrt(w * w + h * h) + 2);
}
// Whether that square is within the limits of a picture; if not, a turned picture keeps its size.
inline bool rotationMayGrow(Size size) {
  const int side = rotatedSide(size);
  return pictureSizeAllowed(side, side);
}

}  // namespace ruvo
