// Room around a picture for what an effect adds.
#pragma once

#include "base/colour.h"
#include "image/clsDIB.h"

namespace ruvo {

struct Room {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// Makes a 32-bit picture larger by margins (0 or more pixels) of one pixel value. Where the limits of a picture do not
// allow it, the picture stays as it is. False without memory.
bool makeRoom(clsDIB& picture, const Room& room, Pixel32 fill);

// The box of the pixels of a picture with alpha that are not wholly see-through; empty when there is none.
Rect shownPart(const clsDIB& picture);

}  // namespace ruvo
