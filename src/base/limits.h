// The limits that more than one module checks. Each stands here once.
#pragma once

#include <cstdint>

namespace ruvo {

// Largest picture that is opened or made: width x height, and each side.
inline constexpr std::int64_t kMaxPicturePixels = 25000000;
inline constexpr int kMaxPictureSide = 32760;
// From this many pixels on a picture counts as large (reading a BMP twice, New's "rather large", paste).
inline constexpr std::int64_t kLargePicturePixels = 3000000;
// Largest file that a reader takes into memory.
inline constexpr std::int64_t kMaxFileBytes = 1LL << 30;

constexpr bool pictureSizeAllowed(std::int64_t width, std::int64_t height) {
  return width >= 1 && height >= 1 && width <= kMaxPictureSide && height <= kMaxPictureSide &&
         width * height <= kMaxPicturePixels;
}

}  // namespace ruvo
