// The distinct colours of a picture with few of them, in the order in which its memory rows show them, and the number
// of each: the base of exact tables and of the question how many bits a picture needs.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "base/colour.h"
#include "platform/raster/surface.h"

namespace ruvo {

class ColourList {
 public:
  // Collects the colours of the surface (byte 3 does not count). False when there are more than `most` (1 to 256); the
  // list then holds the first ones. rowDone, when there is one, is told each memory row that was gone through.
  bool collect(const raster::Surface& surface, int most, const std::function<void(int row)>& rowDone = {});
  // Appends a colour that is not in the list yet; false when it is. At most 256 altogether.
  bool append(Colour colour);
  std::span<const Colour> colours() const { return colours_; }
  // The place of a colour in the list, -1 when it is not there.
  int indexOf(Colour colour) const;

 private:
  // Open addressing over four times as many cells as there can be colours; a cell holds index + 1.
  static constexpr std::uint32_t kCells = 1024;
  static std::uint32_t cellOf(Colour colour) { return (colour * 0x9E3779B1u) >> 22; }

  std::vector<Colour> colours_;
  std::vector<std::uint16_t> cells_ = std::vector<std::uint16_t>(kCells);
};

}  // namespace ruvo
