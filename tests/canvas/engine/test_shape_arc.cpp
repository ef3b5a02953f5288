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
  EXPECT_PICTURE(drawn({9, 6}, ComputeArc({0, 4}, {4, 0}, {8, 4}), 1),
                 {"...###...", "..#...#..", ".#.....#.", "#.......#", "#.......#", "........."});
  // The other way round the same circle.
  EXPECT_PICTURE(drawn({9, 9}, ComputeArc({1, 1}, {4, 8}, {7, 1}), 1),
                 {".........", ".#.....#.", "#.......#", "#.......#", "#.......#", "#.......#", "#.......#",
                  ".##...##.", "...###..."});
}

TEST(ShapeArc, IsAChainOfPixelsOnTheCircle) {
  int seed = 1;
  const auto any = [&seed](int below) { return (seed = (seed * 1103515245LL + 12345) & 0x7fffffff) / 7 % below; };
  for (int n = 0; n < 400; ++n) {
    const Point points[3] = {{any(90), any(90)}, {any(90), any(90)}, {any(90), any(90)}};
    const ArcRecord arc = ComputeArc(points[0], points[1], points[2]);
    if (!arc.valid) continue;
    const int reach = static_cast<int>(std::min(2 * arc.radius, 1e4)) + 2;
    const auto runs = arcPixels(arc, {-reach, -reach, 90 + reach, 90 + reach});
    if (arc.radius > 5000) continue;
    ASSERT_EQ(runs.size(), 1u) << n;
    const std::vector<Point>& run = runs[0];
    EXPECT_EQ(run.front(), points[0]);
    EXPECT_NE(std::find(run.begin(), run.end(), points[1]), run.end());
    EXPECT_EQ(run.back(), points[2]);
    double turned = 0;
    for (std::size_t i = 0; i < run.size(); ++i) {
      EXPECT_NEAR(std::hypot(run[i].x - arc.centreX, run[i].y - arc.centreY), arc.radius, 0.72);
      if (i == 0) continue;
      const Point a = run[i - 1], b = run[i];
      EXPECT_EQ(std::max(std::abs(a.x - b.x), std::abs(a.y - b.y)), 1) << n << ' ' << i;
      turned += std::remainder(
          std::atan2(b.y - arc.centreY, b.x - arc.centreX) - std::atan2(a.y - arc.centreY, a.x - arc.centreX),
          8 * std::atan(1));
    }
    EXPECT_NEAR(turned, arc.toSecond + arc.toThird, 0.01) << n;
  }
}

TEST(ShapeArc, PointsOnALineMakeNone) {
  for (const ArcRecord& arc : {ComputeArc({1, 1}, {2, 2}, {9, 9}), ComputeArc({1, 1}, {1, 1}, {5, 2}),
                               ComputeArc({1, 1}, {7, 3}, {1, 1}), ComputeArc({1, 1}, {7, 1 << 30}, {1 << 30, 1})}) {
    EXPECT_FALSE(arc.valid);
    clsDIB dib = plainDib(3, 3, kWhite);
    EXPECT_EQ(drawArc(dib, arc, kBlack, 3), Rect{});
  }
}

// The circle is a million times as large as the picture; only the part that is seen costs anything.
TEST(ShapeArc, ALineAlmostStraightIsDrawnAsOne) {
  const Rows all = drawn({30, 5}, ComputeArc({-16000, 2}, {3, 2}, {16000, 3}), 3);
  EXPECT_PICTURE(all, {std::string(30, '.'), std::string(30, '#'), std::string(30, '#'), std::string(30, '#'),
                       std::string(30, '.')});
  // Away from the third point, round the far side and back: the way between the two ends stays free.
  const ArcRecord round = ComputeArc({10, 2}, {16000000, 3}, {20, 2});
  EXPECT_PICTURE(drawn({30, 5}, round, 1),
                 {std::string(30, '.'), std::string(30, '.'), "###########.........##########", std::string(30, '.'),
                  std::string(30, '.')});
}

TEST(ShapeArc, WidePensAndSeeThroughPictures) {
  clsDIB dib = plainDib(13, 8, kWhite);
  dib.setDIBhasAlpha(true);
  const Rect changed = drawArc(dib, ComputeArc({2, 6}, {6, 2}, {10, 6}), kBlack, 3);
  EXPECT_PICTURE(rowsOf(dib), {".............", ".....###.....", "....#####....", "...#######...", "..###...###..",
                               ".###.....###.", ".###.....###.", "..#.......#.."});
  EXPECT_EQ(pixelAt(dib, 6, 2).alpha, 255);
  EXPECT_EQ(pixelAt(dib, 0, 0).alpha, 0);
  EXPECT_EQ(changed, changed.united({1, 1, 12, 8}));
}

}  // namespace
}  // namespace ruvo::shape
