// A picture turned by any angle: what may be chosen, and what comes of it.
#pragma once

#include <cstdint>
#include <string>

#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

inline constexpr double kMostAngle = 360;

struct Rotation {
  double angle = 0;  // degrees, -360 to 360; above 0 turns anticlockwise
  bool antialias = false;
  // The picture becomes a square that shows all of it, where the limits of a picture allow that.
  bool grow = false;
  std::int64_t transparent = -1;  // pixels of this colour become the fill colour; below 0: none
  Colour fill = kWhite;           // around the turned picture
};

// Turns a picture of 32 bits. False when it was stopped or there is no memory; the picture is then as it was.
bool rotatePicture(clsDIB& picture, const Rotation& rotation, const Progress& progress);

// Asked before a picture that can not grow is turned at its own size.
std::string rotationQuestion();

}  // namespace ruvo
