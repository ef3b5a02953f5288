// Boxes, ellipses and arcs, and regions and clips made of boxes.
#include <numbers>

#include "platform/imaging/metafile_figures.h"
#include "platform/imaging/metafile_paint.h"
#include "platform/raster/bezier.h"
#include "platform/raster/draw.h"
#include "platform/raster/shape_rows.h"

namespace ruvo::imaging::meta {
namespace {

// Beyond this side the integer models cost more than a curve.
constexpr int kLargestModel = 20000;

// The place of a box, in units where boxes are upright, and the way from there to pixels: pixels themselves where the
// mapping is upright, so that the edges that a box leaves out are pixels.
struct Frame {
  PointF low;
  PointF high;
  Affine map;
  bool flipped;  // counter-clockwise in these units is clockwise to the eye

  PointF middle() const { return {(low.x + high.x) / 2, (low.y + high.y) / 2}; }
  PointF radius() const { return {(high.x - low.x) / 2, (high.y - low.y) / 2}; }
};

Frame frameOf(const Device& device, const Box& box) {
  const Affine map = device.toPixels();
  if (map.upright()) {
    const Rect r = device.pixelBox(box.from, box.to);
    return {{static_cast<double>(r.left), static_cast<double>(r.top)},
            {static_cast<double>(std::max(r.left, r.right - 1)), static_cast<double>(std::max(r.top, r.bottom - 1))},
            {},
            false};
  }
  return {{std::min(box.from.x, box.to.x), std::min(box.from.y, box.to.y)},
          {std::max(box.from.x, box.to.x), std::max(box.from.y, box.to.y)},
          map,
          device.now().mapping.toDevice().determinant() < 0};
}

// Where the integer models can draw the figure.
bool modelFits(const Device& device, const Rect& box) {
  const PenSpec& pen = *device.now().pen;
  // A wide pen is set down at every pixel of the model's rim.
  constexpr double kMostRim = 1000000;
  const double rim = 2.0 * (box.width() + box.height());
  const bool plainPen = !pen.geometric || pen.style == raster::PenStyle::Null;
  return plainPen && pen.dashes.empty() && !device.path().open() && device.toPixels().upright() &&
         box.width() <= kLargestModel && box.height() <= kLargestModel && rim * device.penPixels() < kMostRim;
}

bool chargeModel(Device& device, const Rect& box) {
  const Rect inside = box.intersected(device.clipBox());
  const double area = inside.empty() ? 0 : static_cast<double>(inside.width()) * inside.height();
  const double rim = box.width() + box.height();
  return device.charge(500 + (1 + device.pixelCost(*device.now().brush)) * area + rim * (60 + 30 * device.penPixels()));
}

// A part of an ellipse as Bezier control points, `sweep` radians counter-clockwise to the eye (y grows downwards).
std::vector<PointF> arcControl(PointF centre, PointF radius, double start, double sweep) {
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (std::numbers::pi / 2) - 1e-9)));
  const double step = sweep / pieces;
  const double reach = 4.0 / 3 * std::tan(step / 4);
  const auto at = [&](double t) {
    return PointF{centre.x + radius.x * std::cos(t), centre.y - radius.y * std::sin(t)};
  };
  const auto tangent = [&](double t) { return PointF{-radius.x * std::sin(t), -radius.y * std::cos(t)}; };
  std::vector<PointF> control{at(start)};
  for (int i = 0; i < pieces; ++i) {
    const double t0 = start + i * step, t1 = t0 + step;
    const PointF p0 = at(t0), p3 = at(t1), d0 = tangent(t0), d3 = tangent(t1);
    control.push_back({p0.x + reach * d0.x, p0.y + reach * d0.y});
    control.push_back({p3.x - reach * d3.x, p3.y - reach * d3.y});
    control.push_back(p3);
  }
  return control;
}

std::vector<Point> curve(Device& device, const Affine& map, std::span<const PointF> control) {
  if (!device.charge(1500.0 * static_cast<double>(control.size()))) return {};
  std::vector<Point> pixels;
  for (const PointF& p : control) pixels.push_back(toPixel(map.map(p)));
  return raster::bezierPoints(pixels);
}

Outline ellipseOutline(Device& device, const Box& box) {
  const Frame frame = frameOf(device, box);
  return {{curve(device, frame.map, arcControl(frame.middle(), frame.radius(), 0, 2 * std::numbers::pi)), true}};
}

}  // namespace

Outline boxOutline(const Device& device, const Box& box) {
  const Frame f = frameOf(device, box);
  Subpath ring{{}, true};
  for (const PointF p : {PointF{f.high.x, f.low.y}, f.low, PointF{f.low.x, f.high.y}, f.high}) {
    ring.points.push_back(toPixel(f.map.map(p)));
  }
  return {ring};
}

void rectangle(Device& device, const Box& box) {
  const Rect pixels = device.pixelBox(box.from, box.to);
  if (modelFits(device, pixels)) {
    if (chargeModel(device, pixels)) raster::rectangle(device.context(), pixels);
  } else {
    drawOutline(device, boxOutline(device, box), true, true);
  }
}

void ellipse(Device& device, const Box& box) {
  const Rect pixels = device.pixelBox(box.from, box.to);
  if (modelFits(device, pixels)) {
    if (chargeModel(device, pixels)) raster::ellipse(device.context(), pixels);
  } else {
    drawOutline(device, ellipseOutline(device, box), true, true);
  }
}

void roundRectangle(Device& device, const Box& box, PointF corner) {
  const Rect pixels = device.pixelBox(box.from, box.to);
  if (modelFits(device, pixels)) {
    const PointF size = device.toPixels().mapVector(corner);
    const int width = std::abs(toPixel(size.x)), height = std::abs(toPixel(size.y));
    if (chargeModel(device, pixels)) raster::roundRectangle(device.context(), pixels, width, height);
    return;
  }
  const Frame f = frameOf(device, box);
  if (f.map.upright()) corner = device.toPixels().mapVector(corner);
  const PointF r{std::min(std::abs(corner.x) / 2, f.radius().x), std::min(std::abs(corner.y) / 2, f.radius().y)};
  Subpath ring{{}, true};
  const double quarter = std::numbers::pi / 2;
  const PointF centres[] = {{f.high.x - r.x, f.low.y + r.y},
                            {f.low.x + r.x, f.low.y + r.y},
                            {f.low.x + r.x, f.high.y - r.y},
                            {f.high.x - r.x, f.high.y - r.y}};
  for (int i = 0; i < 4; ++i) {
    const std::vector<Point> part = curve(device, f.map, arcControl(centres[i], r, i * quarter, quarter));
    ring.points.insert(ring.points.end(), part.begin(), part.end());
  }
  drawOutline(device, {ring}, true, true);
}

void arc(Device& device, const Box& box, PointF start, PointF end, ArcKind kind) {
  const Frame f = frameOf(device, box);
  const PointF centre = f.middle(), radius = f.radius();
  const Affine toFrame = device.toPixels().upright() ? device.toPixels() : Affine();
  if (radius.x <= 0 || radius.y <= 0) return;
  const auto angleOf = [&](PointF p) {
    const PointF q = toFrame.map(p);
    return std::atan2((centre.y - q.y) / radius.y, (q.x - centre.x) / radius.x);
  };
  const double from = angleOf(start);
  const bool clockwise = device.now().clockwiseArcs != f.flipped;
  double sweep = clockwise ? from - angleOf(end) : angleOf(end) - from;
  if (sweep <= 1e-9) sweep += 2 * std::numbers::pi;
  std::vector<Point> points = curve(device, f.map, arcControl(centre, radius, from, clockwise ? -sweep : sweep));
  if (points.empty()) return;
  if (kind == ArcKind::ArcTo) {
    const std::optional<Affine> back = device.toPixels().inverse();
    const Point pen = device.pixel(device.now().position);
    if (device.path().open()) {
      device.path().lineThrough(pen, points);
    } else {
      std::vector<Point> joined = points;
      joined.insert(joined.begin(), pen);
      strokeOutline(device, {{std::move(joined), false}});
    }
    const Point last = points.back();
    if (back) device.now().position = back->map({static_cast<double>(last.x), static_cast<double>(last.y)});
    return;
  }
  if (kind == ArcKind::Pie) points.push_back(toPixel(f.map.map(centre)));
  const bool closed = kind != ArcKind::Arc;
  drawOutline(device, {{std::move(points), closed}}, closed, true);
}

void angleArc(Device& device, PointF centre, double radius, double startAngle, double sweep) {
  if (!(std::abs(startAngle) < 1e6 && std::abs(sweep) < 1e6)) return;
  const double degree = std::numbers::pi / 180;
  // More than whole turns draw nothing new.
  const double most = 720;
  const std::vector<PointF> control =
      arcControl(centre, {radius, radius}, startAngle * degree, std::clamp(sweep, -most, most) * degree);
  lineTo(device, control.front());
  polyBezierTo(device, std::span(control).subspan(1));
}

raster::Region regionOf(Device& device, std::span<const Rect> boxes, const Affine& toPixels) {
  constexpr std::size_t kBatch = 500000;
  std::vector<raster::Span> spans;
  // What is behind the present clip may come into sight when this becomes a clip itself.
  Clip kept = device.openClip();
  const Rect clip = device.clipBox();
  device.charge(20.0 * static_cast<double>(boxes.size()));
  for (const Rect& r : boxes) {
    const PointF a{static_cast<double>(r.left), static_cast<double>(r.top)};
    const PointF b{static_cast<double>(r.right), static_cast<double>(r.bottom)};
    if (!toPixels.upright()) {
      const PointF corners[] = {a, {b.x, a.y}, b, {a.x, b.y}};
      Subpath ring{{}, true};
      for (const PointF& p : corners) ring.points.push_back(toPixel(toPixels.map(p)));
      const raster::Region part = filledRegion(device, {ring}, raster::FillMode::Winding);
      spans.insert(spans.end(), part.spans().begin(), part.spans().end());
    } else {
      const Point p = toPixel(toPixels.map(a)), q = toPixel(toPixels.map(b));
      const Rect inside =
          Rect{std::min(p.x, q.x), std::min(p.y, q.y), std::max(p.x, q.x), std::max(p.y, q.y)}.intersected(clip);
      if (inside.empty()) continue;
      if (!device.charge(150.0 * inside.height())) break;
      for (int y = inside.top; y < inside.bottom; ++y) spans.push_back({y, inside.left, inside.right});
    }
    if (spans.size() < kBatch) continue;
    // Boxes of one region do not overlap, so what stays long after merging is no region of use.
    raster::normalise(spans);
    if (spans.size() >= kBatch) break;
  }
  device.now().clip = std::move(kept);
  return raster::Region::ofSpans(std::move(spans));
}

void frameRegion(Device& device, const raster::Region& region, const BrushSpec& brush, PointF thickness) {
  const PointF size = device.toPixels().mapVector(thickness);
  const int dx = std::max(1, std::abs(toPixel(size.x))), dy = std::max(1, std::abs(toPixel(size.y)));
  if (!device.charge(1000.0 * static_cast<double>(region.spans().size()))) return;
  raster::Region inside = region;
  for (const Point shift : {Point{dx, 0}, Point{-dx, 0}, Point{0, dy}, Point{0, -dy}}) {
    raster::Region moved = region;
    moved.offset(shift.x, shift.y);
    inside = raster::Region::combined(inside, moved, raster::RegionOp::And);
  }
  paintRegion(device, raster::Region::combined(region, inside, raster::RegionOp::Diff), brush);
}

void invertRegion(Device& device, const raster::Region& region) {
  const raster::Rop2 kept = std::exchange(device.now().rop2, raster::Rop2::Not);
  paintRegion(device, region, BrushSpec{});
  device.now().rop2 = kept;
}

void intersectClipRect(Device& device, const Box& box) {
  if (device.toPixels().upright()) {
    device.intersectClip(device.pixelBox(box.from, box.to));
  } else {
    device.combineClip(filledRegion(device, boxOutline(device, box), raster::FillMode::Winding), raster::RegionOp::And);
  }
}

void excludeClipRect(Device& device, const Box& box) {
  if (device.toPixels().upright()) {
    const Rect inside = device.pixelBox(box.from, box.to).intersected(device.clipBox());
    if (!inside.empty()) device.combineClip(raster::Region::rect(inside), raster::RegionOp::Diff);
  } else {
    device.combineClip(filledRegion(device, boxOutline(device, box), raster::FillMode::Winding),
                       raster::RegionOp::Diff);
  }
}

}  // namespace ruvo::imaging::meta
