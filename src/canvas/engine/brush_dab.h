// Brushes that write straight into the pixels: dabs of the styles 1 to 7 along a stroke, and the bursts of the spray.
//
// All coordinates are picture coordinates. Every operation works on any point, also outside the picture (only pixels
// inside are written), costs what the dab costs whatever the picture's size, and returns the rectangle that it may have
// changed, clipped to the picture (empty when nothing was). Written pixels get alpha 255 in a picture with alpha, 0 in
// one without; a mix in a picture with alpha starts from what is seen, the pixel over white.
#pragma once

#include <memory>

#include "base/colour.h"
#include "base/geometry.h"
#include "base/random_source.h"
#include "image/clsDIB.h"

namespace ruvo::brush {

// What a dab's shape derives from the brush size.
struct DabMetrics {
  int ext;  // extra reach, and half the thickness of the bars: 1 to 6
  int a;    // size + ext, made even
  int hs;   // radius of the round styles: a / 2
  int bar;  // half the length of the bars: 2 x hs + 2

  static DabMetrics of(int size);
};

// One stroke of a bitmap brush or of the spray, from press to release.
class BrushStroke {
 public:
  BrushStroke();
  ~BrushStroke();
  BrushStroke(BrushStroke&&) noexcept;
  BrushStroke& operator=(BrushStroke&&) noexcept;

  // Starts a stroke on a 32-bit picture, which must outlive it and keep its size; an empty picture starts none.
  void BrushStrokeBegin(clsDIB& picture, Colour colour);
  void BrushStrokeEnd();
  bool active() const { return state_ != nullptr; }

  // One dab of style 1 to 7 (others draw nothing). percent 100 covers; below, the colour is mixed with the picture as
  // it was at the stroke's begin, so dabs that overlap stay even. Only style 2 at 100 percent has a soft edge.
  Rect BrushDab(int x, int y, int size, int percent, int style);
  // The dabs of a move: one at each whole distance from `from` (exclusive) to `to` (inclusive); none without a way.
  Rect walk(Point from, Point to, int size, int percent, int style);
  // One burst of dots. density 0 low, 1 medium, else high. Unlike dabs, bursts mix with the present picture: they
  // deepen.
  Rect SprayBurst(int x, int y, int size, int percent, int density);

  // Where the dots of the spray and of style 3 come from, instead of the stroke's own generator. Must outlive the
  // stroke.
  void setRandomSource(RandomSource* source) { random_ = source; }

 private:
  struct State;
  std::unique_ptr<State> state_;
  RandomSource* random_ = nullptr;
};

}  // namespace ruvo::brush
