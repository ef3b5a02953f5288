#include "base/file_io.h"
#include "formats/gif_bytes.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;

// A GIF file of its own: 3 x 2, delay 50, see-through index 1, on a screen of 5 x 5.
std::filesystem::path otherFile(const TempFolder& folder, const std::vector<Colour>& table = {kWhite, kBlack}) {
  const auto path = folder / "other.gif";
  Bytes bytes = GifBytes(5, 5, "87a", table.size() == 2 ? 0x80 : 0x81, table)
                    .control(1, 50, 1)
                    .image({"010", "101"}, 1, 1, 64)
                    .control(0)
                    .image({"0"})
                    .bytes();
  bytes.resize(std::max<std::size_t>(bytes.size(), 101));
  EXPECT_TRUE(replaceFile(path, bytes));
  return path;
}

TEST(GifFrames, MovesAndExchangesCarryWholeFrames) {
  clsGIF gif = framesOf(5);
  EXPECT_TRUE(gif.FrameMoveTo(2, 4));
  EXPECT_EQ(delays(gif), "13425");
  EXPECT_TRUE(gif.FrameMoveTo(5, 1));
  EXPECT_EQ(delays(gif), "51342");
  EXPECT_TRUE(gif.FrameMoveUp(3));
  EXPECT_TRUE(gif.FrameMoveDown(1));
  EXPECT_EQ(delays(gif), "35142");
  EXPECT_TRUE(gif.FrameSwap(1, 5));
  EXPECT_EQ(delays(gif), "25143");
  EXPECT_TRUE(gif.FrameDelete(2));
  EXPECT_EQ(delays(gif), "2143");
  EXPECT_FALSE(gif.FrameMoveUp(1) || gif.FrameMoveDown(4) || gif.FrameSwap(2, 2) || gif.FrameCopy(2, 5) ||
               gif.FrameDelete(0));
  EXPECT_EQ(delays(gif), "2143");
}

TEST(GifFrames, CopiesAndClonesShareTheirPixelsUntilOneOfThemChanges) {
  clsGIF gif = framesOf(3);
  ASSERT_TRUE(gif.FrameCopy(1, 3));
  EXPECT_EQ(delays(gif), "121");
  EXPECT_EQ(&gif.FrameDIBXOR(1), &gif.FrameDIBXOR(3));
  gif.ownFrameDIBXOR(3)->surface().pictureRow(0)[0] = 3;
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(1)), ({"01"}));
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(3)), ({"31"}));
  clsGIF clone = gif.clone();
  EXPECT_EQ(&gif.FrameDIBXOR(1), &clone.FrameDIBXOR(1));
  clone.ownFrameDIBXOR(1)->surface().pictureRow(0)[0] = 3;
  clone.GlobalPalettePtr()[1] = {};
  clone.setFrameDelay(2, 9);
  EXPECT_EQ(delays(gif) + delays(clone), "121191");
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(1)), ({"01"}));
  EXPECT_EQ(gif.GlobalPaletteColor(1), kFourColours[1]);
  ASSERT_TRUE(gif.FrameCopy(1, 2));
  gif.setFrameUseTransparentColor(2, true);
  gif.FrameMask(2, 1);
  EXPECT_PICTURE(rowsOf(gif.FrameDIBAND(2)), ({"#."}));
  EXPECT_PICTURE(rowsOf(gif.FrameDIBAND(1)), ({"##"}));
}

TEST(GifFrames, TablesReachThePictureWhenTheyAreUpdated) {
  clsGIF gif;
  ASSERT_EQ(load(gif, GifBytes(2, 1).control(1).image({"01"}, 0, 0, 0x80, {kWhite, rgb(5, 6, 7)}).bytes()), kGifOk);
  const auto shownColour = [&](int index) { return gif.FrameDIBXOR(1).surface().table()[index].colour(); };
  gif.LocalPaletteR_G_B_Change(1, 1, 300, -1, 50);
  EXPECT_EQ(shownColour(1), rgb(5, 6, 7));
  gif.UpdateLocalPalettePerLocal(1);
  EXPECT_EQ(shownColour(1), rgb(255, 0, 50));
  gif.UpdateLocalPalettePerGlobal(1);
  EXPECT_FALSE(gif.LocalPaletteUsed(1));
  EXPECT_EQ(shownColour(3), kFourColours[3]);
  EXPECT_EQ(shownColour(0), kBlack);
  gif.setFrameUseTransparentColor(1, false);
  gif.Remask_All_Frames();
  EXPECT_EQ(shownColour(0), kFourColours[0]);
}

TEST(GifFrames, DrawingGoesThroughTheMask) {
  clsGIF gif;
  ASSERT_EQ(load(gif, GifBytes(4, 2).control(1, 0, 2).image({"12", "21"}, 1, 0).bytes()), kGifOk);
  const Ink ink = {{'.', kWhite}, {'r', kFourColours[1]}, {'g', kFourColours[2]}, {'b', kFourColours[3]}};
  const auto drawn = [&](int x, int y, bool fill, bool origin) {
    raster::Surface target = surfaceOf({"....", "...."}, ink);
    gif.FrameDraw(target, 1, x, y, fill, origin);
    return rowsOf(target, ink);
  };
  EXPECT_PICTURE(drawn(0, 0, false, false), ({".r..", "..r."}));
  EXPECT_PICTURE(drawn(1, -1, false, false), ({"...r", "...."}));
  EXPECT_PICTURE(drawn(0, 0, true, false), ({".rg.", ".gr."}));
  EXPECT_PICTURE(drawn(1, 0, true, true), ({"ggr.", "gg.r"}));
  EXPECT_PICTURE(drawn(2147483647, -2147483647, false, false), ({"....", "...."}));
}

TEST(GifFrames, DrawingIsTheSameAtEveryDepthAndColumn) {
  const std::string picture = "1021130221";  // 2 is see-through
  clsGIF gif;
  ASSERT_EQ(load(gif, GifBytes(10, 1).control(1, 0, 2).image({picture}).bytes()), kGifOk);
  const Ink ink = {{'.', kWhite}, {'0', kFourColours[0]}, {'1', kFourColours[1]}, {'3', kFourColours[3]}};
  for (int left = -6; left < 8; ++left) {
    std::string expected(9, '.');
    for (int x = 0; x < 9; ++x) {
      const int i = x - left;
      if (i >= 0 && i < 10 && picture[i] != '2') expected[x] = picture[i];
    }
    for (const int depth : {24, 32}) {
      clsDIB target = plainDib(9, 1, kWhite, depth);
      gif.FrameDraw(target.surface(), 1, left, 0);
      EXPECT_PICTURE(rowsOf(target, ink), ({expected})) << left << " at " << depth;
    }
  }
}

TEST(GifFrames, AFileComesInWithItsOwnTable) {
  const TempFolder folder;
  const auto other = otherFile(folder);
  clsGIF gif = framesOf(2);
  GifFrameSettings settings;
  settings.Delay = 9;
  settings.TransparentColorIndex = 0;
  settings.Left = 7;
  ASSERT_EQ(gif.LoadFromGIFFileAddOn(other, 2, settings), kGifOk);
  EXPECT_EQ(delays(gif), "192");
  EXPECT_EQ(gif.BgdWidth(), 2);
  EXPECT_EQ((Point{gif.FrameLeft(2), gif.FrameTop(2)}), (Point{7, 1}));
  EXPECT_EQ(gif.LocalPaletteUsed(2) ? gif.LocalPaletteColor(2, 0) : kBlack, kWhite);
  EXPECT_PICTURE(rowsOf(gif.FrameDIBAND(2)), ({".#.", "#.#"}));
  EXPECT_EQ(gif.LoadFromGIFFileAddOn(folder / "none", 1), kGifNotFound);
  EXPECT_EQ(gif.FramesCount(), 3);
  ASSERT_EQ(gif.LoadFromGIFFileAddOn(other, 1), kGifOk);
  EXPECT_EQ(delays(gif), "50");
  EXPECT_EQ(gif.BgdWidth(), 5);

  clsGIF same = framesOf(1);
  ASSERT_EQ(same.LoadFromGIFFileAddOn(otherFile(folder, kFourColours), 2), kGifOk);
  EXPECT_FALSE(same.LocalPaletteUsed(2)) << "equal global tables need no second copy";
}

TEST(GifFrames, AReplacedPictureKeepsTheSettingsOfItsFrame) {
  const TempFolder folder;
  const auto other = otherFile(folder);
  clsGIF gif;
  ASSERT_EQ(load(gif, GifBytes(9, 1).control(0, 1).image({"01"}, 3).control(5, 2).image({"01"}, 4).bytes()), kGifOk);
  const auto screen = [&] { return Size{gif.BgdWidth(), gif.BgdHeight()}; };
  ASSERT_EQ(gif.FrameReplaceImage(other, 2), kGifOk);
  EXPECT_EQ(delays(gif), "12");
  EXPECT_EQ(gif.FrameLeft(2), 4);
  EXPECT_PICTURE(rowsOf(gif.FrameDIBAND(2)), ({".#.", "#.#"}));
  EXPECT_EQ(screen(), (Size{9, 1}));
  ASSERT_EQ(gif.FrameReplaceImage(other, 1), kGifOk);
  EXPECT_EQ(screen(), (Size{9, 2})) << "it grows to hold the first frame";
  ASSERT_TRUE(gif.FrameDelete(2));
  ASSERT_EQ(gif.FrameReplaceImage(other, 1), kGifOk);
  EXPECT_EQ(screen(), (Size{3, 2})) << "the only frame gives the screen its size";
}

TEST(GifFrames, PicturesComeInWithATableOfTheirOwn) {
  const TempFolder folder;
  clsGIF gif;
  const clsDIB few = dibOf({"#..", "..#"});
  ASSERT_TRUE(few.Save_DIB_To_File(folder / "a.bmp", few));
  ASSERT_TRUE(gif.FrameInsertImage(few, 1));
  ASSERT_EQ(gif.FrameInsertImage(folder / "a.bmp", 1), kGifOk);
  EXPECT_EQ((Size{gif.BgdWidth(), gif.BgdHeight()}), (Size{3, 2}));
  for (const int i : {1, 2}) EXPECT_PICTURE(rowsOf(gif.FrameDIBXOR(i)), ({"#..", "..#"}));
  EXPECT_EQ(gif.LocalPaletteEntries(1), 2);

  const PixelOf ramp = [](int x, int y) { return Pixel32::plain(rgb(x * 8, y * 8, 128)); };
  const clsDIB many = dibOf(32, 32, ramp);
  ASSERT_TRUE(gif.FrameInsertImage(many, 2));
  const raster::Surface deep = deepOf(gif.FrameDIBXOR(2).surface());
  EXPECT_LT(farthest(&deep, ramp), 60);
  EXPECT_EQ(pixelAt(many, 5, 7), ramp(5, 7)) << "the picture itself is not dithered";
  ASSERT_EQ(gif.FrameInsertImage(otherFile(folder), 1), kGifOk);
  EXPECT_EQ(gif.FrameDelay(1), 50);
  EXPECT_EQ(gif.FrameLeft(1), 0) << "the first frame stands at the origin";
}

TEST(GifFrames, BlankFramesTakeTheGlobalColourWhereThereIsOne) {
  clsGIF gif = framesOf(1);
  ASSERT_TRUE(gif.FrameInsertBlank(2, 2, 1, kFourColours[2]));
  EXPECT_FALSE(gif.LocalPaletteUsed(2));
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(2)), ({"22"}));
  ASSERT_TRUE(gif.FrameInsertBlank(1, 3, 1, rgb(7, 7, 7)));
  EXPECT_TRUE(gif.LocalPaletteUsed(1));
  EXPECT_EQ(gif.LocalPaletteColor(1, gif.PaletteIndex_In_DIB_XY(1, 2, 0)), rgb(7, 7, 7));
  EXPECT_EQ(gif.BgdWidth(), 3);
  EXPECT_FALSE(gif.FrameInsertBlank(5, 2, 1, kBlack) || gif.FrameInsertBlank(1, 0, 1, kBlack));
  while (gif.FramesCount() < clsGIF::kMostFrames) ASSERT_TRUE(gif.FrameInsertBlank(1, 1, 1, kBlack));
  EXPECT_FALSE(gif.FrameInsertBlank(1, 1, 1, kBlack));
}

TEST(GifFrames, NoFrameGoesWhereNoReaderTakesIt) {
  clsGIF gif;
  ASSERT_TRUE(gif.FrameInsertBlank(1, 2001, 1, kBlack));
  ASSERT_TRUE(gif.FrameInsertBlank(2, 2000, 1, kBlack));
  EXPECT_FALSE(gif.FrameInsertBlank(2, 2001, 1, kBlack));
  EXPECT_FALSE(gif.FrameInsertBlank(1, 2, 1, kBlack)) << "it would push the wide one back";
  EXPECT_FALSE(gif.FrameSwap(2, 1) || gif.FrameMoveUp(2) || gif.FrameMoveDown(1) || gif.FrameCopy(1, 2));
  EXPECT_EQ(codeOf(gif.saveBytes()), kGifOk);
}

}  // namespace
}  // namespace ruvo
