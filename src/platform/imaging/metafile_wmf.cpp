#include "platform/imaging/metafile_wmf.h"

#include <uwmf.h>

#include <array>

namespace ruvo::imaging::meta {
namespace wmf {
namespace {

double word(ByteReader& r) {
  return static_cast<std::int16_t>(r.u16());
}

// Extents and their ratios: y before x, and the divisor before the factor.
void scaleExtent(Player& p, ByteReader& r, PointF Mapping::*extent) {
  const double yDivide = word(r), yMultiply = word(r), xDivide = word(r), xMultiply = word(r);
  if (r.ok()) p.now().mapping.scaleExtent(extent, {xMultiply, yMultiply}, {xDivide, yDivide});
}

void offset(PointF& origin, ByteReader& r) {
  const PointF by = wmfPoint(r);
  constexpr double kFarthest = 1e7;
  origin = {std::clamp(origin.x + by.x, -kFarthest, kFarthest), std::clamp(origin.y + by.y, -kFarthest, kFarthest)};
}

void offsetClip(Player& p, ByteReader& r) {
  const PointF by = p.device.toPixels().mapVector(wmfPoint(r));
  p.device.offsetClip(toPixel(by.x), toPixel(by.y));
}

void justify(Player& p, ByteReader& r) {
  const double count = word(r), extra = word(r);
  p.now().breakExtra = count > 0 ? extra / count : 0;
}

constexpr Row kRows[] = {
    {U_WMR_SETBKCOLOR, [](Player& p, ByteReader& r) { p.now().backColour = p.colour(r.u32()); }},
    {U_WMR_SETTEXTCOLOR, [](Player& p, ByteReader& r) { p.now().textColour = p.colour(r.u32()); }},
    {U_WMR_SETBKMODE, [](Player& p, ByteReader& r) { setBackMode(p.now(), r.u16()); }},
    {U_WMR_SETROP2, [](Player& p, ByteReader& r) { setRop2(p.now(), r.u16()); }},
    {U_WMR_SETPOLYFILLMODE, [](Player& p, ByteReader& r) { setFillMode(p.now(), r.u16()); }},
    {U_WMR_SETSTRETCHBLTMODE, [](Player& p, ByteReader& r) { setStretchMode(p.now(), r.u16()); }},
    {U_WMR_SETTEXTALIGN, [](Player& p, ByteReader& r) { p.now().textAlign = r.u16(); }},
    {U_WMR_SETTEXTCHAREXTRA, [](Player& p, ByteReader& r) { p.now().charExtra = word(r); }},
    {U_WMR_SETTEXTJUSTIFICATION, justify},
    {U_WMR_SETMAPMODE, [](Player& p, ByteReader& r) { p.now().mapping.setMode(r.u16()); }},
    {U_WMR_SETWINDOWORG, [](Player& p, ByteReader& r) { p.now().mapping.windowOrigin = wmfPoint(r); }},
    {U_WMR_SETWINDOWEXT, [](Player& p, ByteReader& r) { p.now().mapping.setWindowExtent(wmfPoint(r)); }},
    {U_WMR_SETVIEWPORTORG, [](Player& p, ByteReader& r) { p.now().mapping.viewportOrigin = wmfPoint(r); }},
    {U_WMR_SETVIEWPORTEXT, [](Player& p, ByteReader& r) { p.now().mapping.setViewportExtent(wmfPoint(r)); }},
    {U_WMR_OFFSETWINDOWORG, [](Player& p, ByteReader& r) { offset(p.now().mapping.windowOrigin, r); }},
    {U_WMR_OFFSETVIEWPORTORG, [](Player& p, ByteReader& r) { offset(p.now().mapping.viewportOrigin, r); }},
    {U_WMR_SCALEWINDOWEXT, [](Player& p, ByteReader& r) { scaleExtent(p, r, &Mapping::windowExtent); }},
    {U_WMR_SCALEVIEWPORTEXT, [](Player& p, ByteReader& r) { scaleExtent(p, r, &Mapping::viewportExtent); }},
    {U_WMR_SAVEDC, [](Player& p, ByteReader&) { p.device.save(); }},
    {U_WMR_RESTOREDC, [](Player& p, ByteReader& r) { p.device.restore(static_cast<std::int16_t>(r.u16())); }},
    {U_WMR_OFFSETCLIPRGN, offsetClip},
    {U_WMR_EXCLUDECLIPRECT, [](Player& p, ByteReader& r) { excludeClipRect(p.device, wmfBox(r)); }},
    {U_WMR_INTERSECTCLIPRECT, [](Player& p, ByteReader& r) { intersectClipRect(p.device, wmfBox(r)); }},
};

}  // namespace

std::span<const Row> stateRows() {
  return kRows;
}

}  // namespace wmf

RecordHandler wmfHandler(std::uint32_t type) {
  static const std::array<RecordHandler, 256> kByType = [] {
    std::array<RecordHandler, 256> table{};
    for (const auto& rows :
         {wmf::stateRows(), wmf::objectRows(), wmf::figureRows(), wmf::textRows(), wmf::bitmapRows()}) {
      for (const wmf::Row& row : rows) table[row.type] = row.handler;
    }
    return table;
  }();
  return type < kByType.size() ? kByType[type] : nullptr;
}

void setBackMode(State& state, std::uint32_t mode) {
  if (mode == 1 || mode == 2) state.backMode = static_cast<raster::BackMode>(mode);
}

void setRop2(State& state, std::uint32_t rop) {
  if (rop >= 1 && rop <= 16) state.rop2 = static_cast<raster::Rop2>(rop);
}

void setFillMode(State& state, std::uint32_t mode) {
  if (mode == 1 || mode == 2) state.fillMode = static_cast<raster::FillMode>(mode);
}

void setStretchMode(State& state, std::uint32_t mode) {
  if (mode >= 1 && mode <= 4) state.stretchMode = static_cast<raster::StretchMode>(mode);
}

}  // namespace ruvo::imaging::meta
