#include "canvas/engine/shape_bezier.h"

#include "support/pictures.h"

namespace ruvo::shape {
namespace {

using namespace test;

TEST(ShapeBezier, NodesStandAtThirdsRoundedToWholePixels) {
  BezierNodes nodes = {Point{10, 10}, {}, {}, {50, 10}};
  NodesOnThirds(nodes);
  EXPECT_EQ(nodes[1], (Point{23, 10}));
  EXPECT_EQ(nodes[2], (Point{36, 10}));
  nodes = {Point{30, 40}, {}, {}, {0, 0}};  // 50 long: 17 and 34
  NodesOnThirds(nodes);
  EXPECT_EQ(nodes[1], (Point{20, 26}));
  EXPECT_EQ(nodes[2], (Point{10, 13}));
  EXPECT_FALSE(longEnough({0, 0}, {13, 15}));
  EXPECT_TRUE(longEnough({0, 0}, {12, 16}));
}

TEST(ShapeBezier, OpenCurvesAreLinesClosedOnesAreFilledAndOutlined) {
  const Ink ink = {{'.', kWhite}, {'#', kBlack}, {'x', rgb(0, 200, 0)}};
  const BezierNodes nodes = {Point{1, 6}, {1, -1}, {11, -1}, {11, 6}};
  clsDIB dib = plainDib(13, 8, kWhite);
  dib.setDIBhasAlpha(true);
  const Rect changed = drawBezier(dib, nodes, {0, kBlack, rgb(0, 200, 0), 1});
  EXPECT_PICTURE(rowsOf(dib, ink), {".............", ".....###.....", "...##...##...", "..#......#...", "..#.......#..",
                                    ".#........#..", ".#...........", "............."});
  EXPECT_EQ(changed, changed.united({1, 1, 12, 7}));
  drawBezier(dib, nodes, {1, kBlack, rgb(0, 200, 0), 1});
  EXPECT_PICTURE(rowsOf(dib, ink), {".............", ".....###.....", "...##xxx##...", "..#xxxxxx#...", "..#xxxxxxx#..",
                                    ".#xxxxxxxx#..", ".###########.", "............."});
  EXPECT_EQ(pixelAt(dib, 6, 4).alpha, 255);
  EXPECT_EQ(pixelAt(dib, 0, 0).alpha, 0);
  // Far outside there is nothing to change.
  EXPECT_EQ(drawBezier(dib, {Point{100, 1}, {120, 1}, {120, 9}, {100, 9}}, {1, kBlack, kBlack, 5}), Rect{});
}

}  // namespace
}  // namespace ruvo::shape
