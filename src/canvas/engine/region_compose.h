// The pixels of a floating region: which of them cover the picture, how they are put over it, and where they may go. Plain
// functions on 32-bit pictures in image pixels, top line first; no view, no state.
//
// A mask has the region's size: black where the region covers the picture, white elsewhere. Without one (an empty mask)
// all of the box covers.
#pragma once

#include <array>
#include <optional>

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo {

// Fills the ellipse that touches all four sides of the picture.
void CutRegionOval(clsDIB& dib, Colour colour);
// A pixel of a box of that size, counted from its corner, lies in its ellipse.
bool inRegionOval(Size box, Point at);

// The mask of an oval, of a region whose `key` colour stays out, or of both together; an empty one when neither holds.
// False when there is no memory.
bool makeRegionMask(const clsDIB& region, bool oval, std::optional<Colour> key, clsDIB& mask);
// The pixels of `picture` under `box`, byte 3 included; white where the box reaches outside. False when there is no
// memory.
bool takeRegionPixels(const clsDIB& picture, const Rect& box, clsDIB& region);
// The see-through pixels of a soft region (byte 3 is zero) become white in its mask, which is made when it is empty. False
// without memory for that.
bool leaveOutSeeThrough(const clsDIB& region, clsDIB& mask);
// Paints what a region at `at` covers in one colour.
void clearBeneath(clsDIB& picture, const clsDIB& mask, const Rect& box, Colour colour);
// The region over `snap`, byte 3 included, written to `dib` under the region's box only. All pictures are 32 bits, `dib`
// and `snap` of one size; they may be one.
void composeFlat(clsDIB& dib, const clsDIB& snap, const clsDIB& region, const clsDIB& mask, Point at);
// The same, mixed at `percent` of the region's strength. Where the picture has alpha it is mixed, too, and a pixel counts
// as far as it is seen. False, with `dib` as it was, when there is no memory.
bool composeBlended(clsDIB& dib, const clsDIB& snap, const clsDIB& region, const clsDIB& mask, Point at, int percent);
// A soft region over `snap`: byte 3 of each pixel says how far it covers, and `percent` of that counts. Where the picture
// has alpha, it grows by what is laid on; else byte 3 stays as it is. Written to `dib` as composeFlat() does.
void composeSoft(clsDIB& dib, const clsDIB& snap, const clsDIB& region, const clsDIB& mask, Point at, int percent);
// A soft region on white; with alpha, opaque all over, when `hasAlpha`. False without memory.
bool softOnWhite(const clsDIB& region, const clsDIB& mask, bool hasAlpha, clsDIB& sheet);

// The parts of `box` outside `other`; unused ones are empty.
std::array<Rect, 4> partsOutside(const Rect& box, const Rect& other);

// Where the top left pixel of a region may go, first to last: one row and column of the region stay inside the picture.
struct RegionLimits {
  int left, top, right, bottom;
};
RegionLimits regionLimits(Size region, Size picture);
Point heldWithin(const RegionLimits& limits, Point at);

}  // namespace ruvo
