#include "effects/model/drop_shadow.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>
#include <vector>

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

  bool hasGround() const { return how_ == NotGround; }
  // How far a colour is from the ground's.
  int fromGround(Pixel32 p) const {
    return std::abs(p.blue - ground_.blue) + std::abs(p.green - ground_.green) + std::abs(p.red - ground_.red);
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

// Black where the pixels of `part` throw a shadow, on white. The first row and column stand above and to the left of
// the picture, so that the top left is ground for sure.
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

// Lays the shadow under the things of a picture. Things are black in `things` and shadows never are.
class ShadowPaint {
 public:
  ShadowPaint(clsDIB& picture, const clsDIB& things, const DropShadow& shadow, const Casts& casts)
      : picture_(picture), things_(things), casts_(casts), ink_(Pixel32::plain(shadow.colour)) {
    for (std::size_t shown = 0; shown < share_.size(); ++shown) {
      share_[shown] = shown == 0 ? 0 : (255 - static_cast<double>(shown)) / 255 * shadow.strength;
    }
  }

  void row(int y) const {
    Pixel32* row = pixelRow(picture_.surface(), y);
    const Pixel32* shown = thingsRow(y);
    for (int x = 0; x < picture_.DIBWidth(); ++x) {
      if (shown[x].red == 0) continue;
      const double share = share_[shown[x].red];
      if (picture_.DIBhasAlpha()) {
        Pixel32 under = ink_;
        under.alpha = clampToByte(roundToInt(share * 255));
        if (under.alpha > 0) row[x] = laidOver(under, row[x], row[x].alpha * kFullCover / 255, true);
      } else {
        row[x] = laidOver(row[x], ink_, coverOf(share), false);
      }
    }
  }

  // A smooth rim of a thing is part ground, and bright in the midst of the shadow unless that part is darkened too.
  // `above`, `present` and `below` are the rows as they were.
  void rims(int y, const Pixel32* above, const Pixel32* present, const Pixel32* below) const {
    Pixel32* row = pixelRow(picture_.surface(), y);
    const int width = picture_.DIBWidth();
    const Pixel32* shown = thingsRow(y);
    for (int x = 0; x < width; ++x) {
      if (shown[x].red != 0) continue;
      double share = 0;
      int most = 0;
      for (int dy = -1; dy <= 1; ++dy) {
        const Pixel32* line = dy < 0 ? above : dy == 0 ? present : below;
        if (!line) continue;
        const Pixel32* lineShown = thingsRow(y + dy);
        for (int nx = std::max(0, x - 1); nx <= std::min(width - 1, x + 1); ++nx) {
          share = std::max(share, share_[lineShown[nx].red]);
          most = std::max(most, casts_.fromGround(line[nx]));
        }
      }
      if (share == 0) continue;
      const double ground = 1 - static_cast<double>(casts_.fromGround(present[x])) / most;
      row[x] = laidOver(row[x], ink_, coverOf(share * ground), false);
    }
  }

 private:
  const Pixel32* thingsRow(int y) const { return pixelRow(things_.surface(), y + 1) + 1; }

  clsDIB& picture_;
  const clsDIB& things_;
  const Casts& casts_;
  Pixel32 ink_;
  std::array<double, 256> share_;
};

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
  const ShadowPaint paint(picture, things, shadow, casts);
  const int width = picture.DIBWidth(), height = picture.DIBHeight();
  std::vector<Pixel32> above, present, below;
  const auto copyOf = [&](int y) {
    const Pixel32* row = pixelRow(picture.surface(), y);
    return std::vector<Pixel32>(row, row + width);
  };
  below = copyOf(0);
  for (int y = 0; y < height; ++y) {
    above.swap(present);
    present.swap(below);
    below = y + 1 < height ? copyOf(y + 1) : std::vector<Pixel32>();
    paint.row(y);
    if (casts.hasGround()) {
      paint.rims(y, y > 0 ? above.data() : nullptr, present.data(), y + 1 < height ? below.data() : nullptr);
    }
  }
  return true;
}

}  // namespace ruvo
