#include "effects/model/border.h"

#include <vector>

#include "effects/model/frame_edges.h"
#include "effects/model/room.h"

namespace ruvo {
namespace {

constexpr double kLightFrom = 315;
constexpr double kRelief = 0.45;

// How a border looks at a depth: a colour, and how its sides differ.
struct Band {
  Pixel32 colour;
  double relief;  // 0 even, above 0 raised
};

Band bandAt(const Border& border, int depth) {
  const bool outer = 2 * depth < border.width;
  const Band plain = {Pixel32::plain(border.colour), 0};
  switch (border.style) {
    case Border::Style::Plain:
      return plain;
    case Border::Style::Double: {
      const int line = (border.width + 2) / 3;
      const bool between = depth >= line && depth < border.width - line;
      return between ? Band{Pixel32::plain(border.second), 0} : plain;
    }
    case Border::Style::Raised:
      return {plain.colour, kRelief};
    case Border::Style::Sunken:
      return {plain.colour, -kRelief};
    case Border::Style::Ridge:
      return {plain.colour, outer ? kRelief : -kRelief};
    case Border::Style::Groove:
      return {plain.colour, outer ? -kRelief : kRelief};
  }
  return plain;
}

}  // namespace

bool drawBorder(clsDIB& picture, const Border& border, const Progress& progress) {
  const Pixel32 ink = picture.DIBhasAlpha() ? Pixel32::opaque(border.colour) : Pixel32::plain(border.colour);
  if (border.outside && !makeRoom(picture, {border.width, border.width, border.width, border.width}, ink)) return false;
  std::vector<Band> bands;
  for (int depth = 0; depth < border.width; ++depth) bands.push_back(bandAt(border, depth));
  const OfEachSide sides = sidesInLight(kLightFrom);
  const bool isAlpha = picture.DIBhasAlpha();
  return forEachFramePixel(picture, border.width, progress, [&](Pixel32& pixel, int depth, FrameSide a, FrameSide b) {
    const Band& band = bands[static_cast<std::size_t>(depth)];
    const Pixel32 paint = lit(band.colour, band.relief * (sides[a] + sides[b]) / 2);
    pixel = {paint.blue, paint.green, paint.red, isAlpha ? std::uint8_t{255} : pixel.alpha};
  });
}

}  // namespace ruvo
