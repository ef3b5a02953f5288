// Pictures of the program's own kind on their way to and from the desktop's clipboard.
#pragma once

#include "platform/raster/surface.h"

namespace ruvo::desktop {

// Puts a copy of a 32-bit surface on the clipboard, with its alpha when it has any. The copy lives on its own: later
// changes of the surface do not reach it. False for another depth or when there is no memory.
bool putOnClipboard(const raster::Surface& picture, bool hasAlpha);

}  // namespace ruvo::desktop
