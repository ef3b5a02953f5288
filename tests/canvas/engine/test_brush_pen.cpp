#include "canvas/engine/brush_pen.h"

#include "support/pictures.h"

namespace ruvo::brush {
namespace {

using namespace test;

const Rows kBlank(5, ".......");

Rows marked(Point at, int size, int style, Rect visible = {0, 0, 7, 5}) {
  clsDIB dib = dibOf(kBlank);
  paintPenMark(dib, at, size, style, kBlack, visible);
  return rowsOf(dib);
}

Rows segment(Point from, Point to, int size, Rect visible = {0, 0, 7, 5}) {
  clsDIB dib = dibOf(kBlank);
  paintPenSegment(dib, from, to, size, kBlack, visible);
  return rowsOf(dib);
}

TEST(BrushPen, marksThePensShape) {
  for (int style : {0, 1}) {
    EXPECT_PICTURE(marked({3, 2}, 1, style), {".......", ".......", "...#...", ".......", "......."});
    EXPECT_PICTURE(marked({3, 2}, 2, style), {".......", "..##...", "..##...", ".......", "......."});
  }
  EXPECT_PICTURE(marked({3, 2}, 3, 0), {".......", "..###..", "..###..", "..###..", "......."});
  EXPECT_PICTURE(marked({3, 2}, 3, 1), {".......", "...#...", "..###..", "...#...", "......."});
  EXPECT_PICTURE(marked({3, 2}, 4, 0), {".####..", ".####..", ".####..", ".####..", "......."});
  EXPECT_PICTURE(marked({3, 2}, 4, 1), {"..##...", ".####..", ".####..", "..##...", "......."});
  EXPECT_PICTURE(marked({6, 4}, 3, 0), {".......", ".......", ".......", ".....##", ".....##"});
}

TEST(BrushPen, segmentsIncludeBothEnds) {
  EXPECT_PICTURE(segment({1, 1}, {5, 1}, 1), {".......", ".#####.", ".......", ".......", "......."});
  EXPECT_PICTURE(segment({5, 3}, {2, 0}, 1), {"..#....", "...#...", "....#..", ".....#.", "......."});
  EXPECT_PICTURE(segment({2, 2}, {2, 2}, 1), {".......", ".......", "..#....", ".......", "......."});
  EXPECT_PICTURE(segment({2, 2}, {4, 2}, 3), {".......", "..###..", ".#####.", "..###..", "......."});
}

TEST(BrushPen, paintsOnlyWhatIsVisibleAndTellsWhere) {
  EXPECT_PICTURE(segment({-2, 1}, {9, 1}, 1, {2, 0, 5, 5}), {".......", "..###..", ".......", ".......", "......."});
  EXPECT_PICTURE(marked({3, 2}, 3, 0, {3, 2, 7, 5}), {".......", ".......", "...##..", "...##..", "......."});
  EXPECT_PICTURE(marked({3, 2}, 1, 0, {4, 0, 7, 5}), {".......", ".......", ".......", ".......", "......."});
  clsDIB dib = dibOf(kBlank);
  dib.setDIBhasAlpha(true);
  EXPECT_TRUE(paintPenMark(dib, {3, 2}, 1, 0, kBlack, {4, 0, 7, 5}).empty());
  const Rect changed = paintPenSegment(dib, {2, 2}, {4, 1}, 3, kBlack, {0, 0, 4, 5});
  for (int y = 0; y < 5; ++y) {
    for (int x = 0; x < 7; ++x) {
      const bool written = pixelAt(dib, x, y).colour() == kBlack;
      EXPECT_EQ(pixelAt(dib, x, y).alpha, written ? 255 : 0);
      EXPECT_TRUE(!written || changed.contains(x, y)) << x << ' ' << y;
    }
  }
  EXPECT_EQ(changed.right, 4);
}

}  // namespace
}  // namespace ruvo::brush
