// What areas are filled with.
#pragma once

#include "base/colour.h"
#include "platform/raster/surface.h"

namespace ruvo::raster {

// On a tile of 8 x 8 from the brush origin: Horizontal y = 3; Vertical x = 4; ForwardDiagonal x = y (falls to the
// right); BackwardDiagonal x + y = 7; Cross and DiagonalCross both of each pair.
enum class HatchStyle { Horizontal, Vertical, ForwardDiagonal, BackwardDiagonal, Cross, DiagonalCross };

struct Brush {
  enum class Kind { Null, Solid, Hatch, Pattern };

  Kind kind = Kind::Solid;
  Colour colour = kWhite;
  HatchStyle hatchStyle = HatchStyle::Horizontal;
  // Any size and depth; its top left pixel lies at the brush origin. Must live while the brush is used.
  const Surface* tile = nullptr;

  static Brush null() { return {Kind::Null, kWhite, HatchStyle::Horizontal, nullptr}; }
  static Brush solid(Colour colour) { return {Kind::Solid, colour, HatchStyle::Horizontal, nullptr}; }
  static Brush hatch(HatchStyle style, Colour colour) { return {Kind::Hatch, colour, style, nullptr}; }
  static Brush pattern(const Surface& tile) { return {Kind::Pattern, kWhite, HatchStyle::Horizontal, &tile}; }
  bool draws() const { return kind != Kind::Null && (kind != Kind::Pattern || (tile && !tile->empty())); }
};

}  // namespace ruvo::raster
