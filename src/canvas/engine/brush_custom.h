// Brush style 8: a loaded picture with a mask is laid onto the canvas wherever the pointer goes.
#pragma once

#include <optional>

#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::brush {

// Lays `picture` with its mask (white = see-through, black where the picture shows, whose own see-through parts are
// black) onto `target` with its top left at `at`: target AND mask OR picture. Parts outside are left out. Returns the
// changed rectangle; empty when a surface is empty.
Rect layMasked(clsDIB& target, const clsDIB& picture, const clsDIB& mask, Point at);

// One stroke of the custom brush.
class CustomBrushStroke {
 public:
  struct Manner {
    int percent = 100;  // 100 or more covers; below, the brush is mixed in and its white stays see-through
    int shape = 0;      // CustomBrushShape: 0 as oval, 1 rectangle
    int apply = 0;      // CustomBrushApplyManner: 0 normal, 1 overlap
  };

  // The surfaces must outlive the stroke. brush and mask have one size.
  CustomBrushStroke(clsDIB& target, const clsDIB& brush, const clsDIB& mask, Manner manner)
      : target_(target), brush_(brush), mask_(mask), manner_(manner) {}

  // Applies the brush centred at an image point; returns the changed rectangle.
  Rect press(Point at);
  // The same, but nothing is applied wholly past the right or bottom edge; and a rectangle brush in the normal manner
  // waits until its square is clear of the last one applied, so that dabs do not overlap.
  Rect move(Point at);

 private:
  Point cornerFor(Point at) const { return {at.x - brush_.DIBWidth() / 2, at.y - brush_.DIBHeight() / 2}; }
  Rect apply(Point corner);
  Rect mixIn(Point corner);

  clsDIB& target_;
  const clsDIB& brush_;
  const clsDIB& mask_;
  Manner manner_;
  std::optional<Point> lastCorner_;
};

}  // namespace ruvo::brush
