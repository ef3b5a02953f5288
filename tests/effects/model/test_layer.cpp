#include "effects/model/layer.h"

#include <gtest/gtest.h>

#include "support/pictures.h"

namespace ruvo {
namespace {

clsDIB plain(int width, int height, Colour colour) {
  clsDIB dib;
  EXPECT_TRUE(dib.CreateBlankDIB(width, height, 32, colour));
  return dib;
}

TEST(Layer, OverIsCutToThePictureMixedByOpacityAndLeavesItsTransparentColourOut) {
  clsDIB picture = plain(3, 2, rgb(100, 100, 100));
  clsDIB second = plain(3, 3, rgb(200, 0, 100));
  test::pixelAt(second, 1, 1) = Pixel32::plain(kWhite);
  ASSERT_TRUE(layPicture(picture, second, {.at = {1, -1}, .opacity = 50, .transparentColour = kWhite}, {}));
  EXPECT_EQ(test::pixelAt(picture, 0, 0).colour(), rgb(100, 100, 100)) << "beside it";
  EXPECT_EQ(test::pixelAt(picture, 1, 0).colour(), rgb(150, 50, 100));
  EXPECT_EQ(test::pixelAt(picture, 2, 0).colour(), rgb(100, 100, 100)) << "transparent";
  EXPECT_EQ(test::pixelAt(picture, 2, 1).colour(), rgb(150, 50, 100));
  EXPECT_EQ(picture.size(), (Size{3, 2}));
}

TEST(Layer, UnderShowsThroughThePicturesTransparentColourAndOpacity) {
  clsDIB picture = plain(3, 1, rgb(0, 0, 200));
  test::pixelAt(picture, 0, 0) = Pixel32::plain(kWhite);
  const clsDIB second = plain(2, 1, rgb(0, 100, 0));
  ASSERT_TRUE(layPicture(picture, second, {.under = true, .opacity = 75, .transparentColour = kWhite}, {}));
  EXPECT_EQ(test::pixelAt(picture, 0, 0).colour(), rgb(0, 100, 0));
  EXPECT_EQ(test::pixelAt(picture, 1, 0).colour(), rgb(0, 25, 150));
  EXPECT_EQ(test::pixelAt(picture, 2, 0).colour(), rgb(0, 0, 200)) << "nothing lies beneath here";
}

TEST(Layer, AlphaOfEitherPictureCounts) {
  clsDIB picture = plain(2, 1, kBlack);
  clsDIB second = plain(2, 1, rgb(255, 255, 255));
  second.setDIBhasAlpha(true);
  test::pixelAt(second, 0, 0).alpha = 0;
  test::pixelAt(second, 1, 0).alpha = 51;
  ASSERT_TRUE(layPicture(picture, second, {}, {}));
  EXPECT_EQ(test::pixelAt(picture, 0, 0).colour(), kBlack);
  EXPECT_EQ(test::pixelAt(picture, 1, 0).red, 51);

  clsDIB seeThrough = plain(1, 1, rgb(9, 9, 9));
  seeThrough.setDIBhasAlpha(true);
  ASSERT_TRUE(layPicture(seeThrough, plain(1, 1, rgb(50, 60, 70)), {.under = true}, {}));
  EXPECT_EQ(test::pixelAt(seeThrough, 0, 0), (Pixel32{70, 60, 50, 255})) << "what is not there shows all of what lies beneath";
}

TEST(Layer, StopsAndNeedsNoOverlap) {
  clsDIB picture = plain(4, 4, kBlack);
  const clsDIB second = plain(4, 4, kWhite);
  Progress progress;
  progress.stop = [] { return true; };
  EXPECT_FALSE(layPicture(picture, second, {}, progress));
  EXPECT_TRUE(layPicture(picture, second, {.at = {40, -40}}, {}));
}

}  // namespace
}  // namespace ruvo
