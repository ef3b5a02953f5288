// What the operations on palettes share: the frames that take their colours from one table change together.
#pragma once

#include <new>
#include <vector>

#include "formats/clsGIF.h"
#include "image/clsPal.h"

namespace ruvo {

using FrameNumbers = std::vector<int>;

// Stands where a frame number is asked for.
inline constexpr int kGlobalTable = 0;

// The frames that use the table: the one with that table of its own, or those without one. Empty when there is no such
// table.
FrameNumbers framesOfTable(const clsGIF& gif, int frame);
// Gives each frame a picture of its own, so that no change of pixels can fail half way. False when there is no memory.
bool ownPictures(clsGIF& gif, const FrameNumbers& frames);
// New masks for those frames.
void remask(clsGIF& gif, const FrameNumbers& frames);

// Joins entries of a small palette, those whose pixels of the pool lose least, until it has no more than that many.
void mergeEntries(clsPal& palette, const clsDIB& pool, int entries);

// The answer of an operation that fails when there is no memory.
template <typename Operation>
bool whileMemoryLasts(Operation operation) {
  try {
    return operation();
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace ruvo
