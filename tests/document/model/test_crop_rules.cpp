#include "document/model/crop_rules.h"

#include "document/model/paste_rules.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using test::dibOf;
using test::rowsOf;

TEST(CropRules, ARegionIsCutAtThePicturesBounds) {
  const clsDIB picture = dibOf({"######", "######", "######", "######"});
  clsDIB cut;
  ASSERT_TRUE(croppedCopy(picture, {-2, 1, 3, 9}, false, cut));
  EXPECT_PICTURE(rowsOf(cut), ({"###", "###", "###"}));
  ASSERT_TRUE(croppedCopy(picture, {-1, -1, 4, 4}, true, cut));
  EXPECT_PICTURE(rowsOf(cut), ({"####", "####", "####", "###."})) << "the ellipse is that of the whole box";
  EXPECT_TRUE(cropTooSmall({5, 2, 9, 9}, {6, 4}) && !cropTooSmall({4, 2, 9, 9}, {6, 4}));
}

TEST(CropRules, PerImageTakesWhatTheMaskDoesNotLeaveOut) {
  const test::Ink ink = {{'.', kWhite}, {'a', 1}, {'b', 2}};
  const clsDIB region = dibOf({"aaaa", "aaba", "abaa"}, ink), snap = test::plainDib(9, 9, kWhite), none;
  const clsDIB mask = dibOf({"....", ".#..", ".g#."}, {{'.', kWhite}, {'#', kBlack}, {'g', 0xFEFFFF}});
  clsDIB cut;
  EXPECT_EQ(cropPerImage({region, mask, snap}, {9, 9}, cut), "");
  EXPECT_PICTURE(rowsOf(cut, ink), ({"a.", "ba"}));
  EXPECT_EQ(cropPerImage({region, none, snap}, {9, 9}, cut), "");
  EXPECT_EQ(cut.size(), region.size()) << "a rectangle has no mask";
  EXPECT_EQ(cropPerImage({region, test::plainDib(4, 3, kWhite), snap}, {9, 9}, cut), kCropTooSmall);
  EXPECT_EQ(cropPerImage({region, mask, snap}, {9, 8}, cut), "Snapshot size discrepant");
  EXPECT_EQ(cropPerImage({region, snap, snap}, {9, 9}, cut), "Mask size discrepant");
  // Soft letters lie on white afterwards.
  clsDIB soft = test::dibOf(4, 3, [](int, int) { return Pixel32{0, 0, 0, 128}; });
  soft.setDIBhasAlpha(true);
  const clsDIB letters = dibOf({"....", ".#..", ".##."});
  EXPECT_EQ(cropPerImage({soft, letters, snap, true}, {9, 9}, cut), "");
  EXPECT_PICTURE(rowsOf(cut, {{'.', kWhite}, {'h', rgb(127, 127, 127)}}), ({"h.", "hh"}));
  EXPECT_FALSE(cut.DIBhasAlpha());
}

TEST(CropRules, AWhiteSheetHasTheAlphaOfWhatItHolds) {
  clsDIB kept = dibOf({"##", "##"}), sheet;
  kept.setDIBhasAlpha(true);
  ASSERT_TRUE(whiteSheetWith(kept, {-1, 1}, {3, 3}, sheet) && sheet.DIBhasAlpha());
  EXPECT_PICTURE(rowsOf(sheet), ({"...", "#..", "#.."}));
  EXPECT_TRUE(test::pixelAt(sheet, 2, 0).alpha == 255 && test::pixelAt(sheet, 0, 1).alpha == 0);
}

TEST(PasteRules, ThePercentsOfTheMenu) {
  const auto percent = [](const char* control, int index) { return pasteMannerOf(control, index).value().percent; };
  EXPECT_EQ(percent("mnuEditPasteTranslucentTransparentSub", 0), 100);
  EXPECT_EQ(percent("mnuEditPasteTranslucentTransparentSub", 8), 20);
  EXPECT_EQ(percent("mnuEditPasteTranslucentNotTransparentSub", 6), 20);
}

}  // namespace
}  // namespace ruvo
