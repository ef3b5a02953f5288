#include "platform/imaging/metafile_blit.h"

#include "platform/imaging/pixel_rows.h"
#include "platform/raster/blit.h"
#include "platform/raster/draw.h"
#include "platform/raster/painter.h"
#include "platform/raster/stretch.h"

namespace ruvo::imaging::meta {
namespace {

// Pixels that wait to be combined with the surface.
struct Layer {
  Rect box;                // on the surface, inside the clip's box
  raster::Surface pixels;  // 32 bits, the box's size; empty when nothing is to be drawn
  std::vector<bool> open;  // pixels that stay as they are; empty: none

  const Pixel32* row(int y) const { return reinterpret_cast<const Pixel32*>(pixels.pictureRow(y - box.top)); }
  bool isOpen(int x, int y) const {
    return !open.empty() && open[static_cast<std::size_t>(y - box.top) * static_cast<std::size_t>(box.width()) +
                                 static_cast<std::size_t>(x - box.left)];
  }
};

Rect boxOf(const Placement& to) {
  Outline corners(1);
  for (const PointF p : {PointF{0, 0}, PointF{1, 0}, PointF{0, 1}, PointF{1, 1}}) {
    corners[0].points.push_back(toPixel(to.map(p)));
  }
  Rect box = boundsOf(corners);
  // The last column and row of corners are outside.
  return {box.left, box.top, box.right - 1, box.bottom - 1};
}

bool prepare(Device& device, const Placement& to, Layer& layer) {
  constexpr double kPerPixel = 25;
  layer.box = boxOf(to).intersected(device.clipBox());
  if (layer.box.empty() || !to.sane()) return false;
  const double area = static_cast<double>(layer.box.width()) * layer.box.height();
  return device.charge(200 + kPerPixel * area) && layer.pixels.create(layer.box.width(), layer.box.height(), 32);
}

// The signed run of pixels between two edges: mirrored ones start with the pixel before the edge.
void run(int from, int to, int& start, int& length) {
  length = to - from;
  start = length < 0 ? from - 1 : from;
}

raster::Extent targetOf(const Placement& to, Point shift) {
  const Point a = toPixel(PointF{to.e, to.f}), b = toPixel(to.map({1, 1}));
  raster::Extent extent;
  run(a.x - shift.x, b.x - shift.x, extent.x, extent.width);
  run(a.y - shift.y, b.y - shift.y, extent.y, extent.height);
  return extent;
}

raster::Extent sourceOf(const ImagePart& part) {
  raster::Extent extent;
  run(toPixel(part.x), toPixel(part.x + part.width), extent.x, extent.width);
  run(toPixel(part.y), toPixel(part.y + part.height), extent.y, extent.height);
  return extent;
}

bool insideBitmap(const ImagePart& part) {
  const double right = part.x + part.width, bottom = part.y + part.height;
  return std::min(part.x, right) >= 0 && std::min(part.y, bottom) >= 0 &&
         std::max(part.x, right) <= part.bitmap.width() && std::max(part.y, bottom) <= part.bitmap.height();
}

// Each pixel by the way back to the bitmap.
void sample(const ImagePart& part, const Placement& to, Layer& layer) {
  const std::optional<Affine> back = to.inverse();
  if (!back) {
    layer.pixels.clear();
    return;
  }
  const raster::Surface& bitmap = part.bitmap;
  const auto pixelOf = [&](int x, int y) {
    if (bitmap.depth() == 32) return reinterpret_cast<const Pixel32*>(bitmap.pictureRow(y))[x];
    return Pixel32::plain(raster::getPixel(bitmap, x, y));
  };
  layer.open.assign(static_cast<std::size_t>(layer.box.width()) * static_cast<std::size_t>(layer.box.height()), true);
  std::size_t at = 0;
  for (int y = layer.box.top; y < layer.box.bottom; ++y) {
    auto* row = reinterpret_cast<Pixel32*>(layer.pixels.pictureRow(y - layer.box.top));
    for (int x = layer.box.left; x < layer.box.right; ++x, ++at) {
      const PointF unit = back->map({x + 0.5, y + 0.5});
      if (!(unit.x >= 0 && unit.x < 1 && unit.y >= 0 && unit.y < 1)) continue;
      const double sx = std::floor(part.x + unit.x * part.width), sy = std::floor(part.y + unit.y * part.height);
      if (!(sx >= 0 && sy >= 0 && sx < bitmap.width() && sy < bitmap.height())) continue;
      row[x - layer.box.left] = pixelOf(static_cast<int>(sx), static_cast<int>(sy));
      layer.open[at] = false;
    }
  }
}

Layer layerOf(Device& device, const ImagePart& part, const Placement& to, raster::StretchMode mode) {
  Layer layer;
  if (part.bitmap.empty() || !prepare(device, to, layer)) {
    layer.pixels.clear();
    return layer;
  }
  if (to.upright() && insideBitmap(part)) {
    raster::stretchBlit(layer.pixels, targetOf(to, {layer.box.left, layer.box.top}), part.bitmap, sourceOf(part), mode);
  } else {
    sample(part, to, layer);
  }
  return layer;
}

// Works through the target in bands of rows, so that what is combined never takes the room of a second picture.
template <typename Draw>
void inBands(Device& device, const Placement& to, const raster::Surface* source, Draw draw) {
  constexpr int kBandPixels = 1 << 20;
  constexpr double kPerSourcePixel = 4;
  const Rect whole = device.clipBox();
  const Rect box = boxOf(to).intersected(whole);
  const double sourcePixels = source ? static_cast<double>(source->width()) * source->height() : 0;
  if (box.empty() || !device.charge(kPerSourcePixel * sourcePixels)) return;
  const int rows = std::max(1, kBandPixels / box.width());
  for (int y = box.top; y < box.bottom; y += rows) {
    device.now().clip.box = {whole.left, y, whole.right, std::min(y + rows, box.bottom)};
    draw();
  }
  device.now().clip.box = whole;
}

// Calls mix(destination, x, y) for every pixel of the layer's box that the clip shows and the layer covers.
template <typename Mix>
void eachPixel(Device& device, const Layer& layer, Mix mix) {
  const raster::Region* region = device.now().clip.region.get();
  for (int y = layer.box.top; y < layer.box.bottom; ++y) {
    auto* row = reinterpret_cast<Pixel32*>(device.surface().pictureRow(y));
    const auto part = [&](int left, int right) {
      for (int x = left; x < right; ++x) {
        if (!layer.isOpen(x, y)) mix(row[x], x, y);
      }
    };
    if (!region) {
      part(layer.box.left, layer.box.right);
      continue;
    }
    for (const raster::Span& s : region->row(y)) {
      part(std::max(s.left, layer.box.left), std::min(s.right, layer.box.right));
    }
  }
}

std::uint32_t word(Pixel32 p) {
  return static_cast<std::uint32_t>(p.blue | p.green << 8 | p.red << 16);
}

std::uint32_t combine(std::uint32_t rop, std::uint32_t p, std::uint32_t s, std::uint32_t d) {
  std::uint32_t result = 0;
  for (std::uint32_t k = 0; k < 8; ++k) {
    if ((rop >> k & 1) == 0) continue;
    result |= ((k & 4) != 0 ? p : ~p) & ((k & 2) != 0 ? s : ~s) & ((k & 1) != 0 ? d : ~d);
  }
  return result;
}

void store(Pixel32& to, std::uint32_t w) {
  to = {static_cast<std::uint8_t>(w), static_cast<std::uint8_t>(w >> 8), static_cast<std::uint8_t>(w >> 16), 0};
}

// The selected brush over a box, as a layer of its own.
raster::Surface patternOver(Device& device, const Rect& box) {
  raster::Surface pattern;
  if (!pattern.create(box.width(), box.height(), 32)) return pattern;
  const raster::DrawContext onSurface = device.context(*device.now().brush);
  raster::DrawContext context(pattern);
  context.brush = onSurface.brush;
  context.backColour = onSurface.backColour;
  context.brushOrigin = {onSurface.brushOrigin.x - box.left, onSurface.brushOrigin.y - box.top};
  raster::fillRect(context, pattern.bounds());
  return pattern;
}

// The surface's own operations do the plain cases at their own speed.
bool drawDirect(Device& device, const ImagePart& part, const Placement& to, std::uint32_t rop) {
  struct Row {
    std::uint32_t rop;
    raster::RasterOp op;
  };
  static constexpr Row kPlain[] = {{kSourceCopy, raster::RasterOp::SrcCopy},
                                   {0x88, raster::RasterOp::SrcAnd},
                                   {0xEE, raster::RasterOp::SrcPaint},
                                   {0x66, raster::RasterOp::SrcInvert}};
  const Row* row = std::find_if(std::begin(kPlain), std::end(kPlain), [&](const Row& r) { return r.rop == rop; });
  if (row == std::end(kPlain) || !to.upright() || !to.sane() || device.now().clip.region) return false;
  const Rect box = boxOf(to).intersected(device.clipBox());
  if (box.empty()) return true;
  const raster::Extent target = targetOf(to, {}), source = sourceOf(part);
  const double covered = static_cast<double>(std::abs(source.width)) + std::abs(source.height) +
                         static_cast<double>(part.bitmap.width()) * part.bitmap.height();
  if (!device.charge(200 + 6.0 * box.width() * box.height() + 4 * covered)) return true;
  raster::stretchBlit(device.surface(), target, part.bitmap, source, device.now().stretchMode, row->op,
                      device.clipBox());
  return true;
}

void bandImage(Device& device, const ImagePart& part, const Placement& to, std::uint32_t rop) {
  const Layer layer = layerOf(device, part, to, device.now().stretchMode);
  if (layer.pixels.empty()) return;
  const raster::Surface pattern = usesPattern(rop) ? patternOver(device, layer.box) : raster::Surface();
  eachPixel(device, layer, [&](Pixel32& d, int x, int y) {
    const std::uint32_t p =
        pattern.empty()
            ? 0
            : word(reinterpret_cast<const Pixel32*>(pattern.pictureRow(y - layer.box.top))[x - layer.box.left]);
    store(d, combine(rop, p, word(layer.row(y)[x - layer.box.left]), word(d)));
  });
}

void bandPattern(Device& device, const Placement& to, std::uint32_t rop) {
  Layer layer;
  if (!prepare(device, to, layer)) return;
  if (usesPattern(rop)) layer.pixels = patternOver(device, layer.box);
  if (layer.pixels.empty() || (usesPattern(rop) && !device.now().brush->draws())) return;
  eachPixel(device, layer, [&](Pixel32& d, int x, int y) {
    store(d, combine(rop, word(layer.row(y)[x - layer.box.left]), 0, word(d)));
  });
}

void bandMasked(Device& device, const ImagePart& part, const raster::Surface& mask, Point maskAt, const Placement& to,
                std::uint32_t set, std::uint32_t clear) {
  const Layer layer = layerOf(device, part, to, device.now().stretchMode);
  if (layer.pixels.empty() || mask.depth() != 1) return;
  const ImagePart maskPart{mask, static_cast<double>(maskAt.x), static_cast<double>(maskAt.y), part.width, part.height};
  const Layer chosen = layerOf(device, maskPart, to, raster::StretchMode::ColorOnColor);
  if (chosen.pixels.empty()) return;
  // Its colours may be any; the bits count.
  const Colour one = mask.table()[1].colour();
  const raster::Surface pattern =
      usesPattern(set) || usesPattern(clear) ? patternOver(device, layer.box) : raster::Surface();
  eachPixel(device, layer, [&](Pixel32& d, int x, int y) {
    const int column = x - layer.box.left;
    const bool on = !chosen.isOpen(x, y) && chosen.row(y)[column].colour() == one;
    const std::uint32_t p =
        pattern.empty() ? 0 : word(reinterpret_cast<const Pixel32*>(pattern.pictureRow(y - layer.box.top))[column]);
    store(d, combine(on ? set : clear, p, word(layer.row(y)[column]), word(d)));
  });
}

void bandBlended(Device& device, const ImagePart& part, const Placement& to, int alpha, bool perPixel) {
  const Layer layer = layerOf(device, part, to, raster::StretchMode::ColorOnColor);
  if (layer.pixels.empty()) return;
  eachPixel(device, layer, [&](Pixel32& d, int x, int y) {
    const Pixel32 s = layer.row(y)[x - layer.box.left];
    const int rest = 255 - (perPixel ? multiplyBytes(s.alpha, alpha) : alpha);
    const auto mix = [&](int from, int onto) {
      return static_cast<std::uint8_t>(std::min(255, multiplyBytes(from, alpha) + multiplyBytes(onto, rest)));
    };
    d = {mix(s.blue, d.blue), mix(s.green, d.green), mix(s.red, d.red), 0};
  });
}

void bandKeyed(Device& device, const ImagePart& part, const Placement& to, Colour key) {
  const Layer layer = layerOf(device, part, to, raster::StretchMode::ColorOnColor);
  if (layer.pixels.empty()) return;
  eachPixel(device, layer, [&](Pixel32& d, int x, int y) {
    const Pixel32 s = layer.row(y)[x - layer.box.left];
    if (s.colour() != key) d = Pixel32::plain(s.colour());
  });
}

}  // namespace

Placement placementOf(const Device& device, PointF at, PointF extent) {
  return Affine{extent.x, 0, 0, extent.y, at.x, at.y}.then(device.toPixels());
}

void drawImage(Device& device, const ImagePart& part, const Placement& to, std::uint32_t rop) {
  if (part.bitmap.empty() || drawDirect(device, part, to, rop)) return;
  inBands(device, to, &part.bitmap, [&] { bandImage(device, part, to, rop); });
}

void drawPattern(Device& device, const Placement& to, std::uint32_t rop) {
  inBands(device, to, nullptr, [&] { bandPattern(device, to, rop); });
}

void drawMasked(Device& device, const ImagePart& part, const raster::Surface& mask, Point maskAt, const Placement& to,
                std::uint32_t set, std::uint32_t clear) {
  inBands(device, to, &part.bitmap, [&] { bandMasked(device, part, mask, maskAt, to, set, clear); });
}

void drawBlended(Device& device, const ImagePart& part, const Placement& to, int alpha, bool perPixel) {
  inBands(device, to, &part.bitmap, [&] { bandBlended(device, part, to, alpha, perPixel); });
}

void drawKeyed(Device& device, const ImagePart& part, const Placement& to, Colour key) {
  inBands(device, to, &part.bitmap, [&] { bandKeyed(device, part, to, key); });
}

}  // namespace ruvo::imaging::meta
