#include "formats/clsTGA.h"

#include <gtest/gtest.h>

#include "base/byte_writer.h"
#include "base/file_io.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Size3 = std::tuple<bool, int, int>;

const test::Ink kInk = {{'.', kWhite},       {'#', kBlack},           {'r', rgb(255, 0, 0)},
                        {'t', rgb(1, 2, 3)}, {'f', rgb(248, 248, 0)}, {'g', rgb(7, 7, 7)}};
const Bytes kRedAndThird = {0, 0, 255, 3, 2, 1};

struct Map {
  int type = 0;
  int first = 0;
  int entries = 0;
  int bits = 0;
};

// `body`: the id field, the map and the pixels.
Bytes tga(int type, int bits, Size size, const Bytes& body, const Map& map = {}, Point origin = {}, int idBytes = 0) {
  ByteWriter out;
  for (const int byte : {idBytes, map.type, type}) out.u8(static_cast<std::uint8_t>(byte));
  for (const int word : {map.first, map.entries}) out.u16(static_cast<std::uint16_t>(word));
  out.u8(static_cast<std::uint8_t>(map.bits));
  for (const int word : {origin.x, origin.y, size.width, size.height}) out.u16(static_cast<std::uint16_t>(word));
  out.u8(static_cast<std::uint8_t>(bits));
  out.u8(0x30);  // says top line first
  out.append(body);
  return out.take();
}

test::Rows loaded(const Bytes& file) {
  clsTGA tga;
  EXPECT_TRUE(tga.loadBytes(file) && tga.IsTGA());
  EXPECT_EQ(tga.Compressed, file[2] > 8);
  return test::rowsOf(tga.dib(), kInk);
}
Size3 refused(const Bytes& file) {
  clsTGA tga;
  EXPECT_FALSE(tga.loadBytes(file));
  EXPECT_TRUE(tga.dib().empty());
  return {tga.IsTGA(), tga.TGAWidth(), tga.TGAHeight()};
}

TEST(TGA, EveryDepthIsReadBottomLineFirst) {
  EXPECT_PICTURE(loaded(tga(2, 24, {2, 2}, {0, 0, 255, 3, 2, 1, 0, 0, 0, 255, 255, 255})), {"#.", "rt"});
  EXPECT_PICTURE(loaded(tga(2, 16, {2, 1}, {0xE0, 0xFF, 0, 0x80})), {"f#"});
  EXPECT_PICTURE(loaded(tga(3, 8, {3, 1}, {7, 255, 0})), {"g.#"});
  clsTGA deep;
  ASSERT_TRUE(deep.loadBytes(tga(2, 32, {1, 1}, {3, 2, 1, 200})));
  EXPECT_EQ(test::pixelAt(deep.dib(), 0, 0), (Pixel32{3, 2, 1, 0}));
  EXPECT_FALSE(deep.dib().DIBhasAlpha());
}

TEST(TGA, TablesOfEveryKindAndTheirFirstEntry) {
  EXPECT_PICTURE(loaded(tga(1, 8, {3, 1}, {0, 0, 255, 3, 2, 1, 4, 5, 0}, {1, 4, 2, 24})), {"rt#"});
  EXPECT_PICTURE(loaded(tga(1, 8, {2, 1}, {3, 2, 1, 9, 0, 0, 255, 9, 1, 0}, {1, 0, 2, 32})), {"rt"});
  EXPECT_PICTURE(loaded(tga(1, 8, {2, 1}, {0xE0, 0x7F, 0, 1}, {1, 0, 1, 15})), {"f#"});
  // Entries above 255 have no place; a mapped picture with no table is grey.
  EXPECT_PICTURE(loaded(tga(1, 8, {1, 1}, {3, 2, 1, 9, 9, 9, 255}, {1, 255, 2, 24})), {"t"});
  EXPECT_PICTURE(loaded(tga(1, 8, {1, 1}, {7})), {"g"});
  // The id field and the table of a true-colour file are passed over.
  EXPECT_PICTURE(loaded(tga(2, 24, {1, 1}, {1, 2, 9, 9, 9, 9, 3, 2, 1}, {1, 0, 2, 16}, {}, 2)), {"t"});
}

TEST(TGA, PacketsCrossLinesAndEndWithThePicture) {
  EXPECT_PICTURE(loaded(tga(10, 24, {2, 3}, {0x82, 0, 0, 255, 0x01, 3, 2, 1, 0, 0, 0, 0xFF, 255, 255, 255})),
                 {"#.", "rt", "rr"});
  EXPECT_PICTURE(loaded(tga(11, 8, {3, 1}, {0x81, 7, 0x00, 255})), {"gg."});
  EXPECT_PICTURE(loaded(tga(9, 8, {3, 1}, {3, 2, 1, 0x82, 0}, {1, 0, 1, 24})), {"ttt"});
}

TEST(TGA, TheOriginIsTakenOffTheSize) {
  EXPECT_PICTURE(loaded(tga(3, 8, {3, 3}, {0, 7, 255, 7, 255, 0, 0, 0, 0}, {}, {1, 1})), {"g.", "#g"});
  EXPECT_EQ(refused(tga(2, 24, {2, 1}, kRedAndThird, {}, {2, 0})), Size3(true, 0, 1));
  EXPECT_EQ(refused(tga(2, 24, {2, 1}, kRedAndThird, {}, {0, 2})), Size3(true, 2, 65535));
  EXPECT_EQ(refused(tga(2, 24, {2, 1}, Bytes(50), {}, {65530, 0})), Size3(true, 8, 1));  // past the lines' end
}

TEST(TGA, WhatIsRefusedStillTellsItsSize) {
  for (const int type : {0, 4, 8, 12, 18, 32, 255}) {
    EXPECT_EQ(refused(tga(type, 24, {2, 1}, kRedAndThird)), Size3(false, 0, 0)) << type;
  }
  EXPECT_EQ(refused(tga(2, 15, {2, 1}, kRedAndThird)), Size3(false, 0, 0));
  EXPECT_EQ(refused(Bytes(17)), Size3(false, 0, 0));
  EXPECT_EQ(refused(tga(2, 24, {65535, 65535}, kRedAndThird)), Size3(true, 65535, 65535));
  EXPECT_EQ(refused(tga(2, 8, {2, 1}, kRedAndThird)), Size3(true, 2, 1));
  EXPECT_EQ(refused(tga(3, 24, {2, 1}, kRedAndThird)), Size3(true, 2, 1));
  EXPECT_EQ(refused(tga(2, 24, {2, 1}, {0, 0, 255, 3, 2})), Size3(true, 2, 1));
  EXPECT_EQ(refused(tga(2, 24, {2, 1}, kRedAndThird, {}, {}, 1)), Size3(true, 2, 1));
  EXPECT_EQ(refused(tga(2, 24, {2, 1}, kRedAndThird, {1, 0, 65535, 24})), Size3(true, 2, 1));
  EXPECT_EQ(refused(tga(10, 24, {2, 1}, {0x80, 1, 2, 3, 0x00, 1, 2})), Size3(true, 2, 1));
  EXPECT_EQ(refused(tga(1, 8, {2, 1}, kRedAndThird, {1, 0, 0, 40})), Size3(true, 2, 1));
}

TEST(TGA, WritesTrueColourAndReadsItBack) {
  const test::TempFolder folder;
  const auto pixel = [](int x, int y) {
    return Pixel32{static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 200, 0};
  };
  clsTGA tga;
  tga.Compressed = true;  // makes no difference
  ASSERT_TRUE(tga.SaveTGAinFile(folder / "a.tga", test::surfaceOf(1, 2, pixel), 1, 2));
  EXPECT_EQ(readWholeFile(folder / "a.tga", 1000),
            (Bytes{0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 24, 0, 0, 1, 200, 0, 0, 200}));
  for (const auto order : {raster::RowOrder::BottomUp, raster::RowOrder::TopDown}) {
    ASSERT_TRUE(tga.SaveTGAinFile(folder / "a.tga", test::surfaceOf(31, 17, pixel, order), 30, 17));
    ASSERT_TRUE(tga.LoadTGA(folder / "a.tga"));
    EXPECT_EQ(tga.dib().size(), (Size{30, 17}));
    EXPECT_EQ(test::farthest(&tga.dib().surface(), pixel), 0);
  }
  raster::Surface target = test::surfaceOf({".."});
  tga.DrawTGA(target, 1, 0);
  EXPECT_EQ(test::pixelAt(target, 1, 0), pixel(0, 0));
}

}  // namespace
}  // namespace ruvo
