// The integer models behind ellipses, round corners and polygons, shared by regions, fills and outlines.
//
// A side below 1 or above half a million gives nothing.
#pragma once

#include <limits>
#include <span>
#include <vector>

#include "base/geometry.h"
#include "platform/raster/draw_context.h"
#include "platform/raster/region.h"

namespace ruvo::raster {

inline constexpr int kRowNotReached = -1;

// The ellipse that touches all four sides of a box of width x height pixels: the left column of each row; the row runs
// to width - left. Tall thin ellipses have rows near the tips that the walk never reaches (kRowNotReached).
std::vector<int> ellipseRows(int width, int height);
// The same with the middle column, or the two middle ones, in those rows.
std::vector<int> wholeEllipseRows(int width, int height);

// Spans of a filled ellipse or rounded rectangle of width x height pixels at (x, y); ew x eh is the corner ellipse.
std::vector<Span> roundRectSpans(int x, int y, int width, int height, int ew, int eh);
inline std::vector<Span> ellipseSpans(int x, int y, int width, int height) {
  return roundRectSpans(x, y, width, height, width, height);
}

// Spans of a polygon within the rows [top, bottom).
std::vector<Span> polygonSpans(std::span<const Point> points, FillMode mode, int top = std::numeric_limits<int>::min(),
                               int bottom = std::numeric_limits<int>::max());

// The pixels of a thin outline in order, clockwise from the left end of the upper middle row. An ellipse is a rounded
// rectangle whose corners are as large as itself.
std::vector<Point> outlineRing(int width, int height, int ew, int eh);

// Sorts, and merges spans that overlap or touch.
void normalise(std::vector<Span>& spans);

}  // namespace ruvo::raster
