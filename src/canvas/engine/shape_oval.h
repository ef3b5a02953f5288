// Ovals on a 32-bit picture, in image pixels. A box is [left, right) x [top, bottom); the oval touches all its four
// sides. Boxes may reach outside the picture; an empty one, or one with a side above half a million, draws nothing.
// Both return the changed rectangle.
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::shape {

// OvalEnhancement.
enum OvalEnhancement { kNormalOval = 0, kAntialiasedOval = 1 };

// The outline: `size` rings (below 1 counts as 1), each a pixel inside the last one, and all that lies between them.
Rect drawOval(clsDIB& picture, const Rect& box, Colour colour, int size, int enhancement);

// The whole oval; the antialiased one has a soft rim around the pixels of the normal one.
Rect fillOval(clsDIB& picture, const Rect& box, Colour colour, int enhancement);

}  // namespace ruvo::shape
