#include "platform/raster/stroke.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "platform/raster/painter.h"
#include "platform/raster/shape_rows.h"

namespace ruvo::raster {

ThinLine::ThinLine(Point from, Point to) {
  const std::int64_t dx = static_cast<std::int64_t>(to.x) - from.x, dy = static_cast<std::int64_t>(to.y) - from.y;
  xMajor_ = std::abs(dx) >= std::abs(dy);
  length_ = std::max(std::abs(dx), std::abs(dy));
  majorStart_ = xMajor_ ? from.x : from.y;
  minorStart_ = xMajor_ ? from.y : from.x;
  minorDelta_ = xMajor_ ? dy : dx;
  forward_ = (xMajor_ ? dx : dy) > 0;
}

void ThinLine::stepsInside(const Rect& area, std::int64_t& first, std::int64_t& end) const {
  const std::int64_t low = xMajor_ ? area.left : area.top, high = xMajor_ ? area.right : area.bottom;
  first = std::max<std::int64_t>(0, forward_ ? low - majorStart_ : majorStart_ - high + 1);
  end = std::min(length_, forward_ ? high - majorStart_ : majorStart_ - low + 1);
}

bool penStyleOn(PenStyle style, std::int64_t step) {
  struct Runs {
    int count;
    int length;
    std::array<int, 6> runs;
  };
  static constexpr Runs kDash{2, 24, {18, 6}}, kDot{2, 6, {3, 3}}, kDashDot{4, 24, {9, 6, 3, 6}},
      kDashDotDot{6, 24, {9, 3, 3, 3, 3, 3}}, kAlternate{2, 2, {1, 1}};
  const Runs* runs = style == PenStyle::Dash         ? &kDash
                     : style == PenStyle::Dot        ? &kDot
                     : style == PenStyle::DashDot    ? &kDashDot
                     : style == PenStyle::DashDotDot ? &kDashDotDot
                     : style == PenStyle::Alternate  ? &kAlternate
                                                     : nullptr;
  if (!runs) return style != PenStyle::Null;
  std::int64_t left = step % runs->length;
  for (int k = 0; k < runs->count; ++k) {
    left -= runs->runs[static_cast<std::size_t>(k)];
    if (left < 0) return k % 2 == 0;
  }
  return false;
}

namespace {

// Collects the pixels of a thin line into horizontal runs.
class RunCollector {
 public:
  explicit RunCollector(std::vector<Span>& spans) : spans_(spans) {}
  void add(int x, int y) {
    if (!spans_.empty() && spans_.back().y == y) {
      Span& last = spans_.back();
      if (last.right == x) {
        ++last.right;
        return;
      }
      if (last.left == x + 1) {
        --last.left;
        return;
      }
    }
    spans_.push_back({y, x, x + 1});
  }

 private:
  std::vector<Span>& spans_;
};

std::vector<Span> thinSpans(const Rect& area, Point from, Point to) {
  std::vector<Span> spans;
  RunCollector collector(spans);
  ThinLine(from, to).walk(area, [&](int x, int y, std::int64_t) { collector.add(x, y); });
  return spans;
}

// ceil(width * part / sqrt(squaredLength)), exact.
std::int64_t ceilOfRatio(std::int64_t width, std::int64_t part, std::int64_t squaredLength) {
  const std::int64_t squared = width * part * width * part;
  auto k = static_cast<std::int64_t>(std::sqrt(static_cast<double>(squared) / static_cast<double>(squaredLength)));
  while (k > 0 && (k - 1) * (k - 1) * squaredLength >= squared) --k;
  while (k * k * squaredLength < squared) ++k;
  return k;
}

// The pen's shape at a point: a disc in the box whose top left is (x - width \ 2, y - width \ 2).
class WideStroke {
 public:
  WideStroke(const Rect& area, int width) : area_(area), width_(width), disc_(wholeEllipseRows(width, width)) {}

  void disc(Point at) {
    for (int row = 0; row < width_; ++row) {
      const int inset = disc_[static_cast<std::size_t>(row)];
      add(at.y - width_ / 2 + row, at.x - width_ / 2 + inset, at.x - width_ / 2 + width_ - inset);
    }
  }
  // The parallelogram between the two long sides.
  void body(Point from, Point to);
  std::vector<Span> take() {
    normalise(spans_);
    return std::move(spans_);
  }

 private:
  void add(std::int64_t y, std::int64_t left, std::int64_t right) {
    if (y < area_.top || y >= area_.bottom) return;
    left = std::max<std::int64_t>(left, area_.left);
    right = std::min<std::int64_t>(right, area_.right);
    if (left < right) spans_.push_back({static_cast<int>(y), static_cast<int>(left), static_cast<int>(right)});
  }

  Rect area_;
  int width_;
  std::vector<int> disc_;
  std::vector<Span> spans_;
};

std::int64_t ceilDivide(std::int64_t a, std::int64_t b) {
  return a > 0 ? (a + b - 1) / b : -(-a / b);
}

void WideStroke::body(Point from, Point to) {
  const std::int64_t dx = static_cast<std::int64_t>(to.x) - from.x, dy = static_cast<std::int64_t>(to.y) - from.y;
  if (dx == 0 && dy == 0) return;
  const std::int64_t squared = dx * dx + dy * dy;
  const std::int64_t across = ceilOfRatio(width_, std::abs(dy), squared);
  const std::int64_t down = ceilOfRatio(width_, std::abs(dx), squared);
  const int slope = dx * dy > 0 ? -1 : 1;
  struct Corner {
    std::int64_t x, y;
  };
  const Corner p{(across + 1) / 2, slope * ((down + 1) / 2)}, q{-(across / 2), -slope * (down / 2)};
  const Corner corners[4] = {
      {from.x + p.x, from.y + p.y}, {from.x + q.x, from.y + q.y}, {to.x + q.x, to.y + q.y}, {to.x + p.x, to.y + p.y}};
  std::int64_t top = corners[0].y, bottom = corners[0].y;
  for (const Corner& c : corners) {
    top = std::min(top, c.y);
    bottom = std::max(bottom, c.y);
  }
  top = std::max<std::int64_t>(top, area_.top);
  bottom = std::min<std::int64_t>(bottom, area_.bottom);
  // Being convex, it crosses a row exactly twice or not at all.
  for (std::int64_t y = top; y < bottom; ++y) {
    std::int64_t left = 0, right = 0;
    bool crossed = false;
    for (int k = 0; k < 4; ++k) {
      Corner a = corners[k], b = corners[(k + 1) % 4];
      if (a.y > b.y) std::swap(a, b);
      if (y < a.y || y >= b.y) continue;
      const std::int64_t x = a.x + ceilDivide((b.x - a.x) * (y - a.y), b.y - a.y);
      left = crossed ? std::min(left, x) : x;
      right = crossed ? std::max(right, x) : x;
      crossed = true;
    }
    if (crossed) add(y, left, right);
  }
}

void strokeBroken(const DrawContext& context, std::span<const Point> points, bool closed) {
  Painter ink(context, context.pen.colour);
  Painter gap(context, context.backColour);
  std::int64_t done = 0;
  const std::size_t segments = closed ? points.size() : points.size() - 1;
  for (std::size_t k = 0; k < segments; ++k) {
    const ThinLine line(points[k], points[(k + 1) % points.size()]);
    line.walk(ink.area(), [&](int x, int y, std::int64_t step) {
      if (penStyleOn(context.pen.style, done + step)) {
        ink.pixel(x, y);
      } else if (context.backMode == BackMode::Opaque) {
        gap.pixel(x, y);
      }
    });
    done += line.length();
  }
}

}  // namespace

std::vector<Span> strokeSpans(const Rect& area, std::span<const Point> points, bool closed, int width) {
  if (points.empty()) return {};
  const std::size_t segments = closed ? points.size() : points.size() - 1;
  if (width <= 1) {
    std::vector<Span> all;
    for (std::size_t k = 0; k < segments; ++k) {
      const std::vector<Span> part = thinSpans(area, points[k], points[(k + 1) % points.size()]);
      all.insert(all.end(), part.begin(), part.end());
    }
    normalise(all);
    return all;
  }
  WideStroke stroke(area, width);
  for (const Point& p : points) stroke.disc(p);
  for (std::size_t k = 0; k < segments; ++k) stroke.body(points[k], points[(k + 1) % points.size()]);
  return stroke.take();
}

void strokePolyline(const DrawContext& context, std::span<const Point> points, bool closed) {
  if (!context.pen.draws() || points.size() < 2) return;
  if (context.pen.broken()) return strokeBroken(context, points, closed);
  Painter painter(context, context.pen.colour);
  if (!context.pen.thin()) return painter.spans(strokeSpans(painter.area(), points, closed, context.pen.width));
  const std::size_t segments = closed ? points.size() : points.size() - 1;
  for (std::size_t k = 0; k < segments; ++k) {
    painter.spans(thinSpans(painter.area(), points[k], points[(k + 1) % points.size()]));
  }
}

}  // namespace ruvo::raster
