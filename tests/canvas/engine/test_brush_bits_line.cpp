#include "canvas/engine/brush_bits_line.h"

#include "support/pictures.h"

namespace ruvo::brush {
namespace {

using namespace test;

Rows lined(int x1, int y1, int x2, int y2, int size, bool round) {
  clsDIB dib = dibOf(Rows(6, "........"));
  BitsBrushLine(dib, x1, y1, x2, y2, kBlack, size, round);
  return rowsOf(dib);
}

TEST(BitsBrushLine, walksASquareOrRoundBrush) {
  EXPECT_PICTURE(lined(1, 1, 6, 1, 1, true), {"........", ".######.", "........", "........", "........", "........"});
  EXPECT_PICTURE(lined(6, 4, 1, 2, 1, false), {"........", "........", ".##.....", "..####..", ".....##.", "........"});
  EXPECT_PICTURE(lined(3, 3, 3, 3, 2, true), {"........", "........", "...#....", "..###...", "...#....", "........"});
  EXPECT_PICTURE(lined(3, 3, 3, 3, 2, false), {"........", "........", "..###...", "..###...", "..###...", "........"});
  // Half of 3 is rounded to the even 2.
  EXPECT_PICTURE(lined(3, 3, 3, 3, 3, true), {"........", "...#....", "..###...", ".#####..", "..###...", "...#...."});
}

TEST(BitsBrushLine, cutsAtTheEdgesAndMarksEvenAShortLineOfABigBrush) {
  EXPECT_PICTURE(lined(-3, 0, 2, 0, 1, true), {"###.....", "........", "........", "........", "........", "........"});
  clsDIB dib = dibOf(Rows(40, std::string(40, '.')));
  EXPECT_EQ(BitsBrushLine(dib, 5, 5, 5, 5, kBlack, 40, false), (Rect{0, 0, 26, 26}));
  clsDIB none;
  EXPECT_TRUE(BitsBrushLine(none, 0, 0, 5, 5, kBlack, 3, true).empty());
}

}  // namespace
}  // namespace ruvo::brush
