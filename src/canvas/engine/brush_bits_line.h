// Lines written straight into the bits by walking a small brush along them; the shapes use it for their outlines.
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::brush {

// Walks from (x1, y1) towards (x2, y2) in steps of a tenth of the brush, setting at each step the pixels from -h to h
// in both directions, h = round(size / 2) with ties to even; only those with u^2 + v^2 <= h^2 when `round`. No mixing.
// Coordinates may lie outside; extents past 32767 are cut. size is 1 or more. Returns the changed rectangle.
Rect BitsBrushLine(clsDIB& picture, int x1, int y1, int x2, int y2, Colour colour, int size, bool round);

}  // namespace ruvo::brush
