#include "canvas/engine/shape_rectangle.h"

#include "support/pictures.h"

namespace ruvo::shape {
namespace {

using namespace test;

// Size 0 fills.
Rows rectangle(Rect box, int corner, int size, int side) {
  clsDIB dib = plainDib(side, side, kWhite);
  const Rect told =
      size == 0 ? fillRectangle(dib, box, kBlack, corner) : outlineRectangle(dib, box, kBlack, corner, size);
  EXPECT_TRUE(corner == 0 || told == box.intersected({0, 0, side, side}));
  return rowsOf(dib);
}

TEST(Rectangle, FiguresFillTheirBox) {
  // Half of 2 is marked on both sides of the rim.
  EXPECT_PICTURE(rectangle({1, 1, 6, 6}, 0, 2, 7),
                 {"#######", "#######", "#######", "###.###", "#######", "#######", "#######"});
  EXPECT_PICTURE(rectangle({1, -3, 4, 2}, 0, 0, 4), {".###", ".###", "....", "...."});
  EXPECT_PICTURE(rectangle({0, 0, 12, 11}, 1, 2, 12),
                 {"...######...", "..########..", ".###....###.", "###......###", "##........##", "##........##",
                  "##........##", "###......###", ".###....###.", "..########..", "...######...", "............"});
}

TEST(Rectangle, AnOutlineThatLeavesNothingWithinIsSolid) {
  const Rect box{2, 2, 22, 14};
  for (const int size : {6, 7, 40}) EXPECT_EQ(rectangle(box, 2, size, 20), rectangle(box, 2, 0, 20)) << size;
  EXPECT_NE(rectangle(box, 2, 5, 20), rectangle(box, 2, 0, 20));
}

}  // namespace
}  // namespace ruvo::shape
