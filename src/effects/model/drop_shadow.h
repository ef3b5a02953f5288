// A shadow under what a picture shows.
#pragma once

#include "base/colour.h"
#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

struct DropShadow {
  int offsetX = 6;  // pixels to the right and down
  int offsetY = 6;
  int softness = 8;  // pixels over which an edge fades
  Colour colour = kBlack;
  double strength = 1;     // 0 to 1
  Colour ground = kWhite;  // on which the shadow of a whole picture falls
  // The picture becomes larger where the shadow leaves it; not beyond the limits of a picture.
  bool grow = true;
};

// With alpha, the opaque parts throw the shadow. On a plain background, which has the colour of the top left and lies
// along most of the edges, everything else does. Any other picture throws it as a whole, and so shows one only when it
// may grow. A picture of 32 bits; false when stopped or without memory.
bool drawDropShadow(clsDIB& picture, const DropShadow& shadow, const Progress& progress);

}  // namespace ruvo
