#include "canvas/engine/view_render.h"

#include <cstring>

#include "canvas/engine/brush_mix.h"
#include "platform/raster/stretch.h"

namespace ruvo {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;  // byte 3 of a pixel read as a little-endian word

// `count` pixels with byte 3 set: what windows expect. Transparent ones come out over white.
void copyOpaque(const std::uint8_t* from, int count, bool hasAlpha, std::uint8_t* to) {
  if (hasAlpha) {
    const auto* pixels = reinterpret_cast<const Pixel32*>(from);
    auto* out = reinterpret_cast<Pixel32*>(to);
    for (int i = 0; i < count; ++i) out[i] = brush::overWhite(pixels[i]);
    from = to;
  }
  for (int i = 0; i < count; ++i) {
    std::uint32_t pixel;
    std::memcpy(&pixel, from + 4 * i, 4);
    pixel |= kOpaque;
    std::memcpy(to + 4 * i, &pixel, 4);
  }
}

// Repeats each pixel `magnify` times, the first one `skip` times less, until `count` pixels are out.
void spread(const Pixel32* from, int skip, int magnify, std::uint8_t* to, int count) {
  auto* out = reinterpret_cast<Pixel32*>(to);
  Pixel32* const end = out + count;
  for (int first = std::min(magnify - skip, count); first > 0; --first) *out++ = *from;
  if (out == end) return;
  ++from;
  while (end - out >= magnify) {
    const Pixel32 pixel = *from++;
    for (int i = 0; i < magnify; ++i) *out++ = pixel;
  }
  while (out < end) *out++ = *from;
}

// The visible pixels of `rows` copied over white, for the stretch of a transparent picture.
raster::Surface partOverWhite(const clsDIB& picture, const Rect& part) {
  raster::Surface result;
  if (!result.create(part.width(), part.height(), 32)) return result;
  for (int y = 0; y < part.height(); ++y) {
    copyOpaque(picture.surface().pictureRow(part.top + y) + 4 * part.left, part.width(), true, result.pictureRow(y));
  }
  return result;
}

}  // namespace

std::optional<Colour> seenColour(const clsDIB& picture, Point image) {
  const raster::Surface& surface = picture.surface();
  if (surface.depth() != 32 || !surface.bounds().contains(image.x, image.y)) return std::nullopt;
  return brush::seen(picture, surface.view32().at(image.x, surface.memoryRowOf(image.y))).colour();
}

std::string rgbText(Colour colour) {
  return "RGB(" + std::to_string(redOf(colour)) + ", " + std::to_string(greenOf(colour)) + ", " +
         std::to_string(blueOf(colour)) + ")";
}

void invertCrossHair(Point at, const Rect& area, RenderTarget target) {
  const auto invert = [&](int x, int y) {
    if (!area.contains(x, y)) return;
    std::uint8_t* pixel = target.pixels + (y - area.top) * target.stride + (x - area.left) * 4;
    for (int i = 0; i < 3; ++i) pixel[i] = static_cast<std::uint8_t>(~pixel[i]);
  };
  for (int x = area.left; x < area.right; ++x) invert(x, at.y);
  for (int y = area.top; y < area.bottom; ++y) {
    if (y != at.y) invert(at.x, y);
  }
}

Rect fittedPlace(const clsDIB& picture, Size client, bool enlarge) {
  const Size room = ViewGeometry::fitRoom(client);
  int x = 0, y = 0, width = 0, height = 0;
  picture.GetBestFitPointAndSize(std::max(1, room.width), std::max(1, room.height), x, y, width, height, enlarge);
  return Rect::fromSize(x + 1, y + 1, width, height);
}

void ViewRenderer::render(const clsDIB& picture, const ViewGeometry& view, bool smooth, const Rect& area,
                          RenderTarget target) {
  const raster::Surface& surface = picture.surface();
  if (picture.empty() || surface.depth() != 32) return;
  const Size shown = view.displaySize();
  Rect part = area.intersected({0, 0, shown.width, shown.height});
  if (part.empty()) return;
  const auto to = [&](int y) { return target.pixels + (y - area.top) * target.stride + (part.left - area.left) * 4; };

  if (view.FitInView || (smooth && view.Magnify > 1)) {
    if (!prepareStretched(picture, view, smooth)) return;
    for (int y = part.top; y < part.bottom; ++y) {
      copyOpaque(stretched_.pictureRow(y) + 4 * part.left, part.width(), false, to(y));
    }
    return;
  }

  if (!stretched_.empty()) stretched_.clear();
  // The host may have put a smaller picture in place and not told yet.
  const Point end = view.toDisplay(Point{surface.width(), surface.height()});
  part = part.intersected({0, 0, end.x, end.y});
  if (part.empty()) return;
  const int magnify = view.Magnify;
  const Point first = view.toImage({part.left, part.top});
  if (magnify == 1) {
    for (int y = part.top; y < part.bottom; ++y) {
      copyOpaque(surface.pictureRow(first.y + y - part.top) + 4 * first.x, part.width(), picture.DIBhasAlpha(), to(y));
    }
    return;
  }
  const int columns = view.toImage({part.right - 1, part.top}).x - first.x + 1;
  const int skip = part.left - view.toDisplay(first).x;
  row_.resize(static_cast<std::size_t>(columns));
  for (int y = part.top; y < part.bottom;) {
    const Point at = view.toImage({part.left, y});
    const int next = std::min(part.bottom, view.toDisplay(Point{at.x, at.y + 1}).y);
    copyOpaque(surface.pictureRow(at.y) + 4 * at.x, columns, picture.DIBhasAlpha(),
               reinterpret_cast<std::uint8_t*>(row_.data()));
    const std::uint8_t* spreadRow = to(y);
    spread(row_.data(), skip, magnify, to(y), part.width());
    while (++y < next) std::memcpy(to(y), spreadRow, static_cast<std::size_t>(part.width()) * 4);
  }
}

bool ViewRenderer::prepareStretched(const clsDIB& picture, const ViewGeometry& view, bool smooth) {
  const Size shown = view.displaySize();
  const Point corner = view.toDisplay(Point{0, 0});
  const Size whole = view.gross();
  const Rect place = Rect::fromSize(corner.x, corner.y, whole.width, whole.height);
  const bool same =
      stretchedValid_ && stretchedSmooth_ == smooth && stretchedPlace_ == place && stretched_.size() == shown;
  if (same) return true;
  if (stretched_.size() != shown && !stretched_.create(shown.width, shown.height, 32, raster::RowOrder::TopDown))
    return false;

  // One pixel more on each side than is seen, so that the rim is mixed with its neighbours wherever the view stands.
  const Rect seen = view.visibleImage();
  const Rect part =
      Rect{seen.left - 1, seen.top - 1, seen.right + 1, seen.bottom + 1}.intersected(picture.surface().bounds());
  if (part.empty()) return false;
  raster::Extent to{0, 0, shown.width, shown.height};
  if (!view.FitInView) {
    const Point at = view.toDisplay(Point{part.left, part.top});
    to = {at.x, at.y, part.width() * view.Magnify, part.height() * view.Magnify};
  }
  const auto mode = smooth ? raster::StretchMode::Halftone : raster::StretchMode::ColorOnColor;
  if (picture.DIBhasAlpha()) {
    const raster::Surface composed = partOverWhite(picture, part);
    if (composed.empty()) return false;
    raster::stretchBlit(stretched_, to, composed, raster::Extent::of(composed), mode);
  } else {
    raster::stretchBlit(stretched_, to, picture.surface(), raster::Extent::of(part), mode);
  }
  stretchedValid_ = true;
  stretchedSmooth_ = smooth;
  stretchedPlace_ = place;
  return true;
}

}  // namespace ruvo
