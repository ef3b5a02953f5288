#include "effects/model/reduced_copy.h"

#include "base/rounding.h"
#include "platform/imaging/resample.h"

namespace ruvo {

bool reducedCopy(const clsDIB& picture, double scale, clsDIB& out) {
  const auto side = [scale](int length) { return std::max(1, roundToInt(length * scale)); };
  return reducedCopy(picture, Size{side(picture.DIBWidth()), side(picture.DIBHeight())}, out);
}

bool reducedCopy(const clsDIB& picture, Size size, clsDIB& out) {
  raster::Surface target;
  if (!target.create(size.width, size.height, 32, picture.surface().order())) return false;
  imaging::resampleBicubic(picture.surface(), target, picture.DIBhasAlpha());
  out.adopt(std::move(target), picture.DIBhasAlpha());
  return true;
}

}  // namespace ruvo
