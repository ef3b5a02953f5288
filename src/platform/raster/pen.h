// What lines and outlines are drawn with.
#pragma once

#include "base/colour.h"

namespace ruvo::raster {

// Runs of the broken styles in pixels along the major axis, on and off: Dash 18 6; Dot 3 3; DashDot 9 6 3 6;
// DashDotDot 9 3 3 3 3 3; Alternate 1 1. They start at the first point and go on round the corners of one figure.
enum class PenStyle { Solid = 0, Dash, Dot, DashDot, DashDotDot, Null, InsideFrame, Alternate = 8 };

// Width 0 and 1 draw single pixels without the end point. From 2 on caps and joins are round and every style but Null
// is solid; the body of a line is then a parallelogram.
struct Pen {
  PenStyle style = PenStyle::Solid;
  int width = 1;
  Colour colour = kBlack;

  static Pen solid(Colour colour, int width = 1) { return {PenStyle::Solid, width, colour}; }
  static Pen null() { return {PenStyle::Null, 1, kBlack}; }
  bool draws() const { return style != PenStyle::Null; }
  bool thin() const { return width <= 1; }
  bool broken() const { return thin() && style != PenStyle::Solid && style != PenStyle::InsideFrame; }
};

}  // namespace ruvo::raster
