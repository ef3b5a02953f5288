#include "image/basDIBsupp.h"

#include <gtest/gtest.h>

#include "support/pictures.h"

namespace ruvo {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(DIBsupp, PackedRowsWidenFromTheHighBitsAndLoseTheirPadding) {
  EXPECT_EQ(WidenToBytes(Bytes{0xA0, 0x80, 0x40, 0x00}, 9, 2, 1),
            (Bytes{1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(WidenToBytes(Bytes{0x1B, 0xC0}, 5, 1, 2), (Bytes{0, 1, 2, 3, 3}));
  EXPECT_EQ(WidenToBytes(Bytes{0xF1, 0x20, 0x34, 0x50}, 3, 2, 4), (Bytes{15, 1, 2, 3, 4, 5}));
  EXPECT_TRUE(WidenToBytes(Bytes{0xF1, 0x20, 0x34}, 3, 2, 4).empty());
  EXPECT_TRUE(WidenToBytes(Bytes(100), 3, 2, 8).empty());
  EXPECT_TRUE(WidenToBytes(Bytes(100), 32761, 1, 1).empty());
}

TEST(DIBsupp, RowsWithATableMakeAPictureThatDraws) {
  // Bottom line first: index 1 at the lower left, index 2 at the upper right.
  const Bytes bits = {1, 0, 0, 0, 0, 2, 0, 0};
  const Bytes table = {255, 255, 255, 0, 0, 0, 0, 0, 0, 0, 200, 0};
  const imaging::Picture picture = CreatePictureFromBits(bits, 2, 2, 8, table);
  ASSERT_TRUE(picture);
  raster::Surface target, small;
  ASSERT_TRUE(target.create(4, 3, 32) && small.create(4, 3, 32));
  DrawPictureTo(picture, target, 1, 0);
  DrawPictureTo(picture, small, 1, 0, 1, 1);
  const test::Ink ink = {{'.', kWhite}, {' ', kBlack}, {'r', rgb(200, 0, 0)}};
  EXPECT_PICTURE(test::rowsOf(target, ink), {" .r ", "  . ", "    "});
  EXPECT_PICTURE(test::rowsOf(small, ink), {" .  ", "    ", "    "});
  for (const int depth : {24, 32}) {
    EXPECT_EQ(CreatePictureFromBits(Bytes(16, 7), 2, 2, depth).bitmap->bits()[0], 7);
    EXPECT_FALSE(CreatePictureFromBits(Bytes(15, 7), 2, 2, depth));
  }
  EXPECT_FALSE(CreatePictureFromBits(bits, 2, 2, 16, table));
  EXPECT_FALSE(CreatePictureFromBits(bits, 0, 2, 8, table));
}

}  // namespace
}  // namespace ruvo
