#include "platform/raster/stretch.h"

#include <cstring>

#include "platform/raster/blit.h"

namespace ruvo::raster {
namespace {

constexpr std::uint32_t kUntouched = 0xEEEEEEEE;

Surface grid(int width, int height, const std::function<std::uint32_t(int, int)>& value,
             RowOrder order = RowOrder::BottomUp) {
  Surface s;
  s.create(width, height, 32, order);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const std::uint32_t v = value(x, y);
      std::memcpy(s.pictureRow(y) + x * 4, &v, 4);
    }
  }
  return s;
}
std::uint32_t at(const Surface& s, int x, int y) {
  std::uint32_t v;
  std::memcpy(&v, s.pictureRow(y) + x * 4, 4);
  return v;
}

// The source coordinate that lands on each destination pixel of one axis, -1 where none does.
std::vector<int> mapOf(bool columns, int size, int from, int fromLength, int toSize, int to, int toLength) {
  const auto coordinate = [&](int x, int y) { return static_cast<std::uint32_t>(columns ? x : y); };
  const Surface src = columns ? grid(size, 1, coordinate) : grid(1, size, coordinate);
  const auto blank = [](int, int) { return kUntouched; };
  Surface dst = columns ? grid(toSize, 1, blank, RowOrder::TopDown) : grid(1, toSize, blank, RowOrder::TopDown);
  if (columns) {
    stretchBlit(dst, {to, 0, toLength, 1}, src, {from, 0, fromLength, 1}, StretchMode::ColorOnColor);
  } else {
    stretchBlit(dst, {0, to, 1, toLength}, src, {0, from, 1, fromLength}, StretchMode::ColorOnColor);
  }
  std::vector<int> map;
  for (int i = 0; i < toSize; ++i) {
    const std::uint32_t v = columns ? at(dst, i, 0) : at(dst, 0, i);
    map.push_back(v == kUntouched ? -1 : static_cast<int>(v));
  }
  return map;
}

TEST(Stretch, PicksThePixelUnderTheCentreWhenGrowing) {
  for (bool columns : {true, false}) {
    EXPECT_EQ(mapOf(columns, 2, 0, 2, 5, 0, 5), (std::vector{0, 0, 0, 1, 1})) << "exact ties go to the lower pixel";
    EXPECT_EQ(mapOf(columns, 3, 0, 3, 6, 0, 6), (std::vector{0, 0, 1, 1, 2, 2}));
    EXPECT_EQ(mapOf(columns, 3, 0, 3, 3, 2, -3), (std::vector{2, 1, 0})) << "mirror";
    EXPECT_EQ(mapOf(columns, 3, 0, 3, 3, 3, -3), (std::vector{-1, 2, 1})) << "a run that starts one too far";
    EXPECT_EQ(mapOf(columns, 2, -1, 4, 8, 0, 8), (std::vector{-1, -1, 0, 0, 1, 1, -1, -1})) << "source partly outside";
    EXPECT_EQ(mapOf(columns, 4, 0, 4, 4, -2, 8), (std::vector{1, 1, 2, 2})) << "edges do not shift the scale";
  }
}

TEST(Stretch, TakesTheLastColumnButTheFirstRowWhenShrinking) {
  EXPECT_EQ(mapOf(true, 6, 0, 6, 3, 0, 3), (std::vector{1, 3, 5}));
  EXPECT_EQ(mapOf(false, 6, 0, 6, 3, 0, 3), (std::vector{0, 2, 4}));
  EXPECT_EQ(mapOf(true, 5, 0, 5, 2, 0, 2), (std::vector{2, 4}));
  EXPECT_EQ(mapOf(false, 5, 0, 5, 2, 0, 2), (std::vector{0, 3}));
  EXPECT_EQ(mapOf(true, 6, 5, -6, 3, 0, 3), (std::vector{4, 2, 0}));
  EXPECT_EQ(mapOf(true, 7, 0, 7, 1, 0, 1), (std::vector{5})) << "a single column loses the last one";
  EXPECT_EQ(mapOf(true, 7, 6, -7, 1, 0, 1), (std::vector{0})) << "but not when mirrored";
}

TEST(Stretch, BlackAndWhiteModesCombineTheWholeRun) {
  const Surface src = grid(4, 2, [](int x, int y) { return 1u << (x + 4 * y); });
  Surface dst = grid(2, 1, [](int, int) { return kUntouched; });
  stretchBlit(dst, Extent::of(dst), src, Extent::of(src), StretchMode::WhiteOnBlack);
  EXPECT_EQ(at(dst, 0, 0), 0x33u);
  EXPECT_EQ(at(dst, 1, 0), 0xCCu);
  const Surface inverse = grid(4, 2, [](int x, int y) { return ~(1u << (x + 4 * y)); });
  stretchBlit(dst, Extent::of(dst), inverse, Extent::of(inverse), StretchMode::BlackOnWhite);
  EXPECT_EQ(at(dst, 0, 0), ~0x33u);
}

std::uint32_t noise(int x, int y) {
  return (static_cast<std::uint32_t>(x * 7919 + y * 104729) * 2654435761u) | 0x01000000;
}

// Straight from the meaning: the mean of the source area under a destination pixel.
int areaMean(const Surface& src, double x0, double x1, double y0, double y1, int shift) {
  double sum = 0;
  for (int y = 0; y < src.height(); ++y) {
    for (int x = 0; x < src.width(); ++x) {
      const double w = std::max(0.0, std::min(x1, x + 1.0) - std::max(x0, double(x)));
      const double h = std::max(0.0, std::min(y1, y + 1.0) - std::max(y0, double(y)));
      sum += w * h * (at(src, x, y) >> shift & 255);
    }
  }
  return static_cast<int>(sum / ((x1 - x0) * (y1 - y0)) + 0.5);
}

TEST(Stretch, HalftoneAveragesTheCoveredAreaWhenShrinking) {
  const Surface src = grid(11, 300, noise);
  Surface dst = grid(4, 1, noise);
  stretchBlit(dst, Extent::of(dst), src, Extent::of(src), StretchMode::Halftone);
  for (int x = 0; x < 4; ++x) {
    for (int shift : {0, 8, 16}) {
      EXPECT_NEAR(at(dst, x, 0) >> shift & 255, areaMean(src, x * 11 / 4.0, (x + 1) * 11 / 4.0, 0, 300, shift), 1);
    }
    EXPECT_EQ(at(dst, x, 0) >> 24, 0u) << "byte 3";
  }
  const Surface flat = grid(100, 70, [](int, int) { return 0xFFFEFFu; });
  Surface small = grid(33, 9, noise);
  stretchBlit(small, Extent::of(small), flat, Extent::of(flat), StretchMode::Halftone);
  for (int x = 0; x < 33; ++x) ASSERT_EQ(at(small, x, 8), 0xFFFEFFu);
}

TEST(Stretch, HalftoneInterpolatesBetweenCentresWhenGrowingAndMirrors) {
  const Surface src = grid(2, 1, [](int x, int) { return x ? 200u : 100u; });
  Surface dst = grid(8, 3, noise);
  stretchBlit(dst, Extent::of(dst), src, Extent::of(src), StretchMode::Halftone);
  const std::vector<std::uint32_t> expected = {100, 100, 113, 138, 163, 188, 200, 200};
  for (int x = 0; x < 8; ++x) EXPECT_NEAR(at(dst, x, 2), expected[x], 1) << x;
  Surface mirrored = grid(8, 3, noise);
  stretchBlit(mirrored, {7, 0, -8, 3}, src, Extent::of(src), StretchMode::Halftone);
  for (int x = 0; x < 8; ++x) EXPECT_EQ(at(mirrored, x, 0), at(dst, 7 - x, 0));
  Surface same = grid(2, 1, noise);
  stretchBlit(same, Extent::of(same), src, Extent::of(src), StretchMode::Halftone);
  EXPECT_EQ(at(same, 1, 0), 200u);
}

TEST(Stretch, AClipOnlyLeavesPixelsOut) {
  const Surface src = grid(23, 17, noise);
  const Rect clip{5, 3, 19, 12};
  for (const Extent to : {Extent{0, 0, 61, 40}, Extent{2, 1, 19, 9}, Extent{28, 1, -19, 40}, Extent{-4, 20, 61, -9}}) {
    for (int mode = 1; mode <= 4; ++mode) {
      Surface whole = grid(30, 21, [](int, int) { return kUntouched; });
      Surface part = copyOf(whole);
      stretchBlit(whole, to, src, {1, 2, 20, 13}, static_cast<StretchMode>(mode));
      stretchBlit(part, to, src, {1, 2, 20, 13}, static_cast<StretchMode>(mode), RasterOp::SrcCopy, clip);
      for (int y = 0; y < 21; ++y) {
        for (int x = 0; x < 30; ++x) {
          ASSERT_EQ(at(part, x, y), clip.contains(x, y) ? at(whole, x, y) : kUntouched) << mode << ' ' << x << ',' << y;
        }
      }
    }
  }
}

}  // namespace
}  // namespace ruvo::raster
