#include "platform/raster/palette_match.h"

#include <algorithm>
#include <limits>

namespace ruvo::raster {
namespace {

constexpr int kCellBits = 3;
constexpr int kCellSide = 1 << kCellBits;
constexpr int kCells = 1 << (3 * (8 - kCellBits));
// Below this a plain walk over the table beats the cells.
constexpr std::size_t kSmallTable = 4;

int square(int v) {
  return v * v;
}

int distance(const TableEntry& e, int red, int green, int blue) {
  return square(e.red - red) + square(e.green - green) + square(e.blue - blue);
}

// Least and greatest squared distance of one channel value to the cell [low, low + side).
struct Reach {
  int least;
  int greatest;
};
Reach reachOf(int value, int low) {
  const int high = low + kCellSide - 1;
  const int outside = value < low ? low - value : std::max(0, value - high);
  return {square(outside), square(std::max(std::abs(value - low), std::abs(value - high)))};
}
Reach reachOf(const TableEntry& e, int red, int green, int blue) {
  const Reach r = reachOf(e.red, red);
  const Reach g = reachOf(e.green, green);
  const Reach b = reachOf(e.blue, blue);
  return {r.least + g.least + b.least, r.greatest + g.greatest + b.greatest};
}

}  // namespace

int nearestPaletteIndex(std::span<const TableEntry> table, Colour colour) {
  int best = 0;
  int bestDistance = std::numeric_limits<int>::max();
  for (std::size_t i = 0; i < table.size() && bestDistance > 0; ++i) {
    const int d = distance(table[i], redOf(colour), greenOf(colour), blueOf(colour));
    if (d < bestDistance) {
      bestDistance = d;
      best = static_cast<int>(i);
    }
  }
  return best;
}

PaletteMatcher::PaletteMatcher(std::span<const TableEntry> table)
    : table_(table.begin(), table.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(table.size(), 256))) {
  if (table_.size() > kSmallTable) cells_.resize(kCells);
}

int PaletteMatcher::indexOf(int red, int green, int blue) {
  if (cells_.empty()) return nearestPaletteIndex(table_, rgb(red, green, blue));
  const int cell = ((red >> kCellBits) << 10) | ((green >> kCellBits) << 5) | (blue >> kCellBits);
  Candidates& c = cells_[static_cast<std::size_t>(cell)];
  if (c.count == 0) c = findCandidates(red, green, blue);
  const std::uint8_t* candidates = pool_.data() + c.first;
  int best = candidates[0];
  int bestDistance = c.count == 1 ? 0 : distance(table_[candidates[0]], red, green, blue);
  for (std::uint32_t k = 1; k < c.count; ++k) {
    const int d = distance(table_[candidates[k]], red, green, blue);
    if (d < bestDistance) {
      bestDistance = d;
      best = candidates[k];
    }
  }
  return best;
}

// An entry can win somewhere in the cell only when its least distance is within the smallest of all greatest distances.
// Candidates stay in index order, so that the first of equals is still the lowest index.
PaletteMatcher::Candidates PaletteMatcher::findCandidates(int red, int green, int blue) {
  const int r = red & ~(kCellSide - 1);
  const int g = green & ~(kCellSide - 1);
  const int b = blue & ~(kCellSide - 1);
  int bound = std::numeric_limits<int>::max();
  for (const TableEntry& e : table_) bound = std::min(bound, reachOf(e, r, g, b).greatest);
  Candidates found{static_cast<std::uint32_t>(pool_.size()), 0};
  for (std::size_t i = 0; i < table_.size(); ++i) {
    if (reachOf(table_[i], r, g, b).least > bound) continue;
    pool_.push_back(static_cast<std::uint8_t>(i));
    ++found.count;
  }
  return found;
}

}  // namespace ruvo::raster
