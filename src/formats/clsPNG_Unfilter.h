// The row filters of PNG (ISO 15948, 9), undone.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ruvo::png {

// Whether red and blue change places on the way, so that a row lands as a surface keeps it.
enum class Order { AsIs, RedBlueExchanged };

// Writes the `count` bytes of a row to `to`, which does not overlap `from`. `prior` is the row above as it was written,
// null for none. `pixelBytes` (1, 2, 3, 4, 6 or 8) is the distance to the byte on the left; red and blue are exchanged
// at 3 and 4 only, and `count` is then a multiple of it. Types above 4 are as 0.
void unfilter(int type, const std::uint8_t* from, const std::uint8_t* prior, std::uint8_t* to, std::size_t count,
              int pixelBytes, Order order);

// The same a byte at a time: what unfilter() does where the processor offers no better.
void unfilterPlainly(int type, const std::uint8_t* from, const std::uint8_t* prior, std::uint8_t* to, std::size_t count,
                     int pixelBytes, Order order);

}  // namespace ruvo::png
