#include <array>

#include "base/byte_reader.h"
#include "base/file_io.h"
#include "image/clsDIB.h"
#include "image/clsPal.h"
#include "image/clsPalDither.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using test::dibOf;
using test::rowsOf;

std::vector<std::uint8_t> bytesOf(const std::filesystem::path& path) {
  return readWholeFile(path, 1 << 20).value();
}

TEST(ClsDibFile, WritesTheHeadersFieldByField) {
  const test::TempFolder folder;
  const auto path = folder / "a.bmp";
  const test::Ink ink = {{'r', rgb(255, 1, 2)}, {'.', kWhite}};
  clsDIB dib = dibOf({"r..", "..."}, ink);
  ASSERT_TRUE(dib.Save_DIB_To_File(path, dib));
  const auto bytes = bytesOf(path);
  ASSERT_EQ(bytes.size(), 54u + 24u);
  ByteReader in(bytes);
  EXPECT_EQ(in.u16(), 0x4D42);
  EXPECT_EQ(in.u32(), 24u + 40u);  // 14 below the length
  EXPECT_EQ(in.u32(), 0u);
  EXPECT_EQ(in.u32(), 54u);
  EXPECT_EQ(in.u32(), 40u);
  EXPECT_EQ(in.i32(), 3);
  EXPECT_EQ(in.i32(), 2);
  EXPECT_EQ(in.u16(), 1);
  EXPECT_EQ(in.u16(), 24);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(in.u32(), 0u);
  in.skip(12);  // the bottom line
  EXPECT_THAT(in.take(12), testing::ElementsAre(2, 1, 255, 255, 255, 255, 255, 255, 255, 0, 0, 0));
}

TEST(ClsDibFile, AlphaDecidesBetween24And32Bits) {
  const test::TempFolder folder;
  const auto path = folder / "a.bmp";
  clsDIB dib = dibOf({"#.", ".."});
  dib.surface().view32().at(1, 1).alpha = 9;
  clsDIB back;
  ASSERT_TRUE(dib.Save_DIB_To_File(path, dib));
  ASSERT_TRUE(back.CreateDIBFromFile(path));
  EXPECT_EQ(back.DIBbpp(), 24);
  EXPECT_FALSE(back.DIBhasAlpha());

  dib.setDIBhasAlpha(true);
  ASSERT_TRUE(dib.Save_DIB_To_File(path, dib));
  ASSERT_TRUE(back.CreateDIBFromFile(path, true));  // with alpha it is not turned
  EXPECT_EQ(back.DIBbpp(), 32);
  EXPECT_TRUE(back.DIBhasAlpha());
  EXPECT_EQ(back.surface().view32().at(1, 1), (Pixel32{255, 255, 255, 9}));
  EXPECT_PICTURE(rowsOf(back), ({"#.", ".."}));
}

TEST(ClsDibFile, EveryDepthAndRowOrderReadsBackAsShown) {
  const test::TempFolder folder;
  const auto path = folder / "a.bmp";
  const clsDIB drawn = dibOf({"#....", ".#..#", "...##"});
  for (const int bpp : {1, 4, 8, 24, 32}) {
    for (const bool flag : {false, true}) {
      clsDIB dib;
      ASSERT_TRUE(dib.CreateBlankDIB(5, 3, bpp, kWhite, flag));
      clsDIB::PaintFromDIBtoDIB(drawn, dib);
      ASSERT_TRUE(dib.Save_DIB_To_File(path, dib));
      clsDIB read, shown;
      ASSERT_TRUE(read.CreateDIBFromFile(path));
      ASSERT_TRUE(shown.CreateBlankDIB(5, 3, 32, kWhite));
      clsDIB::PaintFromDIBtoDIB(read, shown);
      EXPECT_PICTURE(rowsOf(shown), ({"#....", ".#..#", "...##"})) << bpp << ' ' << flag;
      ASSERT_TRUE(read.CreateDIBFromFile(path, true));
      clsDIB::PaintFromDIBtoDIB(read, shown);
      EXPECT_PICTURE(rowsOf(shown), ({"...##", ".#..#", "#...."}));
    }
  }
}

TEST(ClsDibFile, PalettedFilesHoldTheRowsAndCountEveryByte) {
  const test::TempFolder folder;
  const auto path = folder / "a.bmp";
  for (const int bpp : {1, 4, 8}) {
    clsDIB dib = dibOf({"#....", ".#..#", "...##"});
    clsPal pal;
    clsPalDither dither;
    ASSERT_TRUE(dither.ExactRows(dib, pal, bpp));
    ASSERT_TRUE(clsDIB::Save_DIB_To_File_Paletted(path, dib, pal, dither, bpp));
    const auto bytes = bytesOf(path);
    EXPECT_EQ(ByteReader(std::span(bytes).subspan(2)).u32(), bytes.size());
    clsDIB read, shown;
    ASSERT_TRUE(read.CreateDIBFromFile(path));
    EXPECT_EQ(read.DIBbpp(), bpp);
    ASSERT_TRUE(shown.CreateBlankDIB(5, 3, 32, kBlack));
    clsDIB::PaintFromDIBtoDIB(read, shown);
    EXPECT_PICTURE(rowsOf(shown), ({"#....", ".#..#", "...##"}));
    // Rows of another picture are refused before the file is touched.
    EXPECT_FALSE(clsDIB::Save_DIB_To_File_Paletted(path, dibOf({"#"}), pal, dither, bpp));
    EXPECT_EQ(bytesOf(path), bytes);
  }
}

TEST(ClsDibFile, AFailedWriteSaysWhyAndKeepsTheOldFile) {
  const test::TempFolder folder;
  const clsDIB dib = dibOf({"#"});
  std::string reason;
  EXPECT_FALSE(dib.Save_DIB_To_File(folder.path() / "none" / "a.bmp", dib, &reason));
  EXPECT_THAT(reason, testing::StartsWith("create: "));
  ASSERT_TRUE(replaceFile(folder / "a.bmp", std::array<std::uint8_t, 1>{7}));
  EXPECT_FALSE(dib.Save_DIB_To_File(folder / "a.bmp", clsDIB(), &reason));
  EXPECT_EQ(bytesOf(folder / "a.bmp"), std::vector<std::uint8_t>{7});
}

TEST(ClsDibFile, ATruncatedFileIsRefused) {
  const test::TempFolder folder;
  const auto path = folder / "a.bmp";
  const clsDIB dib = dibOf({"#.", ".#", "##"});
  ASSERT_TRUE(dib.Save_DIB_To_File(path, dib));
  std::filesystem::resize_file(path, 54 + 8 + 3);
  clsDIB read = dibOf({"."});
  EXPECT_FALSE(read.CreateDIBFromFile(path));
  EXPECT_TRUE(read.empty());
  EXPECT_FALSE(read.CreateDIBFromFile(folder / "missing.bmp"));
}

TEST(ClsDibFile, ThePictureLoaderGoesByTheExtension) {
  const test::TempFolder folder;
  const clsDIB dib = dibOf({"#.", "..", ".#"});
  ASSERT_TRUE(dib.Save_DIB_To_File(folder / "a.bmp", dib));
  clsDIB read;
  ASSERT_TRUE(read.CreateDIBFromFile2(folder / "a.bmp", true, 16));
  EXPECT_EQ(read.DIBbpp(), 32);
  EXPECT_PICTURE(rowsOf(read), ({"#.", "..", ".#"}));
  ASSERT_TRUE(read.CreateDIBFromFile2(folder / "a.bmp", false, 32));
  EXPECT_PICTURE(rowsOf(read), ({".#", "..", "#."}));
  ASSERT_TRUE(read.CreateDIBFromFile2(folder / "a.bmp", true, 24));
  EXPECT_EQ(read.DIBbpp(), 24);
  std::filesystem::copy_file(folder / "a.bmp", folder / "a.dib");
  std::filesystem::copy_file(folder / "a.bmp", folder / "A.JPEG");  // the content decides what it is
  EXPECT_TRUE(read.CreateDIBFromFile2(folder / "A.JPEG", true, 24));
  EXPECT_FALSE(read.CreateDIBFromFile2(folder / "a.dib", true, 24));
  EXPECT_TRUE(read.empty());
  EXPECT_FALSE(read.CreateDIBFromFile2(".bmp", true, 24));
  EXPECT_FALSE(read.CreateDIBFromFile2(folder / "none.bmp", true, 24));
}

TEST(ClsDibFile, EightBitsKeepFewColoursExactly) {
  const test::TempFolder folder;
  clsDIB greys, eight;
  ASSERT_TRUE(greys.CreateBlankDIB(256, 1, 32, kBlack));
  for (int x = 0; x < 256; ++x) greys.surface().view32().at(x, 0) = Pixel32::plain(rgb(x, x, x));
  clsPal pal;
  clsPalDither dither;
  ASSERT_TRUE(clsDIB::ConvertDIB_To_DIB8BPP(greys, eight, pal, dither, folder.path()));
  EXPECT_EQ(eight.DIBbpp(), 8);
  EXPECT_EQ(clsDIB::CountColorsDIB(eight), 256);
  EXPECT_EQ(pal.MaxCount(), 256);

  clsDIB many;
  ASSERT_TRUE(many.CreateBlankDIB(40, 40, 32, kBlack));
  for (int i = 0; i < 1600; ++i)
    many.surface().view32().at(i % 40, i / 40) = Pixel32::plain(rgb(i / 7, i % 251, i % 13 * 19));
  ASSERT_TRUE(clsDIB::ConvertDIB_To_DIB8BPP(many, eight, pal, dither, folder.path()));
  EXPECT_LE(clsDIB::CountColorsDIB(eight), 256);
  // The source shows what was written, pixel by pixel.
  clsDIB shown;
  ASSERT_TRUE(shown.CreateBlankDIB(40, 40, 32, kBlack));
  clsDIB::PaintFromDIBtoDIB(eight, shown);
  EXPECT_TRUE(std::ranges::equal(shown.surface().bytes(), many.surface().bytes()));
  EXPECT_EQ(folder.names(), std::vector<std::string>{});
}

}  // namespace
}  // namespace ruvo
