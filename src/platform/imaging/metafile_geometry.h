// Places between logical units and pixels while a metafile is played.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "base/geometry.h"

namespace ruvo::imaging::meta {

struct PointF {
  double x = 0;
  double y = 0;
};

// x' = a x + c y + e, y' = b x + d y + f.
struct Affine {
  double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

  static Affine scaling(double sx, double sy) { return {sx, 0, 0, sy, 0, 0}; }
  static Affine moving(double dx, double dy) { return {1, 0, 0, 1, dx, dy}; }
  PointF map(PointF p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
  // A distance: without the shift.
  PointF mapVector(PointF p) const { return {a * p.x + c * p.y, b * p.x + d * p.y}; }
  // This one first, then the next.
  Affine then(const Affine& n) const {
    return {n.a * a + n.c * b, n.b * a + n.d * b,       n.a * c + n.c * d,
            n.b * c + n.d * d, n.a * e + n.c * f + n.e, n.b * e + n.d * f + n.f};
  }
  double determinant() const { return a * d - b * c; }
  // How much longer lengths become on average.
  double scale() const { return std::sqrt(std::abs(determinant())); }
  // Boxes stay boxes.
  bool upright() const { return b == 0 && c == 0; }
  // Every figure of a file goes through one of these, so none may hold an infinity or a value near it.
  bool sane() const {
    constexpr double kMost = 1e9;
    return std::abs(a) < kMost && std::abs(b) < kMost && std::abs(c) < kMost && std::abs(d) < kMost &&
           std::abs(e) < kMost && std::abs(f) < kMost;
  }
  std::optional<Affine> inverse() const {
    const double det = determinant();
    if (std::abs(det) < 1e-12) return std::nullopt;
    return Affine{d / det, -b / det, -c / det, a / det, (c * f - d * e) / det, (b * e - a * f) / det};
  }
};

// The farthest place that the raster follows exactly.
inline constexpr double kFarthestPixel = 1000000;

inline int toPixel(double v) {
  if (std::isnan(v)) return 0;
  return static_cast<int>(std::floor(std::clamp(v, -kFarthestPixel, kFarthestPixel) + 0.5));
}
inline Point toPixel(PointF p) {
  return {toPixel(p.x), toPixel(p.y)};
}

// One figure of an outline, in pixels.
struct Subpath {
  std::vector<Point> points;
  bool closed = false;
};
using Outline = std::vector<Subpath>;

Rect boundsOf(const Outline& outline);

}  // namespace ruvo::imaging::meta
