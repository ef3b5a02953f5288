#include "image/clsPal.h"

#include <array>
#include <set>

#include "support/pictures.h"

namespace ruvo {
namespace {

Colour entryOf(const clsPal& pal, int i) {
  return rgb(pal.rgbR(i), pal.rgbG(i), pal.rgbB(i));
}

clsDIB gradient(int width, int height) {
  return test::dibOf(width, height, [=](int x, int y) {
    return Pixel32::plain(rgb(x * 255 / width, y * 255 / height, (x * y) & 255));
  });
}

TEST(ClsPal, BlankPalettesKeepTheCountWithinBounds) {
  clsPal pal;
  EXPECT_FALSE(pal.IsGreyScale());
  EXPECT_EQ(pal.NearestPaletteIndex(1, 2, 3), 0);
  for (const auto& [asked, got] : {std::pair{1, 2}, {-5, 2}, {7, 7}, {300, 256}}) {
    pal.CreateBlankPalette(asked);
    EXPECT_EQ(pal.MaxCount(), got);
    EXPECT_TRUE(pal.IsGreyScale());
  }
  pal.setRgbR(256, 1);
  EXPECT_EQ(pal.rgbR(256), 0);
}

TEST(ClsPal, StandardTables) {
  clsPal pal;
  const auto expectTable = [&](int count, int index, Colour colour, bool grey = false) {
    SCOPED_TRACE(count);
    EXPECT_EQ(pal.MaxCount(), count);
    EXPECT_EQ(entryOf(pal, index), colour);
    EXPECT_EQ(pal.IsGreyScale(), grey);
  };
  pal.CreatePalette2();
  expectTable(2, 1, kWhite, true);
  pal.CreatePalette16();
  expectTable(16, 9, rgb(255, 0, 0));
  std::set<Colour> sixteen;
  for (int i = 0; i < 16; ++i) sixteen.insert(entryOf(pal, i));
  EXPECT_EQ(sixteen, std::set<Colour>(clsDIB::sixteenColours().begin(), clsDIB::sixteenColours().end()))
      << "the same colours that depth 4 is decided by";
  pal.CreateGrays(16);
  expectTable(16, 3, rgb(51, 51, 51), true);
  for (int level = 0; level < 5; ++level) {
    pal.CreateHalftone(level);
    const int side = level + 2, count = side * side * side;
    expectTable(count, count - 1, kWhite);
    EXPECT_EQ(pal.rgbG(1), 0) << "red runs fastest";
  }
  pal.CreateHalftone(3);
  expectTable(125, 6, rgb(64, 64, 0));
  pal.CreateWebsafe();
  expectTable(216, 6 * 6 * 2 + 6 * 3 + 4, rgb(204, 153, 102));
}

TEST(ClsPal, NearestGoesByTheColoursOfTheLastCreation) {
  clsPal pal;
  pal.CreatePalette16();
  EXPECT_EQ(pal.NearestPaletteIndex(250, 10, 5), 9);
  EXPECT_EQ(pal.NearestPaletteIndex(5, 10, 250), 12);
  pal.setRgbR(9, 0);
  EXPECT_EQ(pal.NearestPaletteIndex(250, 10, 5), 9);
  int r = 0, g = 0, b = 0;
  pal.NearestPaletteColor(250, 10, 5, r, g, b);
  EXPECT_EQ((std::array{r, g, b}), (std::array{0, 0, 0}));  // its colour as it is now
}

TEST(ClsPal, ExactTablesKeepTheOrderOfMemoryRows) {
  const test::Ink ink = {{'a', rgb(1, 0, 0)}, {'b', rgb(2, 0, 0)}, {'c', rgb(3, 0, 0)}};
  clsPal pal;
  ASSERT_TRUE(pal.CreatePalette256(test::dibOf({"ab", "ca"}, ink)));
  EXPECT_EQ(pal.MaxCount(), 3);
  EXPECT_EQ(entryOf(pal, 0), rgb(3, 0, 0));
  EXPECT_EQ(entryOf(pal, 1), rgb(1, 0, 0));
  EXPECT_EQ(entryOf(pal, 2), rgb(2, 0, 0));
  EXPECT_FALSE(pal.CreatePalette256(gradient(64, 64)));
  EXPECT_EQ(pal.MaxCount(), 256);
  std::array<std::uint8_t, 6> bytes{9, 9, 9, 9, 9, 9};
  pal.CreatePalette2();
  pal.GetPaletteFromPAL(bytes);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 6>{0, 0, 0, 0, 255, 255}));
}

TEST(ClsPal, OptimalTables) {
  clsPal pal;
  pal.CreateOptimal(test::dibOf({"..", ".."}), 256, 8);
  EXPECT_EQ(pal.MaxCount(), 1);
  EXPECT_EQ(entryOf(pal, 0), kWhite);

  // 1 and 2 end in one cell of the tree, 3 in the next: (0,2] and (2,4]. Mean and ties to even.
  const test::Ink ink = {{'1', rgb(1, 0, 0)}, {'2', rgb(2, 0, 0)}, {'3', rgb(3, 0, 0)}};
  pal.CreateOptimal(test::dibOf({"123"}, ink), 256, 8);
  EXPECT_EQ(pal.MaxCount(), 2);
  EXPECT_EQ(entryOf(pal, 0), rgb(2, 0, 0));
  EXPECT_EQ(entryOf(pal, 1), rgb(3, 0, 0));

  int last = -1, ends = 0;
  pal.cPAL_Progress = [&](int percent) { last = percent; };
  pal.cPAL_ProgressEnd = [&] { ++ends; };
  const clsDIB many = gradient(120, 90);
  for (const int colours : {256, 100, 16, 9}) {
    pal.CreateOptimal(many, colours, 8);
    EXPECT_LE(pal.MaxCount(), colours);
    EXPECT_GT(pal.MaxCount(), colours / 2);
  }
  EXPECT_EQ(last, 100);
  EXPECT_EQ(ends, 8);
  for (const int depth : {0, 1, 2, 5, 99}) {
    pal.CreateOptimal(many, 256, depth);
    EXPECT_GE(pal.MaxCount(), 4) << depth;
  }
}

}  // namespace
}  // namespace ruvo
