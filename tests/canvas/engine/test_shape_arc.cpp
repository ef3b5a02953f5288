#include "canvas/engine/shape_arc.h"

#include <cmath>

#include "support/pictures.h"

namespace ruvo::shape {
namespace {

using namespace test;

Rows drawn(Size size, const ArcRecord& arc, int width) {
  clsDIB dib = plainDib(size.width, size.height, kWhite);
  drawArc(dib, arc, kBlack, width);
  return rowsOf(dib);
}

TEST(ShapeArc, RunsFromTheFirstPointThroughTheSecondToTheThird) {
  EXPECT_PICTURE(drawn({9, 5}, ComputeArc({0, 4}, {4, 0}, {8, 4}), 1),
                 {"...###...", "..#...#..", ".#.....#.", "#.......#", "#.......#"});
  EXPECT_PICTURE(drawn({9, 5}, ComputeArc({0, 0}, {4, 4}, {8, 0}), 1),
                 {"#.......#", "#.......#", ".#.....#.", "..#...#..", "...###..."});
  EXPECT_PICTURE(drawn({13, 8}, ComputeArc({2, 6}, {6, 2}, {10, 6}), 3),
                 {".............", ".....###.....", "....#####....", "...#######...", "..###...###..", ".###.....###.",
                  ".###.....###.", "..#.......#.."});
}

TEST(ShapeArc, IsAChainOfPixelsOnTheCircle) {
  int seed = 1;
  const auto any = [&seed] { return (seed = (seed * 1103515245LL + 12345) & 0x7fffffff) / 7 % 90; };
  for (int n = 0; n < 400; ++n) {
    const Point points[3] = {{any(), any()}, {any(), any()}, {any(), any()}};
    const ArcRecord arc = ComputeArc(points[0], points[1], points[2]);
    if (!arc.valid || arc.radius > 5000) continue;
    const auto runs = arcPixels(arc, {-10100, -10100, 10100, 10100});
    ASSERT_EQ(runs.size(), 1u) << n;
    const std::vector<Point>& run = runs[0];
    EXPECT_EQ(run.front(), points[0]);
    EXPECT_NE(std::find(run.begin(), run.end(), points[1]), run.end());
    EXPECT_EQ(run.back(), points[2]);
    double turned = 0;
    for (std::size_t i = 1; i < run.size(); ++i) {
      const Point a = run[i - 1], b = run[i];
      EXPECT_NEAR(std::hypot(b.x - arc.centreX, b.y - arc.centreY), arc.radius, 0.72);
      EXPECT_EQ(std::max(std::abs(a.x - b.x), std::abs(a.y - b.y)), 1) << n << ' ' << i;
      const double from = std::atan2(a.y - arc.centreY, a.x - arc.centreX);
      turned += std::remainder(std::atan2(b.y - arc.centreY, b.x - arc.centreX) - from, 8 * std::atan(1));
    }
    EXPECT_NEAR(turned, arc.toSecond + arc.toThird, 0.01) << n;
  }
}

// The circle is a million times as large as the picture; only the part that is seen costs anything.
TEST(ShapeArc, PointsOnALineMakeNoneAndPointsNearlyOnOneDo) {
  for (const ArcRecord& arc : {ComputeArc({1, 1}, {2, 2}, {9, 9}), ComputeArc({1, 1}, {7, 3}, {1, 1}),
                               ComputeArc({1, 1}, {7, 1 << 30}, {1 << 30, 1})}) {
    EXPECT_EQ(drawn({3, 1}, arc, 3), Rows{"..."});
  }
  EXPECT_PICTURE(drawn({9, 4}, ComputeArc({-16000, 2}, {3, 2}, {16000, 3}), 3),
                 {".........", "#########", "#########", "#########"});
  // Away from the third point, round the far side and back: the way between the two ends stays free.
  EXPECT_PICTURE(drawn({9, 3}, ComputeArc({2, 1}, {16000000, 2}, {6, 1}), 1), {".........", "###...###", "........."});
}

}  // namespace
}  // namespace ruvo::shape
