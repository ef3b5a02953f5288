#include "canvas/engine/shape_polygon.h"

#include <cmath>

#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;
using shape::PolygonInk;

Rows painted(const shape::PolygonFigure& figure) {
  clsDIB dib = plainDib(6, 6, kWhite);
  shape::paintPolygon(dib, figure, kBlack);
  return rowsOf(dib);
}

TEST(ShapePolygon, CornersGoAnticlockwiseAndStarsOfFewPointsAreDrawnInFurther) {
  EXPECT_NEAR(shape::polygonCorners({4, 10, 1, 0})[1].x, -10, 1e-9);
  EXPECT_NEAR(shape::polygonCorners({4, 10, 1, 90})[0].x, -10, 1e-9);
  for (const auto& [points, inner] : {std::pair{5, 25}, {8, 40}, {9, 50}}) {
    const auto star = shape::polygonCorners({points, 100, 0.5, 17});
    EXPECT_EQ(star.size(), 2u * points);
    EXPECT_NEAR(std::hypot(star[1].x, star[1].y), inner, 1e-6);
  }
  EXPECT_TRUE(shape::polygonCorners({501, 50, 0.5, 0}).empty());
}

TEST(ShapePolygon, ThePenFollowsTheEdgesAndCrossingsAreInside) {
  const std::vector<Point> star = {{2, 0}, {4, 5}, {0, 2}, {5, 2}, {0, 5}};  // wound round twice in the middle
  EXPECT_PICTURE(painted(shape::figureByHand(star, PolygonInk::Outline, 1)),
                 {"..#...", "..#...", "######", ".####.", "#####.", "#...#."});
  EXPECT_PICTURE(painted(shape::figureByHand(star, PolygonInk::Filled, 1)),
                 {"......", "..#...", "#####.", ".###..", ".#.#..", "......"});
  for (const int size : {1, 2})
    EXPECT_EQ(painted(shape::figureByHand({{{2, 1}}}, PolygonInk::Outline, size))[1], size == 1 ? "..#..." : ".##...");
  const auto solid = shape::automaticFigure({3, 3}, {5, 3, 0.5, 0}, PolygonInk::Outline, 7);
  EXPECT_EQ(painted(solid), painted(shape::automaticFigure({3, 3}, {5, 3, 0.5, 0}, PolygonInk::Filled, 7)));
}

TEST(ShapePolygon, CutOutsReachOutsideThePictureButAreNoLargerThanPicturesMayBe) {
  clsDIB picture = dibOf(3, 3, [](int, int) { return Pixel32{255, 255, 255, 40}; });
  picture.setDIBhasAlpha(true);
  const auto square = shape::automaticFigure({0, 0}, {4, 3, 1, 45}, PolygonInk::Outline, 1);
  EXPECT_EQ(shape::paintPolygon(picture, square, kBlack), (Rect{0, 0, 2, 2}));
  EXPECT_PICTURE(rowsOf(picture), {".#.", "##.", "..."});
  const clsDIB cut = shape::cutOutPolygon(picture, square, kBlack, rgb(9, 9, 9));
  EXPECT_EQ(pixelAt(cut, 0, 0), Pixel32::opaque(rgb(9, 9, 9)));
  EXPECT_EQ(pixelAt(cut, 7, 7), (Pixel32{255, 255, 255, 40}));
  EXPECT_EQ(pixelAt(cut, 5, 5), Pixel32::opaque(kBlack)) << "the figure is whole, the picture there or not";
  const auto huge = shape::automaticFigure({2, 2}, {5, 32767, 0.5, 0}, PolygonInk::Filled, 1);
  EXPECT_TRUE(shape::cutOutPolygon(picture, huge, kBlack, kWhite).empty());
}

}  // namespace
}  // namespace ruvo
