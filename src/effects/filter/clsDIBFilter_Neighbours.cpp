// Operations in which a pixel is compared with those beside it. They need few rows as they were before: the walk goes up
// the rows, and what it overwrites is kept in row copies instead of a copy of the picture.
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/pixel_walk.h"

namespace ruvo {

using namespace filter;

namespace {

using RowCopy = std::vector<std::uint32_t>;

void copyRow(RowCopy& to, const raster::Surface& surface, int memoryRow) {
  std::memcpy(to.data(), words(surface, memoryRow), to.size() * sizeof(std::uint32_t));
}

// A fifth of the sums of five bytes, the fraction dropped: 13108 / 65536 is near enough for sums up to 5 x 255.
void fifths(const std::uint8_t* below, const std::uint8_t* row, const std::uint8_t* above, std::uint8_t* out,
            int bytes) {
  for (int i = 0; i < bytes; ++i) {
    const auto sum = static_cast<std::uint16_t>(row[i] + row[i - 4] + row[i + 4] + below[i] + above[i]);
    out[i] = static_cast<std::uint8_t>(static_cast<std::uint32_t>(sum) * 13108 >> 16);
  }
}

const std::uint8_t* bytesOf(const std::uint32_t* pixels) {
  return reinterpret_cast<const std::uint8_t*>(pixels);
}

}  // namespace

bool clsDIBFilter::Soften(clsDIB& Target, std::int64_t ExcludeColor) {
  if (!workable(Target)) return true;
  raster::Surface& surface = Target.surface();
  const int width = Target.DIBWidth(), height = Target.DIBHeight();
  const Exclusion exclusion(ExcludeColor);
  RowCopy below(static_cast<std::size_t>(width)), present(below), softened(below);
  return forRows(height, [&](int y) {
    present.swap(below);
    copyRow(present, surface, y);
    if (y > 0 && y < height - 1 && width > 2) {
      fifths(bytesOf(&below[1]), bytesOf(&present[1]), bytesOf(words(surface, y + 1) + 1),
             reinterpret_cast<std::uint8_t*>(&softened[1]), (width - 2) * 4);
      std::uint32_t* row = words(surface, y);
      const std::uint32_t* soft = softened.data();
      for (int x = 1; x < width - 1; ++x) row[x] = exclusion.choose(row[x], soft[x]);
    }
  });
}

bool clsDIBFilter::Sharpen(clsDIB& Target, float Weight, std::int64_t ExcludeColor) {
  if (!workable(Target)) return true;
  const double multiplier = Weight + 1.0f;
  // More than 255 either way makes no difference.
  const DifferenceTable<int> steps([&](int d) { return roundToInt(std::clamp(d / 2.0 * multiplier, -256.0, 256.0)); });
  const int width = Target.DIBWidth(), height = Target.DIBHeight();
  const Exclusion exclusion(ExcludeColor);
  return forRows(height, [&](int y) {
    if (y == 0 || y >= height - 1) return;
    std::uint32_t* row = words(Target.surface(), y);
    std::uint32_t left = row[0];
    recolourRow(row, 1, width - 1, exclusion, [&](std::uint32_t p) {
      const auto channel = [&](std::uint32_t c, std::uint32_t n) {
        return clampToByte(static_cast<int>(c) + steps.of(c, n));
      };
      const std::uint32_t sharp =
          wordOf(channel(blueIn(p), blueIn(left)), channel(greenIn(p), greenIn(left)), channel(redIn(p), redIn(left)));
      left = p;
      return sharp;
    });
  });
}

bool clsDIBFilter::Emboss(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR) {
  return relief(Target, Weight, LevelB, LevelG, LevelR);
}

bool clsDIBFilter::Engrave(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR) {
  return relief(Target, -Weight, LevelB, LevelG, LevelR);
}

bool clsDIBFilter::relief(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR) {
  if (!workable(Target)) return true;
  // What each channel adds to the grey. The three products are summed in double, so that halves round as they did there.
  const auto tableOf = [&](double share, int level) {
    return DifferenceTable<double>(
        [&](int d) { return share * roundToByte(std::abs(static_cast<double>(Weight) * d + level)); });
  };
  const auto blue = tableOf(0.1, LevelB), green = tableOf(0.7, LevelG), red = tableOf(0.2, LevelR);
  raster::Surface& surface = Target.surface();
  const int width = Target.DIBWidth(), height = Target.DIBHeight();
  RowCopy first(static_cast<std::size_t>(width));
  copyRow(first, surface, 0);
  return forRows(height, [&](int y) {
    std::uint32_t* row = words(surface, y);
    const std::uint32_t* other = y + 1 < height ? words(surface, y + 1) : first.data();
    for (int x = 0; x < width; ++x) {
      const std::uint32_t p = row[x], n = other[x > 0 ? x - 1 : 0];
      const double grey = red.of(redIn(p), redIn(n)) + green.of(greenIn(p), greenIn(n)) + blue.of(blueIn(p), blueIn(n));
      row[x] = recoloured(p, static_cast<std::uint32_t>(quickRound(grey)) * 0x010101);
    }
  });
}

bool clsDIBFilter::Cast(clsDIB& Target, int LevelR, int LevelG, int LevelB) {
  if (!workable(Target)) return true;
  const auto lowByte = [](int value) { return static_cast<std::uint32_t>(std::abs(value)) & 0xFF; };
  const auto level = [](int value) { return std::clamp(value, -32768, 32767); };
  const int red = level(LevelR), green = level(LevelG), blue = level(LevelB);
  const std::uint32_t edge = wordOf(lowByte(blue), lowByte(green), lowByte(red));
  raster::Surface& surface = Target.surface();
  const int width = Target.DIBWidth(), height = Target.DIBHeight();
  return forRows(height, [&](int y) {
    std::uint32_t* row = words(surface, y);
    int x = 0;
    if (y + 1 < height) {
      const std::uint32_t* next = words(surface, y + 1) + 1;
      const auto channel = [&](std::uint32_t c, std::uint32_t n, int with) {
        return lowByte(static_cast<int>(c) - static_cast<int>(n) + with);
      };
      for (; x + 1 < width; ++x) {
        const std::uint32_t p = row[x], n = next[x];
        row[x] = recoloured(p, wordOf(channel(blueIn(p), blueIn(n), blue), channel(greenIn(p), greenIn(n), green),
                                      channel(redIn(p), redIn(n), red)));
      }
    }
    for (; x < width; ++x) row[x] = recoloured(row[x], edge);
  });
}

}  // namespace ruvo
