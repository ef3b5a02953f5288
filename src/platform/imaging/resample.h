// Quality resizing of whole surfaces. Source and target have the same depth, the target its size and (at 8 bits or
// fewer) its table; every target pixel is written. Pixel centres lie at half.
#pragma once

#include "base/progress.h"
#include "platform/raster/surface.h"

namespace ruvo::imaging {

// Target pixel i takes source pixel floor((i + 0.5) x source / target).
void resampleNearest(const raster::Surface& source, raster::Surface& target);

// Cubic convolution (Catmull-Rom), widened by the ratio when it shrinks, so that every source pixel counts. Weights
// that fall outside the picture are shared out among those inside: edges do not fade. With alpha colours are weighed by
// it and come out straight; without, byte 3 of 32-bit pixels becomes zero. Surfaces with a table take the entry nearest
// to the filtered colour. Reports each row; stopped, it leaves the rest of the target as it was.
void resampleBicubic(const raster::Surface& source, raster::Surface& target, bool hasAlpha,
                     const Progress& progress = {});

}  // namespace ruvo::imaging
