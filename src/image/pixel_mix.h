// The two ways in which the program mixes pixels: at a fixed percent, and over a plain colour by their alpha.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "base/colour.h"
#include "base/rounding.h"

namespace ruvo {

// The mix of two bytes in a fixed proportion. Both fractions are kept as 32-bit floats while products and sum are made
// in double and rounded once, ties to even: sums in float differ by one in places.
class Mixer {
 public:
  explicit Mixer(int percent) : src_(static_cast<float>(percent) / 100.0f), dst_(1.0f - src_) {}

  std::uint8_t mix(std::uint8_t dst, std::uint8_t src) const {
    // Adding this constant leaves the rounded integer in the low bits, without a library call a channel.
    constexpr double kShift = 0x1.8p52;
    const double sum = static_cast<double>(dst_) * dst + static_cast<double>(src_) * src;
    return clampToByte(static_cast<std::int32_t>(std::bit_cast<std::uint64_t>(sum + kShift)));
  }
  void mix(Pixel32& dst, Pixel32 src) const {
    dst.blue = mix(dst.blue, src.blue);
    dst.green = mix(dst.green, src.green);
    dst.red = mix(dst.red, src.red);
  }

 private:
  float src_;
  float dst_;
};

// Hundredths rounded, ties to even.
constexpr std::uint8_t hundredths(int sum) {
  const int whole = sum / 100;
  const int rest = sum % 100;
  return static_cast<std::uint8_t>(whole + (rest > 50 || (rest == 50 && whole % 2 != 0) ? 1 : 0));
}

// Pixels over a plain colour by their alpha, which counts in whole percent. Byte 3 comes out zero.
class Composer {
 public:
  explicit Composer(Colour back) : back_(Pixel32::plain(back)) {
    for (int a = 0; a < 256; ++a) percent_[static_cast<std::size_t>(a)] = roundToInt(a / 255.0 * 100.0);
  }
  Pixel32 over(Pixel32 p) const {
    const int t = percent_[p.alpha];
    if (t == 0) return back_;
    if (t == 100) {
      p.alpha = 0;
      return p;
    }
    return {hundredths((100 - t) * back_.blue + t * p.blue), hundredths((100 - t) * back_.green + t * p.green),
            hundredths((100 - t) * back_.red + t * p.red), 0};
  }

 private:
  Pixel32 back_;
  std::array<int, 256> percent_{};
};

}  // namespace ruvo
