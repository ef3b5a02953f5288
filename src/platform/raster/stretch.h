// Copies that change size or mirror, in picture coordinates.
#pragma once

#include <optional>

#include "base/geometry.h"
#include "platform/raster/raster_op.h"
#include "platform/raster/surface.h"

namespace ruvo::raster {

// What becomes of the source pixels that fall on one destination pixel.
enum class StretchMode {
  BlackOnWhite = 1,  // they are combined with AND
  WhiteOnBlack = 2,  // they are combined with OR
  ColorOnColor = 3,  // one of them is taken
  Halftone = 4,      // they are averaged by the area they cover; growing interpolates; byte 3 becomes 0
};

// A rectangle whose extents may be negative: the run is then x, x - 1, ..., x - |width| + 1, with x itself included.
// A mirror of a bitmap W wide is therefore (W - 1, -W).
struct Extent {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  static Extent of(const Rect& r) { return {r.left, r.top, r.width(), r.height()}; }
  static Extent of(const Surface& s) { return {0, 0, s.width(), s.height()}; }
};

// Stretches `from` of `src` onto `to` of `dst`; an extent of zero does nothing. Both axes are independent. Destination
// pixels whose source lies outside `src` stay as they are (Halftone uses the part of its source that exists). The scale
// always follows from the full rectangles: `clip` and the surfaces' edges only leave pixels out, and cost as little as
// what they leave. `dst` and `src` must not be one surface. Depths convert as in blit(). One million pixels is the
// largest extent of a side that is followed exactly.
void stretchBlit(Surface& dst, const Extent& to, const Surface& src, const Extent& from, StretchMode mode,
                 RasterOp op = RasterOp::SrcCopy, const std::optional<Rect>& clip = std::nullopt);

}  // namespace ruvo::raster
