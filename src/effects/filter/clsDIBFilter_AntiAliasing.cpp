// Smoothing of stepped edges. Brightness tells where an edge runs; along it the nearest steps to both sides are looked
// for, and from the distance to them follows how much of the pixel a straight edge would leave to its neighbour.
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/pixel_walk.h"

namespace ruvo {

using namespace filter;

namespace {

// How far along an edge a step is looked for.
constexpr int kFarthest = 24;
// Differences below these, of 255 and of the brighter side, are no edge.
constexpr int kFaintest = 16, kFaintestShare = 8;

// The brightness of each pixel, with a margin of one pixel that repeats the picture's edge.
class Brightness {
 public:
  bool take(const raster::Surface& surface) {
    if (!plane_.create(surface.width() + 2, surface.height() + 2, 8)) return false;
    for (int y = -1; y <= surface.height(); ++y) {
      const std::uint32_t* row = words(surface, std::clamp(y, 0, surface.height() - 1));
      std::uint8_t* to = plane_.memoryRow(y + 1) + 1;
      for (int x = 0; x < surface.width(); ++x) to[x] = of(row[x]);
      to[-1] = to[0];
      to[surface.width()] = to[surface.width() - 1];
    }
    return true;
  }
  const std::uint8_t* row(int y) const { return plane_.memoryRow(y + 1) + 1; }
  int stride() const { return plane_.stride(); }

 private:
  static std::uint8_t of(std::uint32_t p) {
    return static_cast<std::uint8_t>((77 * redIn(p) + 150 * greenIn(p) + 29 * blueIn(p)) >> 8);
  }
  raster::Surface plane_;
};

// What one pixel takes on from which neighbour.
struct Share {
  double part = 0;  // 0 to 0.5
  int dx = 0, dy = 0;
};

// The end of an edge: steps to it, and whether the pixel's own side goes back there by one line, so that a straight edge
// would pass through the pixel.
struct End {
  double distance;
  bool recedes;
};

// Walks `room` pixels at most from `at` by `along`; `side` leads across the edge, which stays one while the near line is
// on the pixel's side of the middle between both and the far line is not.
End endOf(const std::uint8_t* at, int along, int side, int room) {
  const int middle = at[0] + at[side];
  const bool darker = 2 * at[0] < middle;
  const auto own = [=](int brightness) { return (2 * brightness < middle) == darker; };
  const int most = std::min(room, kFarthest);
  for (int step = 1; step <= most; ++step) {
    at += along;
    if (own(at[0]) && !own(at[side])) continue;
    // Where the next line goes back too it is a corner that is meant.
    return {step - 0.5, !own(at[0]) && own(at[-side])};
  }
  return {kFarthest, false};
}

// What a straight edge would leave of the pixel to its neighbour at `side`, 0 to 0.5.
double partOf(const std::uint8_t* at, int along, int side, int roomBack, int roomForth) {
  if (std::abs(at[side] - at[0]) < kFaintest) return 0;
  const End back = endOf(at, -along, side, roomBack), forth = endOf(at, along, side, roomForth);
  const End& nearest = back.distance < forth.distance ? back : forth;
  return nearest.recedes ? 0.5 - nearest.distance / (back.distance + forth.distance) : 0;
}

// How far the picture goes on in each direction.
struct Room {
  int left, right, down, up;
};

Share shareOf(const std::uint8_t* at, int stride, const Room& room) {
  const int m = at[0], w = at[-1], e = at[1], s = at[-stride], n = at[stride];
  const int most = std::max({m, w, e, s, n}), least = std::min({m, w, e, s, n});
  if (most - least < std::max(kFaintest, most / kFaintestShare)) return {};
  const int nw = at[stride - 1], ne = at[stride + 1], sw = at[-stride - 1], se = at[-stride + 1];
  const int level = std::abs(nw + sw - 2 * w) + 2 * std::abs(n + s - 2 * m) + std::abs(ne + se - 2 * e);
  const int upright = std::abs(nw + ne - 2 * n) + 2 * std::abs(w + e - 2 * m) + std::abs(sw + se - 2 * s);
  // A thin line has an edge on both sides.
  if (level >= upright) {
    const double below = partOf(at, 1, -stride, room.left, room.right);
    const double above = partOf(at, 1, stride, room.left, room.right);
    return above >= below ? Share{above, 0, 1} : Share{below, 0, -1};
  }
  const double left = partOf(at, stride, -1, room.down, room.up);
  const double right = partOf(at, stride, 1, room.down, room.up);
  return right >= left ? Share{right, 1, 0} : Share{left, -1, 0};
}

std::uint32_t mixed(std::uint32_t p, std::uint32_t q, double part) {
  const auto channel = [part](std::uint32_t a, std::uint32_t b) {
    return static_cast<std::uint32_t>(quickRound(a + (static_cast<double>(b) - a) * part));
  };
  return wordOf(channel(blueIn(p), blueIn(q)), channel(greenIn(p), greenIn(q)), channel(redIn(p), redIn(q)));
}

// How far a pixel is seen beside another: 1 when it is no less opaque.
double seenBeside(std::uint32_t pixel, std::uint32_t own) {
  const std::uint32_t alpha = pixel >> 24, ownAlpha = own >> 24;
  return alpha >= ownAlpha ? 1 : static_cast<double>(alpha) / ownAlpha;
}

}  // namespace

bool clsDIBFilter::doAntiAliasing(clsDIB& Target, int Strength) {
  if (!workable(Target)) return true;
  const double strength = std::clamp(Strength, 0, 100) / 100.0;
  raster::Surface& surface = Target.surface();
  const int width = Target.DIBWidth(), height = Target.DIBHeight();
  const bool hasAlpha = Target.DIBhasAlpha();
  Brightness brightness;
  if (!brightness.take(surface)) return false;
  // The rows as they were that are overwritten but still needed.
  std::vector<std::uint32_t> below(static_cast<std::size_t>(width)), present(below);
  return forRows(height, [&](int y) {
    below.swap(present);
    std::uint32_t* row = words(surface, y);
    std::memcpy(present.data(), row, present.size() * sizeof(std::uint32_t));
    const std::uint32_t* above = y + 1 < height ? words(surface, y + 1) : row;
    const std::uint8_t* bright = brightness.row(y);
    for (int x = 0; x < width; ++x) {
      const Share share = shareOf(bright + x, brightness.stride(), {x, width - 1 - x, y, height - 1 - y});
      if (share.part <= 0) continue;
      const std::uint32_t* other = share.dy > 0 ? above : share.dy < 0 ? below.data() : present.data();
      const std::uint32_t across = other[x + share.dx];
      const double seen = hasAlpha ? seenBeside(across, row[x]) : 1;
      row[x] = recoloured(row[x], mixed(row[x], across, share.part * strength * seen));
    }
  });
}

}  // namespace ruvo
