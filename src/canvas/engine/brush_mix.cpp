#include "canvas/engine/brush_mix.h"

namespace ruvo::brush {

Pixel32 overWhite(Pixel32 pixel) {
  if (pixel.alpha == 255) return pixel;
  const int t = roundToInt(pixel.alpha / 255.0 * 100);
  const auto channel = [t](int c) { return clampToByte(roundToInt(((100 - t) * 255 + t * c) / 100.0)); };
  return {channel(pixel.blue), channel(pixel.green), channel(pixel.red), 255};
}

ColourMix::ColourMix(Colour colour, int percent, std::uint8_t alpha)
    : ink_{blueOf(colour), greenOf(colour), redOf(colour), alpha}, covers_(percent >= 100) {
  if (covers_) return;
  const Share share(std::max(percent, 0));
  for (int below = 0; below < 256; ++below) {
    blue_[below] = share.of(ink_.blue, below);
    green_[below] = share.of(ink_.green, below);
    red_[below] = share.of(ink_.red, below);
  }
}

}  // namespace ruvo::brush
