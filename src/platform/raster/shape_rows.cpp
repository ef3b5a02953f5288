#include "platform/raster/shape_rows.h"

#include <algorithm>
#include <cstdint>

namespace ruvo::raster {
namespace {

// The walk's products of three lengths still fit 64 bits.
constexpr int kMaxSide = 500000;

bool drawable(int width, int height) {
  return width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide;
}

}  // namespace

// A midpoint walk from the left vertex, two mirrored rows at a time.
std::vector<int> ellipseRows(int width, int height) {
  if (!drawable(width, height)) return {};
  std::vector<int> rows(static_cast<std::size_t>(height), kRowNotReached);
  const std::int64_t a = width - 1, b = height - 1, odd = b & 1;
  std::int64_t dx = 4 * (1 - a) * b * b, dy = 4 * (odd + 1) * a * a;
  std::int64_t error = dx + dy + odd * a * a;
  std::int64_t left = 0, right = a, lower = (b + 1) / 2, upper = lower - odd;
  const auto reach = [&](std::int64_t y) {
    if (y >= 0 && y < height && rows[static_cast<std::size_t>(y)] == kRowNotReached) {
      rows[static_cast<std::size_t>(y)] = static_cast<int>(left);
    }
  };
  while (left <= right) {
    reach(lower);
    reach(upper);
    const std::int64_t doubled = 2 * error;
    if (doubled <= dy) {
      ++lower;
      --upper;
      dy += 8 * a * a;
      error += dy;
    }
    if (doubled >= dx) {
      ++left;
      --right;
      dx += 8 * b * b;
      error += dx;
    }
  }
  return rows;
}

std::vector<int> wholeEllipseRows(int width, int height) {
  std::vector<int> rows = ellipseRows(width, height);
  std::replace(rows.begin(), rows.end(), kRowNotReached, (width - 1) / 2);
  return rows;
}

std::vector<Span> roundRectSpans(int x, int y, int width, int height, int ew, int eh) {
  std::vector<Span> spans;
  if (!drawable(width, height)) return spans;
  ew = std::min(ew, width);
  eh = std::min(eh, height);
  const std::vector<int> corner = ew > 0 ? wholeEllipseRows(ew, eh) : std::vector<int>();
  const int cornerRows = (static_cast<int>(corner.size()) + 1) / 2;
  spans.reserve(static_cast<std::size_t>(height));
  for (int row = 0; row < height; ++row) {
    const int fromEdge = std::min(row, height - 1 - row);
    const int left = fromEdge < cornerRows ? corner[static_cast<std::size_t>(fromEdge)] : 0;
    spans.push_back({y + row, x + left, x + width - left});
  }
  return spans;
}

namespace {

struct Crossing {
  int x;
  int direction;
};

int ceilDivide(std::int64_t a, std::int64_t b) {
  return static_cast<int>(a > 0 ? (a + b - 1) / b : -(-a / b));
}

// Where the edges cross the rows from `top` on: all crossings row by row, those of row k at starts[k] .. starts[k + 1].
struct Crossings {
  int top = 0;
  std::vector<std::size_t> starts;
  std::vector<Crossing> all;
};

// Calls visit(a, b, direction, first row, row after the last) for each edge, a above b. An edge covers ymin <= y <
// ymax.
template <typename Visit>
void eachEdge(std::span<const Point> points, int top, int bottom, Visit visit) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    Point a = points[i], b = points[(i + 1) % points.size()];
    const int direction = a.y < b.y ? 1 : -1;
    if (direction < 0) std::swap(a, b);
    const int first = std::max(a.y, top), end = std::min(b.y, bottom);
    if (first < end) visit(a, b, direction, first, end);
  }
}

Crossings crossingsOf(std::span<const Point> points, int top, int bottom) {
  Crossings c;
  const auto [low, high] =
      std::minmax_element(points.begin(), points.end(), [](const Point& a, const Point& b) { return a.y < b.y; });
  top = std::max(top, low->y);
  bottom = std::min(bottom, high->y);
  c.top = top;
  if (top >= bottom) return c;
  // Sorted into rows by counting: place[k + 2] counts row k, then turns into the place where its next crossing goes.
  std::vector<std::size_t> place(static_cast<std::size_t>(bottom - top) + 2);
  eachEdge(points, top, bottom, [&](const Point&, const Point&, int, int first, int end) {
    for (int y = first; y < end; ++y) ++place[static_cast<std::size_t>(y - top) + 2];
  });
  for (std::size_t k = 1; k < place.size(); ++k) place[k] += place[k - 1];
  c.all.resize(place.back());
  eachEdge(points, top, bottom, [&](const Point& a, const Point& b, int direction, int first, int end) {
    const std::int64_t width = static_cast<std::int64_t>(b.x) - a.x, height = static_cast<std::int64_t>(b.y) - a.y;
    for (int y = first; y < end; ++y) {
      const std::int64_t down = static_cast<std::int64_t>(y) - a.y;
      // At the first whole column at or right of the edge.
      c.all[place[static_cast<std::size_t>(y - top) + 1]++] = {a.x + ceilDivide(width * down, height), direction};
    }
  });
  place.pop_back();
  c.starts = std::move(place);
  return c;
}

}  // namespace

std::vector<Span> polygonSpans(std::span<const Point> points, FillMode mode, int top, int bottom) {
  std::vector<Span> spans;
  if (points.size() < 2) return spans;
  Crossings c = crossingsOf(points, top, bottom);
  for (std::size_t row = 0; row + 1 < c.starts.size(); ++row) {
    const std::span<Crossing> here(c.all.data() + c.starts[row], c.starts[row + 1] - c.starts[row]);
    std::sort(here.begin(), here.end(), [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
    int winding = 0;
    int start = 0;
    for (const Crossing& crossing : here) {
      const bool was = winding != 0;
      winding = mode == FillMode::Alternate ? winding ^ 1 : winding + crossing.direction;
      if (!was) start = crossing.x;
      if (was && winding == 0) spans.push_back({c.top + static_cast<int>(row), start, crossing.x});
    }
  }
  normalise(spans);
  return spans;
}

namespace {

// The upper left quarter of an outline, from the middle row up to the top: in each row the columns that the row above
// does not reach, at least one.
std::vector<Point> quarterRing(int ew, int eh) {
  std::vector<Point> quarter;
  const int rowCount = (eh + 1) / 2;
  if (ew <= 2) {
    for (int y = rowCount - 1; y >= 0; --y) quarter.push_back({0, y});
    return quarter;
  }
  const std::vector<int> rows = ellipseRows(ew, eh);
  for (int y = rowCount - 1; y >= 0; --y) {
    const int left = rows[static_cast<std::size_t>(y)];
    if (left == kRowNotReached) continue;
    const int above = y > 0 ? rows[static_cast<std::size_t>(y - 1)] : kRowNotReached;
    const int last = above == kRowNotReached ? (ew - 1) / 2 : std::max(left, above - 1);
    for (int x = left; x <= last; ++x) quarter.push_back({x, y});
  }
  return quarter;
}

}  // namespace

std::vector<Point> outlineRing(int width, int height, int ew, int eh) {
  std::vector<Point> ring;
  if (!drawable(width, height)) return ring;
  const std::vector<Point> quarter = quarterRing(std::min(ew, width), std::min(eh, height));
  const auto add = [&](int x, int y) {
    if (ring.empty() || ring.back() != Point{x, y}) ring.push_back({x, y});
  };
  const int right = width - 1, bottom = height - 1;
  for (auto p = quarter.begin(); p != quarter.end(); ++p) add(p->x, p->y);
  for (auto p = quarter.rbegin(); p != quarter.rend(); ++p) add(right - p->x, p->y);
  for (auto p = quarter.begin(); p != quarter.end(); ++p) add(right - p->x, bottom - p->y);
  for (auto p = quarter.rbegin(); p != quarter.rend(); ++p) add(p->x, bottom - p->y);
  if (ring.size() > 1 && ring.front() == ring.back()) ring.pop_back();
  return ring;
}

void normalise(std::vector<Span>& spans) {
  const auto before = [](const Span& a, const Span& b) { return a.y != b.y ? a.y < b.y : a.left < b.left; };
  if (!std::is_sorted(spans.begin(), spans.end(), before)) std::sort(spans.begin(), spans.end(), before);
  std::size_t kept = 0;
  for (const Span& s : spans) {
    if (s.left >= s.right) continue;
    if (kept > 0 && spans[kept - 1].y == s.y && spans[kept - 1].right >= s.left) {
      spans[kept - 1].right = std::max(spans[kept - 1].right, s.right);
    } else {
      spans[kept++] = s;
    }
  }
  spans.resize(kept);
}

}  // namespace ruvo::raster
