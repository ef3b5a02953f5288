// Colours as amounts of light: the sRGB curve of IEC 61966-2-1 both ways. Light adds up and colours do not, so shading
// is reckoned here and turned into a colour at the end.
#pragma once

#include <array>
#include <cstdint>

#include "base/colour.h"

namespace ruvo {

// Linear red, green and blue; 1 is white.
struct Light {
  float red = 0;
  float green = 0;
  float blue = 0;

  friend constexpr Light operator+(Light a, Light b) { return {a.red + b.red, a.green + b.green, a.blue + b.blue}; }
  friend constexpr Light operator*(Light a, float f) { return {a.red * f, a.green * f, a.blue * f}; }
  friend constexpr Light operator*(Light a, Light b) { return {a.red * b.red, a.green * b.green, a.blue * b.blue}; }
};

// A channel, 0 to 1, as light and back.
double lightOfChannel(double channel);
double channelOfLight(double light);

Light lightOf(Colour colour);

// Light as the bytes of a pixel in 256ths (0 to 255 x 256), from a table.
class LightToPixel {
 public:
  // Made once.
  static const LightToPixel& instance();

  std::uint16_t channel(float light) const;
  // Rounded by a threshold of kGrain.
  Pixel32 pixel(Light light, int grain) const {
    const auto rounded = [&](float c) { return static_cast<std::uint8_t>((channel(c) + grain) >> 8); };
    return {rounded(light.blue), rounded(light.green), rounded(light.red), 255};
  }

 private:
  static constexpr int kSteps = 4096;
  LightToPixel();
  std::array<std::uint16_t, kSteps> table_{};  // by the square root of the light, which gives dark tones their share
};

}  // namespace ruvo
