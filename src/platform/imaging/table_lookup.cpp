#include "platform/imaging/table_lookup.h"

#include <limits>

namespace ruvo::imaging {

int TableLookup::nearest(Pixel32 pixel) {
  const std::uint32_t colour = pixel.colour();
  Slot& slot = cache_[(colour * 0x9E3779B1u) >> 18];
  if (slot.colour == colour) return slot.index;
  int best = 0;
  int smallest = std::numeric_limits<int>::max();
  for (std::size_t i = 0; i < table_.size(); ++i) {
    const int b = table_[i].blue - pixel.blue;
    const int g = table_[i].green - pixel.green;
    const int r = table_[i].red - pixel.red;
    const int distance = b * b + g * g + r * r;
    if (distance < smallest) {
      smallest = distance;
      best = static_cast<int>(i);
    }
  }
  slot = {colour, static_cast<std::uint8_t>(best)};
  return best;
}

}  // namespace ruvo::imaging
