// The stamp: a loaded picture put down as it is, or as a relief pressed into what lies under it.
#pragma once

#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::brush {

enum StampStyle { kStampOriginal = 0, kStampEmboss = 1, kStampEngrave = 2 };

// Puts the stamp down centred at `at` (picture coordinates). weight is the strength of the relief in styles 1 and 2.
// mask as for layMasked(). Returns the changed rectangle; empty when a surface is empty, mask and
// stamp differ in size, or the stamp lies outside.
Rect paintStamp(clsDIB& picture, Point at, const clsDIB& stamp, const clsDIB& mask, int style, float weight);

}  // namespace ruvo::brush
