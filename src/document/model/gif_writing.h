// A picture as a GIF of one frame.
#pragma once

#include "document/model/picture_writing.h"

namespace ruvo {

// Reduces a copy to 8 bits. The see-through colour is read at order.transparentAt after the reduction, since that may
// change it. Written by the imaging service, and rewritten through the frame model when it shall be transparent or
// interlaced; without the service by the program's own writer. The file is replaced whole or not at all.
bool writeGif(const clsDIB& opaque, const WriteOrder& order, const Progress& progress = {});

}  // namespace ruvo
