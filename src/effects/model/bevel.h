// Edges that make a picture look like a key or a dish.
#pragma once

#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

struct Bevel {
  bool sunken = false;
  bool round = false;      // the slope is steepest at the edge and ends level; else it is the same all the way
  int width = 12;          // pixels
  double lightFrom = 315;  // degrees, clockwise from upwards
  double strength = 0.6;   // 0 to 1
};

// Changes the colours of a band along the edges. A picture of 32 bits; false when stopped.
bool drawBevel(clsDIB& picture, const Bevel& bevel, const Progress& progress);

}  // namespace ruvo
