#include <array>

#include "image/clsDIB.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

TEST(ClsDibCreate, BlankSurfacesOfEachDepth) {
  for (const int bpp : {1, 4, 8, 24, 32}) {
    clsDIB dib = plainDib(1, 1, rgb(10, 20, 30), bpp);
    EXPECT_EQ(dib.DIBbpp(), bpp);
    EXPECT_EQ(dib.BytesPerScanline(), 4);
    EXPECT_EQ(dib.DIBBackColor(), rgb(10, 20, 30));
    // Indexed surfaces start black; deeper ones take the colour with byte 3 zero.
    EXPECT_EQ(clsDIB::IsMultiColorDIB(dib), bpp <= 8 ? kBlack : rgb(10, 20, 30));
    EXPECT_TRUE(bpp > 8 || dib.surface().table()[1].colour() == rgb(10, 20, 30)) << bpp;
    EXPECT_TRUE(bpp != 32 || pixelAt(dib, 0, 0).alpha == 0);
    // Forced, colour takes 32 bits behind a description of the depth asked for.
    ASSERT_TRUE(dib.CreateBlankDIB(3, 2, bpp, kWhite, false, true));
    EXPECT_EQ(dib.DIBbpp(), bpp);
    EXPECT_EQ(dib.surface().depth(), bpp == 24 ? 32 : bpp);
  }
}

TEST(ClsDibCreate, AFailedCreationLeavesTheInstanceEmpty) {
  for (const auto& [width, height, bpp] :
       {std::array{0, 5, 32}, {5, -1, 32}, {5, 5, 16}, {5, 5, 0}, {1 << 20, 1 << 20, 32}}) {
    clsDIB dib = dibOf({"#"});
    EXPECT_FALSE(dib.CreateBlankDIB(width, height, bpp, kWhite));
    EXPECT_TRUE(dib.empty());
    EXPECT_EQ(dib.DIBWidth() + dib.DIBHeight() + dib.DIBbpp() + dib.BytesPerScanline(), 0);
  }
}

TEST(ClsDibCreate, TheBottomUpFlagMeansTopLineFirst) {
  clsDIB usual = plainDib(1, 2, kWhite), flagged = plainDib(1, 2, kWhite, 32, true);
  for (clsDIB* dib : {&usual, &flagged}) pixelAt(*dib, 0, 0) = {};
  EXPECT_EQ(clsDIB::GetTopPixelColor(usual, true), kBlack);
  EXPECT_EQ(clsDIB::GetTopPixelColor(usual, false), kWhite);
  EXPECT_EQ(clsDIB::GetTopPixelColor(flagged, false), kBlack);
}

TEST(ClsDibCreate, ClonesHoldTableBitsAndAlpha) {
  clsDIB indexed = plainDib(3, 2, rgb(1, 2, 3), 4);
  indexed.surface().memoryRow(1)[0] = 0x10;
  clsDIB copy;
  ASSERT_TRUE(clsDIB::CloneDIB(indexed, copy, kWhite, false));
  EXPECT_EQ(copy.DIBbpp(), 4);
  EXPECT_EQ(copy.surface().table()[1].colour(), rgb(1, 2, 3));
  EXPECT_EQ(copy.surface().memoryRow(1)[0], 0x10);

  clsDIB deep = dibOf({"#."});
  deep.setDIBhasAlpha(true);
  pixelAt(deep, 0, 0).alpha = 77;
  ASSERT_TRUE(clsDIB::CloneDIB(deep, copy, kWhite, false));
  EXPECT_TRUE(copy.DIBhasAlpha());
  EXPECT_EQ(pixelAt(copy, 0, 0).alpha, 77);
  EXPECT_FALSE(clsDIB::CloneDIB(clsDIB(), copy, kWhite, false));
  EXPECT_FALSE(copy.empty());
}

TEST(ClsDibCreate, PicturesGiveTheirOwnDepthOrThirtyTwo) {
  raster::Surface indexed;
  ASSERT_TRUE(indexed.create(2, 1, 8));
  indexed.table()[5] = raster::TableEntry::of(rgb(9, 8, 7));
  indexed.memoryRow(0)[1] = 5;
  const imaging::Picture picture = imaging::Picture::ofBitmap(std::move(indexed));
  clsDIB dib;
  ASSERT_TRUE(dib.CreateDIBFromPic(picture, false));
  EXPECT_EQ(dib.DIBbpp(), 8);
  EXPECT_EQ(clsDIB::PaletteIndex_In_DIB_XY(dib, 1, 0), 5);
  EXPECT_EQ(clsDIB::PaletteIndex_In_DIB_XY(dib, 2, 0), 0);
  ASSERT_TRUE(dib.CreateDIBFromPic(picture, true));
  EXPECT_EQ(dib.DIBbpp(), 32);
  EXPECT_EQ(pixelAt(dib, 1, 0).colour(), rgb(9, 8, 7));
  EXPECT_FALSE(dib.CreateDIBFromPic({}, true));
  imaging::Picture metafile;
  metafile.kind = imaging::Picture::Kind::Metafile;
  EXPECT_FALSE(dib.CreateDIBFromPic(metafile, true));
}

TEST(ClsDibCreate, IconArraysAreInPictureOrder) {
  clsDIB dib = plainDib(1, 2, kBlack);
  const std::array<Colour, 2> colours = {rgb(1, 2, 3), rgb(4, 5, 6)};
  const std::array<std::uint8_t, 2> mask = {0, 1}, alpha = {200, 100};
  clsDIB::Post_Icon_Arrays_To_DIB(dib, colours, mask, alpha);
  EXPECT_EQ(pixelAt(dib, 0, 0), (Pixel32{3, 2, 1, 200}));
  EXPECT_EQ(pixelAt(dib, 0, 1), (Pixel32{255, 255, 255, 255}));
}

TEST(ClsDibCreate, TablesAsBytesTakeTheSmallerSize) {
  clsDIB dib = plainDib(1, 1, kWhite, 4);
  dib.SetPaletteToDIB8BPP(std::array<std::uint8_t, 9>{1, 2, 3, 99, 4, 5, 6, 99, 7});
  EXPECT_EQ(dib.surface().table()[0], (raster::TableEntry{1, 2, 3, 0}));
  EXPECT_EQ(dib.surface().table()[1], (raster::TableEntry{4, 5, 6, 0}));
  EXPECT_EQ(dib.surface().table()[2], raster::TableEntry{});
  std::vector<std::uint8_t> all;
  dib.GetPaletteFromDIB8BPP(all);
  EXPECT_EQ(all.size(), 64u);
  std::array<std::uint8_t, 5> some{};
  dib.GetDIBPalette(some);
  EXPECT_EQ(some, (std::array<std::uint8_t, 5>{1, 2, 3, 0, 4}));
}

}  // namespace
}  // namespace ruvo
