#include "canvas/engine/brush_mix.h"

#include "image/pixel_mix.h"

namespace ruvo::brush {

Pixel32 overWhite(Pixel32 pixel) {
  static const Composer composer(kWhite);
  Pixel32 result = composer.over(pixel);
  result.alpha = 255;
  return result;
}

ColourMix::ColourMix(Colour colour, int percent, std::uint8_t alpha)
    : ink_{blueOf(colour), greenOf(colour), redOf(colour), alpha}, covers_(percent >= 100) {
  if (covers_) return;
  const Mixer mixer(std::max(percent, 0));
  for (int below = 0; below < 256; ++below) {
    blue_[below] = mixer.mix(static_cast<std::uint8_t>(below), ink_.blue);
    green_[below] = mixer.mix(static_cast<std::uint8_t>(below), ink_.green);
    red_[below] = mixer.mix(static_cast<std::uint8_t>(below), ink_.red);
  }
}

}  // namespace ruvo::brush
