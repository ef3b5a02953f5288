// The pictures that windows show of an animation: one frame by itself on the chosen ground, the running animation, and
// the boxes of the film strip. All surfaces exist before the animation runs; a tick only draws.
#pragma once

#include <array>

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
inline constexpr std::array<const char*, 4> kBgdPatternNames = {
    "Orignal Setting", "Show Transparent Color", "Add Pattern To Transparent Area", "At Actual Frame Sizes"};

// The small picture that shows through where a frame is see-through ("picPattern").
const clsDIB& transparentPattern();

class GifView {
 public:
  // Makes the surfaces at the size of the GIF's background; `ground` is the display's own colour. False when there is
  // no memory; everything is then empty.
  bool create(const clsGIF& gif, Colour ground);
  void clear() { *this = {}; }
  // The last picture that was composed or reached by a tick: 24 bits, rows from the top, B G R, rows padded to 4 bytes.
  const raster::Surface& shown() const { return (running_ ? animation_ : still_).surface(); }
  // The part of shown() that holds a picture (all of it but for a still of kPatternFrameSize).
  Rect shownArea() const { return area_; }
  int width() const { return still_.DIBWidth(); }
  int height() const { return still_.DIBHeight(); }

  // A frame alone on its ground, without those before it; just the ground when there is no such frame.
  void composeStill(const clsGIF& gif, int frame, BgdPattern pattern);

  // --- The running animation
  // In front of frame 1, on the plain ground. shown() stays until the first tick.
  void start();
  struct Tick {
    int frame = 0;         // that is shown now
    int milliseconds = 0;  // until the next tick
  };
  // Shows the next frame, from the last one on to the first again, over what the ticks before left. How the ground is
  // prepared depends on the disposal method of the frame that is about to be drawn, not of the one before it: "to
  // background" and "to previous" clear all of it. No memory is allocated. Frame 0, with nothing changed, when there
  // are no two frames or no surfaces.
  Tick tick(const clsGIF& gif, BgdPattern pattern);

 private:
  void prepare(clsDIB& target, const clsGIF& gif, int frame, BgdPattern pattern);

  clsDIB ground_;  // never drawn on
  clsDIB still_;
  clsDIB animation_;
  bool running_ = false;  // animation_ is the one that is shown
  Rect area_{};
  int frame_ = 0;
};

// Until the next frame: the delay x 10, at least 10.
int tickMilliseconds(const clsGIF& gif, int frame);
// The room for the picture is what shows it less this, in each direction.
inline constexpr int kDisplayMargin = 4;
// The box that a picture of that size takes within the room, whole and in proportion: its own size when it fits. Both
// sides are at least 1; 0 x 0 for an empty picture or room.
Size displaySize(Size picture, Size room);

}  // namespace ruvo
