#include "dialogs/model/icon_save_rules.h"

#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'r', rgb(255, 0, 0)}, {'b', rgb(0, 0, 255)}};

TEST(IconSaveRules, ThePictureKeepsItsShapeInTheMiddle) {
  EXPECT_EQ(placeWithin({100, 50}, 32, HowToTake::WholeIcon), (Rect{0, 0, 32, 32}));
  EXPECT_EQ(placeWithin({100, 50}, 32, HowToTake::KeepAspect), (Rect{0, 8, 32, 24}));
  EXPECT_EQ(placeWithin({1, 3}, 32, HowToTake::KeepAspect), (Rect{10, 0, 21, 32}));
  EXPECT_EQ(placeWithin({1, 30000}, 16, HowToTake::KeepAspect), (Rect{7, 0, 8, 16}));
}

TEST(IconSaveRules, SeeThroughPixelsAreMaskedAndNeverMixedWithOthers) {
  // A red block on white, five pixels wide: no whole number of them makes sixteen.
  const clsDIB picture = dibOf({".....", ".rrr.", ".rrr.", ".rrr.", "....."}, kInk);
  IconChoices choices{.side = 16, .transparent = true, .transparentColour = kWhite};
  const IconPair pair = iconPair(picture, choices);
  int red = 0, through = 0;
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      const Colour image = pixelAt(pair.image, x, y).colour();
      const Colour mask = pixelAt(pair.mask, x, y).colour();
      red += image == rgb(255, 0, 0) && mask == kBlack;
      through += image == kBlack && mask == kWhite;
    }
  }
  EXPECT_EQ(red + through, 256);
  EXPECT_NEAR(red, 92, 10);  // nine of twenty-five parts
  choices.transparent = false;
  EXPECT_EQ(pixelAt(iconPair(picture, choices).mask, 0, 0).colour(), kBlack);
}

TEST(IconSaveRules, PixelsThatTurnOutInTheKeyColourStaySolid) {
  // Black and white mixed evenly give the grey that is to be see-through.
  const clsDIB picture = dibOf(64, 64, [](int x, int y) {
    return Pixel32::plain(y < 32 ? rgb(128, 128, 128) : (x + y) % 2 != 0 ? kWhite : kBlack);
  });
  const IconPair pair = iconPair(picture, {.side = 16, .transparent = true, .transparentColour = rgb(128, 128, 128)});
  EXPECT_EQ(pixelAt(pair.mask, 8, 2).colour(), kWhite);
  EXPECT_EQ(pixelAt(pair.mask, 8, 12).colour(), kBlack);
}

TEST(IconSaveRules, LargePicturesKeepPlacesColoursAndKey) {
  // Red left of the key, but for one pixel in three; both are told apart before any two are mixed.
  const clsDIB picture = dibOf(1301, 700, [](int x, int y) {
    return Pixel32::plain(x >= 1301 * 3 / 4 || (x + y) % 3 == 0 ? rgb(0, 0, 255) : rgb(255, 0, 0));
  });
  const IconPair pair = iconPair(picture, {.side = 32, .transparent = true, .transparentColour = rgb(0, 0, 255)});
  for (const int y : {0, 31}) {
    EXPECT_EQ(pixelAt(pair.image, 23, y).colour(), rgb(255, 0, 0));
    EXPECT_EQ(pixelAt(pair.mask, 24, y).colour(), kWhite);
  }
}

TEST(IconSaveRules, AlphaIsKeptAndWhatIsFreeAroundIsSeeThrough) {
  clsDIB picture = dibOf(2, 1, [](int x, int) { return Pixel32{9, 9, 9, static_cast<std::uint8_t>(x ? 0 : 77)}; });
  picture.setDIBhasAlpha(true);
  const IconPair pair = iconPair(picture, {.side = 12, .how = HowToTake::KeepAspect});
  ASSERT_TRUE(pair.image.DIBhasAlpha());
  EXPECT_EQ(pixelAt(pair.image, 0, 5), (Pixel32{9, 9, 9, 77}));
  EXPECT_EQ(pixelAt(pair.image, 11, 5), Pixel32());
  EXPECT_EQ(pixelAt(pair.mask, 11, 5).colour(), kWhite);
  EXPECT_EQ(pixelAt(pair.mask, 0, 0).colour(), kWhite);
  EXPECT_EQ(pixelAt(pair.mask, 0, 5).colour(), kBlack);
}

TEST(IconSaveRules, AClickMeansTheColourOfThePictureUnderIt) {
  const clsDIB picture = dibOf({"rb", "b#"}, kInk);
  EXPECT_EQ(colourUnder(picture, {.side = 16}, {7, 7}), rgb(255, 0, 0));
  EXPECT_EQ(colourUnder(picture, {.side = 16}, {8, 7}), rgb(0, 0, 255));
  EXPECT_EQ(colourUnder(picture, {.side = 16}, {15, 15}), kBlack);
  const clsDIB flat = dibOf({"rb"}, kInk);
  EXPECT_EQ(colourUnder(flat, {.side = 16, .how = HowToTake::KeepAspect}, {0, 3}), std::nullopt);
}

}  // namespace
}  // namespace ruvo
