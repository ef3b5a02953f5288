#include "effects/filter/clsDIBFilter.h"

#include "support/pictures.h"

namespace ruvo {
namespace {

Colour grey(int level) {
  return rgb(level, level, level);
}

// One row of memory order, left to right.
std::vector<int> greens(const clsDIB& dib, int memoryRow) {
  std::vector<int> levels;
  for (int x = 0; x < dib.DIBWidth(); ++x) levels.push_back(dib.surface().view32().at(x, memoryRow).green);
  return levels;
}

TEST(clsDIBFilter, embossComparesWithLeftAndAboveAndWrapsTheTopLine) {
  // Memory row 0 is the bottom line.
  const test::Ink ink = {{'a', grey(0)}, {'b', grey(100)}, {'c', grey(200)}};
  clsDIB dib = test::dibOf({"abc", "cab"}, ink);
  std::vector<int> told;
  int ends = 0;
  clsDIBFilter filter;
  filter.Filtertemp_Progress = [&](int percent) { told.push_back(percent); };
  filter.Filtertemp_ProgressEnd = [&] { ++ends; };
  filter.Emboss(dib, 1, 128, 128, 128);
  // Bottom: c-a, a-a, b-b (the neighbours stand in the line above, one column to the left).
  EXPECT_EQ(greens(dib, 0), (std::vector{255, 128, 128}));
  // Top wraps to the bottom: a-c, b-c, c-a.
  EXPECT_EQ(greens(dib, 1), (std::vector{72, 28, 255}));
  EXPECT_EQ(told, (std::vector{0, 100}));
  EXPECT_EQ(ends, 1);

  clsDIB engraved = test::dibOf({"abc", "cab"}, ink);
  filter.Engrave(engraved, 0.5f, 128, 128, 128);
  EXPECT_EQ(greens(engraved, 0), (std::vector{28, 128, 128}));
  EXPECT_EQ(greens(engraved, 1), (std::vector{228, 178, 28}));
}

TEST(clsDIBFilter, reliefJoinsTheChannelsByWeightAndKeepsByte3) {
  clsDIB dib = test::dibOf({"x"}, {{'x', rgb(9, 9, 9)}});
  dib.surface().view32().at(0, 0).alpha = 77;
  clsDIBFilter().Emboss(dib, 1, 10, 20, 400);
  // 0.2 x 255 + 0.7 x 20 + 0.1 x 10
  EXPECT_EQ(dib.surface().view32().at(0, 0), (Pixel32{66, 66, 66, 77}));
}

TEST(clsDIBFilter, texturizeScalesByWholeSteps) {
  const test::Ink ink = {{'0', grey(64)}, {'1', grey(65)}, {'2', grey(191)}, {'3', grey(192)}, {'=', grey(100)}};
  clsDIB dib = test::dibOf({"===="}, ink);
  clsDIBFilter().Texturize(dib, test::dibOf({"0123"}, ink));
  // Half a step goes to the even one: 64 / 128 is 0, 192 / 128 is 2.
  EXPECT_EQ(greens(dib, 0), (std::vector{0, 37, 163, 255}));
}

}  // namespace
}  // namespace ruvo
