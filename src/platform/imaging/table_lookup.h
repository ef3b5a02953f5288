// The nearest entry of a colour table, remembered for colours that come again.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/raster/surface.h"

namespace ruvo::imaging {

class TableLookup {
 public:
  // The table must outlive the lookup and have at most 256 entries.
  explicit TableLookup(std::span<const raster::TableEntry> table) : table_(table), cache_(kSlots) {}

  // Smallest squared distance in blue, green and red; the first one of equals.
  int nearest(Pixel32 pixel);

 private:
  static constexpr std::size_t kSlots = 1 << 14;
  struct Slot {
    std::uint32_t colour = 0xFFFFFFFF;  // none
    std::uint8_t index = 0;
  };

  std::span<const raster::TableEntry> table_;
  std::vector<Slot> cache_;
};

}  // namespace ruvo::imaging
