#include "canvas/engine/fill.h"

#include <numeric>

#include "support/pictures.h"

namespace ruvo::brush {
namespace {

using namespace test;

const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'r', rgb(255, 0, 0)}, {'g', rgb(0, 128, 0)}, {'b', rgb(0, 0, 255)}};
constexpr Colour kRed = rgb(255, 0, 0);

TEST(FloodFill, solidFillsTheConnectedPartByFourNeighbours) {
  clsDIB dib = dibOf({"..#..", ".#...", "#..#.", "...#."}, kInk);
  EXPECT_EQ(floodFill(dib, 3, 1, kSolid, kRed, clsDIB()), (Rect{0, 0, 5, 4}));
  EXPECT_PICTURE(rowsOf(dib, kInk), {"..#rr", ".#rrr", "#rr#r", "rrr#r"});
  EXPECT_EQ(floodFill(dib, 0, 0, kSolid, kWhite, clsDIB()), (Rect{0, 0, 2, 2})) << "the same colour still counts";
  EXPECT_TRUE(floodFill(dib, 5, 0, kSolid, kRed, clsDIB()).empty());
  EXPECT_TRUE(floodFill(dib, 0, 0, 10, kRed, clsDIB()).empty());
  EXPECT_PICTURE(rowsOf(dib, kInk), {"..#rr", ".#rrr", "#rr#r", "rrr#r"});
}

TEST(FloodFill, hatchesLeaveTheirGapsInTheClickedColourAndStartAtTheTopLeft) {
  const auto filled = [](int pattern) {
    clsDIB dib = dibOf({"##########", "##gggggg##", "##gggggg##", "##gggggg##", "##gggggg##", "##########"}, kInk);
    EXPECT_EQ(floodFill(dib, 4, 2, pattern, kRed, clsDIB()), (Rect{2, 1, 8, 5}));
    return rowsOf(dib, kInk);
  };
  EXPECT_PICTURE(filled(3), {"##########", "##gggggg##", "##gggggg##", "##rrrrrr##", "##gggggg##", "##########"});
  EXPECT_PICTURE(filled(4), {"##########", "##ggrggg##", "##ggrggg##", "##ggrggg##", "##ggrggg##", "##########"});
  EXPECT_PICTURE(filled(5), {"##########", "##gggggg##", "##rggggg##", "##grgggg##", "##ggrggg##", "##########"});
  EXPECT_PICTURE(filled(6), {"##########", "##ggggrg##", "##gggrgg##", "##ggrggg##", "##grgggg##", "##########"});
  EXPECT_PICTURE(filled(7), {"##########", "##ggrggg##", "##ggrggg##", "##rrrrrr##", "##ggrggg##", "##########"});
  EXPECT_PICTURE(filled(8), {"##########", "##ggggrg##", "##rggrgg##", "##grrggg##", "##grrggg##", "##########"});
}

TEST(FloodFill, builtInTilesTakeTheTwoColoursAndTheLoadedOneKeepsItsOwn) {
  for (int index : {0, 1}) {
    const raster::Surface tile = patternTile(index, kRed, rgb(0, 128, 0));
    clsDIB dib = dibOf(Rows(tile.height() * 2, std::string(tile.width() * 2, 'g')), kInk);
    floodFill(dib, 1, 1, kDots1 + index, kRed, clsDIB());
    const Rows once = rowsOf(tile, kInk);
    Rows twice;
    for (int y = 0; y < dib.DIBHeight(); ++y) twice.push_back(once[y % tile.height()] + once[y % tile.height()]);
    EXPECT_EQ(rowsOf(dib, kInk), twice);
    const std::string all = std::accumulate(once.begin(), once.end(), std::string());
    EXPECT_EQ(all.find_first_not_of("rg"), std::string::npos);
    EXPECT_EQ(std::count(all.begin(), all.end(), 'r'), index == 0 ? 4 : 2);
  }
  clsDIB dib = dibOf({"gggg", "gggg", "gggg"}, kInk);
  EXPECT_TRUE(floodFill(dib, 0, 0, kCustomPattern, kRed, clsDIB()).empty());
  floodFill(dib, 0, 0, kCustomPattern, kRed, dibOf({".b#", "#.b"}, kInk));
  EXPECT_PICTURE(rowsOf(dib, kInk), {".b#.", "#.b#", ".b#."});
}

TEST(FloodFill, alphaDoesNotSeparateAndBecomesOpaque) {
  clsDIB dib = dibOf({"##r", "rrr"}, kInk);
  dib.setDIBhasAlpha(true);
  auto* row = &pixelAt(dib, 0, 0);
  for (int pattern : {0, 3, 9}) {
    row[0] = {0, 0, 0, 0};
    row[1] = {0, 0, 0, 9};
    EXPECT_EQ(floodFill(dib, 0, 0, pattern, kRed, dibOf({"r"}, kInk)), (Rect{0, 0, 2, 1}));
    // The gap of the hatch shows what was seen at the point: nothing, so white.
    const Colour expected = pattern == 3 ? kWhite : kRed;
    EXPECT_EQ(row[0], Pixel32::opaque(expected)) << pattern;
    EXPECT_EQ(row[1], Pixel32::opaque(expected)) << pattern;
    EXPECT_EQ(row[2], Pixel32::plain(kRed)) << pattern;
  }
}

TEST(ReplaceColor, takesEveryPixelOfTheColourAndNoOther) {
  clsDIB dib = dibOf({"g....", ".r..r", "...r.", "....."}, kInk);
  EXPECT_EQ(ReplaceColor(dib, kRed, rgb(0, 0, 255)), (Rect{1, 1, 5, 3}));
  EXPECT_PICTURE(rowsOf(dib, kInk), {"g....", ".b..b", "...b.", "....."});
  EXPECT_TRUE(ReplaceColor(dib, kWhite, kWhite).empty());
  EXPECT_TRUE(ReplaceColor(dib, rgb(1, 255, 255), kBlack).empty());
  clsDIB none;
  EXPECT_TRUE(ReplaceColor(none, kWhite, kBlack).empty());

  auto* row = &pixelAt(dib, 0, 0);
  row[0].alpha = 5;
  dib.setDIBhasAlpha(true);
  ReplaceColor(dib, rgb(0, 128, 0), kRed);
  EXPECT_EQ(row[0], Pixel32::opaque(kRed));
  EXPECT_EQ(row[1].alpha, 0);
}

}  // namespace
}  // namespace ruvo::brush
