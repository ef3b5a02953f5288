#include "effects/model/perspective.h"

#include <algorithm>
#include <cmath>

#include "base/limits.h"
#include "effects/model/row_warp.h"
#include "effects/model/vector3.h"

namespace ruvo {
namespace {

// A new picture like `like` with the rows warped.
bool warpInto(clsDIB& picture, Size size, const RowWarp& warp, const Progress& progress) {
  clsDIB target;
  if (!target.CreateBlankDIB(size.width, size.height, 32, warp.fill, picture.BottomUp())) return false;
  target.setDIBhasAlpha(picture.DIBhasAlpha());
  if (!warpRows(picture, target, warp, progress)) return false;
  picture = std::move(target);
  return true;
}

// A quarter turn; false without memory.
bool turn(clsDIB& picture, bool clockwise) {
  constexpr int kAnticlockwise = 2, kClockwise = 3;
  const std::uint8_t* before = picture.DIBBitsPtr();
  // A turn goes by rows in memory.
  clsDIB::RotateDIB(picture, clockwise != picture.BottomUp() ? kClockwise : kAnticlockwise);
  return picture.DIBBitsPtr() != before;
}

// Runs `warp` on the picture turned by a quarter, so that columns are rows.
template <typename Warp>
bool onItsSide(clsDIB& picture, bool clockwise, const Warp& warp) {
  return turn(picture, clockwise) && warp() && turn(picture, !clockwise);
}

// With the farther side at the top or at the bottom.
bool leanBack(clsDIB& picture, const Perspective& how, bool topIsFar, const Progress& progress) {
  const double width = picture.DIBWidth(), height = picture.DIBHeight();
  const double far = width * (1 - how.shrink);
  const double drawn = height * how.length, top = (height - drawn) / 2;
  // Widths change evenly along the picture, so what is seen there comes from where the ratio of the distances says.
  const auto sourceAt = [=](double share) { return height * share * width / ((1 - share) * far + share * width); };
  RowWarp warp;
  warp.fill = how.fill;
  warp.antialias = how.antialias;
  warp.rowAt = [=](int y) {
    const auto shareAt = [=](double at) {
      const double share = std::clamp((at - top) / drawn, 0.0, 1.0);
      return topIsFar ? share : 1 - share;
    };
    const auto sourceRow = [=](double share) { return topIsFar ? sourceAt(share) : height - sourceAt(share); };
    RowWarp::Row row;
    const double from = std::max<double>(y, top), to = std::min<double>(y + 1, top + drawn);
    row.cover = std::max(0.0, to - from);
    if (row.cover == 0) return row;
    row.sourceFrom = sourceRow(shareAt(from));
    row.sourceTo = sourceRow(shareAt(to));
    const double wide = std::lerp(far, width, shareAt((from + to) / 2));
    row.left = (width - wide) / 2;
    row.right = row.left + wide;
    row.slope = (width - far) / 2 / drawn;
    return row;
  };
  return warpInto(picture, picture.size(), warp, progress);
}

bool slantRows(clsDIB& picture, const Slant& how, const Progress& progress) {
  const double step = std::tan(radiansOf(how.angle));
  const int height = picture.DIBHeight();
  const double reach = step * (height - 1);  // the top row against the bottom one
  Size size = picture.size();
  double bottomAt = -reach / 2;
  const double grown = size.width + std::ceil(std::abs(reach) - 1e-9);
  if (how.grow && pictureSizeAllowed(static_cast<std::int64_t>(std::min(grown, 1e9)), height)) {
    size.width = static_cast<int>(grown);
    bottomAt = std::max(0.0, -reach);
  }
  RowWarp warp;
  warp.fill = how.fill;
  warp.antialias = how.antialias;
  warp.rowAt = [=, width = picture.DIBWidth()](int y) {
    RowWarp::Row row;
    row.sourceFrom = y;
    row.sourceTo = y + 1;
    row.left = bottomAt + step * (height - 1 - y);
    row.right = row.left + width;
    row.slope = std::abs(step);
    row.cover = 1;
    return row;
  };
  return warpInto(picture, size, warp, progress);
}

}  // namespace

bool drawPerspective(clsDIB& picture, const Perspective& perspective, const Progress& progress) {
  switch (perspective.side) {
    case Perspective::Side::Top:
      return leanBack(picture, perspective, true, progress);
    case Perspective::Side::Bottom:
      return leanBack(picture, perspective, false, progress);
    case Perspective::Side::Left:
      return onItsSide(picture, true, [&] { return leanBack(picture, perspective, true, progress); });
    case Perspective::Side::Right:
      return onItsSide(picture, false, [&] { return leanBack(picture, perspective, true, progress); });
  }
  return false;
}

bool drawSlant(clsDIB& picture, const Slant& slant, const Progress& progress) {
  if (!slant.upright) return slantRows(picture, slant, progress);
  // Turned clockwise the left side is the top: it goes to the right there when it goes up here.
  Slant onSide = slant;
  onSide.angle = -slant.angle;
  return onItsSide(picture, true, [&] { return slantRows(picture, onSide, progress); });
}

}  // namespace ruvo
