// A second picture laid over or under another.
#pragma once

#include <cstdint>

#include "base/geometry.h"
#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

struct LayerChoices {
  bool under = false;  // the second picture lies beneath
  Point at;            // where its top left goes; any part may lie outside
  int opacity = 100;   // percent, of the one that lies above
  // Of the one above, a colour that lets the one beneath show; below 0 none.
  std::int64_t transparentColour = -1;
};

// `picture` keeps its size and whether it has alpha, `second` is cut to it; both are 32 bits. Alpha of either counts. False
// when it was stopped.
bool layPicture(clsDIB& picture, const clsDIB& second, const LayerChoices& choices, const Progress& progress);

}  // namespace ruvo
