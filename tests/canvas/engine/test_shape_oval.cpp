#include "canvas/engine/shape_oval.h"

#include <numbers>

#include "platform/raster/draw.h"
#include "platform/raster/flood_fill.h"
#include "support/pictures.h"

namespace ruvo::shape {
namespace {

using namespace test;

Rows ringIn(Size size, const Rect& box, int width) {
  clsDIB dib = plainDib(size.width, size.height, kWhite);
  drawOval(dib, box, kBlack, width, kNormalOval);
  return rowsOf(dib);
}

TEST(ShapeOval, TouchesTheFourSidesOfItsBox) {
  EXPECT_PICTURE(ringIn({9, 7}, {0, 0, 9, 7}, 1),
                 {"..#####..", ".#.....#.", "#.......#", "#.......#", "#.......#", ".#.....#.", "..#####.."});
  EXPECT_PICTURE(ringIn({9, 7}, {0, 0, 9, 7}, 2),
                 {"..#####..", ".#######.", "###...###", "##.....##", "###...###", ".#######.", "..#####.."});
  EXPECT_PICTURE(ringIn({6, 4}, {1, 1, 6, 2}, 1), {"......", ".#####", "......", "......"});
  EXPECT_PICTURE(ringIn({4, 4}, {2, 2, 9, 9}, 9), {"....", "....", "....", "...#"});
  for (const Rect& box : {Rect{3, 3, 3, 9}, Rect{20, 20, 30, 30}, Rect{0, 0, 600000, 3}}) {
    for (const int enhancement : {kNormalOval, kAntialiasedOval}) {
      clsDIB dib = plainDib(5, 5, kWhite);
      EXPECT_EQ(drawOval(dib, box, kBlack, 2, enhancement), Rect{});
      EXPECT_EQ(fillOval(dib, box, kBlack, enhancement), Rect{});
      EXPECT_EQ(clsDIB::IsMultiColorDIB(dib), kWhite);
    }
  }
}

// White outside and at most one white inside: everything between the rings is black, and nothing leaks out.
TEST(ShapeOval, RingsOfEverySizeAreSolidAndClosed) {
  for (const Size size : {Size{40, 40}, Size{61, 60}, Size{90, 31}, Size{17, 80}, Size{5, 70}, Size{3, 3}}) {
    for (int width = 1; width <= 21; ++width) {
      clsDIB dib = plainDib(size.width + 2, size.height + 2, kWhite);
      const Rect box = Rect::fromSize(1, 1, size.width, size.height);
      EXPECT_EQ(drawOval(dib, box, kBlack, width, kNormalOval), box);
      clsDIB whole = plainDib(size.width + 2, size.height + 2, kWhite);
      fillOval(whole, box, kBlack, kNormalOval);
      raster::DrawContext context(dib.surface());
      context.brush = raster::Brush::solid(kBlack);
      raster::floodFill(context, size.width / 2 + 1, size.height / 2 + 1, kWhite, raster::FloodMode::Surface);
      EXPECT_EQ(rowsOf(dib), rowsOf(whole)) << size.width << " x " << size.height << ", " << width;
    }
  }
}

double inked(const clsDIB& dib) {
  double sum = 0;
  for (int y = 0; y < dib.DIBHeight(); ++y) {
    for (int x = 0; x < dib.DIBWidth(); ++x) sum += 255 - pixelAt(dib, x, y).green;
  }
  return sum / 255;
}

TEST(ShapeOval, SoftEdgesCoverTheAreaOfTheBandAndAreEvenOnAllSides) {
  for (const Size size : {Size{60, 60}, Size{81, 40}, Size{31, 50}}) {
    for (const int width : {1, 3, 8, 40}) {
      clsDIB dib = plainDib(size.width, size.height, kWhite);
      drawOval(dib, dib.surface().bounds(), kBlack, width, kAntialiasedOval);
      const double inside = std::max(0, size.width - 2 * width) * std::max(0, size.height - 2 * width);
      const double area = std::numbers::pi / 4 * (size.width * size.height - inside);
      EXPECT_NEAR(inked(dib), area, area * 0.01 + 1) << size.width << " x " << size.height << ", " << width;
      const Rows rows = rowsOf(dib, {{'.', kWhite}});
      for (const int mode : {0, 1}) {
        clsDIB::RotateDIB(dib, mode);
        EXPECT_EQ(rowsOf(dib, {{'.', kWhite}}), rows);
      }
    }
  }
}

TEST(ShapeOval, AFilledOvalHasItsRimAroundTheNormalPixels) {
  const Ink ink = {{'.', kWhite}, {'#', kBlack}};  // '?' is soft
  clsDIB dib = plainDib(8, 8, kWhite);
  EXPECT_EQ(fillOval(dib, {0, 0, 8, 8}, kBlack, kNormalOval), dib.surface().bounds());
  const Rows normal = rowsOf(dib);
  clsDIB soft = plainDib(8, 8, kWhite);
  EXPECT_EQ(fillOval(soft, {0, 0, 8, 8}, kBlack, kAntialiasedOval), soft.surface().bounds());
  EXPECT_PICTURE(normal,
                 {"..####..", ".######.", "########", "########", "########", "########", ".######.", "..####.."});
  EXPECT_PICTURE(rowsOf(soft, ink),
                 {".?####?.", "?######?", "########", "########", "########", "########", "?######?", ".?####?."});
}

TEST(ShapeOval, SeeThroughPicturesBecomeOpaqueWhereItIsDrawn) {
  for (const int enhancement : {kNormalOval, kAntialiasedOval}) {
    clsDIB dib = plainDib(9, 9, kBlack);
    dib.setDIBhasAlpha(true);
    fillOval(dib, {0, 0, 9, 9}, rgb(200, 0, 0), enhancement);
    EXPECT_EQ(pixelAt(dib, 4, 4), (Pixel32{0, 0, 200, 255}));
    EXPECT_EQ(pixelAt(dib, 0, 0).alpha, 0);
    // Soft pixels mix with the white that is seen through the picture, not with the black in it.
    EXPECT_EQ(pixelAt(dib, 2, 0).green > 100, enhancement == kAntialiasedOval);
  }
}

}  // namespace
}  // namespace ruvo::shape
