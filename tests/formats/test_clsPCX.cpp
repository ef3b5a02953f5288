#include "formats/clsPCX.h"

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

struct PcxFile {
  int bits = 8;
  int planes = 3;
  int width = 0;
  int height = 0;
  int lineBytes = 0;
  int encoding = 0;
  int version = 5;
  int manufacturer = 10;
  Bytes table16 = {};
  Bytes data = {};

  Bytes bytes() const {
    ByteWriter out;
    for (const int byte : {manufacturer, version, encoding, bits}) out.u8(static_cast<std::uint8_t>(byte));
    for (const int word : {7, 3, width + 6, height + 2, 72, 72}) out.u16(static_cast<std::uint16_t>(word));
    out.append(table16);
    out.zeros(65 - out.size());
    out.u8(static_cast<std::uint8_t>(planes));
    out.u16(static_cast<std::uint16_t>(lineBytes));
    out.zeros(128 - out.size());
    out.append(data);
    return out.take();
  }
};

test::Rows loadedRows(const PcxFile& file, const test::Ink& ink = test::blackAndWhite()) {
  clsPCX pcx;
  EXPECT_TRUE(pcx.loadBytes(file.bytes()));
  return rowsOf(pcx.dib(), ink);
}

Bytes written(const raster::Surface& surface, int width, int height, bool compressed) {
  const test::TempFolder folder;
  clsPCX pcx;
  pcx.Compressed = compressed;
  EXPECT_TRUE(pcx.SavePCXinFile(folder / "a.pcx", surface, width, height));
  return readWholeFile(folder / "a.pcx", 1 << 24).value();
}

TEST(PCX, EveryDepthIsRead) {
  const test::Ink ink = {{'.', kWhite}, {'#', kBlack}, {'r', rgb(255, 0, 0)}, {'t', rgb(1, 2, 3)}};
  EXPECT_PICTURE(
      loadedRows({.bits = 1, .planes = 1, .width = 9, .height = 2, .lineBytes = 2, .data = {0xA0, 0x80, 0x01, 0x00}}),
      {"."
       "#.#####.",
       "#######.#"});
  // Sixteen colours as four bit planes and as two pixels a byte.
  Bytes table(48);
  for (const auto& [at, colour] : {std::pair{5, rgb(255, 0, 0)}, {10, rgb(1, 2, 3)}}) {
    table[3 * at] = redOf(colour);
    table[3 * at + 1] = greenOf(colour);
    table[3 * at + 2] = blueOf(colour);
  }
  EXPECT_PICTURE(loadedRows({.bits = 1,
                             .planes = 4,
                             .width = 3,
                             .height = 1,
                             .lineBytes = 2,
                             .table16 = table,
                             .data = {0x80, 0, 0x40, 0, 0x80, 0, 0x40, 0}},
                            ink),
                 {"rt#"});
  EXPECT_PICTURE(
      loadedRows(
          {.bits = 4, .planes = 1, .width = 3, .height = 1, .lineBytes = 2, .table16 = table, .data = {0x5A, 0x0F}},
          ink),
      {"rt#"});
  // 256 colours behind the pixels; without their mark, greys.
  Bytes data = {1, 255, 0, 0};
  data.push_back(12);
  data.resize(data.size() + 768);
  data[4 + 1 + 3] = 255;
  data[4 + 1 + 3 * 255] = 1;
  data[4 + 2 + 3 * 255] = 2;
  data[4 + 3 + 3 * 255] = 3;
  PcxFile file{.bits = 8, .planes = 1, .width = 3, .height = 1, .lineBytes = 4, .data = data};
  EXPECT_PICTURE(loadedRows(file, ink), {"rt#"});
  file.data[4] = 11;
  EXPECT_PICTURE(loadedRows(file, ink), {"?.#"});
  EXPECT_PICTURE(loadedRows({.width = 2, .height = 1, .lineBytes = 2, .version = 0, .data = {255, 1, 0, 2, 0, 3}}, ink),
                 {"rt"});
}

TEST(PCX, RunsCrossRows) {
  clsPCX pcx;
  ASSERT_TRUE(pcx.loadBytes(PcxFile{
      .bits = 8,
      .planes = 1,
      .width = 3,
      .height = 3,
      .lineBytes = 4,
      .encoding = 1,
      .data = {0xC0, 9, 0xC1, 0xFF, 0xC6, 0xFF, 0, 0xC0 + 63,
               0}}.bytes()));
  EXPECT_PICTURE(rowsOf(pcx.dib()), {"...", "...", "###"});
  EXPECT_TRUE(pcx.Compressed && pcx.IsPCX());
  EXPECT_EQ(pcx.Bpp(), 8);
}

TEST(PCX, WhatIsRefusedStillTellsItsSize) {
  const PcxFile good{.width = 2, .height = 1, .lineBytes = 2, .data = {255, 1, 0, 2, 0, 3}};
  const auto load = [&](auto&& change) {
    PcxFile file = good;
    change(file);
    clsPCX pcx;
    EXPECT_FALSE(pcx.loadBytes(file.bytes()));
    EXPECT_TRUE(pcx.dib().empty());
    return std::tuple(pcx.IsPCX(), pcx.PCXWidth(), pcx.PCXHeight());
  };
  EXPECT_EQ(load([](PcxFile& f) { f.manufacturer = 11; }), std::tuple(false, 0, 0));
  EXPECT_EQ(load([](PcxFile& f) { f.encoding = 2; }), std::tuple(false, 0, 0));
  EXPECT_EQ(load([](PcxFile& f) { f.width = 32761; }), std::tuple(true, 32761, 1));
  EXPECT_EQ(load([](PcxFile& f) { f.width = f.height = 5001; }), std::tuple(true, 5001, 5001));
  EXPECT_EQ(load([](PcxFile& f) { f.width = 0; }), std::tuple(true, 0, 1));
  EXPECT_EQ(load([](PcxFile& f) { f.lineBytes = 1; }), std::tuple(true, 2, 1));
  EXPECT_EQ(load([](PcxFile& f) { f.planes = 2; }), std::tuple(true, 2, 1));
  EXPECT_EQ(load([](PcxFile& f) { f.data.pop_back(); }), std::tuple(true, 2, 1));
  EXPECT_EQ(load([](PcxFile& f) {
              f.encoding = 1;
              f.data = {0xC4, 0, 0xC4};
            }),
            std::tuple(true, 2, 1));
  clsPCX pcx;
  const Bytes whole = good.bytes();
  EXPECT_TRUE(pcx.loadBytes(whole));
  EXPECT_FALSE(pcx.loadBytes(std::span(whole).first(127)));
  EXPECT_FALSE(pcx.IsPCX());
  EXPECT_TRUE(pcx.dib().empty());
}

TEST(PCX, WritesTheHeaderAndRuns) {
  const auto file = [](int width, int height, std::initializer_list<int> reds, bool compressed = true) {
    const auto surface = test::surfaceOf(width, height, [&](int x, int y) {
      return Pixel32{0, 0, static_cast<std::uint8_t>(*(reds.begin() + x + y * width)), 77};
    });
    return written(surface, width, height, compressed);
  };
  const Bytes one = file(1, 1, {200}, false);
  Bytes header = {10, 5, 0, 8, 1, 0, 1, 0, 1, 0, 1, 0, 96, 0, 96, 0};
  header.resize(128);
  header[65] = 3;
  header[66] = 2;
  header.insert(header.end(), {200, 0, 0, 0, 0, 0});
  EXPECT_EQ(one, header);
  const auto runs = [&](const Bytes& bytes) { return Bytes(bytes.begin() + 128, bytes.end()); };
  EXPECT_EQ(file(1, 1, {200})[2], 1);
  EXPECT_EQ(runs(file(1, 1, {200})), (Bytes{193, 200, 0, 194, 0, 194, 0}));  // odd width: a row at a time
  EXPECT_EQ(runs(file(2, 1, {5, 5})), (Bytes{194, 5, 196, 0}));              // even width: rows join
  const auto white = test::surfaceOf({".."});
  EXPECT_EQ(runs(written(white, 2, 1, true)), (Bytes{0xC6, 0xFF}));
  const auto wide = test::surfaceOf(63, 1, [](int, int) { return Pixel32::plain(rgb(7, 0, 0)); });
  const Bytes split = runs(written(wide, 63, 1, true));
  EXPECT_EQ(Bytes(split.begin(), split.begin() + 4), (Bytes{254, 7, 7, 0}));
}

TEST(PCX, WhatIsWrittenReadsBack) {
  const auto pixel = [](int x, int y) {
    return Pixel32{static_cast<std::uint8_t>(x / 9 * 60), static_cast<std::uint8_t>(y * 31), 200, 0};
  };
  for (const auto& [width, height] : {std::pair{1, 1}, {64, 9}, {131, 20}}) {
    for (const bool compressed : {false, true}) {
      const auto surface = test::surfaceOf(width, height, pixel, raster::RowOrder::TopDown);
      clsPCX pcx;
      ASSERT_TRUE(pcx.loadBytes(written(surface, width, height, compressed)));
      EXPECT_EQ(test::farthest(&pcx.dib().surface(), pixel), 0);
      EXPECT_EQ(pcx.Compressed, compressed);
      raster::Surface target = test::surfaceOf({"..", ".."});
      pcx.DrawPCX(target, 1, 1);
      EXPECT_EQ(test::pixelAt(target, 1, 1), pixel(0, 0));
      EXPECT_EQ(test::pixelAt(target, 0, 1).colour(), kWhite);
    }
  }
  // A part of an indexed surface, and beyond its edge.
  clsDIB indexed = test::plainDib(3, 3, rgb(9, 8, 7), 1);
  *indexed.surface().pictureRow(1) = 0x40;
  clsPCX pcx;
  ASSERT_TRUE(pcx.loadBytes(written(indexed.surface(), 2, 4, true)));
  EXPECT_PICTURE(rowsOf(pcx.dib(), {{'#', kBlack}, {'x', rgb(9, 8, 7)}}), {"##", "#x", "##", "##"});
}

TEST(PCX, AFailedWriteLeavesTheOldFile) {
  const test::TempFolder folder;
  const auto surface = test::surfaceOf(50, 50, [](int x, int y) { return Pixel32::plain(rgb(x, y, x ^ y)); });
  clsPCX pcx;
  replaceFile(folder / "a.pcx", Bytes{1, 2, 3});
  {
    const test::FileSizeLimit full(1000);
    EXPECT_FALSE(pcx.SavePCXinFile(folder / "a.pcx", surface, 50, 50));
  }
  EXPECT_FALSE(pcx.SavePCXinFile(folder / "none" / "a.pcx", surface, 50, 50));
  EXPECT_FALSE(pcx.SavePCXinFile(folder / "a.pcx", surface, 0, 50));
  EXPECT_FALSE(pcx.SavePCXinFile(folder / "a.pcx", surface, 5001, 5001));
  EXPECT_FALSE(pcx.SavePCXinFile(folder / "a.pcx", raster::Surface(), 1, 1));
  EXPECT_EQ(readWholeFile(folder / "a.pcx", 10), (Bytes{1, 2, 3}));
  EXPECT_EQ(folder.names().size(), 1u);
  EXPECT_FALSE(pcx.LoadPCX(folder / "none.pcx"));
  EXPECT_TRUE(pcx.SavePCXinFile(folder / "a.pcx", surface, 50, 50) && pcx.LoadPCX(folder / "a.pcx"));
}

}  // namespace
}  // namespace ruvo
