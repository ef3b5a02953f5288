#include "platform/raster/bezier.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace ruvo::raster {
namespace {

constexpr int kMaxHalvings = 8;
constexpr std::int64_t kUnit = 16;  // places are in sixteenths of a pixel

struct Place {
  std::int64_t x;
  std::int64_t y;
};
using Piece = std::array<Place, 4>;

std::int64_t toPixels(std::int64_t v) {
  return (v + kUnit / 2) >> 4;
}

bool within(std::int64_t v, std::int64_t from, std::int64_t to) {
  if (to > from) return v >= from && v <= to;
  if (to < from) return v >= to && v < from;
  return v == from;
}

// Flat: both middle control points lie beside the chord, within one pixel of it across the major axis.
bool flat(const Piece& p) {
  const std::int64_t dx = p[3].x - p[0].x, dy = p[3].y - p[0].y;
  const bool xMajor = std::abs(dy) <= std::abs(dx);
  const auto major = [&](const Place& q) { return xMajor ? q.x : q.y; };
  const auto minor = [&](const Place& q) { return xMajor ? q.y : q.x; };
  for (int k : {1, 2}) {
    if (!within(major(p[k]), major(p[0]), major(p[3]))) return false;
  }
  const std::int64_t pixels = toPixels(major(p[3]) - major(p[0]));
  if (pixels == 0) return true;
  const std::int64_t slope = (minor(p[3]) - minor(p[0])) / pixels;
  for (int k : {1, 2}) {
    const std::int64_t along = toPixels(major(p[k]) - major(p[0]));
    if (std::abs(minor(p[k]) - minor(p[0]) - slope * along) > kUnit) return false;
  }
  return true;
}

Place middle(const Place& a, const Place& b) {
  return {(a.x + b.x + 1) / 2, (a.y + b.y + 1) / 2};
}

void flatten(const Piece& p, int halvings, std::vector<Point>& out) {
  if (halvings == 0 || flat(p)) {
    out.push_back({static_cast<int>(toPixels(p[3].x)), static_cast<int>(toPixels(p[3].y))});
    return;
  }
  const Place a = middle(p[0], p[1]), b = middle(p[1], p[2]), c = middle(p[2], p[3]);
  const Place d = middle(a, b), e = middle(b, c), m = middle(d, e);
  flatten({p[0], a, d, m}, halvings - 1, out);
  flatten({m, e, c, p[3]}, halvings - 1, out);
}

}  // namespace

std::vector<Point> bezierPoints(std::span<const Point> control) {
  std::vector<Point> points;
  if (control.size() < 4) return points;
  points.push_back(control[0]);
  for (std::size_t i = 0; i + 3 < control.size(); i += 3) {
    Piece piece;
    for (std::size_t k = 0; k < 4; ++k) piece[k] = {control[i + k].x * kUnit, control[i + k].y * kUnit};
    flatten(piece, kMaxHalvings, points);
  }
  return points;
}

}  // namespace ruvo::raster
