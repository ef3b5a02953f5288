// The 32-bit pixels that an operation works on: the picture's own, or a copy that is painted back at the end.
#pragma once

#include "image/clsDIB.h"

namespace ruvo {

class WorkPixels {
 public:
  explicit WorkPixels(clsDIB& dib) : dib_(dib) {
    if (dib.empty() || dib.surface().depth() == 32) return;
    if (copy_.CreateBlankDIB(dib.DIBWidth(), dib.DIBHeight(), 32, kBlack, dib.BottomUp())) {
      clsDIB::PaintFromDIBtoDIB(dib, copy_);
    }
  }
  ~WorkPixels() {
    if (!copy_.empty()) clsDIB::PaintFromDIBtoDIB(copy_, dib_);
  }
  WorkPixels(const WorkPixels&) = delete;
  WorkPixels& operator=(const WorkPixels&) = delete;

  // Empty when there was no memory for the copy.
  raster::Surface& surface() { return dib_.surface().depth() == 32 ? dib_.surface() : copy_.surface(); }

 private:
  clsDIB& dib_;
  clsDIB copy_;
};

}  // namespace ruvo
