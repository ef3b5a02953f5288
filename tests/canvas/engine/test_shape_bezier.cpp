#include "canvas/engine/shape_bezier.h"

#include "support/pictures.h"

namespace ruvo::shape {
namespace {

using namespace test;

TEST(ShapeBezier, NodesStandAtThirdsRoundedToWholePixels) {
  BezierNodes nodes = {Point{30, 40}, {}, {}, {0, 0}};  // 50 long: 17 and 34
  NodesOnThirds(nodes);
  EXPECT_EQ(nodes[1], (Point{20, 26}));
  EXPECT_EQ(nodes[2], (Point{10, 13}));
}

TEST(ShapeBezier, ClosedCurvesAreFilledAndOutlined) {
  clsDIB dib = plainDib(13, 7, kWhite);
  dib.setDIBhasAlpha(true);
  drawBezier(dib, {Point{1, 6}, {1, -1}, {11, -1}, {11, 6}}, {1, kBlack, rgb(0, 200, 0), 1});
  EXPECT_PICTURE(rowsOf(dib, {{'.', kWhite}, {'#', kBlack}, {'x', rgb(0, 200, 0)}}),
                 {".............", ".....###.....", "...##xxx##...", "..#xxxxxx#...", "..#xxxxxxx#..", ".#xxxxxxxx#..",
                  ".###########."});
  EXPECT_EQ(pixelAt(dib, 6, 4).alpha, 255);
}

}  // namespace
}  // namespace ruvo::shape
