#include "canvas/engine/shape_bezier.h"

#include <cmath>
#include <vector>

#include "base/rounding.h"
#include "platform/raster/bezier.h"
#include "platform/raster/draw.h"

namespace ruvo::shape {
namespace {

double distance(Point a, Point b) {
  return std::hypot(static_cast<double>(b.x) - a.x, static_cast<double>(b.y) - a.y);
}

}  // namespace

bool longEnough(Point start, Point end) {
  return distance(start, end) >= kShortestBezier;
}

void NodesOnThirds(BezierNodes& nodes) {
  const Point start = nodes[0], end = nodes[3];
  const double whole = distance(start, end);
  const int third = roundToInt(whole / 3);
  const auto along = [&](int pixels) {
    const double part = whole > 0 ? pixels / whole : 0;
    return Point{start.x + roundToInt((end.x - start.x) * part), start.y + roundToInt((end.y - start.y) * part)};
  };
  nodes[1] = along(third);
  nodes[2] = along(2 * third);
}

Rect drawBezier(clsDIB& picture, const BezierNodes& nodes, const BezierLook& look) {
  if (picture.empty()) return {};
  raster::DrawContext context(picture.surface());
  context.pen = raster::Pen::solid(look.ink, std::max(look.width, 1));
  context.brush = raster::Brush::solid(look.fill);
  context.alphaFill = picture.DIBhasAlpha();
  const std::vector<Point> points = raster::bezierPoints(nodes);
  if (look.type == 1) {
    raster::polygon(context, points);
  } else {
    raster::polyline(context, points);
  }
  Rect all;
  for (const Point& p : points) all = all.united({p.x, p.y, p.x + 1, p.y + 1});
  const int reach = context.pen.width / 2 + 1;
  all = Rect{all.left - reach, all.top - reach, all.right + reach, all.bottom + reach}.intersected(context.area());
  return all.empty() ? Rect{} : all;
}

std::array<Rect, 4> updateBezierNodePositions(const BezierNodes& nodes, const ViewGeometry& view, int side) {
  std::array<Rect, 4> boxes;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const Point at = view.toDisplay(nodes[i]);
    boxes[i] = Rect::fromSize(at.x - side / 2, at.y - side / 2, side, side);
  }
  return boxes;
}

}  // namespace ruvo::shape
