// A picture at 1, 4 or 8 bits a pixel, for encoders that were asked for a depth.
#pragma once

#include "platform/raster/surface.h"

namespace ruvo::imaging {

// Makes `reduced` at that depth. When the depth holds all colours of the picture its table has just these (at depth 1
// always black and white); else the fixed table of the depth is used, with errors diffused (Floyd and Steinberg). False
// when there is no memory.
bool reduceToTable(const raster::Surface& surface, int depth, raster::Surface& reduced);

}  // namespace ruvo::imaging
