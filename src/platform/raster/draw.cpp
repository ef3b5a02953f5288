#include "platform/raster/draw.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "platform/raster/bezier.h"
#include "platform/raster/painter.h"
#include "platform/raster/shape_rows.h"
#include "platform/raster/stroke.h"

namespace ruvo::raster {
namespace {

Rect sorted(const Rect& r) {
  return {std::min(r.left, r.right), std::min(r.top, r.bottom), std::max(r.left, r.right), std::max(r.top, r.bottom)};
}

std::vector<Point> movedBy(std::vector<Point> points, int dx, int dy) {
  for (Point& p : points) p = {p.x + dx, p.y + dy};
  return points;
}

// An outline whose every pixel is touched once, however often the walk round it passes.
void strokeOutline(const DrawContext& context, std::span<const Point> points, bool closed = true) {
  if (!context.pen.draws()) return;
  if (context.pen.broken()) return strokePolyline(context, points, closed);
  Painter painter(context, context.pen.colour);
  painter.spans(strokeSpans(painter.area(), points, closed, context.pen.width));
}

// Counter-clockwise from the top right corner, as broken pens run.
std::vector<Point> cornersOf(const Rect& r) {
  return {{r.right - 1, r.top}, {r.left, r.top}, {r.left, r.bottom - 1}, {r.right - 1, r.bottom - 1}};
}

}  // namespace

Colour getPixel(const Surface& surface, int x, int y) {
  if (!surface.bounds().contains(x, y)) return kNoColour;
  std::uint8_t index = 0;
  const std::uint8_t* pixel = looseRow(surface, y, x, 1, &index);
  if (surface.depth() <= 8) return surface.table()[*pixel].colour();
  return rgb(pixel[2], pixel[1], pixel[0]);
}

bool setPixel(const DrawContext& context, int x, int y, Colour colour) {
  if (!context.area().contains(x, y)) return false;
  Painter(context, colour).pixel(x, y);
  return true;
}

void line(const DrawContext& context, Point from, Point to) {
  const Point points[] = {from, to};
  strokePolyline(context, points, false);
}

void polyline(const DrawContext& context, std::span<const Point> points) {
  strokePolyline(context, points, false);
}

void polyBezier(const DrawContext& context, std::span<const Point> control) {
  strokePolyline(context, bezierPoints(control), false);
}

void polygon(const DrawContext& context, std::span<const Point> points) {
  if (points.size() < 2) return;
  Painter fill(context, context.brush);
  fill.spans(polygonSpans(points, context.fillMode, fill.area().top, fill.area().bottom));
  strokePolyline(context, points, true);
}

void rectangle(const DrawContext& context, Rect box) {
  box = sorted(box);
  if (box.empty()) return;
  Painter fill(context, context.brush);
  if (!context.pen.draws()) {
    const Rect inside = Rect{box.left, box.top, box.right - 1, box.bottom - 1}.intersected(fill.area());
    for (int y = inside.top; y < inside.bottom; ++y) fill.run(y, inside.left, inside.right);
    return;
  }
  const std::vector<Point> corners = cornersOf(box);
  if (context.brush.draws()) {
    const Rect inside = Rect{box.left + 1, box.top + 1, box.right - 1, box.bottom - 1}.intersected(fill.area());
    const Region outline = Region::ofSpans(strokeSpans(fill.area(), corners, true, context.pen.width));
    const Region all = inside.empty() ? Region() : Region::rect(inside);
    fill.spans(Region::combined(all, outline, RegionOp::Diff).spans());
  }
  strokeOutline(context, corners);
}

void roundRectangle(const DrawContext& context, Rect box, int ellipseWidth, int ellipseHeight) {
  box = sorted(box);
  if (box.empty()) return;
  Painter(context, context.brush)
      .spans(roundRectSpans(box.left, box.top, box.width(), box.height(), ellipseWidth, ellipseHeight));
  strokeOutline(context,
                movedBy(outlineRing(box.width(), box.height(), ellipseWidth, ellipseHeight), box.left, box.top));
}

void ellipse(const DrawContext& context, Rect box) {
  box = sorted(box);
  if (box.empty()) return;
  if (std::min(box.width(), box.height()) > 2) return roundRectangle(context, box, box.width(), box.height());
  // Too flat for an inside: the fill is a rectangle one pixel short.
  Painter fill(context, context.brush);
  for (int y = box.top; y < box.bottom - 1; ++y) fill.run(y, box.left, box.right - 1);
  strokeOutline(context, movedBy(outlineRing(box.width(), box.height(), box.width(), box.height()), box.left, box.top));
}

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kTiny = 1e-9;  // so that a pixel exactly on a ray counts as reached

double turned(double angle) {
  const double rest = std::fmod(angle, kTurn);
  return rest < 0 ? rest + kTurn : rest;
}

}  // namespace

void arc(const DrawContext& context, Rect box, Point start, Point end) {
  box = sorted(box);
  std::vector<Point> ring = outlineRing(box.width(), box.height(), box.width(), box.height());
  if (ring.empty() || !context.pen.draws()) return;
  std::reverse(ring.begin(), ring.end());
  ring = movedBy(std::move(ring), box.left, box.top);
  const double x = box.left + (box.width() - 1) / 2.0, y = box.top + (box.height() - 1) / 2.0;
  const auto angle = [&](const Point& p) { return std::atan2(y - p.y, p.x - x); };
  std::size_t first = 0, last = 0;
  double toFirst = kTurn, toLast = kTurn;
  for (std::size_t k = 0; k < ring.size(); ++k) {
    const double past = turned(angle(ring[k]) - angle(start) + kTiny);
    const double before = turned(angle(end) - angle(ring[k]) + kTiny);
    if (past < toFirst) {
      toFirst = past;
      first = k;
    }
    if (before < toLast) {
      toLast = before;
      last = k;
    }
  }
  std::rotate(ring.begin(), ring.begin() + static_cast<std::ptrdiff_t>(first), ring.end());
  const std::size_t count = (last + ring.size() - first) % ring.size();
  if (count == 0) return strokeOutline(context, ring);
  // The pixel at the end ray is the end point of the last step.
  ring.resize(count + 1);
  strokeOutline(context, ring, false);
}

void fillRect(const DrawContext& context, Rect box) {
  Painter fill(context, context.brush, Rop2::CopyPen);
  const Rect inside = box.intersected(fill.area());
  for (int y = inside.top; y < inside.bottom; ++y) fill.run(y, inside.left, inside.right);
}

void fillRegion(const DrawContext& context, const Region& region) {
  Painter(context, context.brush, Rop2::CopyPen).spans(region.spans());
}

void frameRect(const DrawContext& context, Rect box) {
  if (box.empty()) return;
  fillRect(context, {box.left, box.top, box.right, box.top + 1});
  fillRect(context, {box.left, box.bottom - 1, box.right, box.bottom});
  fillRect(context, {box.left, box.top + 1, box.left + 1, box.bottom - 1});
  fillRect(context, {box.right - 1, box.top + 1, box.right, box.bottom - 1});
}

void focusRect(const DrawContext& context, Rect box) {
  box = sorted(box);
  if (box.empty()) return;
  DrawContext plain = context;
  plain.rop2 = Rop2::Not;
  plain.alphaFill = false;
  Painter painter(plain, kBlack);
  std::vector<Point> corners = cornersOf(box);
  std::int64_t done = 0;
  for (std::size_t k = 0; k < corners.size(); ++k) {
    const ThinLine side(corners[k], corners[(k + 1) % corners.size()]);
    side.walk(painter.area(), [&](int x, int y, std::int64_t step) {
      if (penStyleOn(PenStyle::Alternate, done + step)) painter.pixel(x, y);
    });
    done += side.length();
  }
}

}  // namespace ruvo::raster
