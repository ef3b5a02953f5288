#include "formats/clsTGA.h"

#include <gtest/gtest.h>

#include "base/byte_writer.h"
#include "base/file_io.h"
#include "support/file_size_limit.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using Bytes = std::vector<std::uint8_t>;
using test::rowsOf;

struct TgaFile {
  int type = 2;
  int bits = 24;
  int width = 0;
  int height = 0;
  int left = 0;
  int bottom = 0;
  Bytes id = {};
  int mapType = 0;
  int mapFirst = 0;
  int mapBits = 0;
  int mapEntries = 0;
  Bytes map = {};
  Bytes data = {};
  int descriptor = 0;

  Bytes bytes() const {
    ByteWriter out;
    out.u8(static_cast<std::uint8_t>(id.size()));
    out.u8(static_cast<std::uint8_t>(mapType));
    out.u8(static_cast<std::uint8_t>(type));
    out.u16(static_cast<std::uint16_t>(mapFirst));
    out.u16(static_cast<std::uint16_t>(mapEntries));
    out.u8(static_cast<std::uint8_t>(mapBits));
    for (const int word : {left, bottom, width, height}) out.u16(static_cast<std::uint16_t>(word));
    out.u8(static_cast<std::uint8_t>(bits));
    out.u8(static_cast<std::uint8_t>(descriptor));
    out.append(id);
    out.append(map);
    out.append(data);
    return out.take();
  }
};

const test::Ink kInk = {{'.', kWhite},       {'#', kBlack},           {'r', rgb(255, 0, 0)},
                        {'t', rgb(1, 2, 3)}, {'f', rgb(248, 248, 0)}, {'g', rgb(7, 7, 7)}};

test::Rows loadedRows(const TgaFile& file) {
  clsTGA tga;
  EXPECT_TRUE(tga.loadBytes(file.bytes()));
  EXPECT_EQ(tga.Bpp(), file.bits);
  EXPECT_EQ(tga.Compressed, file.type > 8);
  return rowsOf(tga.dib(), kInk);
}

TEST(TGA, EveryDepthIsReadBottomLineFirst) {
  const Bytes pixels = {0, 0, 255, 3, 2, 1, 0, 0, 0, 255, 255, 255};
  EXPECT_PICTURE(loadedRows({.width = 2, .height = 2, .data = pixels}), {"#.", "rt"});
  EXPECT_PICTURE(loadedRows({.width = 2, .height = 2, .data = pixels, .descriptor = 0x30}), {"#.", "rt"});
  clsTGA tga;
  ASSERT_TRUE(tga.loadBytes(TgaFile{.bits = 32, .width = 1, .height = 1, .data = {3, 2, 1, 200}}.bytes()));
  EXPECT_EQ(test::pixelAt(tga.dib(), 0, 0), (Pixel32{3, 2, 1, 0}));
  EXPECT_FALSE(tga.dib().DIBhasAlpha());
  EXPECT_PICTURE(loadedRows({.bits = 16, .width = 2, .height = 1, .data = {0xE0, 0xFF, 0, 0x80}}), {"f#"});
  EXPECT_PICTURE(loadedRows({.type = 3, .bits = 8, .width = 3, .height = 1, .data = {7, 255, 0}}), {"g.#"});
}

TEST(TGA, TablesOfEveryKindAndTheirFirstEntry) {
  EXPECT_PICTURE(loadedRows({.type = 1,
                             .bits = 8,
                             .width = 3,
                             .height = 1,
                             .mapType = 1,
                             .mapFirst = 4,
                             .mapBits = 24,
                             .mapEntries = 2,
                             .map = {0, 0, 255, 3, 2, 1},
                             .data = {4, 5, 0}}),
                 {"rt#"});
  EXPECT_PICTURE(loadedRows({.type = 1,
                             .bits = 8,
                             .width = 2,
                             .height = 1,
                             .mapType = 1,
                             .mapBits = 32,
                             .mapEntries = 2,
                             .map = {3, 2, 1, 9, 0, 0, 255, 9},
                             .data = {1, 0}}),
                 {"rt"});
  EXPECT_PICTURE(loadedRows({.type = 1,
                             .bits = 8,
                             .width = 2,
                             .height = 1,
                             .mapType = 1,
                             .mapBits = 15,
                             .mapEntries = 1,
                             .map = {0xE0, 0x7F},
                             .data = {0, 1}}),
                 {"f#"});
  // Entries above 255 have no place; a mapped picture with no table is grey.
  EXPECT_PICTURE(loadedRows({.type = 1,
                             .bits = 8,
                             .width = 1,
                             .height = 1,
                             .mapType = 1,
                             .mapFirst = 255,
                             .mapBits = 24,
                             .mapEntries = 2,
                             .map = {3, 2, 1, 9, 9, 9},
                             .data = {255}}),
                 {"t"});
  EXPECT_PICTURE(loadedRows({.type = 1, .bits = 8, .width = 1, .height = 1, .data = {7}}), {"g"});
  // The id field and the table of a true-colour file are passed over.
  EXPECT_PICTURE(loadedRows({.width = 1,
                             .height = 1,
                             .id = {1, 2, 3},
                             .mapType = 1,
                             .mapBits = 16,
                             .mapEntries = 2,
                             .map = {9, 9, 9, 9},
                             .data = {3, 2, 1}}),
                 {"t"});
}

TEST(TGA, PacketsCrossLinesAndEndWithThePicture) {
  EXPECT_PICTURE(loadedRows({.type = 10,
                             .width = 2,
                             .height = 3,
                             .data = {0x82, 0, 0, 255, 0x01, 3, 2, 1, 0, 0, 0, 0xFF, 255, 255, 255}}),
                 {"#.", "rt", "rr"});
  EXPECT_PICTURE(loadedRows({.type = 11, .bits = 8, .width = 3, .height = 1, .data = {0x81, 7, 0x00, 255}}), {"gg."});
  EXPECT_PICTURE(loadedRows({.type = 9,
                             .bits = 8,
                             .width = 3,
                             .height = 1,
                             .mapType = 1,
                             .mapBits = 24,
                             .mapEntries = 1,
                             .map = {3, 2, 1},
                             .data = {0x82, 0}}),
                 {"ttt"});
}

TEST(TGA, TheOriginIsTakenOffTheSize) {
  EXPECT_PICTURE(loadedRows({.type = 3,
                             .bits = 8,
                             .width = 3,
                             .height = 3,
                             .left = 1,
                             .bottom = 1,
                             .data = {0, 7, 255, 7, 255, 0, 0, 0, 0}}),
                 {"g.", "#g"});
}

TEST(TGA, WhatIsRefusedStillTellsItsSize) {
  const TgaFile good{.width = 2, .height = 1, .data = {255, 1, 0, 2, 0, 3}};
  const auto load = [&](auto&& change) {
    TgaFile file = good;
    change(file);
    clsTGA tga;
    EXPECT_FALSE(tga.loadBytes(file.bytes()));
    EXPECT_TRUE(tga.dib().empty());
    return std::tuple(tga.IsTGA(), tga.TGAWidth(), tga.TGAHeight());
  };
  for (const int type : {0, 4, 8, 12, 18, 32, 255}) {
    EXPECT_EQ(load([&](TgaFile& f) { f.type = type; }), std::tuple(false, 0, 0)) << type;
  }
  EXPECT_EQ(load([](TgaFile& f) { f.bits = 15; }), std::tuple(false, 0, 0));
  EXPECT_EQ(load([](TgaFile& f) { f.bits = 8; }), std::tuple(true, 2, 1));
  EXPECT_EQ(load([](TgaFile& f) { f.type = 3; }), std::tuple(true, 2, 1));
  EXPECT_EQ(load([](TgaFile& f) { f.width = f.height = 65535; }), std::tuple(true, 65535, 65535));
  EXPECT_EQ(load([](TgaFile& f) { f.left = 2; }), std::tuple(true, 0, 1));
  EXPECT_EQ(load([](TgaFile& f) { f.bottom = 2; }), std::tuple(true, 2, -1));
  EXPECT_EQ(load([](TgaFile& f) { f.data.pop_back(); }), std::tuple(true, 2, 1));
  EXPECT_EQ(load([](TgaFile& f) {
              f.id = Bytes(1);
              f.data.clear();
            }),
            std::tuple(true, 2, 1));
  EXPECT_EQ(load([](TgaFile& f) {
              f.mapType = 1;
              f.mapBits = 24;
              f.mapEntries = 65535;
            }),
            std::tuple(true, 2, 1));
  EXPECT_EQ(load([](TgaFile& f) {
              f.type = 10;
              f.data = {0x80, 1, 2, 3, 0x00, 1, 2};
            }),
            std::tuple(true, 2, 1));
  EXPECT_EQ(load([](TgaFile& f) {
              f.type = 1;
              f.bits = 8;
              f.mapType = 1;
              f.mapBits = 40;
              f.mapEntries = 1;
            }),
            std::tuple(true, 2, 1));
  clsTGA tga;
  EXPECT_TRUE(tga.loadBytes(good.bytes()));
  EXPECT_FALSE(tga.loadBytes(Bytes(17)));
  EXPECT_FALSE(tga.IsTGA());
}

TEST(TGA, WritesTrueColourAndReadsItBack) {
  const test::TempFolder folder;
  const auto pixel = [](int x, int y) {
    return Pixel32{static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 200, 99};
  };
  clsTGA tga;
  tga.Compressed = true;  // makes no difference
  ASSERT_TRUE(tga.SaveTGAinFile(folder / "a.tga", test::surfaceOf(1, 2, pixel), 1, 2));
  Bytes file = {0, 0, 2};
  file.resize(12);
  file.insert(file.end(), {1, 0, 2, 0, 24, 0, 0, 1, 200, 0, 0, 200});
  EXPECT_EQ(readWholeFile(folder / "a.tga", 1000), file);
  for (const auto order : {raster::RowOrder::BottomUp, raster::RowOrder::TopDown}) {
    ASSERT_TRUE(tga.SaveTGAinFile(folder / "a.tga", test::surfaceOf(31, 17, pixel, order), 30, 17));
    ASSERT_TRUE(tga.LoadTGA(folder / "a.tga"));
    EXPECT_EQ(tga.dib().size(), (Size{30, 17}));
    EXPECT_EQ(test::farthest(&tga.dib().surface(),
                             [&](int x, int y) {
                               Pixel32 p = pixel(x, y);
                               p.alpha = 0;
                               return p;
                             }),
              0);
  }
  raster::Surface target = test::surfaceOf({".."});
  tga.DrawTGA(target, 1, 0);
  EXPECT_EQ(test::pixelAt(target, 1, 0).colour(), rgb(200, 0, 0));
  EXPECT_EQ(test::pixelAt(target, 0, 0).colour(), kWhite);
}

TEST(TGA, AFailedWriteLeavesTheOldFile) {
  const test::TempFolder folder;
  const auto surface = test::surfaceOf(50, 50, [](int x, int y) { return Pixel32::plain(rgb(x, y, x ^ y)); });
  const clsTGA tga;
  replaceFile(folder / "a.tga", Bytes{1, 2, 3});
  {
    const test::FileSizeLimit full(1000);
    EXPECT_FALSE(tga.SaveTGAinFile(folder / "a.tga", surface, 50, 50));
  }
  EXPECT_FALSE(tga.SaveTGAinFile(folder / "none" / "a.tga", surface, 50, 50));
  EXPECT_FALSE(tga.SaveTGAinFile(folder / "a.tga", surface, 50, 0));
  EXPECT_FALSE(tga.SaveTGAinFile(folder / "a.tga", raster::Surface(), 1, 1));
  EXPECT_EQ(readWholeFile(folder / "a.tga", 10), (Bytes{1, 2, 3}));
  EXPECT_EQ(folder.names().size(), 1u);
}

}  // namespace
}  // namespace ruvo
