// Bitmaps onto the surface.
#pragma once

#include <array>
#include <optional>

#include "platform/imaging/metafile_figures.h"
#include "platform/raster/surface.h"

namespace ruvo::imaging::meta {

// The part of a bitmap that is drawn, in its pixels from the top left; negative extents mirror.
struct ImagePart {
  const raster::Surface& bitmap;
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

// Where it goes: from the unit square to pixels.
using Placement = Affine;
// A logical box, whose extent may be negative.
Placement placementOf(const Device& device, PointF at, PointF extent);

// Ternary raster operations by the byte that names their truth table: bit 4 p + 2 s + d is the result for the pattern,
// source and destination bits p, s and d.
inline constexpr std::uint32_t kSourceCopy = 0xCC;
constexpr bool usesSource(std::uint32_t rop) {
  return ((rop >> 2 ^ rop) & 0x33) != 0;
}
constexpr bool usesPattern(std::uint32_t rop) {
  return ((rop >> 4 ^ rop) & 0x0F) != 0;
}

// With the selected brush as pattern.
void drawImage(Device& device, const ImagePart& part, const Placement& to, std::uint32_t rop);
// An operation that uses no source.
void drawPattern(Device& device, const Placement& to, std::uint32_t rop);
// The first operation where the mask (one bit a pixel, its top left at the part's) is set, else the second.
void drawMasked(Device& device, const ImagePart& part, const raster::Surface& mask, Point maskAt, const Placement& to,
                std::uint32_t set, std::uint32_t clear);
// Mixed by a constant and, with `perPixel`, by the bitmap's byte 3, which its colours are multiplied by.
void drawBlended(Device& device, const ImagePart& part, const Placement& to, int alpha, bool perPixel);
// All pixels but those of one colour.
void drawKeyed(Device& device, const ImagePart& part, const Placement& to, Colour key);

}  // namespace ruvo::imaging::meta
