#include "document/model/crop_rules.h"

#include "document/model/paste_rules.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using test::dibOf;
using test::rowsOf;

TEST(CropRules, ARegionIsCutAtThePicturesBounds) {
  const clsDIB picture = dibOf({"######", "######", "######", "######"});
  const Size size = picture.size();
  clsDIB cut;
  ASSERT_TRUE(croppedCopy(picture, {-2, 1, 3, 9}, false, cut));
  EXPECT_PICTURE(rowsOf(cut), ({"###", "###", "###"}));
  ASSERT_TRUE(croppedCopy(picture, {-1, -1, 4, 4}, true, cut));
  EXPECT_PICTURE(rowsOf(cut), ({"####", "####", "####", "###."})) << "the ellipse is that of the whole box";
  for (const auto& [box, small] :
       {std::pair{Rect{4, 2, 9, 9}, false}, {Rect{5, 2, 9, 9}, true}, {Rect{-3, -3, 3, 1}, true}})
    EXPECT_EQ(cropTooSmall(box, size), small);
}

TEST(CropRules, PerImageTakesWhatTheMaskDoesNotLeaveOut) {
  const clsDIB region =
      dibOf({"aaaa", "abca", "acba"}, {{'a', rgb(9, 9, 9)}, {'b', rgb(1, 1, 1)}, {'c', rgb(2, 2, 2)}});
  const clsDIB mask = dibOf({"....", ".#..", ".g#."}, {{'.', kWhite}, {'#', kBlack}, {'g', 0xFEFFFF}});
  const clsDIB snap = test::plainDib(9, 9, kWhite), none;
  clsDIB cut;
  EXPECT_EQ(cropPerImage({region, mask, snap}, {9, 9}, cut), "");
  EXPECT_PICTURE(rowsOf(cut, {{'.', kWhite}, {'b', rgb(1, 1, 1)}, {'c', rgb(2, 2, 2)}}), ({"b.", "cb"}));
  EXPECT_EQ(cropPerImage({region, none, snap}, {9, 9}, cut), "");
  EXPECT_EQ(cut.size(), region.size()) << "a rectangle has no mask";
  EXPECT_EQ(cropPerImage({region, test::plainDib(4, 3, kWhite), snap}, {9, 9}, cut), kCropTooSmall);
  EXPECT_EQ(cropPerImage({region, mask, snap}, {9, 8}, cut), "Snapshot size discrepant");
  EXPECT_EQ(cropPerImage({region, test::plainDib(3, 3, kWhite), snap}, {9, 9}, cut), "Mask size discrepant");
}

TEST(CropRules, AWhiteSheetHoldsAPictureAtItsPlaceWithItsAlpha) {
  clsDIB kept = dibOf({"##", "##"}), sheet;
  ASSERT_TRUE(whiteSheetWith(kept, {-1, 1}, {3, 3}, sheet));
  EXPECT_PICTURE(rowsOf(sheet), ({"...", "#..", "#.."}));
  kept.setDIBhasAlpha(true);
  ASSERT_TRUE(whiteSheetWith(kept, {0, 0}, {3, 2}, sheet));
  EXPECT_TRUE(sheet.DIBhasAlpha());
  EXPECT_EQ(test::pixelAt(sheet, 2, 0), Pixel32::opaque(kWhite));
  EXPECT_EQ(test::pixelAt(sheet, 0, 0).alpha, 0);
}

TEST(PasteRules, ItemsPercentsAndWords) {
  const auto percent = [](const char* control, int index) {
    const auto manner = pasteMannerOf(control, index);
    return manner && manner->translucent ? manner->percent : -1;
  };
  EXPECT_EQ(percent("mnuEditPasteTranslucentTransparentSub", 0), 100);
  EXPECT_EQ(percent("mnuEditPasteTranslucentTransparentSub", 8), 20);
  EXPECT_EQ(percent("mnuEditPasteTranslucentTransparentSub", 9), -1);
  EXPECT_EQ(percent("mnuEditPasteTranslucentNotTransparentSub", 0), 80);
  EXPECT_EQ(percent("mnuEditPasteTranslucentNotTransparentSub", 6), 20);
  EXPECT_EQ(percent("mnuEditPaste", -1), -1);
  EXPECT_TRUE(pasteMannerOf("mnuEditPasteTranslucentTransparentSub", 3)->transparent);
  EXPECT_FALSE(pasteMannerOf("mnuEditPasteTranslucentNotTransparentSub", 3)->transparent);
  EXPECT_FALSE(pasteMannerOf("mnuEditCopy", -1));

  imaging::LoadResult fetched{{}, imaging::LoadError::TooLarge, 3517, 853, 0};
  EXPECT_EQ(fetchFaultText(fetched), "Width x height of incoming image is greater than 3,000,000 pixels ");
  fetched.width = 32761;
  fetched.height = 1;
  EXPECT_EQ(fetchFaultText(fetched), "Incoming image exceeds max size allowed.");
  EXPECT_EQ(enlargeQuestion({50, 40}),
            "Incoming image at 50 x 40 is larger than the current\nwidth and/or height.  "
            "Enlarge the current picture area?");
}

}  // namespace
}  // namespace ruvo
