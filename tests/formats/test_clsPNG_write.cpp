#include <random>

#include "base/byte_reader.h"
#include "base/file_io.h"
#include "formats/clsPNG.h"
#include "formats/png_bytes.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;

class PngWrite : public testing::Test {
 protected:
  std::filesystem::path path() const { return folder_ / "a.png"; }
  Bytes file() const { return readWholeFile(path(), 1 << 28).value_or(Bytes{}); }
  // The data of all chunks of a name.
  std::vector<Bytes> chunksOf(std::string_view wanted) const {
    const Bytes bytes = file();
    ByteReader reader(bytes);
    reader.skip(8);
    std::vector<Bytes> all;
    while (reader.ok() && reader.left() > 0) {
      const std::uint32_t length = reader.u32be();
      const auto name = reader.take(4), data = reader.take(length);
      reader.skip(4);
      if (std::ranges::equal(name, wanted)) all.emplace_back(data.begin(), data.end());
    }
    EXPECT_TRUE(reader.ok());
    return all;
  }
  // The data of the first one; a single 99 when there is none.
  Bytes dataOf(std::string_view name) const {
    const auto all = chunksOf(name);
    return all.empty() ? Bytes{99} : all[0];
  }
  raster::Surface byLibpng() const { return readByLibpng(file()); }

  TempFolder folder_;
  clsPNG png_;
};

Pixel32 noise(int x, int y) {
  const auto n = static_cast<unsigned>(x * 7919 + y * 104729) * 2654435761u;
  return {static_cast<std::uint8_t>(n >> 24), static_cast<std::uint8_t>(n >> 16), static_cast<std::uint8_t>(n >> 8),
          static_cast<std::uint8_t>(n)};
}
Pixel32 opaqueNoise(int x, int y) {
  Pixel32 p = noise(x, y);
  p.alpha = 255;
  return p;
}

TEST_F(PngWrite, TrueColourAndAlphaComeBackFromLibpngAndFromOurReader) {
  for (const auto& [width, height] : {std::pair{1, 1}, {5, 5}, {4, 9}, {37, 22}}) {
    for (const int interlacing : {0, 1}) {
      const clsDIB dib = dibOf(width, height, noise);
      png_.Interlacing = interlacing;
      ASSERT_EQ(png_.SavePNG(path(), dib, 24), kPngSaved);
      EXPECT_EQ(dataOf("IHDR")[12], interlacing == 1 && width >= 5 ? 1 : 0);
      raster::Surface back = byLibpng();
      EXPECT_EQ(farthest(&back, opaqueNoise), 0);
      ASSERT_EQ(png_.SavePNG(path(), dib, 32), kPngSaved);
      back = byLibpng();
      EXPECT_EQ(farthest(&back, opaqueNoise), 0) << "byte 3 is no alpha";
      ASSERT_EQ(png_.SavePNG(path(), dib.surface(), width, height, 32, true), kPngSaved);
      back = byLibpng();
      EXPECT_EQ(farthest(&back, noise), 0);
      clsPNG reader;
      reader.AlphaSet = true;
      ASSERT_EQ(reader.openBytes(file()), kPngOpened);
      EXPECT_EQ(farthest(&reader.dib().surface(), noise), 0);
    }
  }
}

TEST_F(PngWrite, AlphaBytesCountWhenTheyFitAndTheTransparentColourIsClear) {
  const clsDIB dib = dibOf(Rows{"#.", "##"});
  png_.SetAlphaBytes({10, 20, 30, 40});
  png_.HasTranspColor = true;
  png_.TranspColor = kWhite;
  png_.AlphaSet = true;  // so that 24 means 32
  ASSERT_EQ(png_.SavePNG(path(), dib, 24), kPngSaved);
  const raster::Surface back = byLibpng();
  EXPECT_EQ(pixelAt(back, 0, 0).alpha, 10);
  EXPECT_EQ(pixelAt(back, 1, 0).alpha, 0);
  EXPECT_EQ(pixelAt(back, 1, 1).alpha, 40);
  EXPECT_EQ(dataOf("tRNS"), Bytes{99}) << "not beside an alpha channel";
  png_.SetAlphaBytes({10, 20, 30});
  ASSERT_EQ(png_.SavePNG(path(), dib, 32), kPngSaved);
  EXPECT_EQ(pixelAt(byLibpng(), 0, 0).alpha, 255);
}

TEST_F(PngWrite, TransparentAndBackgroundColours) {
  png_.HasTranspColor = png_.HasBKGDChunk = true;
  png_.TranspColor = rgb(1, 2, 3);
  png_.BKGDColorToUse = rgb(250, 0, 9);
  ASSERT_EQ(png_.SavePNG(path(), dibOf(Rows{"#."}), 24), kPngSaved);
  EXPECT_EQ(dataOf("tRNS"), (Bytes{0, 1, 0, 2, 0, 3}));
  EXPECT_EQ(dataOf("bKGD"), (Bytes{0, 250, 0, 0, 0, 9}));

  clsDIB table = plainDib(3, 1, kBlack, 8);
  for (int i = 0; i < 256; ++i) table.surface().table()[i] = raster::TableEntry::of(rgb(i, 0, 0));
  for (int x = 0; x < 3; ++x) table.surface().pictureRow(0)[x] = static_cast<std::uint8_t>(200 - x);
  png_.TranspColor = 2;
  ASSERT_EQ(png_.SavePNG(path(), table, 8), kPngSaved);
  EXPECT_EQ(dataOf("PLTE").size(), 768u);
  EXPECT_EQ(dataOf("tRNS"), (Bytes{255, 255, 0}));
  EXPECT_EQ(dataOf("bKGD"), Bytes{250}) << "the nearest entry";
  EXPECT_EQ(pixelAt(byLibpng(), 1, 0), Pixel32::opaque(rgb(199, 0, 0)));
  png_.TranspPixel = Point{2, 0};
  ASSERT_EQ(png_.SavePNG(path(), table, 8), kPngSaved);
  EXPECT_EQ(pixelAt(byLibpng(), 2, 0).alpha, 0);
  EXPECT_EQ(dataOf("tRNS").size(), 199u);
  png_.TranspPixel = Point{3, 0};
  ASSERT_EQ(png_.SavePNG(path(), table, 8), kPngSaved);
  EXPECT_EQ(dataOf("tRNS"), Bytes{99});
}

TEST_F(PngWrite, ReductionKeepsFewColoursExactlyAndLeavesTheSourceAlone) {
  const auto few = [](int x, int y) { return Pixel32::plain(rgb(x * 7, y * 9, 30)); };
  const clsDIB dib = dibOf(15, 16, few);
  png_.Interlacing = 1;
  ASSERT_EQ(png_.SavePNG_008(path(), dib.surface(), 15, 16, 8), kPngSaved);
  const raster::Surface back = byLibpng();
  EXPECT_EQ(farthest(&back, [&](int x, int y) { return Pixel32::opaque(few(x, y).colour()); }), 0);
  EXPECT_EQ(png_.SavePNG_008(path(), dib.surface(), 15, 16, 24), kPngNot8Bit);

  const clsDIB many = dibOf(60, 50, noise);
  ASSERT_EQ(png_.SavePNG(path(), many, 8), kPngSaved);
  EXPECT_EQ(farthest(&many.surface(), noise), 0);
  EXPECT_LE(dataOf("PLTE").size(), 768u);
  EXPECT_EQ(byLibpng().width(), 60);
}

TEST_F(PngWrite, TheStreamIsSplitAtTheSetSizeAlone) {
  const auto sizesFor = [&](std::size_t split) {
    png_.IDATchunkSplitSize = static_cast<int>(split);
    EXPECT_EQ(png_.SavePNG(path(), dibOf(30, 30, noise), 24), kPngSaved);
    EXPECT_EQ(byLibpng().width(), 30);
    std::vector<std::size_t> sizes;
    for (const Bytes& data : chunksOf("IDAT")) sizes.push_back(data.size());
    return sizes;
  };
  const std::size_t whole = sizesFor(static_cast<std::size_t>(png_.IDATchunkSplitSize)).at(0);
  EXPECT_EQ(sizesFor(whole), std::vector{whole});
  EXPECT_EQ(sizesFor(whole - 1), (std::vector<std::size_t>{whole - 1, 1}));
  EXPECT_EQ(sizesFor(1000), (std::vector<std::size_t>{1000, 1000, whole - 2000}));
}

TEST_F(PngWrite, TheCommentIsTheWholeTextChunk) {
  png_.CommentText = "Title K\u00F6nig \u4E2D";
  ASSERT_EQ(png_.SavePNG(path(), dibOf(Rows{"#."}), 24), kPngSaved);
  const Bytes text = dataOf("tEXt");
  EXPECT_EQ(std::string(text.begin(), text.end()), "Title K\xF6nig ?");
}

TEST_F(PngWrite, RefusalsHaveTheirCodes) {
  const clsDIB dib = dibOf(Rows{"#."});
  EXPECT_EQ(png_.SavePNG(path(), dib, 16), kPngNotThisDepth);
  EXPECT_EQ(png_.SavePNG(path(), clsDIB(), 24), kPngNotWritten);
  ASSERT_EQ(png_.SavePNG(path(), dib, 24), kPngSaved);
  std::filesystem::permissions(path(), std::filesystem::perms::owner_read);
  EXPECT_EQ(png_.SavePNG(path(), dib, 32), kPngReadOnly);
}

}  // namespace
}  // namespace ruvo
