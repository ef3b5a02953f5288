// Copies between surfaces of any two depths and row orders, in picture coordinates.
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "platform/raster/raster_op.h"
#include "platform/raster/surface.h"

namespace ruvo::raster {

// Combines w x h pixels of `src` from (sx, sy) with `dst` at (dx, dy), top left corners. Pixels outside either surface
// are left out; w or h below 1 does nothing. `dst` and `src` may be one surface: the result is as if the source had
// been copied away first. Operations that use no source (Blackness, Whiteness, DstInvert) are cut at `dst` only.
//
// Between depths: into 1 and 4 bits the nearest table entry; into 8 bits the entry nearest to the colour with each
// channel reduced to the middle of its cell of eight; between indexed surfaces of equal tables the index itself, else
// the nearest entry. Byte 3 of a 32-bit destination combines with the source's byte 3, which is 0 for sources of other
// depths.
void blit(Surface& dst, int dx, int dy, int w, int h, const Surface& src, int sx, int sy,
          RasterOp op = RasterOp::SrcCopy);

// The whole of `src` at (dx, dy).
inline void blit(Surface& dst, int dx, int dy, const Surface& src, RasterOp op = RasterOp::SrcCopy) {
  blit(dst, dx, dy, src.width(), src.height(), src, 0, 0, op);
}

// Fills with one colour; byte 3 of 32 bits becomes `alpha`. Indexed surfaces take the exact nearest entry. An empty
// rectangle (right <= left) fills nothing.
void fillRect(Surface& dst, Rect area, Colour colour, std::uint8_t alpha = 0);

// An operation that needs no source (Blackness, Whiteness, DstInvert) over a rectangle.
void patBlt(Surface& dst, Rect area, RasterOp op);

// A copy of the same size, depth, row order and table; empty when there is no memory.
Surface copyOf(const Surface& src);

}  // namespace ruvo::raster
