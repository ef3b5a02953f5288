// The nearest entry of a colour table: least red, green and blue distance squared, unweighted; of equals the lowest
// index.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "base/colour.h"
#include "platform/raster/surface.h"

namespace ruvo::raster {

// Index of the entry nearest to the low 24 bits of `colour`; 0 for an empty table.
int nearestPaletteIndex(std::span<const TableEntry> table, Colour colour);

// The same answers for whole pictures. Keeps its own copy of the table (at most 256 entries count) and remembers, for
// each cell of 8 x 8 x 8 colours that is asked for, which entries can win there. Not for use by two threads at once.
class PaletteMatcher {
 public:
  PaletteMatcher() = default;
  explicit PaletteMatcher(std::span<const TableEntry> table);

  int indexOf(Colour colour) { return indexOf(redOf(colour), greenOf(colour), blueOf(colour)); }
  int indexOf(int red, int green, int blue);

 private:
  struct Candidates {
    std::uint32_t first = 0;
    std::uint32_t count = 0;  // 0: not worked out yet
  };
  Candidates findCandidates(int red, int green, int blue);

  std::vector<TableEntry> table_;
  std::vector<Candidates> cells_;
  std::vector<std::uint8_t> pool_;
};

}  // namespace ruvo::raster
