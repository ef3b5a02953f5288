#include "document/model/save_panel.h"

#include "platform/imaging/codecs.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using test::pixelAt;

class PngByChoices : public testing::Test {
 protected:
  // What another reader makes of the file: straight alpha.
  raster::Surface& written(const clsDIB& picture, const PngChoices& choices) {
    EXPECT_EQ(savePngByChoices(picture, choices, folder / "out.png"), "");
    imaging::FileBytes bytes(folder / "out.png");
    result = imaging::readPng(bytes);
    EXPECT_TRUE(result);
    return *result.picture.bitmap;
  }
  test::TempFolder folder;
  imaging::LoadResult result;
  const test::Ink ink = {{'r', rgb(250, 3, 5)}, {'w', kWhite}, {'k', kBlack}};
};

TEST_F(PngByChoices, OpacityAndTheColourLeftOut) {
  const clsDIB picture = test::dibOf({"rw", "wk"}, ink);
  PngChoices choices;
  choices.transparency = PngChoices::Transparency::AlphaValues;  // makes 32 bits whatever is asked for
  choices.opacity = 77;
  choices.seeThrough = kWhite;
  raster::Surface& file = written(picture, choices);
  EXPECT_EQ(result.fileDepth, 32);
  EXPECT_EQ(pixelAt(file, 0, 0).alpha, 77);
  EXPECT_EQ(pixelAt(file, 0, 0).colour(), rgb(250, 3, 5));
  EXPECT_EQ(pixelAt(file, 1, 0).alpha, 0);
  EXPECT_EQ(pixelAt(file, 1, 1).alpha, 77);
}

TEST_F(PngByChoices, OneTransparentColourAtEachDepth) {
  const clsDIB picture = test::dibOf({"rw", "wk"}, ink);
  for (const int bits : {8, 24, 32}) {
    PngChoices choices;
    choices.bitsPerPixel = bits;
    choices.transparency = PngChoices::Transparency::SingleColour;
    choices.transparentPixel = {1, 1};
    choices.background = rgb(250, 3, 5);
    raster::Surface& file = written(picture, choices);
    EXPECT_EQ(pixelAt(file, 1, 1).alpha, 0) << bits;
    EXPECT_EQ(pixelAt(file, 0, 0).alpha, 255) << bits;
    EXPECT_EQ(pixelAt(file, 0, 0).colour(), rgb(250, 3, 5)) << bits;
    EXPECT_EQ(pixelAt(file, 1, 0).colour(), kWhite) << bits;
  }
}

TEST_F(PngByChoices, OwnAlphaIsKeptOrComposedOverWhite) {
  clsDIB picture = test::dibOf({"rk"}, ink);
  picture.setDIBhasAlpha(true);
  pixelAt(picture, 0, 0).alpha = 255;
  pixelAt(picture, 1, 0).alpha = 0;
  PngChoices choices;
  EXPECT_EQ(pixelAt(written(picture, choices), 1, 0).colour(), kWhite);
  choices.bitsPerPixel = 32;
  EXPECT_EQ(pixelAt(written(picture, choices), 1, 0).alpha, 0);
  EXPECT_NE(savePngByChoices(picture, choices, folder / "none" / "out.png"), "");
}

}  // namespace
}  // namespace ruvo
