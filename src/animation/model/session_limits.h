// The limits of an animation that is edited, and their words. (Those of the frame model stand in clsGIF.)
#pragma once

#include <cstdint>
#include <string>

#include "base/geometry.h"
#include "base/limits.h"
#include "base/number_format.h"

namespace ruvo {

// Background of an animation: width x height, and each side after a resize.
inline constexpr std::int64_t kMostScreenPixels = kLargePicturePixels;
inline constexpr int kMostScreenSide = 2000;
// Above this size a new screen or frame is asked about; so is a screen with both sides below the least.
inline constexpr int kUsualScreenWidth = 800;
inline constexpr int kUsualScreenHeight = 600;
inline constexpr int kLeastScreenSide = 8;

inline constexpr int kMostLoops = 65535;

constexpr bool screenAreaAllowed(Size screen) {
  return static_cast<std::int64_t>(screen.width) * screen.height <= kMostScreenPixels;
}
inline std::string screenAreaText() {
  return "Background/screen size limited to max of " + formatNumber(kMostScreenPixels, kFormatLimit) + " pixels only";
}

constexpr bool isUnusuallyLarge(Size size) {
  return size.width > kUsualScreenWidth || size.height > kUsualScreenHeight;
}
// `what` begins the sentence: "Incoming image".
inline std::string unusuallyLargeQuestion(const std::string& what, Size size) {
  return what + " at " + std::to_string(size.width) + " x " + std::to_string(size.height) +
         "\nappears to be too large.  Proceed still?";
}

}  // namespace ruvo
