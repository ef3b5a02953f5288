#include "image/colour_list.h"

#include <algorithm>

#include "image/row_reader.h"

namespace ruvo {

bool ColourList::collect(const raster::Surface& surface, int most, const std::function<void(int row)>& rowDone) {
  colours_.clear();
  std::fill(cells_.begin(), cells_.end(), std::uint16_t{0});
  bool fits = true;
  const auto visit = [&](Colour colour) {
    if (static_cast<int>(colours_.size()) < most) {
      append(colour);
    } else {
      fits = indexOf(colour) >= 0;
    }
    return fits;
  };
  forEachColourRun(surface, visit, [&](int row) {
    if (rowDone) rowDone(row);
  });
  return fits;
}

bool ColourList::append(Colour colour) {
  std::uint32_t cell = cellOf(colour);
  for (; cells_[cell] != 0; cell = (cell + 1) % kCells) {
    if (colours_[cells_[cell] - 1u] == colour) return false;
  }
  colours_.push_back(colour);
  cells_[cell] = static_cast<std::uint16_t>(colours_.size());
  return true;
}

int ColourList::indexOf(Colour colour) const {
  for (std::uint32_t cell = cellOf(colour); cells_[cell] != 0; cell = (cell + 1) % kCells) {
    if (colours_[cells_[cell] - 1u] == colour) return cells_[cell] - 1;
  }
  return -1;
}

}  // namespace ruvo
