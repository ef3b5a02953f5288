#include "platform/imaging/metafile_emf.h"

#include <uemf.h>

#include <array>
#include <bit>

namespace ruvo::imaging::meta {

Rect emfRect(ByteReader& r) {
  const auto number = [&] { return std::clamp(r.i32(), -1000000000, 1000000000); };
  const int left = number(), top = number(), right = number();
  return {left, top, right, number()};
}

double emfFloat(ByteReader& r) {
  const float v = std::bit_cast<float>(r.u32());
  return std::isfinite(v) ? static_cast<double>(v) : 0;
}

Affine emfTransform(ByteReader& r) {
  Affine m;
  for (double* field : {&m.a, &m.b, &m.c, &m.d, &m.e, &m.f}) *field = emfFloat(r);
  return m;
}

namespace emf {
namespace {

void setWorld(Player& p, const Affine& world) {
  if (world.sane() && std::abs(world.determinant()) > 1e-12) p.now().world = world;
}

void setWorldTransform(Player& p, ByteReader& r) {
  const Affine m = emfTransform(r);
  if (r.ok()) setWorld(p, m);
}

void modifyWorldTransform(Player& p, ByteReader& r) {
  enum : std::uint32_t { kIdentity = 1, kBefore = 2, kAfter = 3, kSet = 4 };
  const Affine m = emfTransform(r);
  const std::uint32_t how = r.u32();
  if (!r.ok()) return;
  if (how == kIdentity) p.now().world = {};
  if (how == kBefore) setWorld(p, m.then(p.now().world));
  if (how == kAfter) setWorld(p, p.now().world.then(m));
  if (how == kSet) setWorld(p, m);
}

void scaleExtent(Player& p, ByteReader& r, PointF Mapping::*extent) {
  const double xMultiply = r.i32(), xDivide = r.i32(), yMultiply = r.i32(), yDivide = r.i32();
  if (r.ok()) p.now().mapping.scaleExtent(extent, {xMultiply, yMultiply}, {xDivide, yDivide});
}

void offsetClip(Player& p, ByteReader& r) {
  const PointF by = p.device.toPixels().mapVector(emfPoint(r));
  p.device.offsetClip(toPixel(by.x), toPixel(by.y));
}

void justify(Player& p, ByteReader& r) {
  const double extra = r.i32(), count = r.i32();
  p.now().breakExtra = count > 0 ? extra / count : 0;
}

void setBrushOrigin(Player& p, ByteReader& r) {
  const PointF at = emfPoint(r);
  p.now().brushOrigin = toPixel(at);
}

constexpr Row kRows[] = {
    {U_EMR_SETBKCOLOR, [](Player& p, ByteReader& r) { p.now().backColour = p.colour(r.u32()); }},
    {U_EMR_SETTEXTCOLOR, [](Player& p, ByteReader& r) { p.now().textColour = p.colour(r.u32()); }},
    {U_EMR_SETBKMODE, [](Player& p, ByteReader& r) { setBackMode(p.now(), r.u32()); }},
    {U_EMR_SETROP2, [](Player& p, ByteReader& r) { setRop2(p.now(), r.u32()); }},
    {U_EMR_SETPOLYFILLMODE, [](Player& p, ByteReader& r) { setFillMode(p.now(), r.u32()); }},
    {U_EMR_SETSTRETCHBLTMODE, [](Player& p, ByteReader& r) { setStretchMode(p.now(), r.u32()); }},
    {U_EMR_SETTEXTALIGN, [](Player& p, ByteReader& r) { p.now().textAlign = r.u32(); }},
    {U_EMR_SETTEXTJUSTIFICATION, justify},
    {U_EMR_SETARCDIRECTION, [](Player& p, ByteReader& r) { p.now().clockwiseArcs = r.u32() == U_AD_CLOCKWISE; }},
    {U_EMR_SETMITERLIMIT, [](Player& p, ByteReader& r) { p.now().miterLimit = std::max(1.0, emfFloat(r)); }},
    {U_EMR_SETMAPMODE, [](Player& p, ByteReader& r) { p.now().mapping.setMode(static_cast<int>(r.u32() & 0xFF)); }},
    {U_EMR_SETWINDOWORGEX, [](Player& p, ByteReader& r) { p.now().mapping.windowOrigin = emfPoint(r); }},
    {U_EMR_SETWINDOWEXTEX, [](Player& p, ByteReader& r) { p.now().mapping.setWindowExtent(emfPoint(r)); }},
    {U_EMR_SETVIEWPORTORGEX, [](Player& p, ByteReader& r) { p.now().mapping.viewportOrigin = emfPoint(r); }},
    {U_EMR_SETVIEWPORTEXTEX, [](Player& p, ByteReader& r) { p.now().mapping.setViewportExtent(emfPoint(r)); }},
    {U_EMR_SCALEWINDOWEXTEX, [](Player& p, ByteReader& r) { scaleExtent(p, r, &Mapping::windowExtent); }},
    {U_EMR_SCALEVIEWPORTEXTEX, [](Player& p, ByteReader& r) { scaleExtent(p, r, &Mapping::viewportExtent); }},
    {U_EMR_SETWORLDTRANSFORM, setWorldTransform},
    {U_EMR_MODIFYWORLDTRANSFORM, modifyWorldTransform},
    {U_EMR_SETBRUSHORGEX, setBrushOrigin},
    {U_EMR_SAVEDC, [](Player& p, ByteReader&) { p.device.save(); }},
    {U_EMR_RESTOREDC, [](Player& p, ByteReader& r) { p.device.restore(r.i32()); }},
    {U_EMR_OFFSETCLIPRGN, offsetClip},
    {U_EMR_EXCLUDECLIPRECT, [](Player& p, ByteReader& r) { excludeClipRect(p.device, emfBox(r)); }},
    {U_EMR_INTERSECTCLIPRECT, [](Player& p, ByteReader& r) { intersectClipRect(p.device, emfBox(r)); }},
    {U_EMR_SETMETARGN, [](Player& p, ByteReader&) { p.device.narrowFrame(); }},
};

}  // namespace

std::span<const Row> stateRows() {
  return kRows;
}

}  // namespace emf

RecordHandler emfHandler(std::uint32_t type) {
  static const std::array<RecordHandler, U_EMR_MAX + 1> kByType = [] {
    std::array<RecordHandler, U_EMR_MAX + 1> table{};
    for (const auto& rows : {emf::stateRows(), emf::objectRows(), emf::figureRows(), emf::regionRows(), emf::textRows(),
                             emf::bitmapRows()}) {
      for (const emf::Row& row : rows) table[row.type] = row.handler;
    }
    return table;
  }();
  return type < kByType.size() ? kByType[type] : nullptr;
}

}  // namespace ruvo::imaging::meta
