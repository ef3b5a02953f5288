#include "image/colour_list.h"

#include <algorithm>

#include "image/row_reader.h"

namespace ruvo {

bool ColourList::collect(const raster::Surface& surface, int most, const std::function<void(int row)>& rowDone) {
  colours_.clear();
  std::fill(cells_.begin(), cells_.end(), std::uint16_t{0});
  bool fits = true;
  const auto visit = [&](Colour colour) {
    std::uint32_t cell = cellOf(colour);
    while (cells_[cell] != 0) {
      if (colours_[cells_[cell] - 1u] == colour) return true;
      cell = (cell + 1) % kCells;
    }
    fits = static_cast<int>(colours_.size()) < most;
    if (!fits) return false;
    colours_.push_back(colour);
    cells_[cell] = static_cast<std::uint16_t>(colours_.size());
    return true;
  };
  forEachColourRun(surface, visit, [&](int row) {
    if (rowDone) rowDone(row);
  });
  return fits;
}

int ColourList::indexOf(Colour colour) const {
  for (std::uint32_t cell = cellOf(colour); cells_[cell] != 0; cell = (cell + 1) % kCells) {
    if (colours_[cells_[cell] - 1u] == colour) return cells_[cell] - 1;
  }
  return -1;
}

}  // namespace ruvo
