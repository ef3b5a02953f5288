#include <gif_lib.h>

#include <cstring>

#include "base/file_io.h"
#include "formats/gif_bytes.h"
#include "support/file_size_limit.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;

// What giflib makes of the bytes.
struct Slurped {
  explicit Slurped(const Bytes& bytes) : rest(bytes) {
    gif = DGifOpen(
        this,
        [](GifFileType* f, GifByteType* to, int count) {
          auto& from = static_cast<Slurped*>(f->UserData)->rest;
          const int n = std::min(count, static_cast<int>(from.size()));
          std::memcpy(to, from.data(), static_cast<std::size_t>(n));
          from = from.subspan(static_cast<std::size_t>(n));
          return n;
        },
        nullptr);
    whole = gif && DGifSlurp(gif) == GIF_OK;
  }
  ~Slurped() { DGifCloseFile(gif, nullptr); }
  const SavedImage& image(int i) const { return gif->SavedImages[i]; }
  GraphicsControlBlock control(int i) const {
    GraphicsControlBlock block{};
    EXPECT_EQ(DGifSavedExtensionToGCB(gif, i, &block), GIF_OK);
    return block;
  }
  Bytes pixels(int i) const {
    const GifImageDesc& d = image(i).ImageDesc;
    return Bytes(image(i).RasterBits, image(i).RasterBits + static_cast<std::ptrdiff_t>(d.Width) * d.Height);
  }

  std::span<const std::uint8_t> rest;
  GifFileType* gif = nullptr;
  bool whole = false;
};

Bytes pixelsOf(const clsDIB& dib) {
  Bytes all;
  for (int y = 0; y < dib.DIBHeight(); ++y) {
    const std::uint8_t* row = dib.surface().pictureRow(y);
    all.insert(all.end(), row, row + dib.DIBWidth());
  }
  return all;
}

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

TEST(GifSave, AnotherReaderFindsTheSameFrames) {
  clsGIF gif;
  GifFrameSettings settings;
  settings.Delay = 12;
  settings.DisposalMethod = 2;
  settings.UseTransparentColor = true;
  settings.TransparentColorIndex = 4;
  settings.Left = 3;
  settings.Top = 1;
  const auto sizes = {Size{37, 23}, Size{4, 7}, Size{1, 1}, Size{300, 5}, Size{90, 90}};
  for (const int colours : {1, 2, 5, 30, 256}) {
    for (const Size size : sizes) {
      settings.Interlaced = gif.FramesCount() % 2 == 1;
      ASSERT_TRUE(gif.FrameInsertImage(noise(size.width, size.height, colours), gif.FramesCount() + 1, settings));
    }
  }
  gif.setNetscapeLoops(300);
  const Bytes saved = gif.saveBytes();
  const Slurped file(saved);
  ASSERT_TRUE(file.whole);
  EXPECT_EQ((Size{file.gif->SWidth, file.gif->SHeight}), (Size{37, 23}));
  ASSERT_EQ(file.gif->ImageCount, gif.FramesCount());
  for (int i = 0; i < gif.FramesCount(); ++i) {
    EXPECT_EQ(file.pixels(i), pixelsOf(gif.FrameDIBXOR(i + 1))) << i;
    const GifImageDesc& d = file.image(i).ImageDesc;
    EXPECT_EQ((Point{d.Left, d.Top}), i == 0 ? Point{} : (Point{3, 1}));
    EXPECT_EQ(d.Interlace, i % 2 == 1 && d.Height >= 5) << i;
    EXPECT_EQ(file.control(i).DelayTime, 12);
    EXPECT_EQ(file.control(i).DisposalMode, 2);
    EXPECT_EQ(file.control(i).TransparentColor, 4);
    const raster::TableEntry first = gif.getLocalPalette(i + 1)[0];
    ASSERT_TRUE(d.ColorMap);
    EXPECT_EQ(d.ColorMap->Colors[0].Green, first.green);
  }

  clsGIF again;
  ASSERT_EQ(load(again, saved), kGifOk);
  EXPECT_EQ(again.NetscapeLoops(), 300);
  EXPECT_EQ(again.saveBytes(), saved);
}

TEST(GifSave, EveryByteOfASmallFile) {
  clsGIF gif;
  ASSERT_EQ(load(gif, GifBytes(3, 2).control(1 | 2 | 1 << 2, 258, 3).image({"012"}, 0, 1).bytes()), kGifOk);
  gif.setGlobalPaletteEntries(3);
  const Bytes expected = {'G',
                          'I',
                          'F',
                          '8',
                          '9',
                          'a',
                          3,
                          0,
                          2,
                          0,
                          0x80 | 0x10 | 1,
                          2,
                          32,
                          1,
                          2,
                          3,
                          255,
                          0,
                          0,
                          0,
                          255,
                          0,
                          0,
                          0,
                          0,  // entries beyond the count are zero
                          0x21,
                          0xFF,
                          11,
                          'N',
                          'E',
                          'T',
                          'S',
                          'C',
                          'A',
                          'P',
                          'E',
                          '2',
                          '.',
                          '0',
                          3,
                          1,
                          0,
                          0,
                          0,  //
                          0x21,
                          0xF9,
                          4,
                          1 | 2 | 1 << 2,
                          2,
                          1,
                          3,
                          0,  //
                          0x2C,
                          0,
                          0,
                          1,
                          0,
                          3,
                          0,
                          1,
                          0,
                          0,
                          2};
  const Bytes saved = gif.saveBytes();
  ASSERT_GE(saved.size(), expected.size());
  EXPECT_EQ(Bytes(saved.begin(), saved.begin() + static_cast<std::ptrdiff_t>(expected.size())), expected);
  EXPECT_EQ(saved.size(), 101U) << "no shorter than what the reader takes for a GIF";
  EXPECT_EQ(saved.back(), 0);
}

TEST(GifSave, OneFrameAndTheComment) {
  clsGIF gif;
  ASSERT_EQ(load(gif, GifBytes(2, 1).control(0, 1).image({"01"}).control(0, 2).image({"10"}).bytes()), kGifOk);
  clsGIF one;
  ASSERT_EQ(load(one, gif.saveBytes(2,
                                    "h\xC3\xA9"
                                    "t\xE2\x82\xAC")),
            kGifOk);
  EXPECT_EQ(one.FramesCount(), 1);
  EXPECT_EQ(one.FrameDelay(1), 2);
  EXPECT_EQ(one.CommentText(), "ht?") << "the accent went out as Latin-1, which the reader drops";
  EXPECT_TRUE(gif.saveBytes(3).empty());

  const Bytes saved = gif.saveBytes(0, std::string(300, 'c'));
  const Slurped file(saved);
  ASSERT_TRUE(file.whole);
  EXPECT_EQ(file.image(0).ExtensionBlocks[2].ByteCount, 255);
  ASSERT_EQ(load(one, gif.saveBytes(0, "")), kGifOk);
  EXPECT_FALSE(one.hasComment());
}

TEST(GifSave, CodesAreWideEnoughForEveryPixel) {
  // No table at all, and a table smaller than the indices.
  for (const int packed : {0, 0x80}) {
    const std::vector<Colour> table(packed ? 2 : 0);
    clsGIF gif;
    ASSERT_EQ(load(gif, GifBytes(2, 1, "89a", packed, table).image({"01"}).bytes()), kGifOk);
    gif.ownFrameDIBXOR(1)->surface().pictureRow(0)[1] = 200;
    const Bytes saved = gif.saveBytes();
    const Slurped file(saved);
    ASSERT_TRUE(file.whole);
    EXPECT_EQ(file.pixels(0), (Bytes{0, 200}));
    EXPECT_EQ(saved[10], packed ? 0x80 : 0);
  }
}

TEST(GifSave, OnePictureWithoutAModel) {
  const TempFolder folder;
  const auto path = folder / "a.gif";
  clsPal pal;
  pal.CreateBlankPalette(3);
  for (int i = 0; i < 3; ++i) pal.setRgbR(i, i == 0 ? 10 : 20);
  const clsDIB dib = indexed({"012", "210", "000", "111"});
  ASSERT_TRUE(clsGIF::SaveGIFFrom_BPP8_DIB(path, dib, pal, 2, true, true, rgb(20, 0, 0), "note"));
  const Bytes saved = readWholeFile(path, 1 << 20).value();
  EXPECT_EQ(saved[10], 0xF0 | 1);
  EXPECT_EQ(std::string(saved.begin(), saved.end()).find("NETSCAPE"), std::string::npos);
  clsGIF gif;
  ASSERT_EQ(gif.LoadFromGIFFile(path), kGifOk);
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(1)), ({"012", "210", "000", "111"}));
  EXPECT_EQ(gif.FrameTransparentColorIndex(1), 1) << "the first of two equal colours";
  EXPECT_TRUE(gif.FrameUseTransparentColor(1));
  EXPECT_FALSE(gif.FrameInterlaced(1)) << "below five lines the bit would scramble them elsewhere";
  EXPECT_EQ(gif.CommentText(), "note");

  // The fourth entry of the file's table is black, but it is none of the palette's.
  ASSERT_TRUE(clsGIF::SaveGIFFrom_BPP8_DIB(path, dib, pal, 2, false, true, kBlack));
  ASSERT_EQ(gif.LoadFromGIFFile(path), kGifOk);
  EXPECT_FALSE(gif.FrameUseTransparentColor(1));
  EXPECT_FALSE(clsGIF::SaveGIFFrom_BPP8_DIB(path, plainDib(2, 2, kWhite, 24), pal, 8));
  EXPECT_FALSE(clsGIF::SaveGIFFrom_BPP8_DIB(path, dib, pal, 9));
}

TEST(GifSave, AFailedSaveLeavesTheOldFile) {
  const TempFolder folder;
  const auto path = folder / "a.gif";
  const Bytes old = {'o', 'l', 'd'};
  ASSERT_TRUE(replaceFile(path, old));
  clsGIF gif;
  ASSERT_TRUE(gif.FrameInsertImage(noise(200, 200, 256), 1, {}));
  {
    const FileSizeLimit disk(1000);
    EXPECT_FALSE(gif.Save(path));
    EXPECT_FALSE(clsGIF::SaveGIFFrom_BPP8_DIB(path, noise(200, 200, 256), clsPal(), 8));
  }
  EXPECT_FALSE(gif.Save(folder / "none" / "a.gif"));
  EXPECT_FALSE(gif.Save(folder.path()));
  EXPECT_EQ(readWholeFile(path, 100), old);
  EXPECT_EQ(folder.names(), std::vector<std::string>{"a.gif"});
  EXPECT_TRUE(gif.Save(path));
}

}  // namespace
}  // namespace ruvo
