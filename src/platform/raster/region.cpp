#include "platform/raster/region.h"

#include <algorithm>

#include "platform/raster/shape_rows.h"

namespace ruvo::raster {
namespace {

Rect sorted(const Rect& r) {
  return {std::min(r.left, r.right), std::min(r.top, r.bottom), std::max(r.left, r.right), std::max(r.top, r.bottom)};
}

bool inside(bool a, bool b, RegionOp op) {
  switch (op) {
    case RegionOp::And:
      return a && b;
    case RegionOp::Or:
      return a || b;
    case RegionOp::Xor:
      return a != b;
    case RegionOp::Diff:
      return a && !b;
  }
  return false;
}

// One row of both regions: walks over all places where either changes.
void combineRow(std::span<const Span> a, std::span<const Span> b, int y, RegionOp op, std::vector<Span>& out) {
  struct Edge {
    int x;
    bool ofA;
  };
  std::vector<Edge> edges;
  for (const Span& s : a) edges.insert(edges.end(), {{s.left, true}, {s.right, true}});
  for (const Span& s : b) edges.insert(edges.end(), {{s.left, false}, {s.right, false}});
  std::sort(edges.begin(), edges.end(), [](const Edge& p, const Edge& q) { return p.x < q.x; });
  bool inA = false, inB = false, was = false;
  int start = 0;
  for (std::size_t i = 0; i < edges.size();) {
    const int x = edges[i].x;
    for (; i < edges.size() && edges[i].x == x; ++i) (edges[i].ofA ? inA : inB) ^= true;
    const bool now = inside(inA, inB, op);
    if (now && !was) start = x;
    if (was && !now) out.push_back({y, start, x});
    was = now;
  }
}

std::span<const Span> takeRow(std::span<const Span>& rest, int y) {
  std::size_t n = 0;
  while (n < rest.size() && rest[n].y == y) ++n;
  const auto row = rest.first(n);
  rest = rest.subspan(n);
  return row;
}

}  // namespace

Region Region::ofSpans(std::vector<Span> spans) {
  Region region;
  region.spans_ = std::move(spans);
  normalise(region.spans_);
  return region;
}

Region Region::rect(Rect corners) {
  const Rect r = sorted(corners);
  Region region;
  if (r.empty()) return region;
  for (int y = r.top; y < r.bottom; ++y) region.spans_.push_back({y, r.left, r.right});
  return region;
}

Region Region::ellipse(Rect corners) {
  const Rect r = sorted(corners);
  return ofSpans(ellipseSpans(r.left, r.top, r.width() - 1, r.height() - 1));
}

Region Region::roundRect(Rect corners, int ellipseWidth, int ellipseHeight) {
  const Rect r = sorted(corners);
  return ofSpans(roundRectSpans(r.left, r.top, r.width() - 1, r.height() - 1, ellipseWidth, ellipseHeight));
}

Region Region::polygon(std::span<const Point> points, FillMode mode) {
  return ofSpans(polygonSpans(points, mode));
}

Region Region::combined(const Region& a, const Region& b, RegionOp op) {
  std::span<const Span> restA = a.spans_, restB = b.spans_;
  Region result;
  while (!restA.empty() || !restB.empty()) {
    const int y = restA.empty()   ? restB.front().y
                  : restB.empty() ? restA.front().y
                                  : std::min(restA.front().y, restB.front().y);
    const auto rowA = takeRow(restA, y);
    const auto rowB = takeRow(restB, y);
    combineRow(rowA, rowB, y, op, result.spans_);
  }
  return result;
}

bool Region::contains(int x, int y) const {
  // The first span that lies past the pixel; only the one before can hold it.
  auto after = std::upper_bound(spans_.begin(), spans_.end(), Point{x, y},
                                [](const Point& p, const Span& s) { return p.y != s.y ? p.y < s.y : p.x < s.left; });
  if (after == spans_.begin()) return false;
  --after;
  return after->y == y && x >= after->left && x < after->right;
}

std::span<const Span> Region::row(int y) const {
  const auto [first, end] = std::equal_range(spans_.begin(), spans_.end(), Span{y, 0, 0},
                                             [](const Span& a, const Span& b) { return a.y < b.y; });
  return {first, end};
}

Rect Region::bounds() const {
  if (spans_.empty()) return {};
  Rect box{spans_.front().left, spans_.front().y, spans_.front().right, spans_.back().y + 1};
  for (const Span& s : spans_) {
    box.left = std::min(box.left, s.left);
    box.right = std::max(box.right, s.right);
  }
  return box;
}

void Region::offset(int dx, int dy) {
  for (Span& s : spans_) s = {s.y + dy, s.left + dx, s.right + dx};
}

}  // namespace ruvo::raster
