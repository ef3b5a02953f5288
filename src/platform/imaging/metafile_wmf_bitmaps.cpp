#include <uwmf.h>

#include "platform/imaging/metafile_blit.h"
#include "platform/imaging/metafile_dib.h"
#include "platform/imaging/metafile_wmf.h"

namespace ruvo::imaging::meta::wmf {
namespace {

std::uint32_t ropByte(ByteReader& r) {
  return r.u32() >> 16 & 0xFF;
}

void patBlt(Player& p, ByteReader& r) {
  const std::uint32_t rop = ropByte(r);
  const PointF extent = wmfPoint(r), at = wmfPoint(r);
  if (r.ok()) drawPattern(p.device, placementOf(p.device, at, extent), rop);
}

struct Blit {
  PointF from;
  PointF fromExtent;
  PointF at;
  PointF extent;
};

void drawOrFill(Player& p, const raster::Surface& bitmap, const Blit& b, std::uint32_t rop) {
  const Placement to = placementOf(p.device, b.at, b.extent);
  if (!usesSource(rop)) return drawPattern(p.device, to, rop);
  drawImage(p.device, {bitmap, b.from.x, b.from.y, b.fromExtent.x, b.fromExtent.y}, to, rop);
}

DibRef packed(ByteReader& r, bool paletteIndices = false) {
  return {.info = r.take(r.left()), .bits = {}, .paletteIndices = paletteIndices};
}

// Records without a bitmap have a word in its place before the target; then there is nothing but the pattern to draw.
template <bool stretched, bool device16>
void blit(Player& p, ByteReader& r) {
  const std::uint32_t rop = ropByte(r);
  Blit b;
  if (stretched) b.fromExtent = wmfPoint(r);
  b.from = wmfPoint(r);
  constexpr std::size_t kTargetBytes = 8;
  const bool without = r.left() == kTargetBytes + 2;
  if (without) r.skip(2);
  b.extent = wmfPoint(r);
  b.at = wmfPoint(r);
  if (!stretched) b.fromExtent = b.extent;
  if (!r.ok()) return;
  raster::Surface bitmap;
  if (!without && usesSource(rop)) {
    bitmap = device16 ? decodeBitmap16(r.take(r.left())) : decodeDib(p.device, packed(r), kMaxPicturePixels);
  }
  drawOrFill(p, bitmap, b, rop);
}

void stretchDib(Player& p, ByteReader& r) {
  const std::uint32_t rop = ropByte(r);
  const bool paletteIndices = r.u16() == U_DIB_PAL_COLORS;
  Blit b;
  b.fromExtent = wmfPoint(r);
  b.from = wmfPoint(r);
  b.extent = wmfPoint(r);
  b.at = wmfPoint(r);
  if (!r.ok()) return;
  const DibRef dib = packed(r, paletteIndices);
  const raster::Surface bitmap = decodeDib(p.device, dib, kMaxPicturePixels);
  // The source box is measured from the first row in memory.
  if (!isTopDown(dib)) b.from.y = bitmap.height() - b.from.y - b.fromExtent.y;
  drawOrFill(p, bitmap, b, rop);
}

void setDibToDevice(Player& p, ByteReader& r) {
  const bool paletteIndices = r.u16() == U_DIB_PAL_COLORS;
  const std::uint32_t scans = r.u16();
  const double firstScan = r.u16();
  PointF from = wmfPoint(r);
  const PointF extent = wmfPoint(r), at = wmfPoint(r);
  if (!r.ok()) return;
  DibRef dib = packed(r, paletteIndices);
  dib.scans = scans;
  const raster::Surface bitmap = decodeDib(p.device, dib, kMaxPicturePixels);
  from.y -= firstScan;
  if (!isTopDown(dib)) from.y = bitmap.height() - from.y - extent.y;
  const PointF corner = p.device.toPixels().map(at);
  const Placement to = Affine{extent.x, 0, 0, extent.y, 0, 0}.then(p.device.base());
  drawImage(p.device, {bitmap, from.x, from.y, extent.x, extent.y}, {to.a, to.b, to.c, to.d, corner.x, corner.y},
            kSourceCopy);
}

constexpr Row kRows[] = {
    {U_WMR_PATBLT, patBlt},
    {U_WMR_BITBLT, blit<false, true>},
    {U_WMR_STRETCHBLT, blit<true, true>},
    {U_WMR_DIBBITBLT, blit<false, false>},
    {U_WMR_DIBSTRETCHBLT, blit<true, false>},
    {U_WMR_STRETCHDIB, stretchDib},
    {U_WMR_SETDIBTODEV, setDibToDevice},
};

}  // namespace

std::span<const Row> bitmapRows() {
  return kRows;
}

}  // namespace ruvo::imaging::meta::wmf
