#include "effects/model/frame_edges.h"

#include <cmath>

#include "effects/model/vector3.h"

namespace ruvo {

OfEachSide sidesInLight(double lightFrom) {
  const double right = std::sin(radiansOf(lightFrom)), up = std::cos(radiansOf(lightFrom));
  const double most = std::max(std::abs(right), std::abs(up));
  return {-right / most, up / most, right / most, -up / most};
}

}  // namespace ruvo
