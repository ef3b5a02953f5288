#include "canvas/engine/brush_dab.h"

#include <cmath>
#include <vector>

#include "base/rounding.h"
#include "canvas/engine/brush_mix.h"
#include "canvas/engine/brush_styles.h"
#include "canvas/engine/stroke_start.h"

namespace ruvo::brush {

DabMetrics DabMetrics::of(int size) {
  const int ext = size <= 2 ? 1 : size <= 4 ? 2 : size <= 8 ? 3 : size <= 12 ? 4 : size <= 16 ? 5 : 6;
  const int sum = size + ext;
  const int a = sum + sum % 2;
  return {ext, a, a / 2, a / 2 * 2 + 2};
}

namespace {

// The dab's pixels are named by (u, v) relative to its point (x, y): column x + u, row y - v, so v grows upward.
constexpr Rect pictureRect(int x, int y, int uFrom, int uEnd, int vFrom, int vEnd) {
  return {x + uFrom, y - vEnd + 1, x + uEnd, y - vFrom + 1};
}
constexpr Rect squareAround(int x, int y, int r) {
  return pictureRect(x, y, -r, r, -r, r);
}
constexpr bool inDisc(int u, int v, int radius) {
  return u * u + v * v <= radius * radius - 1;
}

// Points far outside could overflow the sums below; no dab there can reach a picture.
constexpr int kFarthest = 1 << 20;
constexpr bool withinReach(int x, int y) {
  return std::abs(x) < kFarthest && std::abs(y) < kFarthest;
}

}  // namespace

// What a stroke keeps, and the one place where its pixels are written.
struct BrushStroke::State {
  State(clsDIB& target, Colour strokeColour)
      : picture(target),
        colour(strokeColour),
        surface(target.surface()),
        start(target.surface()),
        mix(strokeColour, 100, writtenAlpha(target)) {}

  void usePercent(int wanted) {
    if (wanted == percent) return;
    percent = wanted;
    mix = ColourMix(colour, percent, writtenAlpha(picture));
  }

  // Takes the part of `bounds` inside the picture as the area that may be written; false when nothing is inside.
  bool reach(const Rect& bounds) {
    area = bounds.intersected(surface.bounds());
    return !area.empty();
  }
  // The same for put(), which mixes with the stroke's begin.
  bool open(const Rect& bounds) {
    if (!reach(bounds)) return false;
    start.keep(area);
    if (!mix.covers()) start.read(area, atStart);
    return true;
  }

  Pixel32* pixelAt(int x, int y) {
    return area.contains(x, y) ? reinterpret_cast<Pixel32*>(surface.pictureRow(y)) + x : nullptr;
  }

  void put(int x, int y) {
    Pixel32* pixel = pixelAt(x, y);
    if (!pixel) return;
    if (mix.covers()) {
      *pixel = mix.ink();
    } else {
      const Pixel32 before = atStart[static_cast<std::size_t>(y - area.top) * area.width() + (x - area.left)];
      *pixel = mix.over(seen(picture, before));
    }
  }

  // One pixel of a soft edge, laid over what is there now.
  void putSoft(int x, int y, int cover) {
    Pixel32* pixel = pixelAt(x, y);
    if (!pixel || cover == 0) return;
    const Pixel32 below = seen(picture, *pixel);
    const double share = cover;
    const auto channel = [share](int over, int under) {
      return clampToByte(roundToInt(share * over / 255 - share * under / 255 + under));
    };
    const Pixel32 ink = mix.ink();
    *pixel = {channel(ink.blue, below.blue), channel(ink.green, below.green), channel(ink.red, below.red), ink.alpha};
  }

  Rect disc(int x, int y, int hs);
  Rect smoothedDisc(int x, int y, int hs);
  Rect dots(int x, int y, int radius, RandomSource& random);
  Rect slant(int x, int y, const DabMetrics& m, bool backward);
  Rect bar(const Rect& bounds);

  clsDIB& picture;
  Colour colour;
  raster::Surface& surface;
  StrokeStart start;
  ColourMix mix;
  int percent = 100;
  Rect area;
  std::vector<Pixel32> atStart;
  RandomSource ownRandom;
};

Rect BrushStroke::State::disc(int x, int y, int hs) {
  if (!open(squareAround(x, y, hs))) return {};
  for (int v = -hs; v < hs; ++v) {
    for (int u = -hs; u < hs; ++u) {
      if (inDisc(u, v, hs)) put(x + u, y - v);
    }
  }
  return area;
}

// Below full cover the outer fifth is as hard as the rest: the softening exists at 100 percent only.
Rect BrushStroke::State::smoothedDisc(int x, int y, int hs) {
  if (!mix.covers()) return disc(x, y, hs);
  if (!open(squareAround(x, y, hs))) return {};
  const double radius = hs;
  for (int v = -hs; v < hs; ++v) {
    for (int u = -hs; u < hs; ++u) {
      if (!inDisc(u, v, hs)) continue;
      const double distance = std::sqrt(static_cast<double>(u * u + v * v));
      if (0.8 * radius >= distance) {
        put(x + u, y - v);
      } else {
        putSoft(x + u, y - v, roundToInt(100 * ((radius - distance) / (0.2 * radius)) * 255 / 100));
      }
    }
  }
  return area;
}

Rect BrushStroke::State::dots(int x, int y, int radius, RandomSource& random) {
  constexpr double kThreshold = 0.7;
  if (!open(squareAround(x, y, radius))) return {};
  random.reseed();
  for (int v = -radius; v < radius; ++v) {
    for (int u = -radius; u < radius; ++u) {
      if (!inDisc(u, v, radius)) continue;
      const double first = random.next();
      const double second = random.next();
      if (first > kThreshold && second > kThreshold) put(x + u, y - v);
    }
  }
  return area;
}

// A bar that leans by one column a row, going up to the left (backward) or to the right. The lean starts at the lowest
// row that is inside, so along the picture's bottom edge it starts anew.
Rect BrushStroke::State::slant(int x, int y, const DabMetrics& m, bool backward) {
  // Half an odd hs is rounded together with x: to the even column.
  const double inner = backward ? x + m.hs / 2.0 : x - m.hs / 2.0;
  const int left = roundToInt(backward ? inner : inner - 2 * m.ext);
  const int right = roundToInt(backward ? inner + 2 * m.ext : inner);
  const int lowest = std::max(-m.bar - 1, y - (surface.height() - 1));
  const int end = m.bar - 1;
  const int lean = std::max(end - lowest - 1, 0);
  const Rect upright = pictureRect(0, y, left, right, lowest, end);
  const Rect leaning{left - (backward ? lean : 0), upright.top, right + (backward ? 0 : lean), upright.bottom};
  if (!open(leaning)) return {};
  for (int v = lowest; v < end; ++v) {
    const int counter = v - lowest;
    for (int column = left; column < right; ++column) put(backward ? column - counter : column + counter, y - v);
  }
  return area;
}

Rect BrushStroke::State::bar(const Rect& bounds) {
  if (!open(bounds)) return {};
  for (int row = area.top; row < area.bottom; ++row) {
    for (int column = area.left; column < area.right; ++column) put(column, row);
  }
  return area;
}

BrushStroke::BrushStroke() = default;
BrushStroke::~BrushStroke() = default;
BrushStroke::BrushStroke(BrushStroke&&) noexcept = default;
BrushStroke& BrushStroke::operator=(BrushStroke&&) noexcept = default;

void BrushStroke::BrushStrokeBegin(clsDIB& picture, Colour colour) {
  state_.reset();
  if (!picture.empty()) state_ = std::make_unique<State>(picture, colour);
}

void BrushStroke::BrushStrokeEnd() {
  state_.reset();
}

Rect BrushStroke::BrushDab(int x, int y, int size, int percent, int style) {
  if (!state_ || !withinReach(x, y)) return {};
  const DabMetrics m = DabMetrics::of(size);
  state_->usePercent(percent);
  switch (style) {
    case kRound:
      return state_->disc(x, y, m.hs);
    case kSmoothedRound:
      return state_->smoothedDisc(x, y, m.hs);
    case kSprayBrush:
      return state_->dots(x, y, (m.a + 2) / 2, random_ ? *random_ : state_->ownRandom);
    case kBackwardDiagonal:
      return state_->slant(x, y, m, true);
    case kForwardDiagonal:
      return state_->slant(x, y, m, false);
    case kVertical:
      return state_->bar(pictureRect(x, y, -m.ext, m.ext, -m.bar - 1, m.bar - 1));
    case kHorizontal:
      return state_->bar(pictureRect(x, y, -m.bar - 1, m.bar - 1, -m.ext, m.ext));
    default:
      return {};
  }
}

Rect BrushStroke::walk(Point from, Point to, int size, int percent, int style) {
  if (!withinReach(from.x, from.y) || !withinReach(to.x, to.y)) return {};
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const int distance = roundToInt(std::sqrt(dx * dx + dy * dy));
  Rect changed;
  for (int i = 1; i <= distance; ++i) {
    const int x = from.x + static_cast<int>(dx * i / distance);
    const int y = from.y + static_cast<int>(dy * i / distance);
    changed = changed.united(BrushDab(x, y, size, percent, style));
  }
  return changed;
}

Rect BrushStroke::SprayBurst(int x, int y, int size, int percent, int density) {
  if (!state_ || !withinReach(x, y)) return {};
  State& s = *state_;
  s.usePercent(percent);
  const int radius = roundToInt((size * 3 + 10) / 2.0);
  const double threshold = density == 0 ? 0.8 : density == 1 ? 0.6 : 0.4;
  if (!s.reach(squareAround(x, y, radius))) return {};
  RandomSource& random = random_ ? *random_ : s.ownRandom;
  random.reseed();
  for (int v = -radius; v < radius; ++v) {
    for (int u = -radius; u < radius; ++u) {
      if (!inDisc(u, v, radius)) continue;
      const double first = random.next();
      const double second = random.next();
      if (first <= threshold || second <= threshold) continue;
      // The present pixel, not the one at the stroke's begin: bursts build up.
      if (Pixel32* pixel = s.pixelAt(x + u, y - v)) {
        *pixel = s.mix.covers() ? s.mix.ink() : s.mix.over(seen(s.picture, *pixel));
      }
    }
  }
  return s.area;
}

}  // namespace ruvo::brush
