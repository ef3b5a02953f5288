#include <uemf.h>

#include "platform/imaging/metafile_emf.h"

namespace ruvo::imaging::meta::emf {
namespace {

constexpr std::size_t kBoundsBytes = 16;  // of what the record draws; not needed to draw it

struct Wide {
  static constexpr std::size_t kBytes = 8;
  static PointF read(ByteReader& r) { return emfPoint(r); }
};
struct Narrow {
  static constexpr std::size_t kBytes = 4;
  static PointF read(ByteReader& r) {
    const double x = static_cast<std::int16_t>(r.u16());
    return {x, static_cast<double>(static_cast<std::int16_t>(r.u16()))};
  }
};

// `count` points, or none when they are not all there.
template <typename Form>
Places readPoints(ByteReader& r, std::size_t count) {
  Places points;
  if (count > r.left() / Form::kBytes) return points;
  points.reserve(count);
  for (std::size_t i = 0; i < count; ++i) points.push_back(Form::read(r));
  return points;
}

template <typename Form, void (*draw)(Device&, std::span<const PointF>)>
void poly(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const Places points = readPoints<Form>(r, r.u32());
  draw(p.device, points);
}

void polygon(Device& device, std::span<const PointF> points) {
  const Places ring[] = {Places(points.begin(), points.end())};
  polygons(device, ring);
}

template <typename Form, void (*draw)(Device&, std::span<const Places>)>
void polyPoly(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const std::size_t count = r.u32();
  r.skip(4);
  if (count > r.left() / 4) return;
  std::vector<std::size_t> lengths;
  for (std::size_t i = 0; i < count; ++i) lengths.push_back(r.u32());
  std::vector<Places> figures;
  for (const std::size_t length : lengths) figures.push_back(readPoints<Form>(r, length));
  draw(p.device, figures);
}

template <typename Form>
void polyDraw(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const std::size_t count = r.u32();
  const Places points = readPoints<Form>(r, count);
  if (!points.empty()) meta::polyDraw(p.device, points, r.take(std::min(count, r.left())));
}

template <ArcKind kind>
void arc(Player& p, ByteReader& r) {
  const Box box = emfBox(r);
  const PointF start = emfPoint(r), end = emfPoint(r);
  if (r.ok()) meta::arc(p.device, box, start, end, kind);
}

void angleArc(Player& p, ByteReader& r) {
  const PointF centre = emfPoint(r);
  const double radius = r.u32(), start = emfFloat(r), sweep = emfFloat(r);
  if (r.ok()) meta::angleArc(p.device, centre, radius, start, sweep);
}

void roundRect(Player& p, ByteReader& r) {
  const Box box = emfBox(r);
  const PointF corner = emfPoint(r);
  if (r.ok()) roundRectangle(p.device, box, corner);
}

template <void (*draw)(Device&, const Box&)>
void boxed(Player& p, ByteReader& r) {
  const Box box = emfBox(r);
  if (r.ok()) draw(p.device, box);
}

void pixel(Player& p, ByteReader& r) {
  const PointF at = emfPoint(r);
  const Colour colour = p.colour(r.u32());
  if (r.ok()) setPixel(p.device, at, colour);
}

void floodFill(Player& p, ByteReader& r) {
  const PointF at = emfPoint(r);
  const Colour colour = p.colour(r.u32());
  const bool surface = r.u32() == 1;
  if (r.ok()) extFloodFill(p.device, at, colour, surface);
}

template <void (*act)(Device&)>
void ofPath(Player& p, ByteReader&) {
  act(p.device);
}

constexpr Row kRows[] = {
    {U_EMR_MOVETOEX, [](Player& p, ByteReader& r) { moveTo(p.device, emfPoint(r)); }},
    {U_EMR_LINETO, [](Player& p, ByteReader& r) { lineTo(p.device, emfPoint(r)); }},
    {U_EMR_POLYGON, poly<Wide, polygon>},
    {U_EMR_POLYGON16, poly<Narrow, polygon>},
    {U_EMR_POLYLINE, poly<Wide, polyline>},
    {U_EMR_POLYLINE16, poly<Narrow, polyline>},
    {U_EMR_POLYLINETO, poly<Wide, polylineTo>},
    {U_EMR_POLYLINETO16, poly<Narrow, polylineTo>},
    {U_EMR_POLYBEZIER, poly<Wide, polyBezier>},
    {U_EMR_POLYBEZIER16, poly<Narrow, polyBezier>},
    {U_EMR_POLYBEZIERTO, poly<Wide, polyBezierTo>},
    {U_EMR_POLYBEZIERTO16, poly<Narrow, polyBezierTo>},
    {U_EMR_POLYPOLYGON, polyPoly<Wide, polygons>},
    {U_EMR_POLYPOLYGON16, polyPoly<Narrow, polygons>},
    {U_EMR_POLYPOLYLINE, polyPoly<Wide, polylines>},
    {U_EMR_POLYPOLYLINE16, polyPoly<Narrow, polylines>},
    {U_EMR_POLYDRAW, polyDraw<Wide>},
    {U_EMR_POLYDRAW16, polyDraw<Narrow>},
    {U_EMR_ARC, arc<ArcKind::Arc>},
    {U_EMR_ARCTO, arc<ArcKind::ArcTo>},
    {U_EMR_CHORD, arc<ArcKind::Chord>},
    {U_EMR_PIE, arc<ArcKind::Pie>},
    {U_EMR_ANGLEARC, angleArc},
    {U_EMR_ELLIPSE, boxed<ellipse>},
    {U_EMR_RECTANGLE, boxed<rectangle>},
    {U_EMR_ROUNDRECT, roundRect},
    {U_EMR_SETPIXELV, pixel},
    {U_EMR_EXTFLOODFILL, floodFill},
    {U_EMR_BEGINPATH, [](Player& p, ByteReader&) { p.device.path().begin(); }},
    {U_EMR_ENDPATH, [](Player& p, ByteReader&) { p.device.path().end(); }},
    {U_EMR_ABORTPATH, [](Player& p, ByteReader&) { p.device.path().abort(); }},
    {U_EMR_CLOSEFIGURE, [](Player& p, ByteReader&) { p.device.path().closeFigure(); }},
    {U_EMR_WIDENPATH, [](Player& p, ByteReader&) { p.device.path().setWidened(); }},
    {U_EMR_FILLPATH, ofPath<fillPath>},
    {U_EMR_STROKEPATH, ofPath<strokePath>},
    {U_EMR_STROKEANDFILLPATH, ofPath<strokeAndFillPath>},
};

}  // namespace

std::span<const Row> figureRows() {
  return kRows;
}

}  // namespace ruvo::imaging::meta::emf
