// The picture as it was when a stroke began, kept only where the stroke has touched it: a tile is copied the first time
// that something in it is about to change. So neither the press nor a move costs anything that grows with the picture.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "base/colour.h"
#include "base/geometry.h"
#include "platform/raster/surface.h"

namespace ruvo::brush {

class StrokeStart {
 public:
  // `picture` is a 32-bit surface that outlives this object and keeps its size.
  explicit StrokeStart(const raster::Surface& picture) : picture_(picture) {}

  // Call before pixels of `area` (inside the picture) change.
  void keep(const Rect& area);
  // The pixels of `area` as they were at the start, row by row from the top. The area must have been kept.
  void read(const Rect& area, std::vector<Pixel32>& pixels) const;
  // How many pixels have been copied so far.
  std::size_t keptPixels() const;

 private:
  static constexpr int kTileSide = 64;
  using Tile = std::vector<Pixel32>;

  static std::uint32_t keyOf(int tileX, int tileY) { return static_cast<std::uint32_t>(tileY) << 16 | tileX; }
  Rect boundsOf(int tileX, int tileY) const;

  const raster::Surface& picture_;
  std::unordered_map<std::uint32_t, Tile> tiles_;
};

}  // namespace ruvo::brush
