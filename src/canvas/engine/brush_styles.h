// The numbers by which the settings name brush styles, and the small rules that go with them.
#pragma once

#include "base/geometry.h"

namespace ruvo::brush {

enum BrushStyle {
  kNormal = 0,
  kRound = 1,
  kSmoothedRound = 2,
  kSprayBrush = 3,
  kBackwardDiagonal = 4,
  kForwardDiagonal = 5,
  kVertical = 6,
  kHorizontal = 7,
  kCustom = 8
};

// Styles 0 and 1 are drawn by a pen (brush_pen.h), always opaque, and only where the view shows the picture. Styles 2
// to 7 are dabs (brush_dab.h), style 8 is a picture (brush_custom.h).
constexpr bool isPenStyle(int style) {
  return style == kNormal || style == kRound;
}
constexpr bool isDabStyle(int style) {
  return style >= kSmoothedRound && style <= kHorizontal;
}

// The eraser has no picture to erase with: style 8 erases as style 0.
constexpr int eraserStyle(int style) {
  return style == kCustom ? kNormal : style;
}

// Keys that keep a stroke straight: a held Shift keeps the column, a held Ctrl the row, both keep the point.
constexpr Point straightened(Point last, Point next, bool holdColumn, bool holdRow) {
  return {holdColumn ? last.x : next.x, holdRow ? last.y : next.y};
}

}  // namespace ruvo::brush
