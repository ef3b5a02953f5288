#include "canvas/engine/shape_polygon.h"

#include <cmath>

#include "base/limits.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;
using shape::PolygonInk;

const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'x', rgb(9, 9, 9)}};

Rows painted(const shape::PolygonFigure& figure, int side) {
  clsDIB dib = plainDib(side, side, kWhite);
  shape::paintPolygon(dib, figure, kBlack);
  return rowsOf(dib);
}

std::vector<double> reaches(const shape::AutomaticPolygon& polygon) {
  std::vector<double> all;
  for (const auto& corner : shape::polygonCorners(polygon)) all.push_back(std::hypot(corner.x, corner.y));
  return all;
}

TEST(ShapePolygon, CornersStartAboveAndGoAnticlockwise) {
  const auto square = shape::polygonCorners({4, 10, 1, 0});
  ASSERT_EQ(square.size(), 4u);
  EXPECT_NEAR(square[0].y, -10, 1e-9);
  EXPECT_NEAR(square[1].x, -10, 1e-9);
  EXPECT_NEAR(shape::polygonCorners({4, 10, 1, 90})[0].x, -10, 1e-9);
}

TEST(ShapePolygon, StarsOfFewPointsAreDrawnInFurther) {
  const struct {
    int points;
    double factor, inner;
  } cases[] = {{5, 0.5, 25}, {8, 0.5, 40}, {9, 0.5, 50}, {5, 1.5, 150}};
  for (const auto& c : cases) {
    const auto all = reaches({c.points, 100, c.factor, 17});
    ASSERT_EQ(all.size(), 2u * c.points);
    EXPECT_NEAR(all[0], 100, 1e-6);
    EXPECT_NEAR(all[1], c.inner, 1e-6);
  }
  EXPECT_TRUE(reaches({0, 50, 1, 0}).empty());
  EXPECT_TRUE(reaches({5, 0, 1, 0}).empty());
  EXPECT_EQ(reaches({1000, 50, 1, 0}).size(), 1000u);
  EXPECT_TRUE(reaches({1001, 50, 1, 0}).empty());
  EXPECT_TRUE(reaches({501, 50, 0.5, 0}).empty());
}

TEST(ShapePolygon, TheAutomaticOutlineGoesInwards) {
  const auto figure = [](PolygonInk ink, int brushSize) {
    return painted(shape::automaticFigure({6, 6}, {4, 5, 1, 45}, ink, brushSize), 13);
  };
  EXPECT_PICTURE(figure(PolygonInk::Outline, 1),
                 {".............", ".............", "..########...", "..########...", "..##....##...", "..##....##...",
                  "..##....##...", "..##....##...", "..########...", "..########...", ".............", ".............",
                  "............."});
  EXPECT_EQ(figure(PolygonInk::Outline, 1), figure(PolygonInk::Outline, 2));
  EXPECT_EQ(figure(PolygonInk::Filled, 1)[5], "..########...");
  for (const int brushSize : {5, 21}) EXPECT_EQ(figure(PolygonInk::Outline, brushSize), figure(PolygonInk::Filled, 1));
}

TEST(ShapePolygon, ByHandEdgesAreDrawnByThePenAndCrossingsAreInside) {
  const std::vector<Point> bow = {{1, 1}, {7, 7}, {7, 1}, {1, 7}};
  EXPECT_PICTURE(painted(shape::figureByHand(bow, PolygonInk::Outline, 1), 9),
                 {".........", ".#.....#.", ".##...##.", ".#.#.#.#.", ".#..#..#.", ".#.#.#.#.", ".##...##.",
                  ".#.....#.", "........."});
  EXPECT_PICTURE(painted(shape::figureByHand(bow, PolygonInk::Filled, 9), 9),
                 {".........", ".........", ".#....#..", ".##..##..", ".######..", ".##..##..", ".#....#..",
                  ".........", "........."});
  // Wound round twice in the middle.
  const std::vector<Point> star = {{4, 0}, {7, 8}, {0, 3}, {8, 3}, {1, 8}};
  EXPECT_PICTURE(painted(shape::figureByHand(star, PolygonInk::Clear, 1), 9),
                 {".........", "....#....", "....#....", "########.", "..#####..", "...###...", "..##.##..",
                  "..#...#..", "........."});
  const std::vector<Point> point = {{2, 1}};
  EXPECT_PICTURE(painted(shape::figureByHand(point, PolygonInk::Outline, 1), 4), {"....", "..#.", "....", "...."});
  EXPECT_PICTURE(painted(shape::figureByHand(point, PolygonInk::Outline, 2), 4), {".##.", ".##.", "....", "...."});
  EXPECT_TRUE(shape::figureByHand(point, PolygonInk::Filled, 2).pixels.empty());
  EXPECT_TRUE(shape::figureByHand({}, PolygonInk::Outline, 2).pixels.empty());
}

TEST(ShapePolygon, ACutOutKeepsTheShapeAndWhatItHolds) {
  clsDIB picture = dibOf(6, 6, [](int x, int) { return Pixel32::plain(x % 2 ? kBlack : kWhite); });
  const std::vector<Point> corners = {{1, 1}, {5, 1}, {5, 5}, {1, 5}};
  const auto cut = [&](PolygonInk ink) {
    const auto figure = shape::figureByHand(corners, ink, 1);
    return rowsOf(shape::cutOutPolygon(picture, figure, kBlack, rgb(9, 9, 9)), kInk);
  };
  EXPECT_PICTURE(cut(PolygonInk::Outline), {"#####", "#.#.#", "#.#.#", "#.#.#", "#####"});
  EXPECT_PICTURE(cut(PolygonInk::Filled), {"####x", "####x", "####x", "####x", "xxxxx"});
  EXPECT_EQ(rowsOf(picture)[1], ".#.#.#") << "the picture itself stays";
}

TEST(ShapePolygon, ACutOutMayReachOutsideThePicture) {
  clsDIB picture = dibOf(3, 3, [](int, int) { return Pixel32{255, 255, 255, 40}; });
  picture.setDIBhasAlpha(true);
  const auto figure = shape::automaticFigure({0, 0}, {4, 3, 1, 45}, PolygonInk::Outline, 1);
  EXPECT_EQ(shape::paintPolygon(picture, figure, kBlack), (Rect{0, 0, 2, 2}));
  EXPECT_PICTURE(rowsOf(picture), {".#.", "##.", "..."});
  const clsDIB cut = shape::cutOutPolygon(picture, figure, kBlack, rgb(9, 9, 9));
  EXPECT_EQ(cut.size(), (Size{14, 14}));
  EXPECT_TRUE(cut.DIBhasAlpha());
  EXPECT_EQ(pixelAt(cut, 0, 0), Pixel32::opaque(rgb(9, 9, 9)));
  EXPECT_EQ(pixelAt(cut, 7, 7), (Pixel32{255, 255, 255, 40}));
  EXPECT_EQ(pixelAt(cut, 5, 5), Pixel32::opaque(kBlack)) << "the figure is whole, the picture there or not";
}

TEST(ShapePolygon, NoCutOutIsLargerThanPicturesMayBe) {
  clsDIB picture = plainDib(3, 3, kWhite);
  const auto figure = shape::automaticFigure({2, 2}, {5, 32767, 0.5, 0}, PolygonInk::Filled, 1);
  EXPECT_TRUE(shape::cutOutPolygon(picture, figure, kBlack, kWhite).empty());
  shape::paintPolygon(picture, figure, kBlack);
  EXPECT_PICTURE(rowsOf(picture), {"###", "###", "###"});
}

}  // namespace
}  // namespace ruvo
