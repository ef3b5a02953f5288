// Pictures at the size of a sample.
#pragma once

#include "image/clsDIB.h"

namespace ruvo {

// A 32-bit copy of another size of a 32-bit picture, with its alpha. False without memory.
bool reducedCopy(const clsDIB& picture, Size size, clsDIB& out);
// Of the size that the picture has at `scale`, at least one pixel a side.
bool reducedCopy(const clsDIB& picture, double scale, clsDIB& out);

}  // namespace ruvo
