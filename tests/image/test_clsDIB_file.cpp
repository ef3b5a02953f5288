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

using namespace test;

std::vector<std::uint8_t> bytesOf(const std::filesystem::path& path) {
  return readWholeFile(path, 1 << 20).value();
}

TEST(ClsDibFile, WritesTheHeadersFieldByField) {
  const TempFolder folder;
  const auto path = folder / "a.bmp";
  const Ink ink = {{'r', rgb(255, 1, 2)}, {'.', kWhite}};
  clsDIB dib = dibOf({"r..", "..."}, ink);
  ASSERT_TRUE(dib.Save_DIB_To_File(path, dib));
  // The size is 14 below the length; offset of the rows; header size, width, height, planes, depth; the bottom line first.
  std::vector<std::uint8_t> expected = {'B', 'M', 64, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0,  40,
                                        0,   0,   0,  3, 0, 0, 0, 2, 0, 0, 0,  1, 0, 24, 0};
  expected.resize(54);
  for (const int byte :
       {255, 255, 255, 255, 255, 255, 255, 255, 255, 0, 0, 0, 2, 1, 255, 255, 255, 255, 255, 255, 255, 0, 0, 0})
    expected.push_back(static_cast<std::uint8_t>(byte));
  EXPECT_EQ(bytesOf(path), expected);
}

TEST(ClsDibFile, AlphaDecidesBetween24And32Bits) {
  const TempFolder folder;
  const auto path = folder / "a.bmp";
  clsDIB dib = dibOf({"#.", ".."});
  pixelAt(dib, 1, 0).alpha = 9;
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
  EXPECT_EQ(pixelAt(back, 1, 0), (Pixel32{255, 255, 255, 9}));
  EXPECT_PICTURE(rowsOf(back), ({"#.", ".."}));
}

TEST(ClsDibFile, EveryDepthAndRowOrderReadsBackAsShown) {
  const TempFolder folder;
  const auto path = folder / "a.bmp";
  const clsDIB drawn = dibOf({"#....", ".#..#", "...##"});
  for (const int bpp : {1, 4, 8, 24, 32}) {
    for (const bool flag : {false, true}) {
      clsDIB dib = plainDib(5, 3, kWhite, bpp, flag);
      clsDIB::PaintFromDIBtoDIB(drawn, dib);
      ASSERT_TRUE(dib.Save_DIB_To_File(path, dib));
      clsDIB read;
      ASSERT_TRUE(read.CreateDIBFromFile(path));
      EXPECT_PICTURE(rowsOf(read), ({"#....", ".#..#", "...##"})) << bpp << ' ' << flag;
      ASSERT_TRUE(read.CreateDIBFromFile(path, true));
      EXPECT_PICTURE(rowsOf(read), ({"...##", ".#..#", "#...."}));
    }
  }
}

TEST(ClsDibFile, PalettedFilesHoldTheRowsAndCountEveryByte) {
  const TempFolder folder;
  const auto path = folder / "a.bmp";
  for (const int bpp : {1, 4, 8}) {
    clsDIB dib = dibOf({"#....", ".#..#", "...##"});
    clsPal pal;
    clsPalDither dither;
    ASSERT_TRUE(dither.ExactRows(dib, pal, bpp));
    ASSERT_TRUE(clsDIB::Save_DIB_To_File_Paletted(path, dib, pal, dither, bpp));
    const auto bytes = bytesOf(path);
    EXPECT_EQ(ByteReader(std::span(bytes).subspan(2)).u32(), bytes.size());
    clsDIB read;
    ASSERT_TRUE(read.CreateDIBFromFile(path));
    EXPECT_EQ(read.DIBbpp(), bpp);
    EXPECT_PICTURE(rowsOf(read), ({"#....", ".#..#", "...##"}));
    // Rows of another picture are refused before the file is touched.
    EXPECT_FALSE(clsDIB::Save_DIB_To_File_Paletted(path, dibOf({"#"}), pal, dither, bpp));
    EXPECT_EQ(bytesOf(path), bytes);
  }
}

TEST(ClsDibFile, FailuresSayWhyAndFilesCutShortAreNoPicture) {
  const TempFolder folder;
  const clsDIB dib = dibOf({"#.", ".#", "##"});
  std::string reason;
  EXPECT_FALSE(dib.Save_DIB_To_File(folder / "none" / "a.bmp", dib, &reason));
  EXPECT_THAT(reason, testing::StartsWith("create: "));
  EXPECT_FALSE(dib.Save_DIB_To_File(folder / "a.bmp", clsDIB(), &reason));
  ASSERT_TRUE(dib.Save_DIB_To_File(folder / "a.bmp", dib));
  std::filesystem::resize_file(folder / "a.bmp", 54 + 8 + 3);
  clsDIB read = dibOf({"."});
  EXPECT_FALSE(read.CreateDIBFromFile(folder / "a.bmp"));
  EXPECT_TRUE(read.empty());
}

TEST(ClsDibFile, ThePictureLoaderGoesByTheExtension) {
  const TempFolder folder;
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
  const TempFolder folder;
  clsDIB greys = dibOf(256, 1, [](int x, int) { return Pixel32::plain(rgb(x, x, x)); }), eight;
  clsPal pal;
  clsPalDither dither;
  ASSERT_TRUE(clsDIB::ConvertDIB_To_DIB8BPP(greys, eight, pal, dither, folder.path()));
  EXPECT_EQ(eight.DIBbpp(), 8);
  EXPECT_EQ(clsDIB::CountColorsDIB(eight), 256);
  EXPECT_EQ(pal.MaxCount(), 256);

  clsDIB many = dibOf(40, 40, [](int x, int y) {
    const int i = x + 40 * y;
    return Pixel32::plain(rgb(i / 7, i % 251, i % 13 * 19));
  });
  ASSERT_TRUE(clsDIB::ConvertDIB_To_DIB8BPP(many, eight, pal, dither, folder.path()));
  EXPECT_LE(clsDIB::CountColorsDIB(eight), 256);
  // The source shows what was written, pixel by pixel.
  clsDIB shown = plainDib(40, 40, kBlack);
  clsDIB::PaintFromDIBtoDIB(eight, shown);
  EXPECT_TRUE(std::ranges::equal(shown.surface().bytes(), many.surface().bytes()));
  EXPECT_EQ(folder.names(), std::vector<std::string>{});
}

}  // namespace
}  // namespace ruvo
