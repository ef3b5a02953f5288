// Pictures as raw R, G, B, A bytes, top line first, with or without a PAM header before them.
#pragma once

#include "base/file_io.h"
#include "platform/raster/surface.h"

namespace ruvo::tool {

// Appends the pixels of a 32-bit surface; alpha is 255 throughout without `hasAlpha`. False after a failed write.
bool writeRgba(FileReplacement& file, const raster::Surface& surface, bool hasAlpha);
// The same behind a PAM header: P7, depth 4, maximum 255, RGB_ALPHA.
bool writePam(FileReplacement& file, const raster::Surface& surface, bool hasAlpha);

}  // namespace ruvo::tool
