// What can be inconsistent in the data of an animated GIF. The repair and the report ask the same questions.
#pragma once

#include "formats/clsGIF.h"

namespace ruvo {

// Not 0 though there is no global table.
bool backgroundWithoutTable(const clsGIF& gif);
bool backgroundPastTable(const clsGIF& gif);
// The transparent index lies past the entries of the global table (also when the frame makes no use of it), or of the
// frame's own one.
bool transparentPastGlobal(const clsGIF& gif, int frame);
bool transparentPastLocal(const clsGIF& gif, int frame);
// The frame's copy of the global table has another number of entries, or other colours in them.
bool copyHasOtherCount(const clsGIF& gif, int frame);
bool copyHasOtherColours(const clsGIF& gif, int frame);
// The frame says that it is transparent, and no pixel is.
bool nothingSeeThrough(const clsGIF& gif, int frame);

}  // namespace ruvo
