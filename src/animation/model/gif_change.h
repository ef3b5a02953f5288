// Changes of an animation that happen whole or not at all.
#pragma once

#include <new>
#include <utility>

#include "formats/clsGIF.h"

namespace ruvo {

// Runs `change`, bool(clsGIF&), on a copy that takes the model's place when the answer is true. After false, and when
// memory ran out (which answers false), the model is what it was.
template <typename Change>
bool changeWhole(clsGIF& gif, const Change& change) {
  try {
    clsGIF changed = gif.clone();
    if (!change(changed)) return false;
    gif = std::move(changed);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace ruvo
