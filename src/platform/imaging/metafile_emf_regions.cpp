#include <uemf.h>

#include "platform/imaging/metafile_emf.h"
#include "platform/imaging/metafile_paint.h"

namespace ruvo::imaging::meta::emf {
namespace {

constexpr std::size_t kBoundsBytes = 16;

// How a new region meets the clip; nothing for "replace", and false for a number that means nothing.
bool clipMode(std::uint32_t mode, std::optional<raster::RegionOp>& op) {
  if (mode < U_RGN_AND || mode > U_RGN_COPY) return false;
  if (mode != U_RGN_COPY) op = static_cast<raster::RegionOp>(mode);
  return true;
}

// Header (its size, kind, count, length, bounds), then boxes.
std::vector<Rect> readBoxes(ByteReader& r, std::size_t length) {
  ByteReader data(r.take(std::min(length, r.left())));
  const std::size_t head = data.u32();
  data.skip(4);
  const std::size_t count = data.u32();
  data.seek(head);
  std::vector<Rect> boxes;
  if (!data.ok() || count > data.left() / 16) return boxes;
  boxes.reserve(count);
  for (std::size_t i = 0; i < count; ++i) boxes.push_back(emfRect(data));
  return boxes;
}

raster::Region readRegion(Player& p, ByteReader& r, std::size_t length) {
  return regionOf(p.device, readBoxes(r, length), p.device.toPixels());
}

void selectClipRegion(Player& p, ByteReader& r) {
  const std::size_t length = r.u32();
  std::optional<raster::RegionOp> op;
  if (!clipMode(r.u32(), op) || !r.ok()) return;
  if (length == 0) {
    if (!op) p.device.resetClip();
    return;
  }
  // Clip regions are in pixels of the device, not in logical units.
  const std::vector<Rect> boxes = readBoxes(r, length);
  p.device.combineClip(regionOf(p.device, boxes, p.device.base()), op);
}

void clipPath(Player& p, ByteReader& r) {
  std::optional<raster::RegionOp> op;
  if (clipMode(r.u32(), op)) selectClipPath(p.device, op);
}

void fillRegion(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const std::size_t length = r.u32();
  const auto brush = p.find<BrushSpec>(r.u32());
  if (brush) paintRegion(p.device, readRegion(p, r, length), *brush);
}

void frameRegion(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const std::size_t length = r.u32();
  const auto brush = p.find<BrushSpec>(r.u32());
  const PointF thickness = emfPoint(r);
  if (brush) meta::frameRegion(p.device, readRegion(p, r, length), *brush, thickness);
}

void invertRegion(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const std::size_t length = r.u32();
  meta::invertRegion(p.device, readRegion(p, r, length));
}

void paintSelected(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const std::size_t length = r.u32();
  paintRegion(p.device, readRegion(p, r, length), *p.now().brush);
}

constexpr Row kRows[] = {
    {U_EMR_EXTSELECTCLIPRGN, selectClipRegion},
    {U_EMR_SELECTCLIPPATH, clipPath},
    {U_EMR_FILLRGN, fillRegion},
    {U_EMR_FRAMERGN, frameRegion},
    {U_EMR_INVERTRGN, invertRegion},
    {U_EMR_PAINTRGN, paintSelected},
};

}  // namespace

std::span<const Row> regionRows() {
  return kRows;
}

}  // namespace ruvo::imaging::meta::emf
