#include "effects/model/drop_shadow.h"

#include <algorithm>

#include "base/rounding.h"
#include "effects/filter/clsDIBFilter.h"
#include "effects/model/pixel_cover.h"
#include "effects/model/room.h"

namespace ruvo {
namespace {

// Whether most of the pixels along the edges have the colour of the top left, and others have not.
bool liesOnPlainGround(const clsDIB& picture) {
  if (clsDIB::IsMultiColorDIB(picture) != clsDIB::kMultiColor) return false;
  const Pixel32 corner = *pixelRow(picture.surface(), 0);
  const int width = picture.DIBWidth(), height = picture.DIBHeight();
  int plain = 0;
  for (int y = 0; y < height; ++y) {
    const Pixel32* row = pixelRow(picture.surface(), y);
    if (y == 0 || y == height - 1) {
      plain += static_cast<int>(std::count_if(row, row + width, [&](Pixel32 p) { return p.sameColour(corner); }));
    } else {
      plain += row[0].sameColour(corner) + row[width - 1].sameColour(corner);
    }
  }
  return plain > width + height - 2;
}

// Which pixels of a picture throw the shadow.
class Casts {
 public:
  explicit Casts(const clsDIB& picture)
      : how_(picture.DIBhasAlpha()        ? Opaque
             : liesOnPlainGround(picture) ? NotGround
                                          : All),
        ground_(*pixelRow(picture.surface(), 0)) {}

  bool operator()(Pixel32 p) const {
    constexpr int kSolid = 128;
    return how_ == Opaque ? p.alpha >= kSolid : how_ == All || !p.sameColour(ground_);
  }
  // What the picture gets in new parts, which are to throw none.
  Pixel32 ground(Colour wanted) const {
    return how_ == Opaque ? Pixel32{} : how_ == NotGround ? ground_ : Pixel32::plain(wanted);
  }

 private:
  enum How { Opaque, NotGround, All };
  How how_;
  Pixel32 ground_;
};

Rect castingPart(const clsDIB& picture, const Casts& casts) {
  Rect part;
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    const Pixel32* row = pixelRow(picture.surface(), y);
    const Pixel32* end = row + picture.DIBWidth();
    const Pixel32* first = std::find_if(row, end, casts);
    if (first == end) continue;
    while (!casts(end[-1])) --end;
    part = part.united({static_cast<int>(first - row), y, static_cast<int>(end - row), y + 1});
  }
  return part;
}

// How far outside the picture the shadow of a part of it reaches.
Room roomFor(const DropShadow& shadow, Size picture, const Rect& part) {
  if (part.empty()) return {};
  const int reach = (shadow.softness + 1) / 2;
  return {std::max(0, reach - shadow.offsetX - part.left), std::max(0, reach - shadow.offsetY - part.top),
          std::max(0, part.right + shadow.offsetX + reach - picture.width),
          std::max(0, part.bottom + shadow.offsetY + reach - picture.height)};
}

// Black where the pixels of `part` throw a shadow, on white. The first row and column stand above and to the left of the
// picture, so that the top left is ground for sure.
bool makeThings(const clsDIB& picture, const Rect& part, const Casts& casts, clsDIB& things) {
  if (!things.CreateBlankDIB(picture.DIBWidth() + 1, picture.DIBHeight() + 1, 32, kWhite)) return false;
  for (int y = part.top; y < part.bottom; ++y) {
    const Pixel32* from = pixelRow(picture.surface(), y);
    Pixel32* to = pixelRow(things.surface(), y + 1) + 1;
    for (int x = part.left; x < part.right; ++x) {
      if (casts(from[x])) to[x] = {};
    }
  }
  return true;
}

}  // namespace

bool drawDropShadow(clsDIB& picture, const DropShadow& shadow, const Progress& progress) {
  const Casts casts(picture);
  const Size before = picture.size();
  Rect part = castingPart(picture, casts);
  if (shadow.grow) {
    const Room room = roomFor(shadow, before, part);
    if (!makeRoom(picture, room, casts.ground(shadow.ground))) return false;
    if (picture.size() != before) {
      part = {part.left + room.left, part.top + room.top, part.right + room.left, part.bottom + room.top};
    }
  }
  clsDIB things;
  if (!makeThings(picture, part, casts, things) ||
      !clsDIBFilter(progress).AddShadow(things, shadow.offsetX, shadow.offsetY, shadow.softness, kBlack)) {
    return false;
  }
  const Pixel32 ink = Pixel32::plain(shadow.colour);
  const bool isAlpha = picture.DIBhasAlpha();
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    Pixel32* row = pixelRow(picture.surface(), y);
    const Pixel32* shown = pixelRow(std::as_const(things).surface(), y + 1) + 1;
    for (int x = 0; x < picture.DIBWidth(); ++x) {
      // A thing lies above every shadow.
      if (shown[x].red == 255 || (part.contains(x, y) && casts(row[x]))) continue;
      const double dark = (255 - shown[x].red) / 255.0 * shadow.strength;
      if (isAlpha) {
        Pixel32 under = ink;
        under.alpha = clampToByte(roundToInt(dark * 255));
        if (under.alpha > 0) row[x] = laidOver(under, row[x], row[x].alpha * kFullCover / 255, true);
      } else {
        row[x] = laidOver(row[x], ink, coverOf(dark), false);
      }
    }
  }
  return true;
}

}  // namespace ruvo
