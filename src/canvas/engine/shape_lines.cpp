#include "canvas/engine/shape_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "base/rounding.h"
#include "canvas/engine/brush_bits_line.h"
#include "canvas/engine/brush_pen.h"
#include "canvas/engine/soft_pixels.h"
#include "platform/raster/draw.h"

namespace ruvo::shape {
namespace {

double distance(Point a, Point b) {
  return std::hypot(static_cast<double>(b.x) - a.x, static_cast<double>(b.y) - a.y);
}

// Without the lower end, where a neighbouring line would begin.
Rect thinLine(clsDIB& picture, Point from, Point to, Colour colour) {
  raster::DrawContext context(picture.surface());
  context.pen = raster::Pen::solid(colour);
  context.alphaFill = picture.DIBhasAlpha();
  raster::line(context, from, to);
  const Rect box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
                 std::max(from.y, to.y) + 1};
  return box.intersected(context.area());
}

}  // namespace

Rect PenLine(clsDIB& picture, Point from, Point to, Colour colour, int width, int capStyle, bool drawEnds) {
  if (picture.empty()) return {};
  width = std::clamp(width, 1, kWidestPen);
  if (from.y > to.y) std::swap(from, to);
  if (capStyle == 1) return brush::BitsBrushLine(picture, from.x, from.y, to.x, to.y, colour, width, false);
  if (width == 1 && !drawEnds) return thinLine(picture, from, to, colour);
  return brush::paintPenSegment(picture, from, to, width, colour, picture.surface().bounds());
}

Rect AALine(clsDIB& picture, Point from, Point to, Colour colour) {
  if (picture.empty() || from == to) return {};
  SoftPixels pixels(picture, colour);
  const int dx = std::abs(to.x - from.x), dy = std::abs(to.y - from.y);
  const int sx = to.x < from.x ? -1 : 1, sy = to.y < from.y ? -1 : 1;
  // The walk is along the longer axis; the other one is called across.
  const bool upright = dy >= dx;
  const int length = upright ? dy : dx, drift = upright ? dx : dy;
  const int alongStep = upright ? sy : sx, acrossStep = upright ? sx : sy;
  const auto cover = [&](int along, int across, int coverage) {
    pixels.cover(upright ? across : along, upright ? along : across, coverage);
  };
  int along = upright ? from.y : from.x, across = upright ? from.x : from.y;
  const int lastAlong = upright ? to.y : to.x, lastAcross = upright ? to.x : to.y;

  const int corner = drift * 85 / length;
  cover(along - alongStep, across - acrossStep, corner);
  cover(along - alongStep, across, 127);
  cover(lastAlong + alongStep, lastAcross + acrossStep, corner);
  cover(lastAlong + alongStep, lastAcross, 127);
  // The whole walk is in integers. An odd length loses half a step here, which shows only on lines of a few pixels.
  int rest = length / 2;
  for (int k = 0; k <= length; ++k) {
    const int share = static_cast<int>(std::int64_t{rest} * 255 / length);
    cover(along, across, 255);
    cover(along, across - acrossStep, 255 - share);
    cover(along, across + acrossStep, share);
    rest += drift;
    if (rest >= length) {
      rest -= length;
      across += acrossStep;
    }
    along += alongStep;
  }
  return pixels.changed();
}

Rect AAWideLine(clsDIB& picture, Point from, Point to, Colour colour, int width) {
  width = std::clamp(width, 1, kWidestPen);
  const double length = distance(from, to);
  if (length <= width) return PenLine(picture, from, to, colour, width);
  if (width < 3) return AALine(picture, from, to, colour);
  if (picture.empty()) return {};
  SoftPixels pixels(picture, colour);
  // The long sides lie half the width to the left and right of the line. A pixel is full up to half a pixel inside of
  // them and free from half a pixel outside; past the ends the distance to the end counts.
  const double reach = width / 2.0 + 0.5;
  const double ux = (to.x - from.x) / length, uy = (to.y - from.y) / length;
  const int margin = static_cast<int>(std::ceil(reach));
  const Rect area = Rect{std::min(from.x, to.x) - margin, std::min(from.y, to.y) - margin,
                         std::max(from.x, to.x) + margin + 1, std::max(from.y, to.y) + margin + 1}
                        .intersected(picture.surface().bounds());
  for (int y = area.top; y < area.bottom; ++y) {
    // Only the stretch of the line that is near enough to this row.
    double first = 0, last = length;
    if (uy != 0) {
      const double a = (y - from.y - reach) / uy, b = (y - from.y + reach) / uy;
      first = std::clamp(std::min(a, b), 0.0, length);
      last = std::clamp(std::max(a, b), 0.0, length);
    }
    const double x1 = from.x + ux * first, x2 = from.x + ux * last;
    const int left = std::max(area.left, static_cast<int>(std::floor(std::min(x1, x2) - reach)));
    const int right = std::min(area.right, static_cast<int>(std::ceil(std::max(x1, x2) + reach)) + 1);
    for (int x = left; x < right; ++x) {
      const double px = x - from.x, py = y - from.y;
      const double along = px * ux + py * uy, aside = px * uy - py * ux;
      const double past = along < 0 ? along : std::max(0.0, along - length);
      const double far = past == 0 ? std::abs(aside) : std::hypot(aside, past);
      if (far < reach) pixels.cover(x, y, far <= reach - 1 ? 255 : static_cast<int>((reach - far) * 255));
    }
  }
  return pixels.changed();
}

namespace {

// Lengths that are drawn and left out in turn, in widths of the pen.
std::span<const int> patternOf(int type) {
  static constexpr std::array kDash{6, 3}, kDot{1, 2};
  static constexpr std::array kDashDot{6, 2, 1, 2};
  static constexpr std::array kDashDotDot{6, 2, 1, 2, 1, 2};
  switch (type) {
    case 2:
      return kDash;
    case 3:
      return kDot;
    case 4:
      return kDashDot;
    default:
      return kDashDotDot;
  }
}

}  // namespace

Rect PatternLine(clsDIB& picture, Point from, Point to, Colour colour, int width, int type) {
  width = std::clamp(width, 1, kWidestPen);
  const double length = distance(from, to);
  const auto pointAt = [&](double along) {
    const double part = length > 0 ? std::min(along, length) / length : 0;
    return Point{roundToInt(from.x + part * (to.x - from.x)), roundToInt(from.y + part * (to.y - from.y))};
  };
  const std::span<const int> pattern = patternOf(type);
  Rect changed;
  double along = 0;
  for (std::size_t i = 0; along <= length; i = (i + 2) % pattern.size()) {
    // The pen adds half its width at both ends of a piece.
    const double piece = (pattern[i] - 1) * width;
    changed =
        changed.united(PenLine(picture, pointAt(along), pointAt(along + piece), colour, width, 0, /*drawEnds=*/true));
    along += piece + (pattern[i + 1] + 1) * width;
  }
  return changed;
}

Rect arrowHead(clsDIB& picture, Point tip, Point from, Colour colour, int width) {
  constexpr double kBarbAngle = 0.5;  // between a barb and the line, about 29 degrees
  if (tip == from) return {};
  const double back = std::atan2(from.y - tip.y, from.x - tip.x);
  // On a short line a whole head would hide the line.
  const double length = std::min(5.0 + 2 * std::clamp(width, 1, kWidestPen), 0.7 * distance(tip, from));
  Rect changed;
  for (const double angle : {back - kBarbAngle, back + kBarbAngle}) {
    const Point end{tip.x + roundToInt(length * std::cos(angle)), tip.y + roundToInt(length * std::sin(angle))};
    changed = changed.united(PenLine(picture, tip, end, colour, width, 0, /*drawEnds=*/true));
  }
  return changed;
}

}  // namespace ruvo::shape
