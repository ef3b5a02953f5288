#include "platform/imaging/metafile_mapping.h"

#include <array>

namespace ruvo::imaging::meta {
namespace {

// Millimetres of one unit in the modes from LoMetric to Twips.
constexpr std::array<double, 5> kUnits = {0.1, 0.01, 0.254, 0.0254, 25.4 / 1440};

constexpr double kLargestExtent = 1e8;

}  // namespace

void Mapping::setMode(int newMode) {
  if (newMode >= Text && newMode <= Anisotropic) mode = newMode;
}

void Mapping::setWindowExtent(PointF extent) {
  if (mode >= Isotropic && extent.x != 0 && extent.y != 0) windowExtent = extent;
}

void Mapping::setViewportExtent(PointF extent) {
  if (mode >= Isotropic && extent.x != 0 && extent.y != 0) viewportExtent = extent;
}

void Mapping::scaleExtent(PointF Mapping::*extent, PointF multiply, PointF divide) {
  if (mode < Isotropic || divide.x == 0 || divide.y == 0) return;
  const PointF old = this->*extent;
  const PointF scaled{old.x * multiply.x / divide.x, old.y * multiply.y / divide.y};
  const auto usable = [](double v) { return v != 0 && std::abs(v) < kLargestExtent; };
  if (usable(scaled.x) && usable(scaled.y)) this->*extent = scaled;
}

PointF Mapping::pageScale() const {
  if (mode == Text) return {1, 1};
  if (mode < Isotropic) {
    const double unit = kUnits[static_cast<std::size_t>(mode - LoMetric)];
    return {unit * pixelsPerMillimetre.x, -unit * pixelsPerMillimetre.y};
  }
  PointF s{viewportExtent.x / windowExtent.x, viewportExtent.y / windowExtent.y};
  if (mode == Isotropic) {
    const double both = std::min(std::abs(s.x), std::abs(s.y));
    s = {std::copysign(both, s.x), std::copysign(both, s.y)};
  }
  return s;
}

Affine Mapping::toDevice() const {
  const PointF s = pageScale();
  return {s.x, 0, 0, s.y, viewportOrigin.x - s.x * windowOrigin.x, viewportOrigin.y - s.y * windowOrigin.y};
}

}  // namespace ruvo::imaging::meta
