#include "canvas/engine/rubber_band.h"

#include <algorithm>
#include <cstdlib>

namespace ruvo::shape {
namespace {

int directionOf(int from, int to) {
  return to < from ? -1 : 1;
}

// How far an end lies outside 0 .. length - 1.
int excess(int end, int length) {
  return std::max({0, end - (length - 1), -end});
}

// A side of whole image pixels that leaves no end outside the display.
int heldSide(int side, int outside, int magnify) {
  const int held = std::max(0, side - outside);
  return held - held % magnify;
}

}  // namespace

Point middleOf(const ViewGeometry& view, Point image) {
  const Point corner = view.toDisplay(image);
  const Point next = view.toDisplay(Point{image.x + 1, image.y + 1});
  return {corner.x + (next.x - corner.x) / 2, corner.y + (next.y - corner.y) / 2};
}

Point constrainedBox(Point anchor, Point end, Size display, int magnify) {
  const int sx = directionOf(anchor.x, end.x), sy = directionOf(anchor.y, end.y);
  const int side = std::min(std::abs(end.x - anchor.x), std::abs(end.y - anchor.y));
  const int outside =
      std::max(excess(anchor.x + sx * side, display.width), excess(anchor.y + sy * side, display.height));
  const int held = heldSide(side, outside, magnify);
  return {anchor.x + sx * held, anchor.y + sy * held};
}

Point constrainedLine(Point anchor, Point end, Size display, int magnify) {
  const int dx = std::abs(end.x - anchor.x), dy = std::abs(end.y - anchor.y);
  if (2 * dy < dx) {
    const int held = heldSide(dx, excess(end.x, display.width), magnify);
    return {anchor.x + directionOf(anchor.x, end.x) * held, anchor.y};
  }
  if (2 * dx < dy) {
    const int held = heldSide(dy, excess(end.y, display.height), magnify);
    return {anchor.x, anchor.y + directionOf(anchor.y, end.y) * held};
  }
  return constrainedBox(anchor, end, display, magnify);
}

}  // namespace ruvo::shape
