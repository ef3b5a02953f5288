#include "document/model/colour_reduction.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

// Soft colours left, and a see-through right half in a colour that no table has.
clsDIB iconImage() {
  return test::dibOf(16, 8, [](int x, int y) {
    return x < 8 ? Pixel32::plain(rgb(x * 30, y * 30, 90)) : Pixel32::plain(rgb(13, 57, 201));
  });
}
clsDIB rightHalfMask() {
  clsDIB mask = test::plainDib(16, 8, kWhite, 1);
  for (int y = 0; y < 8; ++y) mask.surface().pictureRow(y)[1] = 0xFF;
  return mask;
}

TEST(ColourReduction, AnIconKeepsItsMaskedPixels) {
  for (const Reduction reduction : {Reduction::To256, Reduction::To16, Reduction::BwStucki, Reduction::Websafe}) {
    clsDIB icon = iconImage();
    clsDIB plain = iconImage();
    ASSERT_TRUE(reduceIconColours(icon, rightHalfMask(), reduction));
    ASSERT_TRUE(reduceColours(plain, reduction));
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 16; ++x) {
        const Colour wanted = x < 8 ? test::pixelAt(plain, x, y).colour() : rgb(13, 57, 201);
        ASSERT_EQ(test::pixelAt(icon, x, y).colour(), wanted) << x << ' ' << y;
      }
    }
  }
}

TEST(ColourReduction, BlackAndWhiteOfAnIconIsStuckis) {
  clsDIB ordered = iconImage();
  clsDIB stucki = iconImage();
  const clsDIB nothingMasked = test::plainDib(16, 8, kWhite, 1);
  ASSERT_TRUE(reduceIconColours(ordered, nothingMasked, Reduction::BwOrdered));
  ASSERT_TRUE(reduceColours(stucki, Reduction::BwStucki));
  EXPECT_EQ(test::rowsOf(ordered), test::rowsOf(stucki));
  EXPECT_FALSE(reduceIconColours(ordered, test::plainDib(15, 8, kWhite, 1), Reduction::To16))
      << "a mask of another size";
}

TEST(ColourReduction, AlphaIsComposedOverWhiteFirst) {
  clsDIB dib = test::dibOf(2, 1, [](int x, int) { return Pixel32{0, 0, 0, static_cast<std::uint8_t>(x * 255)}; });
  dib.setDIBhasAlpha(true);
  ASSERT_TRUE(reduceColours(dib, Reduction::To256));
  EXPECT_FALSE(dib.DIBhasAlpha());
  EXPECT_PICTURE(test::rowsOf(dib), {".#"});
}

}  // namespace
}  // namespace ruvo
