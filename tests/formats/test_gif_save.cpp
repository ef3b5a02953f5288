#include <gif_lib.h>

#include "formats/gif_bytes.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;

clsDIB noise(int width, int height, int colours) {
  clsDIB dib = plainDib(width, height, kWhite, 8, true);
  std::uint32_t state = 7;
  for (std::uint8_t& b : dib.surface().bytes()) {
    state = state * 1664525 + 1013904223;
    b = static_cast<std::uint8_t>((state >> 24) % static_cast<std::uint32_t>(colours));
  }
  for (int i = 0; i < 256; ++i) dib.surface().table()[i] = raster::TableEntry::of(rgb(i, 255 - i, i * 7));
  return dib;
}

int giveBytes(GifFileType* gif, GifByteType* to, int count) {
  auto& rest = *static_cast<std::span<const std::uint8_t>*>(gif->UserData);
  const auto part = rest.first(std::min(rest.size(), static_cast<std::size_t>(count)));
  std::copy(part.begin(), part.end(), to);
  rest = rest.subspan(part.size());
  return static_cast<int>(part.size());
}

// Compares what giflib finds in the bytes with the model: places, records, colours and pixels.
void expectOtherReaderAgrees(const clsGIF& model, const Bytes& saved) {
  std::span<const std::uint8_t> rest = saved;
  GifFileType* file = DGifOpen(&rest, giveBytes, nullptr);
  ASSERT_TRUE(file && DGifSlurp(file) == GIF_OK);
  ASSERT_EQ(file->ImageCount, model.FramesCount());
  EXPECT_EQ((Size{file->SWidth, file->SHeight}), (Size{model.BgdWidth(), model.BgdHeight()}));
  for (int i = 1; i <= model.FramesCount(); ++i) {
    const SavedImage& image = file->SavedImages[i - 1];
    const GifImageDesc& d = image.ImageDesc;
    const clsDIB& dib = model.FrameDIBXOR(i);
    ASSERT_EQ((Size{d.Width, d.Height}), dib.size());
    for (int y = 0; y < d.Height; ++y) {
      const std::uint8_t* row = dib.surface().pictureRow(y);
      ASSERT_TRUE(std::equal(row, row + d.Width, image.RasterBits + static_cast<std::ptrdiff_t>(y) * d.Width)) << i;
    }
    GraphicsControlBlock control{};
    ASSERT_EQ(DGifSavedExtensionToGCB(file, i - 1, &control), GIF_OK);
    EXPECT_EQ((Point{d.Left, d.Top}), (Point{model.FrameLeft(i), model.FrameTop(i)}));
    EXPECT_EQ(d.Interlace, model.FrameInterlaced(i) && d.Height >= 5) << i;
    EXPECT_EQ(control.DelayTime, model.FrameDelay(i));
    EXPECT_EQ(control.DisposalMode, model.FrameDisposalMethod(i));
    EXPECT_EQ(control.TransparentColor, model.FrameUseTransparentColor(i) ? model.FrameTransparentColorIndex(i) : -1);
    for (int c = 0; d.ColorMap && c < model.LocalPaletteEntries(i); ++c) {
      const GifColorType& colour = d.ColorMap->Colors[c];
      ASSERT_EQ(rgb(colour.Red, colour.Green, colour.Blue), model.LocalPaletteColor(i, c));
    }
  }
  DGifCloseFile(file, nullptr);
}

TEST(GifSave, AnotherReaderFindsTheSameFrames) {
  clsGIF gif;
  GifFrameSettings settings;
  settings.Delay = 12;
  settings.TransparentColorIndex = 4;
  settings.Left = 3;
  for (const int colours : {1, 2, 5, 30, 256}) {
    for (const Size size : {Size{37, 23}, Size{4, 7}, Size{1, 1}, Size{300, 5}, Size{9, 4}, Size{90, 90}}) {
      const int number = gif.FramesCount() + 1;
      settings.DisposalMethod = number % 4;
      settings.Interlaced = number % 3 != 1;
      settings.UseTransparentColor = number % 5 > 1;
      ASSERT_TRUE(gif.FrameInsertImage(noise(size.width, size.height, colours), number, settings));
    }
  }
  gif.setNetscapeLoops(300);
  const Bytes saved = gif.saveBytes();
  expectOtherReaderAgrees(gif, saved);
  clsGIF again;
  ASSERT_EQ(load(again, saved), kGifOk);
  EXPECT_EQ(again.NetscapeLoops(), 300);
  EXPECT_EQ(again.saveBytes(), saved);
}

TEST(GifSave, EveryByteOfASmallFile) {
  const std::vector<Colour> three(kFourColours.begin(), kFourColours.end() - 1);
  clsGIF gif;
  ASSERT_EQ(load(gif, GifBytes(3, 2).control(7, 258, 3).image({"012"}, 0, 1).bytes()), kGifOk);
  gif.setGlobalPaletteEntries(3);
  Bytes expected = GifBytes(3, 2, "89a", 0x91, three)
                       .raw({0, 0, 0})  // the table is filled up to a power of two
                       .extension(0xFF, {"NETSCAPE2.0", std::string("\1\0\0", 3)})
                       .extension(0xFE, {std::string(255, 'c'), std::string(45, 'c')})
                       .control(7, 258, 3)
                       .image({"012"}, 0, 1)
                       .bytes();
  EXPECT_EQ(gif.saveBytes(0, std::string(300, 'c')), expected);
  expected.erase(expected.begin() + 44, expected.begin() + 44 + 305);
  expected.resize(101);  // no shorter than what the reader takes for a GIF
  EXPECT_EQ(gif.saveBytes(0, ""), expected);
}

TEST(GifSave, OneFrameAndTheCommentAsLatin1) {
  clsGIF gif, one;
  ASSERT_EQ(load(gif, GifBytes(2, 1).control(0, 1).image({"01"}).control(0, 2).image({"10"}).bytes()), kGifOk);
  const std::string accentAndEuro = "h\u00E9t\u20AC";
  ASSERT_EQ(load(one, gif.saveBytes(2, accentAndEuro)), kGifOk);
  EXPECT_EQ(one.FramesCount() == 1 ? one.FrameDelay(1) : 0, 2);
  EXPECT_EQ(one.CommentText(), "ht?") << "the reader drops the accent";
  EXPECT_TRUE(gif.saveBytes(3).empty() && !gif.saveBytes(-1).empty());
}

TEST(GifSave, CodesAreWideEnoughForEveryPixel) {
  // No table at all, and a table smaller than the indices.
  for (const int packed : {0, 0x80}) {
    const std::vector<Colour> table(packed ? 2 : 0);
    clsGIF gif;
    ASSERT_EQ(load(gif, GifBytes(2, 1, "89a", packed, table).image({"01"}).bytes()), kGifOk);
    gif.ownFrameDIBXOR(1)->surface().pictureRow(0)[1] = 200;
    expectOtherReaderAgrees(gif, gif.saveBytes());
    EXPECT_EQ(gif.saveBytes()[10], packed);
  }
}

TEST(GifSave, OnePictureWithoutAModel) {
  const TempFolder folder;
  const auto path = folder / "a.gif";
  clsPal pal;
  pal.CreateBlankPalette(3);
  for (int i = 0; i < 3; ++i) pal.setRgbR(i, i == 0 ? 10 : 20);
  const clsDIB dib = indexed({"012", "210", "000", "111"});
  // The fourth entry of the file's table is black, but it is none of the palette's.
  for (const bool known : {true, false}) {
    const Colour seeThrough = known ? rgb(20, 0, 0) : kBlack;
    ASSERT_TRUE(clsGIF::SaveGIFFrom_BPP8_DIB(path, dib, pal, 2, true, true, seeThrough, "note"));
    clsGIF gif;
    ASSERT_EQ(gif.LoadFromGIFFile(path), kGifOk);
    EXPECT_PICTURE(digits(gif.FrameDIBXOR(1)), ({"012", "210", "000", "111"}));
    EXPECT_EQ(gif.FrameUseTransparentColor(1), known);
    EXPECT_EQ(gif.FrameTransparentColorIndex(1), known ? 1 : 0) << "the first of two equal colours";
    EXPECT_FALSE(gif.FrameInterlaced(1)) << "below five lines the bit would scramble them elsewhere";
    EXPECT_EQ(gif.CommentText(), "note");
  }
  EXPECT_FALSE(clsGIF::SaveGIFFrom_BPP8_DIB(path, plainDib(2, 2, kWhite, 24), pal, 8) ||
               clsGIF::SaveGIFFrom_BPP8_DIB(path, dib, pal, 9));
}

}  // namespace
}  // namespace ruvo
