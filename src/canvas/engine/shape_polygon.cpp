#include "canvas/engine/shape_polygon.h"

#include <cmath>

#include "base/limits.h"
#include "base/rounding.h"
#include "canvas/engine/brush_mix.h"
#include "canvas/engine/image_shape.h"
#include "canvas/engine/shape_lines.h"
#include "platform/raster/blit.h"
#include "platform/raster/draw.h"
#include "platform/raster/stroke.h"

namespace ruvo::shape {
namespace {

using raster::Region;

constexpr double kPi = 3.14159265359;
constexpr int kCutOutRim = 4;
constexpr int kThinnestOutline = 2;

Region regionAround(Point centre, const AutomaticPolygon& polygon) {
  std::vector<Point> points;
  for (const PolygonCorner& corner : polygonCorners(polygon))
    points.push_back({centre.x + roundToInt(corner.x), centre.y + roundToInt(corner.y)});
  return Region::polygon(points, raster::FillMode::Winding);
}

Rect boxOf(std::span<const Point> vertices) {
  Rect box;
  for (const Point& p : vertices) box = box.united(Rect::fromSize(p.x, p.y, 1, 1));
  return box;
}

Region penOutline(std::span<const Point> vertices, const Rect& box, int size) {
  if (box == Rect::fromSize(box.left, box.top, 1, 1) && size == 1) return Region::rect(box);
  const Rect reached{box.left - size, box.top - size, box.right + size, box.bottom + size};
  return Region::ofSpans(raster::strokeSpans(reached, vertices, true, size));
}

void fill(clsDIB& picture, const Region& region, Colour colour) {
  raster::DrawContext context(picture.surface());
  context.brush = raster::Brush::solid(colour);
  context.alphaFill = picture.DIBhasAlpha();
  raster::fillRegion(context, region);
}

Region moved(Region region, Point by) {
  region.offset(by.x, by.y);
  return region;
}

}  // namespace

std::vector<PolygonCorner> polygonCorners(const AutomaticPolygon& polygon) {
  constexpr int kFewPoints = 9;
  double factor = polygon.concaveFactor;
  if (factor < 1 && polygon.points < kFewPoints) factor *= polygon.points / 10.0;
  const bool star = factor != 1;
  if (!(polygon.radius >= 1) || polygon.points < 1 || polygon.points > kMaxPolygonVertices / (star ? 2 : 1)) return {};
  const int count = polygon.points * (star ? 2 : 1);
  const double step = 2 * kPi / count;
  const double first = kPi / 2 + polygon.angle * kPi / 180;
  std::vector<PolygonCorner> corners;
  for (int i = 0; i < count; ++i) {
    const double reach = star && i % 2 == 1 ? polygon.radius * factor : polygon.radius;
    const double turn = first + i * step;
    corners.push_back({reach * std::cos(turn), -reach * std::sin(turn)});
  }
  return corners;
}

PolygonFigure automaticFigure(Point centre, const AutomaticPolygon& polygon, PolygonInk ink, int brushSize) {
  PolygonFigure figure;
  figure.shape = regionAround(centre, polygon);
  figure.pixels = figure.shape;
  if (ink == PolygonInk::Outline) {
    AutomaticPolygon inner = polygon;
    inner.radius -= std::max(brushSize, kThinnestOutline);
    figure.pixels = Region::combined(figure.shape, regionAround(centre, inner), raster::RegionOp::Diff);
  }
  const int reach = roundToInt(polygon.radius) + kCutOutRim;
  figure.cutOut = Rect::fromSize(centre.x - reach, centre.y - reach, 2 * reach, 2 * reach);
  return figure;
}

PolygonFigure figureByHand(std::span<const Point> vertices, PolygonInk ink, int brushSize) {
  PolygonFigure figure;
  figure.cutOut = boxOf(vertices);
  figure.shape = Region::polygon(vertices, raster::FillMode::Winding);
  figure.pixels = figure.shape;
  if (ink == PolygonInk::Outline && !vertices.empty()) {
    figure.pixels = penOutline(vertices, figure.cutOut, std::clamp(brushSize, 1, kWidestPen));
    figure.shape = Region::combined(figure.shape, figure.pixels, raster::RegionOp::Or);
  }
  return figure;
}

Rect paintPolygon(clsDIB& picture, const PolygonFigure& figure, Colour colour) {
  const Rect painted = figure.pixels.bounds().intersected(picture.surface().bounds());
  if (painted.empty()) return {};
  fill(picture, figure.pixels, colour);
  return painted;
}

clsDIB cutOutPolygon(const clsDIB& picture, const PolygonFigure& figure, Colour colour, Colour outside) {
  const Rect& part = figure.cutOut;
  clsDIB cut, mask;
  if (!pictureSizeAllowed(part.width(), part.height()) ||
      !mask.CreateBlankDIB(part.width(), part.height(), 32, kWhite) ||
      !cut.CreateBlankDIB(part.width(), part.height(), 32, outside))
    return {};
  const std::uint8_t alpha = brush::writtenAlpha(picture);
  if (picture.DIBhasAlpha()) raster::fillRect(cut.surface(), cut.surface().bounds(), outside, alpha);
  cut.setDIBhasAlpha(picture.DIBhasAlpha());
  const Point corner{-part.left, -part.top};
  raster::blit(cut.surface(), corner.x, corner.y, picture.surface());
  fill(cut, moved(figure.pixels, corner), colour);
  fill(mask, moved(figure.shape, corner), kBlack);
  ClearAreasOutsideImageShape(cut, mask, outside, alpha);
  return cut;
}

}  // namespace ruvo::shape
