#include "canvas/engine/shape_oval.h"

#include <numbers>

#include "canvas/engine/fill.h"
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
  EXPECT_PICTURE(ringIn({9, 5}, {0, 0, 9, 5}, 1), {"..#####..", ".#.....#.", "#.......#", ".#.....#.", "..#####.."});
  EXPECT_PICTURE(ringIn({6, 3}, {1, 1, 6, 2}, 1), {"......", ".#####", "......"});
  EXPECT_PICTURE(ringIn({4, 4}, {2, 2, 9, 9}, 9), {"....", "....", "....", "...#"});
  for (const Rect& box : {Rect{3, 3, 3, 9}, Rect{20, 20, 30, 30}, Rect{0, 0, 600000, 3}}) {
    clsDIB dib = plainDib(5, 5, kWhite);
    EXPECT_EQ(drawOval(dib, box, kBlack, 2, kNormalOval), Rect{});
    EXPECT_EQ(fillOval(dib, box, kBlack, kAntialiasedOval), Rect{});
    EXPECT_EQ(clsDIB::IsMultiColorDIB(dib), kWhite);
  }
}

// With its inside filled a ring is the filled oval: nothing between the rings is left out, and nothing leaks.
TEST(ShapeOval, RingsOfEverySizeAreSolidAndClosed) {
  for (const Size size : {Size{40, 40}, Size{61, 60}, Size{90, 31}, Size{17, 80}, Size{5, 70}, Size{3, 3}}) {
    for (int width = 1; width <= 21; ++width) {
      clsDIB dib = plainDib(size.width + 2, size.height + 2, kWhite), whole;
      clsDIB::CloneDIB(dib, whole, kWhite, false);
      const Rect box = Rect::fromSize(1, 1, size.width, size.height);
      EXPECT_EQ(drawOval(dib, box, kBlack, width, kNormalOval), box);
      fillOval(whole, box, kBlack, kNormalOval);
      brush::floodFill(dib, size.width / 2 + 1, size.height / 2 + 1, 0, kBlack, {});
      EXPECT_EQ(rowsOf(dib), rowsOf(whole)) << size.width << " x " << size.height << ", " << width;
    }
  }
}

TEST(ShapeOval, SoftEdgesCoverTheAreaOfTheBandAndAreEvenOnAllSides) {
  for (const Size size : {Size{60, 60}, Size{81, 40}, Size{31, 50}}) {
    for (const int width : {1, 3, 8, 40}) {
      clsDIB dib = plainDib(size.width, size.height, kWhite);
      drawOval(dib, dib.surface().bounds(), kBlack, width, kAntialiasedOval);
      double inked = 0;
      for (const std::uint8_t byte : dib.surface().bytes()) inked += byte;
      inked = size.width * size.height - inked / (3 * 255.0);  // byte 3 is zero
      const double inside = std::max(0, size.width - 2 * width) * std::max(0, size.height - 2 * width);
      const double area = std::numbers::pi / 4 * (size.width * size.height - inside);
      EXPECT_NEAR(inked, area, area * 0.01 + 1) << size.width << " x " << size.height << ", " << width;
      const Rows rows = rowsOf(dib, {{'.', kWhite}});
      for (const int mode : {0, 1}) {
        clsDIB::RotateDIB(dib, mode);
        EXPECT_EQ(rowsOf(dib, {{'.', kWhite}}), rows);
      }
    }
  }
}

TEST(ShapeOval, AFilledOvalHasItsSoftRimAroundTheNormalPixels) {
  const auto filled = [](int enhancement) {
    clsDIB dib = plainDib(8, 4, kWhite);
    dib.setDIBhasAlpha(true);
    fillOval(dib, {0, 0, 8, 8}, kBlack, enhancement);
    EXPECT_EQ(pixelAt(dib, 4, 3).alpha - pixelAt(dib, 0, 0).alpha, 255);
    return rowsOf(dib);
  };
  EXPECT_PICTURE(filled(kNormalOval), {"..####..", ".######.", "########", "########"});
  EXPECT_PICTURE(filled(kAntialiasedOval), {".?####?.", "?######?", "########", "########"});
}

}  // namespace
}  // namespace ruvo::shape
