// The smooth stretch: area average where an axis shrinks, interpolation between pixel centres where it grows.
#pragma once

#include "platform/raster/raster_op.h"
#include "platform/raster/stretch_axis.h"
#include "platform/raster/surface.h"

namespace ruvo::raster {

// Works out only the destination pixels that the maps name.
void stretchHalftone(Surface& dst, const Surface& src, const AreaMap& columns, const AreaMap& rows, RasterOp op);

}  // namespace ruvo::raster
