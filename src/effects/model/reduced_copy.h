// Pictures at the size of a sample.
#pragma once

#include "image/clsDIB.h"

namespace ruvo {

// A 32-bit copy of the size that a 32-bit picture has at `scale`, at least one pixel a side, with its alpha. False
// without memory.
bool reducedCopy(const clsDIB& picture, double scale, clsDIB& out);

}  // namespace ruvo
