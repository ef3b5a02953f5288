// Lines across a picture at even distances.
#pragma once

#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

// Lengths are whole pixels of the real picture.
struct Grid {
  enum class Style { Lines, Dashes, Dots };
  Style style = Style::Lines;
  int spacingX = 32;  // from the left of a line to the left of the next; at least 1
  int spacingY = 32;
  int width = 1;
  int offsetX = 0;  // left of the first line
  int offsetY = 0;
  Colour colour = 0;
  double strength = 1;  // 0 to 1
};

// Pixels are either on a line or not; in a reduced picture (`scale` below 1) they take the share that the lines have of
// them. A picture of 32 bits; false when stopped or without memory.
bool drawGrid(clsDIB& picture, const Grid& grid, double scale, const Progress& progress);

}  // namespace ruvo
