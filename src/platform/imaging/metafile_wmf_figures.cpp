#include <uwmf.h>

#include "platform/imaging/metafile_paint.h"
#include "platform/imaging/metafile_wmf.h"

namespace ruvo::imaging::meta::wmf {
namespace {

// `count` points, x before y, or none when they are not all there.
Places readPoints(ByteReader& r, std::size_t count) {
  Places points;
  if (count > r.left() / 4) return points;
  points.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double x = static_cast<std::int16_t>(r.u16());
    points.push_back({x, static_cast<double>(static_cast<std::int16_t>(r.u16()))});
  }
  return points;
}

void polygon(Player& p, ByteReader& r) {
  const Places ring[] = {readPoints(r, r.u16())};
  polygons(p.device, ring);
}

void polyline(Player& p, ByteReader& r) {
  const Places points = readPoints(r, r.u16());
  meta::polyline(p.device, points);
}

void polyPolygon(Player& p, ByteReader& r) {
  const std::size_t count = r.u16();
  if (count > r.left() / 2) return;
  std::vector<std::size_t> lengths;
  for (std::size_t i = 0; i < count; ++i) lengths.push_back(r.u16());
  std::vector<Places> rings;
  for (const std::size_t length : lengths) rings.push_back(readPoints(r, length));
  polygons(p.device, rings);
}

template <ArcKind kind>
void arc(Player& p, ByteReader& r) {
  const PointF end = wmfPoint(r), start = wmfPoint(r);
  const Box box = wmfBox(r);
  if (r.ok()) meta::arc(p.device, box, start, end, kind);
}

void roundRect(Player& p, ByteReader& r) {
  const PointF corner = wmfPoint(r);
  const Box box = wmfBox(r);
  if (r.ok()) roundRectangle(p.device, box, corner);
}

void pixel(Player& p, ByteReader& r) {
  const Colour colour = p.colour(r.u32());
  const PointF at = wmfPoint(r);
  if (r.ok()) setPixel(p.device, at, colour);
}

void floodFill(Player& p, ByteReader& r) {
  const Colour colour = p.colour(r.u32());
  const PointF at = wmfPoint(r);
  if (r.ok()) extFloodFill(p.device, at, colour, false);
}

void extFloodFill(Player& p, ByteReader& r) {
  const bool surface = r.u16() == 1;
  const Colour colour = p.colour(r.u32());
  const PointF at = wmfPoint(r);
  if (r.ok()) meta::extFloodFill(p.device, at, colour, surface);
}

raster::Region regionAt(Player& p, std::size_t number, const Affine& map) {
  const auto spec = p.find<RegionSpec>(number);
  return spec ? regionOf(p.device, spec->boxes, map) : raster::Region();
}

void fillRegion(Player& p, ByteReader& r) {
  const std::size_t region = r.u16();
  if (const auto brush = p.find<BrushSpec>(r.u16())) {
    paintRegion(p.device, regionAt(p, region, p.device.toPixels()), *brush);
  }
}

void frameRegion(Player& p, ByteReader& r) {
  const std::size_t region = r.u16();
  const auto brush = p.find<BrushSpec>(r.u16());
  const PointF thickness = wmfPoint(r);
  if (brush && r.ok()) {
    meta::frameRegion(p.device, regionAt(p, region, p.device.toPixels()), *brush, thickness);
  }
}

void invertRegion(Player& p, ByteReader& r) {
  meta::invertRegion(p.device, regionAt(p, r.u16(), p.device.toPixels()));
}

void paintRegion(Player& p, ByteReader& r) {
  meta::paintRegion(p.device, regionAt(p, r.u16(), p.device.toPixels()), *p.now().brush);
}

// Number 0 with no region there stands for none at all.
void selectClipRegion(Player& p, ByteReader& r) {
  const std::size_t number = r.u16();
  if (p.find<RegionSpec>(number)) {
    p.device.combineClip(regionAt(p, number, p.device.base()), std::nullopt);
  } else {
    p.device.resetClip();
  }
}

template <void (*draw)(Device&, const Box&)>
void boxed(Player& p, ByteReader& r) {
  const Box box = wmfBox(r);
  if (r.ok()) draw(p.device, box);
}

constexpr Row kRows[] = {
    {U_WMR_MOVETO, [](Player& p, ByteReader& r) { moveTo(p.device, wmfPoint(r)); }},
    {U_WMR_LINETO, [](Player& p, ByteReader& r) { lineTo(p.device, wmfPoint(r)); }},
    {U_WMR_POLYGON, polygon},
    {U_WMR_POLYLINE, polyline},
    {U_WMR_POLYPOLYGON, polyPolygon},
    {U_WMR_ARC, arc<ArcKind::Arc>},
    {U_WMR_CHORD, arc<ArcKind::Chord>},
    {U_WMR_PIE, arc<ArcKind::Pie>},
    {U_WMR_ELLIPSE, boxed<ellipse>},
    {U_WMR_RECTANGLE, boxed<rectangle>},
    {U_WMR_ROUNDRECT, roundRect},
    {U_WMR_SETPIXEL, pixel},
    {U_WMR_FLOODFILL, floodFill},
    {U_WMR_EXTFLOODFILL, extFloodFill},
    {U_WMR_FILLREGION, fillRegion},
    {U_WMR_FRAMEREGION, frameRegion},
    {U_WMR_INVERTREGION, invertRegion},
    {U_WMR_PAINTREGION, paintRegion},
    {U_WMR_SELECTCLIPREGION, selectClipRegion},
};

}  // namespace

std::span<const Row> figureRows() {
  return kRows;
}

}  // namespace ruvo::imaging::meta::wmf
