// Areas whose colours run from corner to corner.
#pragma once

#include <cstdint>
#include <span>

#include "platform/imaging/metafile_device.h"

namespace ruvo::imaging::meta {

struct GradientPoint {
  PointF at;       // logical
  double red = 0;  // 0 to 255
  double green = 0;
  double blue = 0;
};

void gradientRectangle(Device& device, const GradientPoint& a, const GradientPoint& b, bool downwards);
void gradientTriangle(Device& device, const GradientPoint& a, const GradientPoint& b, const GradientPoint& c);

}  // namespace ruvo::imaging::meta
