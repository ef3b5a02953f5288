// The line tool's nine types.
#pragma once

#include "canvas/engine/shape_lines.h"

namespace ruvo::shape {

// Values of LineType. Types 2 to 5 are those of PatternLine.
enum LineType {
  kPenLine = 0,
  kSquareLine = 1,
  kDashLine = 2,
  kDashDotDotLine = 5,
  kArrowLine = 6,
  kDoubleArrowLine = 7,
  kSoftLine = 8,
};

struct LineManner {
  int type = kPenLine;
  int width = 1;          // 1 or more; smaller counts as 1
  bool softEdges = true;  // false draws the types 6 to 8 with the pen
};

// Draws a line between two image points as the tool does at release; terms of shape_lines.h. At width 1 a line without
// length is the pixel `from`, and a thin pen line reaches the last column or row when it ends there; elsewhere it leaves
// out its lower end. Arrows have their head at `to`, or at both ends, when they are more than 6 (both ends: 14) pixels
// long in either axis.
Rect drawLine(clsDIB& picture, Point from, Point to, Colour colour, LineManner manner);

}  // namespace ruvo::shape
