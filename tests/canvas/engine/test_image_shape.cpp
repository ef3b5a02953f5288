#include "canvas/engine/image_shape.h"

#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'x', rgb(9, 9, 9)}};

TEST(ImageShape, WhereTheMaskIsWhiteTheColourIsPut) {
  clsDIB image = dibOf({"##.", "#.#"});
  clsDIB mask = dibOf(surfaceOf({".#.", "x.#"}, kInk, raster::RowOrder::TopDown));
  pixelAt(mask, 1, 1).alpha = 7;
  ClearAreasOutsideImageShape(image, mask, rgb(9, 9, 9), 255);
  EXPECT_PICTURE(rowsOf(image, kInk), {"x#x", "#x#"});
  EXPECT_EQ(pixelAt(image, 0, 0).alpha, 255);
  EXPECT_EQ(pixelAt(image, 1, 0).alpha, 0);

  ClearAreasOutsideImageShape(image, dibOf({"...", "...", "..."}), kWhite);
  ClearAreasOutsideImageShape(image, clsDIB(), kWhite);
  EXPECT_PICTURE(rowsOf(image, kInk), {"x#x", "#x#"});
}

}  // namespace
}  // namespace ruvo
