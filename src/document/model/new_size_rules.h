// The choices and limits of a new picture's size, and the words with which a size is refused or asked about.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "base/geometry.h"

namespace ruvo {

// The sizes offered for a picture and for an animation frame; after them comes "Custom".
inline constexpr std::array<Size, 5> kNewPictureSizes = {{{320, 200}, {640, 480}, {800, 600}, {1024, 768}, {680, 860}}};
inline constexpr std::array<Size, 5> kNewFrameSizes = {{{50, 50}, {75, 75}, {100, 100}, {120, 120}, {240, 240}}};

inline constexpr const char* kNewSizeLargeQuestion =
    "Value entered in width and/or height appear to be rather large.  Sure?";
inline constexpr const char* kSideTooSmall = "Width or height below the minimum set (1 pixels)";
inline constexpr const char* kSideTooLarge = "The width or height will exceed the maxiuum allowed, cannot proceed.";
// "Width x height exceeds the threshhold set (25,000,000 pixels)"
std::string thresholdText();

enum class SizeField { Width, Height };

// Why a size can not be taken, in the words for the field that was entered last; nothing when it can.
std::optional<std::string> newSizeRefusal(int width, int height, SizeField enteredLast);
bool newSizeIsLarge(int width, int height);

}  // namespace ruvo
