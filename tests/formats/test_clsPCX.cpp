#include "formats/clsPCX.h"

#include <gtest/gtest.h>

#include "base/byte_writer.h"
#include "base/file_io.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Size3 = std::tuple<bool, int, int>;

const test::Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'r', rgb(255, 0, 0)}, {'t', rgb(1, 2, 3)}};
const Bytes kTwoPixels = {255, 1, 0, 2, 0, 3};

// A file whose table of 16 has red at 5 and (1, 2, 3) at 10.
Bytes pcx(int bits, int planes, int width, int height, int lineBytes, const Bytes& data, int encoding = 0,
          int maker = 10) {
  ByteWriter out;
  for (const int byte : {maker, 0, encoding, bits}) out.u8(static_cast<std::uint8_t>(byte));
  for (const int word : {7, 3, width + 6, height + 2, 72, 72}) out.u16(static_cast<std::uint16_t>(word));
  Bytes table(49);
  table[15] = 255;
  for (int i = 0; i < 3; ++i) table[30 + i] = static_cast<std::uint8_t>(i + 1);
  out.append(table);
  out.u8(static_cast<std::uint8_t>(planes));
  out.u16(static_cast<std::uint16_t>(lineBytes));
  out.zeros(128 - out.size());
  out.append(data);
  return out.take();
}

test::Rows loaded(const Bytes& file) {
  clsPCX pcx;
  EXPECT_TRUE(pcx.loadBytes(file) && pcx.IsPCX());
  return test::rowsOf(pcx.dib(), kInk);
}
Size3 refused(const Bytes& file) {
  clsPCX pcx;
  EXPECT_FALSE(pcx.loadBytes(file));
  EXPECT_TRUE(pcx.dib().empty());
  return {pcx.IsPCX(), pcx.PCXWidth(), pcx.PCXHeight()};
}

Bytes written(const raster::Surface& surface, int width, int height, bool compressed) {
  const test::TempFolder folder;
  clsPCX pcx;
  pcx.Compressed = compressed;
  EXPECT_TRUE(pcx.SavePCXinFile(folder / "a.pcx", surface, width, height));
  return readWholeFile(folder / "a.pcx", 1 << 24).value();
}
// The bytes behind the header of a compressed line of reds.
Bytes runsOf(const Bytes& reds) {
  const int width = static_cast<int>(reds.size());
  const Bytes file = written(test::surfaceOf(width, 1,
                                             [&](int x, int) {
                                               return Pixel32{0, 0, reds[x], 9};
                                             }),
                             width, 1, true);
  return {file.begin() + 128, file.end()};
}

TEST(PCX, EveryDepthIsRead) {
  EXPECT_PICTURE(loaded(pcx(1, 1, 9, 2, 2, {0xA0, 0x80, 0x01, 0x00})), {".#.#####.", "#######.#"});
  EXPECT_PICTURE(loaded(pcx(1, 4, 3, 1, 2, {0x80, 0, 0x40, 0, 0x80, 0, 0x40, 0})), {"rt#"});
  EXPECT_PICTURE(loaded(pcx(4, 1, 3, 1, 2, {0x5A, 0x0F})), {"rt#"});
  EXPECT_PICTURE(loaded(pcx(8, 3, 2, 1, 2, kTwoPixels)), {"rt"});
  // 256 colours behind the pixels; without their mark, greys.
  Bytes data = {1, 255, 0, 0, 12, 0, 0, 0, 255};
  data.resize(4 + 769);
  for (int i = 1; i <= 3; ++i) data[769 + i] = static_cast<std::uint8_t>(i);
  EXPECT_PICTURE(loaded(pcx(8, 1, 3, 1, 4, data)), {"rt#"});
  data[4] = 11;
  EXPECT_PICTURE(loaded(pcx(8, 1, 3, 1, 4, data)), {"?.#"});
  // Runs cross rows, and one may be empty.
  EXPECT_PICTURE(loaded(pcx(8, 1, 3, 3, 4, {0xC0, 9, 0xC1, 0xFF, 0xC6, 0xFF, 0, 0xFF, 0}, 1)), {"...", "...", "###"});
}

TEST(PCX, WhatIsRefusedStillTellsItsSize) {
  EXPECT_EQ(refused(pcx(8, 3, 2, 1, 2, kTwoPixels, 0, 11)), Size3(false, 0, 0));
  EXPECT_EQ(refused(pcx(8, 3, 2, 1, 2, kTwoPixels, 2)), Size3(false, 0, 0));
  EXPECT_EQ(refused(Bytes{10, 5, 1, 8}), Size3(false, 0, 0));
  EXPECT_EQ(refused(pcx(8, 3, 32761, 1, 32762, kTwoPixels)), Size3(true, 32761, 1));
  EXPECT_EQ(refused(pcx(8, 3, 5001, 5001, 5002, kTwoPixels)), Size3(true, 5001, 5001));
  EXPECT_EQ(refused(pcx(8, 3, 0, 1, 2, kTwoPixels)), Size3(true, 0, 1));
  EXPECT_EQ(refused(pcx(8, 3, 3, 1, 2, kTwoPixels)), Size3(true, 3, 1));  // lines too short for the width
  EXPECT_EQ(refused(pcx(8, 2, 2, 1, 2, kTwoPixels)), Size3(true, 2, 1));
  EXPECT_EQ(refused(pcx(8, 3, 2, 1, 2, {255, 1, 0, 2, 0})), Size3(true, 2, 1));
  EXPECT_EQ(refused(pcx(8, 3, 2, 1, 2, {0xC4, 0, 0xC4}, 1)), Size3(true, 2, 1));
}

TEST(PCX, WritesTheHeaderAndRuns) {
  Bytes file = {10, 5, 0, 8, 1, 0, 1, 0, 1, 0, 1, 0, 96, 0, 96, 0};
  file.resize(128);
  file[65] = 3;
  file[66] = 2;
  file.insert(file.end(), {200, 0, 0, 0, 0, 0});
  EXPECT_EQ(written(test::surfaceOf({"x"}, {{'x', rgb(200, 0, 0)}}), 1, 1, false), file);
  EXPECT_EQ(runsOf({200}), (Bytes{193, 200, 0, 194, 0, 194, 0}));  // odd width: a row at a time
  EXPECT_EQ(runsOf({5, 5}), (Bytes{194, 5, 196, 0}));              // even width: rows join
  EXPECT_EQ(runsOf(Bytes(63, 7)), (Bytes{254, 7, 7, 0, 254, 0, 194, 0, 254, 0, 194, 0}));
}

TEST(PCX, WhatIsWrittenReadsBack) {
  const auto pixel = [](int x, int y) {
    return Pixel32{static_cast<std::uint8_t>(x / 9 * 60), static_cast<std::uint8_t>(y * 31), 200, 0};
  };
  for (const auto& [width, height] : {std::pair{1, 1}, {64, 9}, {131, 20}}) {
    for (const bool compressed : {false, true}) {
      clsPCX pcx;
      const auto surface = test::surfaceOf(width, height, pixel, raster::RowOrder::TopDown);
      ASSERT_TRUE(pcx.loadBytes(written(surface, width, height, compressed)));
      EXPECT_EQ(test::farthest(&pcx.dib().surface(), pixel), 0);
      EXPECT_EQ(pcx.Compressed, compressed);
      raster::Surface target = test::surfaceOf({"..", ".."});
      pcx.DrawPCX(target, 1, 1);
      EXPECT_EQ(test::pixelAt(target, 1, 1), pixel(0, 0));
    }
  }
  // A part of an indexed surface, and beyond its edge.
  clsDIB indexed = test::plainDib(3, 3, kWhite, 1);
  *indexed.surface().pictureRow(1) = 0x40;
  EXPECT_PICTURE(loaded(written(indexed.surface(), 2, 4, true)), {"##", "#.", "##", "##"});
}

}  // namespace
}  // namespace ruvo
