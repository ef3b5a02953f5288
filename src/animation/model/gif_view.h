// The pictures that windows show of an animation: one frame by itself on the chosen ground, the running animation, and
// the boxes of the film strip. All surfaces exist before the animation runs; a tick only draws.
#pragma once

#include "formats/clsGIF.h"
#include "image/clsDIB.h"

namespace ruvo {

// Items of `cboBgdPattern`.
enum BgdPattern {
  kPatternOriginal = 0,          // the display's own colour
  kPatternTransparentColor = 1,  // the frame's transparent colour
  kPatternTile = 2,              // a pattern shows through
  kPatternFrameSize = 3,         // as 1, and only the frame's rectangle is shown
};

// The small picture that shows through where a frame is see-through ("picPattern").
const clsDIB& transparentPattern();

class GifView {
 public:
  // 24 bits, first row on top; size of the GIF's background (of frame 1 where that is larger). False when there is no
  // memory; everything is then empty.
  bool create(const clsGIF& gif, Colour ground);
  void clear();
  // 24 bits, rows from the top, 3 bytes a pixel, rows padded to 4 bytes.
  const raster::Surface& shown() const { return shown_.surface(); }
  // The part of shown() that holds a picture (all of it but for kPatternFrameSize).
  Rect shownArea() const { return area_; }
  int width() const { return shown_.DIBWidth(); }
  int height() const { return shown_.DIBHeight(); }

  // A frame alone on its ground, without those before it.
  void composeStill(const clsGIF& gif, int frame, BgdPattern pattern);

  // --- The running animation
  // Starts in front of frame 1, on the plain ground.
  void start();
  struct Tick {
    int frame = 0;  // that is shown now
    int milliseconds = 0;  // until the next tick
  };
  // Shows the next frame, from the last one on to the first again. How the ground is prepared depends on the disposal
  // method of the frame that is about to be drawn. No memory is allocated. Frame 0 when there are no two frames.
  Tick tick(const clsGIF& gif, BgdPattern pattern);

 private:
  void prepare(clsDIB& target, const clsGIF& gif, int frame, BgdPattern pattern);

  clsDIB shown_;
  clsDIB ground_;
  clsDIB running_;
  Rect area_{};
  int frame_ = 0;
};

// Until the next frame: the delay x 10, at least 10.
int tickMilliseconds(const clsGIF& gif, int frame);
// The box that a picture of that size takes within the room, whole and in proportion: its own size when it fits.
Size displaySize(Size picture, Size room);

}  // namespace ruvo
