#include "platform/imaging/metafile_gradient.h"

#include "platform/imaging/metafile_paint.h"
#include "platform/raster/shape_rows.h"

namespace ruvo::imaging::meta {
namespace {

std::uint8_t byteOf(double v) {
  return static_cast<std::uint8_t>(std::clamp(v, 0.0, 255.0));
}

// Every pixel of the region takes shade(x, y).
template <typename Shade>
void paint(Device& device, const raster::Region& region, Shade shade) {
  const Clip& clip = device.now().clip;
  const auto part = [&](int y, int left, int right) {
    auto* row = reinterpret_cast<Pixel32*>(device.surface().pictureRow(y));
    for (int x = std::max(left, clip.box.left); x < std::min(right, clip.box.right); ++x) row[x] = shade(x, y);
  };
  for (const raster::Span& s : region.spans()) {
    if (s.y < clip.box.top || s.y >= clip.box.bottom) continue;
    if (!clip.region) {
      part(s.y, s.left, s.right);
      continue;
    }
    for (const raster::Span& c : clip.region->row(s.y)) part(s.y, std::max(s.left, c.left), std::min(s.right, c.right));
  }
}

Pixel32 mixed(const GradientPoint& a, const GradientPoint& b, double share) {
  const double t = std::clamp(share, 0.0, 1.0);
  return {byteOf(a.blue + t * (b.blue - a.blue)), byteOf(a.green + t * (b.green - a.green)),
          byteOf(a.red + t * (b.red - a.red)), 0};
}

bool chargeArea(Device& device, const Outline& shape) {
  const Rect box = boundsOf(shape).intersected(device.clipBox());
  return !box.empty() && device.charge(20.0 * box.width() * box.height());
}

}  // namespace

void gradientRectangle(Device& device, const GradientPoint& a, const GradientPoint& b, bool downwards) {
  const Affine map = device.toPixels();
  Subpath ring{{}, true};
  for (const PointF p : {a.at, PointF{b.at.x, a.at.y}, b.at, PointF{a.at.x, b.at.y}}) {
    ring.points.push_back(toPixel(map.map(p)));
  }
  const Outline shape{ring};
  const PointF from = map.map(a.at);
  const PointF along = map.mapVector(downwards ? PointF{0, b.at.y - a.at.y} : PointF{b.at.x - a.at.x, 0});
  const double squared = along.x * along.x + along.y * along.y;
  if (squared < 1e-9 || !chargeArea(device, shape)) return;
  paint(device, filledRegion(device, shape, raster::FillMode::Winding),
        [&](int x, int y) { return mixed(a, b, ((x - from.x) * along.x + (y - from.y) * along.y) / squared); });
}

void gradientTriangle(Device& device, const GradientPoint& a, const GradientPoint& b, const GradientPoint& c) {
  const Affine map = device.toPixels();
  const PointF p = map.map(a.at), q = map.map(b.at), r = map.map(c.at);
  const Outline shape{{{toPixel(p), toPixel(q), toPixel(r)}, true}};
  const double area = (q.x - p.x) * (r.y - p.y) - (r.x - p.x) * (q.y - p.y);
  if (std::abs(area) < 1e-9 || !chargeArea(device, shape)) return;
  paint(device, filledRegion(device, shape, raster::FillMode::Winding), [&](int x, int y) {
    const double u = ((x - p.x) * (r.y - p.y) - (r.x - p.x) * (y - p.y)) / area;
    const double v = ((q.x - p.x) * (y - p.y) - (x - p.x) * (q.y - p.y)) / area;
    const auto channel = [&](double at, double bt, double ct) { return byteOf(at + u * (bt - at) + v * (ct - at)); };
    return Pixel32{channel(a.blue, b.blue, c.blue), channel(a.green, b.green, c.green), channel(a.red, b.red, c.red),
                   0};
  });
}

}  // namespace ruvo::imaging::meta
