#include "canvas/engine/brush_dab.h"

#include "support/pictures.h"
#include "support/steady_random.h"

namespace ruvo::brush {
namespace {

using namespace test;

constexpr Colour kRed = rgb(255, 0, 0);

const Ink kInk = {{'.', kWhite}, {'#', kRed}};  // anything else, as the soft edge, shows as '?'

clsDIB blank(int width, int height) {
  return dibOf(Rows(height, std::string(width, '.')));
}

Rows dabbed(int width, int height, Point at, int size, int style, SteadyRandom&& random = SteadyRandom(0.9)) {
  clsDIB dib = blank(width, height);
  BrushStroke stroke;
  stroke.setRandomSource(&random);
  stroke.BrushStrokeBegin(dib, kRed);
  stroke.BrushDab(at.x, at.y, size, 100, style);
  return rowsOf(dib, kInk);
}

TEST(BrushDab, roundShapes) {
  EXPECT_PICTURE(dabbed(3, 3, {1, 1}, 1, 2), {"...", ".#.", "..."});
  EXPECT_PICTURE(dabbed(7, 7, {3, 3}, 3, 1),
                 {".......", ".#####.", ".#####.", ".#####.", ".#####.", ".#####.", "......."});
  EXPECT_PICTURE(dabbed(7, 7, {3, 3}, 3, 2),
                 {".......", ".?###?.", ".#####.", ".#####.", ".#####.", ".?###?.", "......."});
  EXPECT_PICTURE(dabbed(9, 9, {4, 4}, 3, 3), {".........", "..#####..", ".#######.", ".#######.", ".#######.",
                                              ".#######.", ".#######.", "..#####..", "........."});
  EXPECT_PICTURE(dabbed(13, 13, {6, 6}, 10, 2),
                 {"...???????...", "..??#####??..", ".??#######??.", "??#########??", "?###########?", "?###########?",
                  "?###########?", "?###########?", "?###########?", "??#########??", ".??#######??.", "..??#####??..",
                  "...???????..."});
}

TEST(BrushDab, softEdgeOnlyAtFullCover) {
  clsDIB dib = blank(7, 7);
  BrushStroke stroke;
  stroke.BrushStrokeBegin(dib, kBlack);
  stroke.BrushDab(3, 3, 3, 100, 2);
  // The corner lies at sqrt(8) of radius 3: byte(100 x (3 - 2.828) / 0.6 x 2.55) = 73 of 255 black on white.
  EXPECT_EQ(pixelAt(dib, 1, 1).colour(), rgb(182, 182, 182));

  clsDIB even = blank(7, 7);
  stroke.BrushStrokeBegin(even, kBlack);
  stroke.BrushDab(3, 3, 3, 50, 2);
  EXPECT_PICTURE(rowsOf(even, {{'.', kWhite}, {'h', rgb(128, 128, 128)}}),
                 {".......", ".hhhhh.", ".hhhhh.", ".hhhhh.", ".hhhhh.", ".hhhhh.", "......."});
}

TEST(BrushDab, slantsAndBars) {
  EXPECT_PICTURE(dabbed(11, 10, {8, 3}, 1, 4),
                 {"...........", ".##........", "..##.......", "...##......", "....##.....", ".....##....",
                  "......##...", ".......##..", "........##.", "..........."});
  // The lean starts at the lowest row inside: along the bottom edge the bar begins under the point anew.
  EXPECT_PICTURE(dabbed(11, 5, {8, 3}, 1, 4),
                 {"...........", ".....##....", "......##...", ".......##..", "........##."});
  EXPECT_PICTURE(dabbed(11, 10, {2, 3}, 1, 5),
                 {"...........", ".......##..", "......##...", ".....##....", "....##.....", "...##......",
                  "..##.......", ".##........", "##.........", "..........."});
  EXPECT_PICTURE(dabbed(4, 11, {1, 4}, 1, 6),
                 {"....", "....", "##..", "##..", "##..", "##..", "##..", "##..", "##..", "##..", "...."});
  EXPECT_PICTURE(dabbed(11, 4, {5, 1}, 1, 7), {"...........", "########...", "########...", "..........."});
}

TEST(BrushDab, paintsTheInnerPartAtEveryEdge) {
  EXPECT_PICTURE(dabbed(6, 6, {0, 0}, 3, 1), {"###...", "###...", "###...", "......", "......", "......"});
  EXPECT_PICTURE(dabbed(6, 6, {5, 5}, 3, 1), {"......", "......", "......", "...###", "...###", "...###"});
  EXPECT_PICTURE(dabbed(3, 3, {2, 2}, 1, 1), {"...", "...", "..#"});
  for (int style = 1; style <= 7; ++style) {
    for (const Point outside : {Point{60, 2}, {2, -2000000000}}) {
      EXPECT_EQ(dabbed(4, 4, outside, 10, style), rowsOf(blank(4, 4))) << "style " << style;
    }
  }
}

TEST(BrushDab, sprayBrushNeedsNumbersAboveItsThreshold) {
  SteadyRandom random(0.7);
  EXPECT_EQ(dabbed(5, 5, {2, 2}, 3, 3, std::move(random)), rowsOf(blank(5, 5)));
  EXPECT_EQ(random.seeds, 1);
}

TEST(BrushDab, tellsWhatItChangedAndNoMore) {
  clsDIB dib = blank(30, 30);
  BrushStroke stroke;
  EXPECT_TRUE(stroke.BrushDab(5, 5, 3, 100, 2).empty()) << "no stroke was begun";
  stroke.BrushStrokeBegin(dib, kRed);
  EXPECT_EQ(stroke.BrushDab(10, 10, 3, 100, 2), (Rect{7, 8, 13, 14}));
  EXPECT_EQ(stroke.BrushDab(0, 29, 3, 100, 1), (Rect{0, 27, 3, 30}));
  EXPECT_TRUE(stroke.BrushDab(-9, 5, 3, 100, 2).empty());
  EXPECT_TRUE(stroke.BrushDab(9, 5, 3, 100, 8).empty());
}

TEST(BrushDab, writtenPixelsBecomeOpaqueAndTheOthersKeepTheirAlpha) {
  clsDIB dib = blank(3, 1);
  auto* row = reinterpret_cast<Pixel32*>(dib.surface().pictureRow(0));
  row[0] = {10, 20, 30, 0};
  row[1] = {0, 0, 0, 0};
  dib.setDIBhasAlpha(true);
  BrushStroke stroke;
  stroke.BrushStrokeBegin(dib, kBlack);
  stroke.BrushDab(1, 0, 1, 50, 2);
  EXPECT_EQ(row[0], (Pixel32{10, 20, 30, 0}));
  // A person saw white there, so half black over it is grey.
  EXPECT_EQ(row[1], (Pixel32{128, 128, 128, 255}));
}

}  // namespace
}  // namespace ruvo::brush
