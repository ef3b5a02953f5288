#include "canvas/engine/shape_arc.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>

#include "base/rounding.h"
#include "canvas/engine/shape_lines.h"
#include "platform/raster/draw.h"
#include "platform/raster/shape_rows.h"

namespace ruvo::shape {
namespace {

struct Place {
  double x, y;
};

struct Vector {
  std::int64_t x, y;
};
Vector between(Point from, Point to) {
  return {std::int64_t{to.x} - from.x, std::int64_t{to.y} - from.y};
}
double dot(Vector a, Vector b) {
  return static_cast<double>(a.x * b.x + a.y * b.y);
}
double length(Vector a) {
  return std::sqrt(dot(a, a));
}

bool farAway(Point p) {
  constexpr int kFarthest = 1 << 24;
  return p.x < -kFarthest || p.x > kFarthest || p.y < -kFarthest || p.y > kFarthest;
}

using Runs = std::vector<std::vector<Point>>;

// Collects pixels in order.
class RunCollector {
 public:
  void add(Point p) {
    if (std::exchange(away_, false)) runs_.emplace_back();
    std::vector<Point>& run = runs_.back();
    if (run.empty() || run.back() != p) run.push_back(p);
  }
  void away() { away_ = true; }
  Runs take() { return std::move(runs_); }

 private:
  Runs runs_;
  bool away_ = true;
};

// A part of the circle that starts at a pixel. Places are reckoned from that pixel: even where the radius is a million
// times the picture's size, they are exact near it.
class PartFromPixel {
 public:
  PartFromPixel(Point origin, double heading, double radius, const Rect& area, RunCollector& pixels)
      : origin_(origin),
        heading_(heading),
        radius_(radius),
        area_{area.left - 1.0, area.top - 1.0, area.right + 1.0, area.bottom + 1.0},
        pixels_(pixels) {}

  // From the pixel to the end of the turn, or from there to the pixel.
  void walk(double turn, bool backwards) {
    constexpr int kPieces = 4;  // so that no piece is longer than half a circle
    for (int i = 0; i < kPieces; ++i) {
      const int piece = backwards ? kPieces - 1 - i : i;
      const double from = turn * piece / kPieces, to = turn * (piece + 1) / kPieces;
      visit(from, placeAt(from), to, placeAt(to), backwards);
    }
  }

 private:
  struct Area {
    double left, top, right, bottom;
  };

  Place placeAt(double turn) const {
    const double chord = 2 * radius_ * std::sin(std::abs(turn) / 2), direction = heading_ + turn / 2;
    return {origin_.x + chord * std::cos(direction), origin_.y + chord * std::sin(direction)};
  }

  // Halves the piece until it is shorter than a pixel, and leaves out halves that stay outside.
  void visit(double from, Place start, double to, Place end, bool backwards) {
    const double span = std::abs(to - from), flat = std::sin(span / 4);
    const double bulge = 2 * radius_ * flat * flat;  // how far it leaves its chord
    if (std::max(start.x, end.x) + bulge < area_.left || std::min(start.x, end.x) - bulge > area_.right ||
        std::max(start.y, end.y) + bulge < area_.top || std::min(start.y, end.y) - bulge > area_.bottom) {
      pixels_.away();
      return;
    }
    constexpr double kStep = 0.7;
    if (radius_ * span <= kStep) {
      const Place next = backwards ? start : end;
      pixels_.add({roundToInt(next.x), roundToInt(next.y)});
      return;
    }
    const double middle = (from + to) / 2;
    const Place place = placeAt(middle);
    if (backwards) {
      visit(middle, place, to, end, backwards);
      visit(from, start, middle, place, backwards);
    } else {
      visit(from, start, middle, place, backwards);
      visit(middle, place, to, end, backwards);
    }
  }

  Point origin_;
  double heading_;
  double radius_;
  Area area_;
  RunCollector& pixels_;
};

}  // namespace

ArcRecord ComputeArc(Point first, Point second, Point third) {
  ArcRecord arc;
  arc.first = first, arc.second = second, arc.third = third;
  if (farAway(first) || farAway(second) || farAway(third)) return arc;
  const Vector b = between(first, second), c = between(first, third), rest = between(second, third);
  const std::int64_t cross = b.x * c.y - b.y * c.x;  // twice the triangle's area
  if (cross == 0) return arc;
  const auto area = static_cast<double>(cross);
  arc.valid = true;
  // Where the perpendicular bisectors meet.
  arc.centreX = first.x + (static_cast<double>(c.y) * dot(b, b) - static_cast<double>(b.y) * dot(c, c)) / (2 * area);
  arc.centreY = first.y + (static_cast<double>(b.x) * dot(c, c) - static_cast<double>(c.x) * dot(b, b)) / (2 * area);
  arc.radius = length(b) * length(c) * length(rest) / (2 * std::abs(area));
  // An arc turns by twice the angle under which it is seen from the third point of the circle.
  const double side = cross > 0 ? 2 : -2, size = std::abs(area);
  arc.toSecond = side * std::atan2(size, dot(c, rest));
  arc.toThird = side * std::atan2(size, dot(b, c));
  arc.heading = std::atan2(static_cast<double>(b.y), static_cast<double>(b.x)) - arc.toSecond / 2;
  return arc;
}

namespace {

// How far a pixel lies off the circle. Reckoned from the first point, it is exact for any radius.
double offCircle(const ArcRecord& arc, Point p) {
  const double x = p.x - arc.first.x, y = p.y - arc.first.y;
  const double towards = x * (arc.centreX - arc.first.x) + y * (arc.centreY - arc.first.y);
  return std::abs(x * x + y * y - 2 * towards) / (2 * arc.radius);
}

bool touch(Point a, Point b) {
  return a != b && std::abs(a.x - b.x) <= 1 && std::abs(a.y - b.y) <= 1;
}

// Takes out the corners of steps, those farthest off the circle first, so that a thin arc is one pixel thin.
void thinOut(std::vector<Point>& run, const ArcRecord& arc) {
  struct Corner {
    std::size_t place;
    double off;
  };
  std::vector<Corner> corners;
  for (std::size_t i = 1; i + 1 < run.size(); ++i) {
    if (run[i] != arc.second && touch(run[i - 1], run[i + 1])) corners.push_back({i, offCircle(arc, run[i])});
  }
  std::stable_sort(corners.begin(), corners.end(), [](const Corner& a, const Corner& b) { return a.off > b.off; });
  std::vector<char> gone(run.size());
  const auto neighbour = [&](std::size_t i, std::ptrdiff_t step) {
    do i += static_cast<std::size_t>(step);
    while (gone[i]);
    return run[i];
  };
  for (const Corner& c : corners) gone[c.place] = touch(neighbour(c.place, -1), neighbour(c.place, 1));
  std::size_t kept = 0;
  for (std::size_t i = 0; i < run.size(); ++i) {
    if (!gone[i]) run[kept++] = run[i];
  }
  run.resize(kept);
}

}  // namespace

std::vector<std::vector<Point>> arcPixels(const ArcRecord& arc, const Rect& area) {
  RunCollector pixels;
  if (!arc.valid || area.empty()) return {};
  const auto half = [&](Point origin, double heading, double turn, bool backwards) {
    PartFromPixel(origin, heading, arc.radius, area, pixels).walk(turn, backwards);
  };
  // Each half is reckoned from the given point next to it.
  const auto part = [&](Point from, double heading, double turn, Point to) {
    if (area.contains(from.x, from.y)) pixels.add(from);
    half(from, heading, turn / 2, false);
    half(to, heading + turn + std::numbers::pi, -turn / 2, true);
  };
  part(arc.first, arc.heading, arc.toSecond, arc.second);
  part(arc.second, arc.heading + arc.toSecond, arc.toThird, arc.third);
  Runs runs = pixels.take();
  for (std::vector<Point>& run : runs) thinOut(run, arc);
  return runs;
}

Rect drawArc(clsDIB& picture, const ArcRecord& arc, Colour colour, int width) {
  if (picture.empty() || !arc.valid) return {};
  width = std::clamp(width, 1, kWidestPen);
  const Rect bounds = picture.surface().bounds();
  // The pen's round end at every pixel. A line from pixel to pixel would be wider where it is slanting.
  const std::vector<int> end = raster::wholeEllipseRows(width, width);
  std::vector<raster::Span> spans;
  const Rect reached{bounds.left - width, bounds.top - width, bounds.right + width, bounds.bottom + width};
  for (const std::vector<Point>& run : arcPixels(arc, reached)) {
    for (const Point& p : run) {
      const int left = p.x - width / 2, top = p.y - width / 2;
      for (int row = 0; row < width; ++row) {
        const int inset = end[static_cast<std::size_t>(row)];
        spans.push_back({top + row, left + inset, left + width - inset});
      }
    }
  }
  const raster::Region region = raster::Region::ofSpans(std::move(spans));
  raster::DrawContext context(picture.surface());
  context.brush = raster::Brush::solid(colour);
  context.alphaFill = picture.DIBhasAlpha();
  raster::fillRegion(context, region);
  const Rect changed = region.bounds().intersected(bounds);
  return changed.empty() ? Rect{} : changed;
}

}  // namespace ruvo::shape
