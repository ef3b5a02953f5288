// Bezier curves as polylines.
#pragma once

#include <span>
#include <vector>

#include "base/geometry.h"

namespace ruvo::raster {

// The points that a curve of 4, 7, 10 ... control points is drawn through, both ends included: halved until flat, in
// sixteenths of a pixel, at most eight times. Control points beyond the last whole piece are left out; fewer than four
// give an empty list. Coordinates up to 10 million.
std::vector<Point> bezierPoints(std::span<const Point> control);

}  // namespace ruvo::raster
