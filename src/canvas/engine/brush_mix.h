// How drawing tools write a pixel: covering or mixing, and what becomes of byte 3.
#pragma once

#include <array>

#include "base/colour.h"
#include "image/clsDIB.h"

namespace ruvo::brush {

// Byte 3 of every pixel that a tool writes.
inline std::uint8_t writtenAlpha(const clsDIB& picture) {
  return picture.DIBhasAlpha() ? 255 : 0;
}

// What a person sees of a pixel with alpha: over white, opaque.
Pixel32 overWhite(Pixel32 pixel);
inline Pixel32 seen(const clsDIB& picture, Pixel32 pixel) {
  return picture.DIBhasAlpha() ? overWhite(pixel) : pixel;
}

// One colour laid over any pixel at a fixed percent, by table.
class ColourMix {
 public:
  ColourMix() = default;
  // percent is taken within 0 to 100.
  ColourMix(Colour colour, int percent, std::uint8_t alpha);
  bool covers() const { return covers_; }
  Pixel32 ink() const { return ink_; }
  Pixel32 over(Pixel32 below) const { return {blue_[below.blue], green_[below.green], red_[below.red], ink_.alpha}; }

 private:
  Pixel32 ink_;
  bool covers_ = true;
  std::array<std::uint8_t, 256> blue_{};
  std::array<std::uint8_t, 256> green_{};
  std::array<std::uint8_t, 256> red_{};
};

}  // namespace ruvo::brush
