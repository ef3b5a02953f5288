// Rectangles with square or rounded corners, written into a 32-bit picture.
//
// `box` holds image pixels, [left, right) x [top, bottom), and may reach outside the picture. `cornerShape` is 0 for
// square corners and 1, 2, 3 for rounded ones of 10, 20 and 30 pixels across; other values are square. Only pixels
// inside the picture are written, with alpha 255 where the picture has alpha and 0 where it has none. The changed
// rectangle is returned, clipped to the picture.
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::shape {

// Square corners: a square brush walks along the rim pixels of the box, so the outline reaches as far outside as inside.
// Rounded corners: the outline of `brushSize` lies inside the box, which is solid when nothing is left within it.
Rect outlineRectangle(clsDIB& picture, Rect box, Colour colour, int cornerShape, int brushSize);
Rect fillRectangle(clsDIB& picture, Rect box, Colour colour, int cornerShape);

}  // namespace ruvo::shape
