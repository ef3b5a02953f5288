// The frames of a GIF as they are shown one after another on the logical screen: each drawn at its place, after the one
// before was disposed of by its method (GIF89a, section 23).
#pragma once

#include "formats/clsGIF.h"

namespace ruvo {

class GifPlayer {
 public:
  // The model must outlive the player.
  explicit GifPlayer(const clsGIF& gif);

  // Draws the next frame and answers its number; 0 when all have been shown. The screen begins see-through.
  int next();
  // 32 bits, straight alpha (byte 3: 0 where nothing was drawn, else 255); size of the logical screen, or of the first
  // frame where that does not fit. False from next() onwards when there is no memory for it.
  const raster::Surface& screen() const { return screen_; }

 private:
  const clsGIF& gif_;
  raster::Surface screen_;
  raster::Surface saved_;
  int frame_ = 0;
};

}  // namespace ruvo
