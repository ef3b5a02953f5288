// Operations that lay something over the picture: another one, squares, grain.
#include <vector>

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/pixel_walk.h"
#include "image/row_reader.h"

namespace ruvo {

using namespace filter;

namespace {

// Of a surface of any depth, the pixels of a memory row as words.
const std::uint32_t* wordsOf(RowReader& reader, int memoryRow) {
  return reinterpret_cast<const std::uint32_t*>(reader.bytes(memoryRow));
}

// The square that decides the colour of a row or column: the last one that begins there or before, of those that have
// a pixel to spare beside their first. (A later square covers the last line of the one before.)
class Squares {
 public:
  Squares(int block, int length) : block_(block), last_((length - 2) / block * block) {}
  int startOf(int at) const { return std::min(at / block_ * block_, last_); }
  int nextAfter(int start, int length) const { return start == last_ ? length : start + block_; }

 private:
  int block_;
  int last_;
};

}  // namespace

bool clsDIBFilter::Tile(clsDIB& Target, const clsDIB& TileBitmap) {
  if (!workable(Target) || TileBitmap.empty() || &Target == &TileBitmap) return true;
  const int width = Target.DIBWidth(), tileWidth = TileBitmap.DIBWidth();
  RowReader tile(TileBitmap.surface());
  return forRows(Target.DIBHeight(), [&](int y) {
    // From the top, whichever way the rows of the two lie.
    const std::uint32_t* from = wordsOf(tile, TileBitmap.surface().memoryRowOf(y % TileBitmap.DIBHeight()));
    std::uint32_t* row = words(Target.surface(), Target.surface().memoryRowOf(y));
    for (int left = 0; left < width; left += tileWidth) {
      const int count = std::min(tileWidth, width - left);
      for (int x = 0; x < count; ++x) row[left + x] = recoloured(row[left + x], from[x]);
    }
  });
}

bool clsDIBFilter::Texturize(clsDIB& Target, const clsDIB& Relief) {
  if (!workable(Target) || Relief.empty()) return true;
  const int width = Target.DIBWidth(), reliefWidth = Relief.DIBWidth();
  RowReader relief(Relief.surface());
  return forRows(Target.DIBHeight(), [&](int y) {
    const std::uint32_t* texture = wordsOf(relief, y % Relief.DIBHeight());
    std::uint32_t* row = words(Target.surface(), y);
    for (int left = 0; left < width; left += reliefWidth) {
      const int count = std::min(reliefWidth, width - left);
      for (int x = 0; x < count; ++x) {
        const int t = static_cast<int>(blueIn(texture[x]));
        const int factor = (t > 64) + (t >= 192);  // t / 128 to the nearest whole, halves to the even one
        const std::uint32_t p = row[left + x];
        const auto channel = [&](std::uint32_t c) { return clampToByte(static_cast<int>(c) * factor + t - 128); };
        row[left + x] = recoloured(p, wordOf(channel(blueIn(p)), channel(greenIn(p)), channel(redIn(p))));
      }
    }
  });
}

bool clsDIBFilter::Pixelate(clsDIB& Target, int Block) {
  if (!workable(Target) || Block < 1) return true;
  raster::Surface& surface = Target.surface();
  const int width = Target.DIBWidth(), height = Target.DIBHeight();
  if (width < 2 || height < 2) return Filtertemp_ProgressEnd(), true;
  const Squares rows(Block, height), columns(Block, width);
  return forRows(height, [&](int y) {
    // A square's first pixel keeps its colour, so nothing needs a copy.
    const std::uint32_t* from = words(surface, rows.startOf(y));
    std::uint32_t* row = words(surface, y);
    for (int start = 0; start < width;) {
      const int end = columns.nextAfter(start, width);
      const std::uint32_t colour = from[start];
      for (int x = start; x < end; ++x) row[x] = recoloured(row[x], colour);
      start = end;
    }
  });
}

bool clsDIBFilter::Grainize(clsDIB& Target, float Strength, RandomSource& Random, std::int64_t ExcludeColor) {
  if (!workable(Target)) return true;
  const Exclusion exclusion(ExcludeColor);
  const int width = Target.DIBWidth();
  std::vector<double> numbers(static_cast<std::size_t>(width));
  return forRows(Target.DIBHeight(), [&](int y) {
    Random.fill(numbers);
    const double* number = numbers.data();
    recolourRow(words(Target.surface(), y), 0, width, exclusion, [&](std::uint32_t p) {
      const double factor = *number++ * Strength + 1;
      const auto channel = [factor](std::uint32_t c) {
        return static_cast<std::uint32_t>(quickRound(std::clamp(c * factor, 0.0, 255.0)));
      };
      return wordOf(channel(blueIn(p)), channel(greenIn(p)), channel(redIn(p)));
    });
  });
}

}  // namespace ruvo
