#include "canvas/engine/brush_custom.h"

#include "canvas/engine/brush_mix.h"
#include "image/pixel_mix.h"

namespace ruvo::brush {

namespace {

// Calls touch(target pixel, picture pixel, mask pixel) for every pair that lies inside target, picture and mask, and
// answers their rectangle in the target.
template <typename Touch>
Rect overlay(clsDIB& target, const clsDIB& picture, const clsDIB& mask, Point at, Touch&& touch) {
  if (target.empty() || picture.empty() || mask.empty()) return {};
  const Size both{std::min(picture.DIBWidth(), mask.DIBWidth()), std::min(picture.DIBHeight(), mask.DIBHeight())};
  const Rect placed = Rect::fromSize(at.x, at.y, both.width, both.height);
  const Rect area = placed.intersected(target.surface().bounds());
  if (area.empty()) return {};
  for (int y = area.top; y < area.bottom; ++y) {
    auto* to = reinterpret_cast<Pixel32*>(target.surface().pictureRow(y));
    const auto* from = reinterpret_cast<const Pixel32*>(picture.surface().pictureRow(y - at.y));
    const auto* cover = reinterpret_cast<const Pixel32*>(mask.surface().pictureRow(y - at.y));
    for (int x = area.left; x < area.right; ++x) touch(to[x], from[x - at.x], cover[x - at.x]);
  }
  return area;
}

std::uint8_t byteOf(int value) {
  return static_cast<std::uint8_t>(value);
}

}  // namespace

Rect layMasked(clsDIB& target, const clsDIB& picture, const clsDIB& mask, Point at) {
  const std::uint8_t alpha = writtenAlpha(target);
  return overlay(target, picture, mask, at, [alpha](Pixel32& to, Pixel32 from, Pixel32 cover) {
    const Pixel32 result{byteOf((to.blue & cover.blue) | from.blue), byteOf((to.green & cover.green) | from.green),
                         byteOf((to.red & cover.red) | from.red), alpha};
    // A see-through pixel that stays as it is has not been written: it keeps its alpha.
    if (cover.colour() == kWhite && result.sameColour(to)) return;
    to = result;
  });
}

Rect CustomBrushStroke::mixIn(Point corner) {
  const std::uint8_t alpha = writtenAlpha(target_);
  const Mixer mixer(std::max(manner_.percent, 0));
  return overlay(target_, brush_, mask_, corner, [&, alpha](Pixel32& to, Pixel32 from, Pixel32 cover) {
    // The brush on white paper; what stays white there, paper or paint, is not mixed in.
    const Pixel32 onWhite{byteOf(cover.blue | from.blue), byteOf(cover.green | from.green),
                          byteOf(cover.red | from.red), 0};
    if (onWhite.colour() == kWhite) return;
    to = seen(target_, to);
    mixer.mix(to, onWhite);
    to.alpha = alpha;
  });
}

Rect CustomBrushStroke::apply(Point corner) {
  lastCorner_ = corner;
  return manner_.percent >= 100 ? layMasked(target_, brush_, mask_, corner) : mixIn(corner);
}

Rect CustomBrushStroke::press(Point at) {
  return apply(cornerFor(at));
}

Rect CustomBrushStroke::move(Point at) {
  const Point corner = cornerFor(at);
  if (corner.x >= target_.DIBWidth() || corner.y >= target_.DIBHeight()) return {};
  const int side = brush_.DIBWidth();
  if (manner_.shape == 1 && manner_.apply == 0 && lastCorner_) {
    const Rect last = Rect::fromSize(lastCorner_->x, lastCorner_->y, side, side);
    if (!last.intersected(Rect::fromSize(corner.x, corner.y, side, side)).empty()) return {};
  }
  return apply(corner);
}

}  // namespace ruvo::brush
