// A border of a colour around a picture or over its edges.
#pragma once

#include "base/colour.h"
#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

struct Border {
  enum class Style {
    Plain,
    Double,  // two lines with the second colour between them
    Raised,  // lit from the top left
    Sunken,
    Ridge,  // rises from the edge and falls again
    Groove,
  };
  Style style = Style::Plain;
  int width = 10;  // pixels
  Colour colour = 0;
  Colour second = kWhite;
  // The picture grows by the border; where the limits do not allow it, the border lies over the edges.
  bool outside = true;
};

// A picture of 32 bits; false when stopped or without memory. The border is opaque.
bool drawBorder(clsDIB& picture, const Border& border, const Progress& progress);

}  // namespace ruvo
