#include "platform/imaging/metafile_figures.h"

#include "platform/imaging/metafile_paint.h"
#include "platform/raster/bezier.h"
#include "platform/raster/draw.h"
#include "platform/raster/flood_fill.h"

namespace ruvo::imaging::meta {
namespace {

std::vector<Point> pixelsOf(const Device& device, std::span<const PointF> points) {
  const Affine map = device.toPixels();
  std::vector<Point> pixels;
  pixels.reserve(points.size());
  for (const PointF& p : points) pixels.push_back(toPixel(map.map(p)));
  return pixels;
}

// The points behind the first of a Bezier line, whose pieces may be 256 points each.
std::vector<Point> curveThrough(Device& device, std::span<const Point> control) {
  if (!device.charge(1500.0 * static_cast<double>(control.size()))) return {};
  return raster::bezierPoints(control);
}

// Goes on from the current position.
void lineOn(Device& device, std::vector<Point> points) {
  if (points.size() < 2) return;
  if (device.path().open()) {
    device.path().lineThrough(points.front(), std::span(points).subspan(1));
  } else {
    strokeOutline(device, {{std::move(points), false}});
  }
}

}  // namespace

void moveTo(Device& device, PointF to) {
  device.now().position = to;
  device.path().moveTo();
}

void lineTo(Device& device, PointF to) {
  polylineTo(device, std::span(&to, 1));
}

void polyline(Device& device, std::span<const PointF> points) {
  if (points.size() < 2) return;
  drawOutline(device, {{pixelsOf(device, points), false}}, false, true);
}

void polylineTo(Device& device, std::span<const PointF> points) {
  if (points.empty()) return;
  std::vector<Point> pixels = pixelsOf(device, points);
  pixels.insert(pixels.begin(), device.pixel(device.now().position));
  lineOn(device, std::move(pixels));
  device.now().position = points.back();
}

void polyBezier(Device& device, std::span<const PointF> points) {
  if (points.size() < 4) return;
  drawOutline(device, {{curveThrough(device, pixelsOf(device, points)), false}}, false, true);
}

void polyBezierTo(Device& device, std::span<const PointF> points) {
  points = points.first(points.size() / 3 * 3);
  if (points.empty()) return;
  std::vector<Point> control = pixelsOf(device, points);
  control.insert(control.begin(), device.pixel(device.now().position));
  lineOn(device, curveThrough(device, control));
  device.now().position = points.back();
}

void polyDraw(Device& device, std::span<const PointF> points, std::span<const std::uint8_t> types) {
  enum : std::uint8_t { kClose = 1, kLine = 2, kBezier = 4, kMove = 6 };
  PointF start = device.now().position;
  for (std::size_t i = 0; i < std::min(points.size(), types.size()); ++i) {
    const int type = types[i] & ~kClose;
    std::size_t last = i;
    if (type == kMove) {
      moveTo(device, points[i]);
      start = points[i];
    } else if (type == kLine) {
      lineTo(device, points[i]);
    } else if (type == kBezier && i + 2 < points.size() && i + 2 < types.size()) {
      polyBezierTo(device, points.subspan(i, 3));
      last = i + 2;
    } else {
      return;
    }
    i = last;
    if ((types[i] & kClose) == 0) continue;
    if (device.path().open()) {
      device.path().closeFigure();
    } else {
      lineTo(device, start);
    }
  }
}

void polygons(Device& device, std::span<const Places> rings) {
  Outline outline;
  for (const Places& ring : rings) {
    if (ring.size() >= 2) outline.push_back({pixelsOf(device, ring), true});
  }
  drawOutline(device, outline, true, true);
}

void polylines(Device& device, std::span<const Places> lines) {
  Outline outline;
  for (const Places& line : lines) {
    if (line.size() >= 2) outline.push_back({pixelsOf(device, line), false});
  }
  drawOutline(device, outline, false, true);
}

void setPixel(Device& device, PointF at, Colour colour) {
  if (!device.charge(100)) return;
  raster::DrawContext context = device.context(BrushSpec{});
  context.rop2 = raster::Rop2::CopyPen;
  const Point p = device.pixel(at);
  raster::setPixel(context, p.x, p.y, colour);
}

void extFloodFill(Device& device, PointF at, Colour colour, bool surface) {
  const Rect& clip = device.clipBox();
  if (clip.empty() || !device.charge(30.0 * clip.width() * clip.height())) return;
  const Point p = device.pixel(at);
  raster::floodFill(device.context(), p.x, p.y, colour,
                    surface ? raster::FloodMode::Surface : raster::FloodMode::Border);
}

void fillPath(Device& device) {
  const bool widened = device.path().widened();
  const Outline outline = device.path().take();
  if (widened) {
    paintRegion(device, strokedRegion(device, outline), *device.now().brush);
  } else {
    fillOutline(device, outline);
  }
}

void strokePath(Device& device) {
  strokeOutline(device, device.path().take());
}

void strokeAndFillPath(Device& device) {
  Outline outline = device.path().take();
  fillOutline(device, outline);
  // The stroke goes all the way round what was filled.
  for (Subpath& part : outline) part.closed = true;
  strokeOutline(device, outline);
}

void selectClipPath(Device& device, std::optional<raster::RegionOp> op) {
  const bool widened = device.path().widened();
  const Outline outline = device.path().take();
  Clip kept = device.openClip();
  const raster::Region region =
      widened ? strokedRegion(device, outline) : filledRegion(device, outline, device.now().fillMode);
  device.now().clip = std::move(kept);
  device.combineClip(region, op);
}

}  // namespace ruvo::imaging::meta
