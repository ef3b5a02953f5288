// The frames of a GIF as they are shown one after another on the logical screen: each drawn at its place, after the one
// before was disposed of by its method (GIF89a, section 23). Method 2 leaves the frame's rectangle see-through, as
// browsers do, and not in the background colour; 3 brings back what was there before; all others leave the frame.
#pragma once

#include <utility>

#include "formats/clsGIF.h"

namespace ruvo {

class GifPlayer {
 public:
  // What a viewer takes for the screen: the logical one or, where the first frame is larger in width or height (which
  // is a mistake in the screen's size), that frame's size; it then stands at 0, 0.
  static Size screenSize(const clsGIF& gif);
  // The place of a frame on it.
  static Point framePlace(const clsGIF& gif, int frame);

  // The model must outlive the player.
  explicit GifPlayer(const clsGIF& gif);

  // Draws the next frame and answers its number; 0 when all have been shown or when there is no memory for it. The
  // screen begins see-through.
  int next();
  // 32 bits, straight alpha (byte 3: 0 where nothing was drawn, else 255); of screenSize(). Empty when there is no
  // memory for it.
  const raster::Surface& screen() const { return screen_; }
  // The screen without a copy; nothing more is shown after that.
  raster::Surface takeScreen() { return std::move(screen_); }

 private:
  Rect areaOf(int frame) const;
  void dispose();
  void draw(Rect area);

  const clsGIF& gif_;
  raster::Surface screen_;
  raster::Surface saved_;  // what the frame's rectangle hides, for method 3
  int frame_ = 0;
};

}  // namespace ruvo
