#include "canvas/engine/shape_rectangle.h"

#include "support/pictures.h"

namespace ruvo::shape {
namespace {

using namespace test;

Rows outlined(Rect box, int corner, int size, int side) {
  clsDIB dib = plainDib(side, side, kWhite);
  outlineRectangle(dib, box, kBlack, corner, size);
  return rowsOf(dib);
}
Rows filled(Rect box, int corner, int side) {
  clsDIB dib = plainDib(side, side, kWhite);
  EXPECT_EQ(fillRectangle(dib, box, kBlack, corner), box.intersected({0, 0, side, side}));
  return rowsOf(dib);
}

TEST(Rectangle, FiguresFillTheirBox) {
  // Half of 2 is marked on both sides of the rim.
  EXPECT_PICTURE(outlined({1, 1, 6, 6}, 0, 2, 7),
                 {"#######", "#######", "#######", "###.###", "#######", "#######", "#######"});
  EXPECT_PICTURE(filled({1, -3, 4, 2}, 0, 4), {".###", ".###", "....", "...."});
  const Rows ring = {"...######...", "..########..", ".###....###.", "###......###", "##........##", "##........##",
                     "##........##", "###......###", ".###....###.", "..########..", "...######...", "............"};
  EXPECT_EQ(outlined({0, 0, 12, 11}, 1, 2, 12), ring);
  EXPECT_EQ(filled({0, 0, 12, 11}, 1, 12)[2], ".##########.");
}

TEST(Rectangle, AnOutlineThatLeavesNothingWithinIsSolid) {
  const Rect box{2, 2, 22, 14};
  for (const int size : {6, 7, 12, 40}) EXPECT_EQ(outlined(box, 2, size, 26), filled(box, 2, 26)) << size;
  EXPECT_NE(outlined(box, 2, 5, 26), filled(box, 2, 26));
}

}  // namespace
}  // namespace ruvo::shape
