#include "canvas/engine/shape_line_types.h"

#include <algorithm>
#include <cstdlib>

namespace ruvo::shape {
namespace {

// The end that a thin pen leaves out would never be reached on the rim of the picture: the pointer can not go past it.
bool endsOnFarRim(const clsDIB& picture, Point from, Point to) {
  const Point lower = from.y > to.y ? from : to;
  return (lower.x == picture.DIBWidth() - 1 && from.x != to.x) ||
         (lower.y == picture.DIBHeight() - 1 && from.y != to.y);
}

Rect penLine(clsDIB& picture, Point from, Point to, Colour colour, int width) {
  return PenLine(picture, from, to, colour, width, 0, width == 1 && endsOnFarRim(picture, from, to));
}

bool longerThan(int pixels, Point from, Point to) {
  return std::abs(to.x - from.x) > pixels || std::abs(to.y - from.y) > pixels;
}

Rect softLine(clsDIB& picture, Point from, Point to, Colour colour, const LineManner& manner) {
  constexpr int kShortestArrow = 6, kShortestDoubleArrow = 14;
  Rect changed = manner.softEdges ? AAWideLine(picture, from, to, colour, manner.width)
                                  : penLine(picture, from, to, colour, manner.width);
  const auto head = [&](Point tip, Point back) {
    changed = changed.united(arrowHead(picture, tip, back, colour, manner.width));
  };
  if (manner.type == kArrowLine && longerThan(kShortestArrow, from, to)) head(to, from);
  if (manner.type == kDoubleArrowLine && longerThan(kShortestDoubleArrow, from, to)) {
    const Point middle{from.x + (to.x - from.x) / 2, from.y + (to.y - from.y) / 2};
    head(from, middle);
    head(to, middle);
  }
  return changed;
}

}  // namespace

Rect drawLine(clsDIB& picture, Point from, Point to, Colour colour, LineManner manner) {
  manner.width = std::max(1, manner.width);
  if (manner.width == 1 && from == to) return PenLine(picture, from, {from.x + 1, from.y + 1}, colour, 1);
  if (manner.type == kSquareLine) return PenLine(picture, from, to, colour, manner.width, 1);
  if (manner.type >= kDashLine && manner.type <= kDashDotDotLine)
    return PatternLine(picture, from, to, colour, manner.width, manner.type);
  if (manner.type >= kArrowLine && manner.type <= kSoftLine) return softLine(picture, from, to, colour, manner);
  return penLine(picture, from, to, colour, manner.width);
}

}  // namespace ruvo::shape
