// Float-to-integer conversions: to nearest, ties to even, unless truncation is asked for by a plain cast.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace ruvo {

// Nearest integer, ties to even (the processor's default mode, which this program never changes).
inline int roundToInt(double value) {
  return static_cast<int>(std::nearbyint(value));
}

inline std::uint8_t clampToByte(int value) {
  return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

}  // namespace ruvo
