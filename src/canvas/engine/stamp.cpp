#include "canvas/engine/stamp.h"

#include "canvas/engine/brush_custom.h"
#include "canvas/engine/brush_mix.h"
#include "effects/filter/clsDIBFilter.h"

namespace ruvo::brush {

namespace {

constexpr int kReliefLevel = 128;

// The part of the picture under the stamp, white where the stamp hangs over the edge: as it is seen under the stamp's
// body, as it is stored where the mask is see-through (there it is joined with itself and must not differ).
void takeUnder(const clsDIB& picture, const clsDIB& mask, Point corner, clsDIB& under) {
  const Rect placed = Rect::fromSize(corner.x, corner.y, under.DIBWidth(), under.DIBHeight());
  const Rect area = placed.intersected(picture.surface().bounds());
  for (int y = area.top; y < area.bottom; ++y) {
    const auto* from = reinterpret_cast<const Pixel32*>(picture.surface().pictureRow(y));
    auto* to = reinterpret_cast<Pixel32*>(under.surface().pictureRow(y - corner.y));
    const auto* cover = reinterpret_cast<const Pixel32*>(mask.surface().pictureRow(y - corner.y));
    for (int x = area.left; x < area.right; ++x) {
      const bool seeThrough = cover[x - corner.x].colour() == kWhite;
      to[x - corner.x] = seeThrough ? from[x] : seen(picture, from[x]);
    }
  }
}

}  // namespace

Rect paintStamp(clsDIB& picture, Point at, const clsDIB& stamp, const clsDIB& mask, int style, float weight) {
  if (picture.empty() || stamp.empty() || mask.size() != stamp.size()) return {};
  const Point corner{at.x - stamp.DIBWidth() / 2, at.y - stamp.DIBHeight() / 2};
  if (style < kStampEmboss) return layMasked(picture, stamp, mask, corner);

  clsDIB relief;
  clsDIB under;
  if (!relief.CreateBlankDIB(stamp.DIBWidth(), stamp.DIBHeight(), 32, kWhite) ||
      !under.CreateBlankDIB(stamp.DIBWidth(), stamp.DIBHeight(), 32, kWhite)) {
    return {};
  }
  layMasked(relief, stamp, mask, {0, 0});
  clsDIBFilter filter;
  if (style == kStampEmboss) {
    filter.Emboss(relief, weight, kReliefLevel, kReliefLevel, kReliefLevel);
  } else {
    filter.Engrave(relief, weight, kReliefLevel, kReliefLevel, kReliefLevel);
  }
  takeUnder(picture, mask, corner, under);
  filter.Texturize(under, relief);
  return layMasked(picture, under, mask, corner);
}

}  // namespace ruvo::brush
