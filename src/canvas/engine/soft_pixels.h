// Pixels that a shape covers in part.
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "canvas/engine/brush_mix.h"
#include "image/clsDIB.h"

namespace ruvo::shape {

// Lays one colour over pixels of a 32-bit picture, and notes where. The picture must outlive it and not be empty.
class SoftPixels {
 public:
  SoftPixels(clsDIB& picture, Colour colour)
      : picture_(picture), ink_{blueOf(colour), greenOf(colour), redOf(colour), brush::writtenAlpha(picture)} {}

  // coverage 255 stores the colour; below, each channel becomes (old x (255 - coverage) + colour x coverage) \ 256.
  // Nothing is done at 0 or less, or outside the picture.
  void cover(int x, int y, int coverage) {
    raster::Surface& surface = picture_.surface();
    if (coverage <= 0 || !surface.bounds().contains(x, y)) return;
    Pixel32& pixel = reinterpret_cast<Pixel32*>(surface.pictureRow(y))[x];
    pixel = coverage >= 255 ? ink_ : mixed(brush::seen(picture_, pixel), coverage);
    changed_ = changed_.united({x, y, x + 1, y + 1});
  }
  const Rect& changed() const { return changed_; }

 private:
  Pixel32 mixed(Pixel32 old, int coverage) const {
    const auto channel = [&](int below, int over) {
      return static_cast<std::uint8_t>((below * (255 - coverage) + over * coverage) >> 8);
    };
    return {channel(old.blue, ink_.blue), channel(old.green, ink_.green), channel(old.red, ink_.red), ink_.alpha};
  }

  clsDIB& picture_;
  Pixel32 ink_;
  Rect changed_;
};

}  // namespace ruvo::shape
