// Flood fill with plain colour, hatches and tiles.
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::brush {

enum FillPattern { kSolid = 0, kDots1 = 1, kDots2 = 2, kFirstHatch = 3, kLastHatch = 8, kCustomPattern = 9 };

// One of the two built-in tiles of dots (index 0 and 1), a few pixels a side.
raster::Surface patternTile(int index, Colour ink, Colour ground);

// Fills the connected pixels (by their four neighbours) that have the colour of the pixel at (x, y), byte 3 apart.
// pattern: 0 colour; 1, 2 the built-in tiles, dots of `colour` on the clicked colour; 3 to 8
// hatches of `colour` on the clicked colour: horizontal, vertical, falling, rising, cross, diagonal cross; 9 `custom`
// in its own colours. Tiles are aligned to the picture's top left. Returns the changed rectangle; empty, and nothing
// changed, for a point outside, pattern 9 without a custom picture, or an unknown number.
Rect floodFill(clsDIB& picture, int x, int y, int pattern, Colour colour, const clsDIB& custom);

// Every pixel of the picture that has exactly the colour `from` takes the colour `to`; byte 3 does not count. Returns
// the rectangle that holds all changed pixels, empty when the colours are equal or `from` does not occur.
Rect ReplaceColor(clsDIB& picture, Colour from, Colour to);

}  // namespace ruvo::brush
