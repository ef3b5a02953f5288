// A stroke belongs to the pixels that it began on. A host may put another picture in place while the button is held (an
// undo, a new file): the stroke must then end without a trace.
#pragma once

#include "image/clsDIB.h"

namespace ruvo {

class StrokePicture {
 public:
  void begin(const clsDIB& picture) {
    bits_ = picture.DIBBitsPtr();
    size_ = picture.size();
  }
  void end() { bits_ = nullptr; }
  bool active() const { return bits_ != nullptr; }
  bool isStill(const clsDIB& picture) const {
    return active() && picture.DIBBitsPtr() == bits_ && picture.size() == size_;
  }

 private:
  const std::uint8_t* bits_ = nullptr;
  Size size_;
};

}  // namespace ruvo
