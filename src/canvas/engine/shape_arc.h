// The arc through three points. Points are image or display pixels alike: x right, y down.
#pragma once

#include <vector>

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::shape {

// From `first` through `second` to `third`.
struct ArcRecord {
  bool valid = false;
  Point first, second, third;
  double centreX = 0, centreY = 0;
  double radius = 0;
  // Turn of the heading in radians, positive for clockwise as seen; below a whole turn.
  double toSecond = 0;
  double toThird = 0;  // from the second point on
  double heading = 0;  // at the first point, from the x axis towards y
};

// Invalid when the points lie on one line (two equal ones included) or farther than 16 million from the origin.
ArcRecord ComputeArc(Point first, Point second, Point third);

// The arc's pixels in `area` and close around it, from the first point to the third: runs in which each pixel touches
// the next by a side or a corner, a new run wherever the arc has been away. The three points themselves are in it when
// they lie in the area. Time grows with the length inside the area, whatever the radius.
std::vector<std::vector<Point>> arcPixels(const ArcRecord& arc, const Rect& area);

// Draws it on a 32-bit picture with a round pen of that width (taken within 1 to kWidestPen), both ends included.
// Returns the changed rectangle; empty for an invalid record.
Rect drawArc(clsDIB& picture, const ArcRecord& arc, Colour colour, int width);

}  // namespace ruvo::shape
