#include <uemf.h>

#include "platform/imaging/metafile_blit.h"
#include "platform/imaging/metafile_dib.h"
#include "platform/imaging/metafile_emf.h"
#include "platform/imaging/metafile_gradient.h"

namespace ruvo::imaging::meta::emf {
namespace {

constexpr std::size_t kBoundsBytes = 16;

// The fields that records with a source share, in the order that they have in common.
struct Source {
  PointF from;
  Affine map;
  DibRef dib;
};

// Where header and bits lie: two offsets with lengths, from the start of the record.
DibRef readDib(ByteReader& r, bool paletteIndices) {
  const std::size_t infoAt = r.u32(), infoSize = r.u32(), bitsAt = r.u32(), bitsSize = r.u32();
  return {.info = r.slice(infoAt, infoSize), .bits = r.slice(bitsAt, bitsSize), .paletteIndices = paletteIndices};
}

Source readSource(ByteReader& r) {
  Source source;
  source.from = emfPoint(r);
  source.map = emfTransform(r);
  r.skip(4);
  const bool paletteIndices = r.u32() == U_DIB_PAL_COLORS;
  source.dib = readDib(r, paletteIndices);
  return source;
}

// The part of the bitmap that a box in the source's own units is.
ImagePart partOf(const raster::Surface& bitmap, const Source& source, PointF extent) {
  const bool usable = source.map.sane() && std::abs(source.map.determinant()) > 1e-9 && source.map.upright();
  const Affine map = usable ? source.map : Affine();
  const PointF from = map.map(source.from), size = map.mapVector(extent);
  return {bitmap, from.x, from.y, size.x, size.y};
}

std::uint32_t ropByte(std::uint32_t rop) {
  return rop >> 16 & 0xFF;
}

template <bool stretched>
void blit(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const PointF at = emfPoint(r), extent = emfPoint(r);
  const std::uint32_t rop = ropByte(r.u32());
  const Source source = readSource(r);
  const PointF from = stretched ? emfPoint(r) : extent;
  if (!r.ok()) return;
  const Placement to = placementOf(p.device, at, extent);
  if (!usesSource(rop)) return drawPattern(p.device, to, rop);
  const raster::Surface bitmap = decodeDib(p.device, source.dib, kMaxPicturePixels);
  drawImage(p.device, partOf(bitmap, source, from), to, rop);
}

struct Mask {
  Point at;
  raster::Surface bits;
};

Mask readMask(Player& p, ByteReader& r) {
  Mask mask;
  mask.at = toPixel(emfPoint(r));
  const bool paletteIndices = r.u32() == U_DIB_PAL_COLORS;
  const DibRef dib = readDib(r, paletteIndices);
  if (dib) mask.bits = decodeDib(p.device, dib, kMaxPicturePixels);
  return mask;
}

constexpr std::uint32_t kLeave = 0xAA;  // the destination

void maskBlt(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const PointF at = emfPoint(r), extent = emfPoint(r);
  const std::uint32_t rops = r.u32();
  const Source source = readSource(r);
  const Mask mask = readMask(p, r);
  if (!r.ok()) return;
  const raster::Surface bitmap = decodeDib(p.device, source.dib, kMaxPicturePixels);
  const ImagePart part = partOf(bitmap, source, extent);
  const Placement to = placementOf(p.device, at, extent);
  if (mask.bits.empty()) {
    drawImage(p.device, part, to, ropByte(rops));
  } else {
    drawMasked(p.device, part, mask.bits, mask.at, to, ropByte(rops), rops >> 24);
  }
}

void plgBlt(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const PointF a = emfPoint(r), b = emfPoint(r), c = emfPoint(r);
  const PointF from = emfPoint(r), extent = emfPoint(r);
  Source source;
  source.from = from;
  source.map = emfTransform(r);
  r.skip(4);
  const bool paletteIndices = r.u32() == U_DIB_PAL_COLORS;
  source.dib = readDib(r, paletteIndices);
  const Mask mask = readMask(p, r);
  if (!r.ok()) return;
  const raster::Surface bitmap = decodeDib(p.device, source.dib, kMaxPicturePixels);
  const ImagePart part = partOf(bitmap, source, extent);
  const Placement to = Affine{b.x - a.x, b.y - a.y, c.x - a.x, c.y - a.y, a.x, a.y}.then(p.device.toPixels());
  if (mask.bits.empty()) {
    drawImage(p.device, part, to, kSourceCopy);
  } else {
    drawMasked(p.device, part, mask.bits, mask.at, to, kSourceCopy, kLeave);
  }
}

void stretchDibits(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const PointF at = emfPoint(r);
  PointF from = emfPoint(r);
  const PointF fromExtent = emfPoint(r);
  DibRef dib = readDib(r, false);
  dib.paletteIndices = r.u32() == U_DIB_PAL_COLORS;
  const std::uint32_t rop = ropByte(r.u32());
  const PointF extent = emfPoint(r);
  if (!r.ok()) return;
  const Placement to = placementOf(p.device, at, extent);
  if (!usesSource(rop)) return drawPattern(p.device, to, rop);
  const raster::Surface bitmap = decodeDib(p.device, dib, kMaxPicturePixels);
  // The source box is measured from the first row in memory.
  if (!isTopDown(dib)) from.y = bitmap.height() - from.y - fromExtent.y;
  drawImage(p.device, {bitmap, from.x, from.y, fromExtent.x, fromExtent.y}, to, rop);
}

void setDibitsToDevice(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const PointF at = emfPoint(r);
  PointF from = emfPoint(r);
  const PointF extent = emfPoint(r);
  DibRef dib = readDib(r, false);
  dib.paletteIndices = r.u32() == U_DIB_PAL_COLORS;
  const double firstScan = r.u32();
  dib.scans = r.u32();
  if (!r.ok()) return;
  const raster::Surface bitmap = decodeDib(p.device, dib, kMaxPicturePixels);
  from.y -= firstScan;
  if (!isTopDown(dib)) from.y = bitmap.height() - from.y - extent.y;
  // The target's corner is logical, its size that of the device.
  const PointF corner = p.device.toPixels().map(at);
  const Placement to = Affine{extent.x, 0, 0, extent.y, 0, 0}.then(p.device.base());
  drawImage(p.device, {bitmap, from.x, from.y, extent.x, extent.y}, {to.a, to.b, to.c, to.d, corner.x, corner.y},
            kSourceCopy);
}

template <bool keyed>
void blend(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const PointF at = emfPoint(r), extent = emfPoint(r);
  const std::uint32_t how = r.u32();
  const Source source = readSource(r);
  const PointF from = emfPoint(r);
  if (!r.ok()) return;
  const Placement to = placementOf(p.device, at, extent);
  const raster::Surface bitmap = decodeDib(p.device, source.dib, kMaxPicturePixels, !keyed);
  const ImagePart part = partOf(bitmap, source, from);
  if (keyed) {
    drawKeyed(p.device, part, to, p.colour(how));
  } else {
    drawBlended(p.device, part, to, static_cast<int>(how >> 16 & 0xFF), (how >> 24 & 1) != 0 && bitmap.depth() == 32);
  }
}

void gradientFill(Player& p, ByteReader& r) {
  r.skip(kBoundsBytes);
  const std::size_t points = r.u32(), meshes = r.u32();
  const std::uint32_t mode = r.u32();
  constexpr std::size_t kPointBytes = 16;
  if (points > r.left() / kPointBytes) return;
  std::vector<GradientPoint> corners;
  for (std::size_t i = 0; i < points; ++i) {
    GradientPoint point;
    point.at = emfPoint(r);
    for (double* channel : {&point.red, &point.green, &point.blue}) *channel = r.u16() / 256.0;
    r.skip(2);
    corners.push_back(point);
  }
  const bool triangles = mode == U_GRADIENT_FILL_TRIANGLE;
  for (std::size_t i = 0; i < meshes && r.ok(); ++i) {
    const std::size_t a = r.u32(), b = r.u32(), c = triangles ? r.u32() : 0;
    if (!r.ok() || std::max({a, b, c}) >= corners.size()) return;
    if (triangles) {
      gradientTriangle(p.device, corners[a], corners[b], corners[c]);
    } else {
      gradientRectangle(p.device, corners[a], corners[b], mode == U_GRADIENT_FILL_RECT_V);
    }
  }
}

constexpr Row kRows[] = {
    {U_EMR_BITBLT, blit<false>},
    {U_EMR_STRETCHBLT, blit<true>},
    {U_EMR_MASKBLT, maskBlt},
    {U_EMR_PLGBLT, plgBlt},
    {U_EMR_STRETCHDIBITS, stretchDibits},
    {U_EMR_SETDIBITSTODEVICE, setDibitsToDevice},
    {U_EMR_ALPHABLEND, blend<false>},
    {U_EMR_TRANSPARENTBLT, blend<true>},
    {U_EMR_GRADIENTFILL, gradientFill},
};

}  // namespace

std::span<const Row> bitmapRows() {
  return kRows;
}

}  // namespace ruvo::imaging::meta::emf
