// Strokes of the brush styles 0 and 1: lines of a pen, always opaque. Only pixels inside `visible`, the part of the
// picture that the view shows, are painted; both operations return the changed rectangle (picture coordinates). Size is
// the pen's width, 1 or more; smaller counts as 1.
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::brush {

// The mark of a press, and of a release when the size is above 2: one pixel at size 1; in style 0 above size 2 a square
// of size x size, its top left at (x - size \ 2, y - size \ 2); otherwise the pen's round end.
Rect paintPenMark(clsDIB& picture, Point at, int size, int style, Colour colour, const Rect& visible);

// The line of a move, both end points included; its ends are round in both styles.
Rect paintPenSegment(clsDIB& picture, Point from, Point to, int size, Colour colour, const Rect& visible);

// A press marks in any case, a release once more only when this says so.
constexpr bool marksAtRelease(int size) {
  return size > 2;
}

}  // namespace ruvo::brush
