#include "effects/model/layer.h"

#include "effects/model/pixel_cover.h"

namespace ruvo {
namespace {

// How far a pixel of the upper picture covers.
class UpperCover {
 public:
  UpperCover(const LayerChoices& choices, bool hasAlpha)
      : transparent_(choices.transparentColour), cover_(coverOf(choices.opacity / 100.0)), hasAlpha_(hasAlpha) {}
  int of(Pixel32 upper) const {
    if (upper.colour() == transparent_) return 0;
    return hasAlpha_ ? (cover_ * upper.alpha + 127) / 255 : cover_;
  }

 private:
  std::int64_t transparent_;
  int cover_;
  bool hasAlpha_;
};

}  // namespace

bool layPicture(clsDIB& picture, const clsDIB& second, const LayerChoices& choices, const Progress& progress) {
  const Rect place = Rect::fromSize(choices.at.x, choices.at.y, second.DIBWidth(), second.DIBHeight());
  const Rect shared = place.intersected(picture.surface().bounds());
  if (shared.empty()) return true;
  const bool alpha = picture.DIBhasAlpha(), secondAlpha = second.DIBhasAlpha();
  const UpperCover covers(choices, choices.under ? alpha : secondAlpha);
  return forEachRow(shared.bottom - shared.top, progress, [&](int row) {
    const int y = shared.top + row;
    Pixel32* to = pixelRow(picture.surface(), y) + shared.left;
    const Pixel32* from = pixelRow(second.surface(), y - place.top) + (shared.left - place.left);
    for (int x = 0; x < shared.width(); ++x) {
      if (!choices.under) {
        to[x] = laidOver(to[x], from[x], covers.of(from[x]), alpha);
        continue;
      }
      Pixel32 below = from[x];
      below.alpha = !alpha ? to[x].alpha : secondAlpha ? below.alpha : 255;
      to[x] = laidOver(below, to[x], covers.of(to[x]), alpha);
    }
  });
}

}  // namespace ruvo
