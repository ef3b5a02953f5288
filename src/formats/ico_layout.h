// What the reader and the writer of icon files share: the sizes of the parts of a file, and where a mask has its bits.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ruvo::ico {

inline constexpr std::size_t kHeaderBytes = 6;
inline constexpr std::size_t kEntryBytes = 16;
inline constexpr std::size_t kInfoBytes = 40;

// Entries of the colour table of an image; none above 8 bits.
constexpr std::size_t tableEntries(int bpp) {
  return bpp <= 8 ? std::size_t{1} << bpp : 0;
}

// Column x within byte x / 8 of a mask's row.
constexpr std::uint8_t maskBit(int x) {
  return static_cast<std::uint8_t>(0x80 >> x % 8);
}

}  // namespace ruvo::ico
