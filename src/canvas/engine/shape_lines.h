// Lines as the shapes draw them: pen lines, antialiased lines, broken lines and the heads of arrows.
//
// All work on a 32-bit picture in image pixels, top line first. Points may lie anywhere, up to a million pixels away;
// only pixels inside the picture are written, with alpha 255 where the picture has alpha and 0 where it has none. Each
// operation returns the rectangle that it may have changed, clipped to the picture; an empty picture stays empty.
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::shape {

// Pens are no wider than this.
inline constexpr int kWidestPen = 21;

// From the upper to the lower end. capStyle 0 is the platform's pen: a thin one leaves out the lower end unless
// `drawEnds`, a wide one has round ends. capStyle 1 walks a square brush, which marks both ends.
Rect PenLine(clsDIB& picture, Point from, Point to, Colour colour, int width, int capStyle = 0, bool drawEnds = false);

// Two pixels wide with soft edges: a full pixel a step along the longer axis, and the rest of the width shared by its
// neighbours; half covered beyond both ends. Without length it draws nothing.
Rect AALine(clsDIB& picture, Point from, Point to, Colour colour);

// A band of that width with soft edges and round ends; as AALine below 3. A line that is no longer than its width is a
// pen line.
Rect AAWideLine(clsDIB& picture, Point from, Point to, Colour colour, int width);

// Broken lines by LineType: 2 dash, 3 dot, 4 dash dot, 5 dash dot dot. Dashes, dots and gaps are in proportion to the
// width; the pattern begins with a whole dash or dot at `from`.
Rect PatternLine(clsDIB& picture, Point from, Point to, Colour colour, int width, int type);

// Two barbs of the pen at `tip` of a line that comes from `from`; they end short of it.
Rect arrowHead(clsDIB& picture, Point tip, Point from, Colour colour, int width);

}  // namespace ruvo::shape
