// A ramp between two colours over a whole picture.
#pragma once

#include <cstdint>

#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

struct Gradient {
  enum class Kind {
    Linear,     // along a direction, from edge to edge
    Reflected,  // from the centre to both edges along a direction
    Radial,     // in circles around the centre, up to the farthest corner
    Angular,    // once around the centre, clockwise from a direction
  };
  Kind kind = Kind::Linear;
  // Packed, or below 0: there the picture shows. With both below 0 nothing is drawn.
  std::int64_t first = 0;
  std::int64_t second = 0;
  // The steps between look even (Oklab) and mixed colours keep their brightness; else channel values are mixed.
  bool byEye = false;
  double angle = 0;      // degrees, clockwise from upwards
  double centreX = 0.5;  // shares of the width and height
  double centreY = 0.5;
  double midpoint = 0.5;  // where on the way the half mix lies; above 0 and below 1
  double strength = 1;    // 0 to 1, over what the picture holds
};

// The first and the last pixel on the way have the two colours exactly. A picture of 32 bits; false when stopped or
// without memory.
bool drawGradient(clsDIB& picture, const Gradient& gradient, const Progress& progress);

}  // namespace ruvo
