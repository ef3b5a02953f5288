#include "effects/model/grid.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/rounding.h"
#include "effects/model/pixel_cover.h"

namespace ruvo {
namespace {

// Shares of the pixels of one axis that stretches of it cover.
class AxisCover {
 public:
  AxisCover(int pixels, double scale) : shares_(static_cast<std::size_t>(pixels)), scale_(scale) {}

  // In pixels of the real picture.
  void add(double from, double to) {
    const double end = std::min(to * scale_, static_cast<double>(shares_.size()));
    for (double at = std::max(0.0, from * scale_); at < end;) {
      const auto pixel = static_cast<std::size_t>(at);
      const double next = std::min(end, static_cast<double>(pixel + 1));
      shares_[pixel] += next - at;
      at = next;
    }
  }
  std::vector<int> covers() const {
    std::vector<int> covers;
    for (const double share : shares_) covers.push_back(coverOf(share));
    return covers;
  }
  double realLength() const { return static_cast<double>(shares_.size()) / scale_; }

 private:
  std::vector<double> shares_;
  double scale_;
};

// Calls act(left) for each line that may touch the axis.
template <typename Act>
void forEachLine(double length, int spacing, int width, int offset, const Act& act) {
  const int first = offset - (offset + width + spacing) / spacing * spacing;
  for (int left = first; left < length + spacing; left += spacing) act(left);
}

std::vector<int> lineCovers(int pixels, double scale, int spacing, int width, int offset) {
  AxisCover cover(pixels, scale);
  // Lines as wide as their distance leave nothing free.
  const int shown = std::min(width, spacing);
  forEachLine(cover.realLength(), spacing, shown, offset, [&](int left) { cover.add(left, left + shown); });
  return cover.covers();
}

// Where along their way the lines are drawn, which repeats from crossing to crossing.
std::vector<int> wayCovers(Grid::Style style, int pixels, double scale, int spacing, int width, int offset) {
  if (style == Grid::Style::Lines) return std::vector<int>(static_cast<std::size_t>(pixels), kFullCover);
  AxisCover cover(pixels, scale);
  const bool dots = style == Grid::Style::Dots;
  const int wanted = dots ? 2 * width : 8 * width;
  const int count = std::max(1, roundToInt(static_cast<double>(spacing) / wanted));
  const double period = static_cast<double>(spacing) / count;
  forEachLine(cover.realLength(), spacing, width, offset, [&](int left) {
    for (int i = 0; i < count; ++i) {
      // A dash has its middle on the crossing.
      const double length = dots ? std::min<double>(width, period) : std::max(1.0, std::floor(period / 2));
      const double start = std::floor(left + i * period + (dots ? 0 : (width - length) / 2));
      cover.add(start, start + length);
    }
  });
  return cover.covers();
}

}  // namespace

bool drawGrid(clsDIB& picture, const Grid& grid, double scale, const Progress& progress) {
  const int width = picture.DIBWidth(), height = picture.DIBHeight();
  const std::vector<int> upright = lineCovers(width, scale, grid.spacingX, grid.width, grid.offsetX);
  const std::vector<int> level = lineCovers(height, scale, grid.spacingY, grid.width, grid.offsetY);
  const std::vector<int> acrossWay = wayCovers(grid.style, width, scale, grid.spacingX, grid.width, grid.offsetX);
  const std::vector<int> downWay = wayCovers(grid.style, height, scale, grid.spacingY, grid.width, grid.offsetY);
  const Pixel32 ink = Pixel32::plain(grid.colour);
  const int strength = coverOf(grid.strength);
  const bool isAlpha = picture.DIBhasAlpha();
  return forEachRow(height, progress, [&](int y) {
    Pixel32* row = pixelRow(picture.surface(), y);
    for (int x = 0; x < width; ++x) {
      const int down = upright[x] * downWay[y], across = level[y] * acrossWay[x];
      if (down + across == 0) continue;
      const int both = (down + across - static_cast<int>(static_cast<std::int64_t>(down) * across >> 16)) / kFullCover;
      row[x] = laidOver(row[x], ink, both * strength / kFullCover, isAlpha);
    }
  });
}

}  // namespace ruvo
