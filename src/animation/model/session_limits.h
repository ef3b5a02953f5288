// The limits of an animation that is edited. (Those of the frame model stand in clsGIF.)
#pragma once

#include <cstdint>

#include "base/limits.h"

namespace ruvo {

// Background of an animation: width x height, and each side after a resize.
inline constexpr std::int64_t kMostScreenPixels = kLargePicturePixels;
inline constexpr int kMostScreenSide = 2000;
// Above this size a new screen or frame is asked about; so is a screen with both sides below the least.
inline constexpr int kUsualScreenWidth = 800;
inline constexpr int kUsualScreenHeight = 600;
inline constexpr int kLeastScreenSide = 8;

}  // namespace ruvo
