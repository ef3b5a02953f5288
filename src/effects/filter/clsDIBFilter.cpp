#include "effects/filter/clsDIBFilter.h"

#include <cmath>
#include <vector>

#include "base/rounding.h"

namespace ruvo {

namespace {

bool workable(const clsDIB& dib) {
  return !dib.empty() && dib.surface().depth() == 32;
}

}  // namespace

void clsDIBFilter::reportRow(int row, int height) const {
  if (height > 1 && Filtertemp_Progress) Filtertemp_Progress(roundToInt(static_cast<double>(row) / (height - 1) * 100));
}

void clsDIBFilter::reportEnd() const {
  if (Filtertemp_ProgressEnd) Filtertemp_ProgressEnd();
}

void clsDIBFilter::Texturize(clsDIB& Target, const clsDIB& Relief) {
  if (!workable(Target) || !workable(Relief)) return;
  const auto target = Target.surface().view32();
  const auto relief = Relief.surface().view32();
  const int width = std::min(target.width(), relief.width());
  const int height = std::min(target.height(), relief.height());
  for (int y = 0; y < height; ++y) {
    Pixel32* row = target.row(y);
    const Pixel32* texture = relief.row(y);
    for (int x = 0; x < width; ++x) {
      const int t = texture[x].blue;
      const int factor = roundToInt(t / 128.0);
      const auto channel = [&](int c) { return clampToByte(c * factor + t - 128); };
      row[x] = {channel(row[x].blue), channel(row[x].green), channel(row[x].red), row[x].alpha};
    }
    reportRow(y, height);
  }
  reportEnd();
}

void clsDIBFilter::Emboss(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR) {
  relief(Target, Weight, LevelB, LevelG, LevelR);
}

void clsDIBFilter::Engrave(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR) {
  relief(Target, -Weight, LevelB, LevelG, LevelR);
}

void clsDIBFilter::relief(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR) {
  if (!workable(Target)) return;
  const auto target = Target.surface().view32();
  const int height = target.height();
  const auto copyOf = [&](int y) { return std::vector<Pixel32>(target.row(y), target.row(y) + target.width()); };
  // Only three rows are needed as they were: the first (the last row's neighbour), the present and the next.
  const std::vector<Pixel32> first = copyOf(0);
  std::vector<Pixel32> present = first;
  for (int y = 0; y < height; ++y) {
    std::vector<Pixel32> next = y + 1 < height ? copyOf(y + 1) : first;
    Pixel32* row = target.row(y);
    for (int x = 0; x < target.width(); ++x) {
      const Pixel32 c = present[x];
      const Pixel32 n = next[x > 0 ? x - 1 : 0];
      const auto channel = [Weight](int pixel, int neighbour, int level) {
        // A huge weight must not run out of int's range.
        const double e = std::abs(static_cast<double>(Weight) * (pixel - neighbour) + level);
        return roundToInt(std::min(255.0, e));
      };
      const int blue = channel(c.blue, n.blue, LevelB);
      const int green = channel(c.green, n.green, LevelG);
      const int red = channel(c.red, n.red, LevelR);
      const std::uint8_t grey = clampToByte(roundToInt(0.2 * red + 0.7 * green + 0.1 * blue));
      row[x] = {grey, grey, grey, row[x].alpha};
    }
    present.swap(next);
    reportRow(y, height);
  }
  reportEnd();
}

}  // namespace ruvo
