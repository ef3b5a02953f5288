// Pictures drawn out of their rectangle: as seen from aside, and slanted.
#pragma once

#include "base/colour.h"
#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

struct Perspective {
  enum class Side { Top, Bottom, Left, Right };
  Side side = Side::Top;  // the one that is farther from the viewer
  double shrink = 0.4;    // how much shorter that side becomes, 0 to below 1
  double length = 1;      // of the way from that side to the opposite one, above 0 to 1
  Colour fill = 0;        // for what is left free
  bool antialias = true;
};

struct Slant {
  bool upright = false;  // columns move up and down; else rows move left and right
  double angle = 0;      // degrees, above -90 and below 90: the top goes right, or the right goes up
  Colour fill = 0;
  bool antialias = true;
  // Otherwise, or when the picture would pass the limits, the middle stays and what passes the edges is lost.
  bool grow = true;
};

// Pictures of 32 bits; false when stopped or without memory. The free parts are opaque.
bool drawPerspective(clsDIB& picture, const Perspective& perspective, const Progress& progress);
bool drawSlant(clsDIB& picture, const Slant& slant, const Progress& progress);

}  // namespace ruvo
