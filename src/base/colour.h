// Colours at interfaces: packed 32-bit values 0x00BBGGRR, red in the low byte. Pixels in memory are B, G, R, A bytes.
#pragma once

#include <cstdint>

namespace ruvo {

using Colour = std::uint32_t;

inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kBlack = 0x000000;

constexpr Colour rgb(int red, int green, int blue) {
  return static_cast<Colour>((red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16);
}
constexpr std::uint8_t redOf(Colour c) {
  return static_cast<std::uint8_t>(c);
}
constexpr std::uint8_t greenOf(Colour c) {
  return static_cast<std::uint8_t>(c >> 8);
}
constexpr std::uint8_t blueOf(Colour c) {
  return static_cast<std::uint8_t>(c >> 16);
}

// A pixel of a 32-bit surface as it lies in memory.
struct Pixel32 {
  std::uint8_t blue = 0;
  std::uint8_t green = 0;
  std::uint8_t red = 0;
  std::uint8_t alpha = 0;

  static constexpr Pixel32 opaque(Colour c) { return {blueOf(c), greenOf(c), redOf(c), 255}; }
  // As pens and brushes write it: byte 3 is zero.
  static constexpr Pixel32 plain(Colour c) { return {blueOf(c), greenOf(c), redOf(c), 0}; }
  constexpr Colour colour() const { return rgb(red, green, blue); }
  constexpr bool sameColour(Pixel32 o) const { return blue == o.blue && green == o.green && red == o.red; }
  friend constexpr bool operator==(const Pixel32&, const Pixel32&) = default;
};
static_assert(sizeof(Pixel32) == 4);

}  // namespace ruvo
