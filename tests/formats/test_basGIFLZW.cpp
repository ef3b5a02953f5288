// The LZW coders of GIF images against a straight decoder, and on streams written by hand.
#include <gtest/gtest.h>

#include <random>

#include "formats/basGIFLZWDec.h"
#include "formats/basGIFLZWEnc.h"
#include "formats/gif_lzw_straight.h"

namespace ruvo {
namespace {

using namespace test;
using basGIFLZWDec::Decode;

constexpr int kUntouched = 9;

Bytes encoded(const clsDIB& dib, int initBits, bool interlaced = false) {
  ByteWriter out;
  out.u8(77);  // stands already
  const std::int64_t written = basGIFLZWEnc::Encode(out, dib, initBits, interlaced);
  EXPECT_EQ(written, static_cast<std::int64_t>(out.size()) - 1);
  EXPECT_EQ(out.bytes()[0], 77);
  return {out.bytes().begin() + 1, out.bytes().end()};
}

// A picture of untouched pixels after decoding.
std::vector<Bytes> decoded(int width, int height, int minCodeSize, const Bytes& data, bool interlaced = false) {
  clsDIB dib = indexedDib(width, height, true, [](int, int) { return kUntouched; });
  Decode(dib, interlaced, minCodeSize, data);
  return linesOf(dib);
}

// Codes of three bits, of 2-bit pixels, before the table has grown.
Bytes threeBits(std::initializer_list<unsigned> codes) {
  BitWriter bits;
  for (const unsigned code : codes) bits.put(code, 3);
  return bits.bytes;
}

// Pictures of every kind: noise (the table fills and is cleared), dither, flat parts, runs that the table holds in long
// strings.
clsDIB somePicture(std::mt19937& random, int bits) {
  const int width = 1 + static_cast<int>(random() % 150);
  const int height = 1 + static_cast<int>(random() % (random() % 3 ? 120 : 6));  // few lines are not interlaced
  const int most = (1 << bits) - 1, kind = static_cast<int>(random() % 5);
  return indexedDib(width, height, random() % 2, [&](int x, int y) -> unsigned {
    switch (kind) {
      case 0:
        return random() & most;
      case 1:
        return (static_cast<unsigned>(x + y) * most / 270 + random() % 3) & most;
      case 2:
        return random() % 40 == 0 ? random() & most : 0;
      case 3:
        return (x / 7 ^ y / 5) & most;
      default:
        return random() % 3 ? 0 : random() % 16 * 16 & most;
    }
  });
}

TEST(GifLzw, WhatIsEncodedReadsBackByBothDecoders) {
  std::mt19937 random(7);
  for (int round = 0; round < 160; ++round) {
    const int bits = 2 + round % 7;
    const clsDIB dib = somePicture(random, bits);
    const bool interlaced = round % 2;
    const Bytes blocks = encoded(dib, bits + 1, interlaced);
    ASSERT_LE(blocks.size(), static_cast<std::size_t>(dib.DIBWidth() * dib.DIBHeight() * (bits + 1)) / 4 + 20);
    for (const auto decode : {Decode, straightDecode}) {
      clsDIB back = indexedDib(dib.DIBWidth(), dib.DIBHeight(), random() % 2, [](int, int) { return kUntouched; });
      decode(back, interlaced, bits, joinBlocks(blocks));
      ASSERT_EQ(linesOf(back), linesOf(dib)) << round;
    }
  }
}

TEST(GifLzw, DecodesDamagedStreamsAsTheStraightDecoder) {
  std::mt19937 random(3);
  for (int round = 0; round < 3000; ++round) {
    const int bits = 1 + round % 11, width = 1 + static_cast<int>(random() % 40);
    const int height = 1 + static_cast<int>(random() % 40);
    Bytes data;
    if (round % 3 == 0) {
      data.resize(random() % 900);
      for (auto& byte : data) byte = static_cast<std::uint8_t>(random());
    } else {
      data = joinBlocks(encoded(somePicture(random, 2 + round % 7), 3 + round % 7));
      if (round % 3 == 1) data[random() % data.size()] ^= static_cast<std::uint8_t>(1U << random() % 8);
      if (random() % 4 == 0) data.resize(random() % data.size());
    }
    const bool interlaced = random() % 2;
    clsDIB wanted = indexedDib(width, height, true, [](int, int) { return kUntouched; });
    straightDecode(wanted, interlaced, bits, data);
    ASSERT_EQ(decoded(width, height, bits, data, interlaced), linesOf(wanted)) << round;
  }
}

TEST(GifLzw, TheFirstCodeIsDroppedAndClearCodesMayRepeat) {
  EXPECT_EQ(decoded(2, 1, 2, threeBits({4, 1, 2, 5})), (std::vector<Bytes>{{1, 2}}));
  for (const unsigned first : {0U, 3U, 5U, 7U}) {
    EXPECT_EQ(decoded(2, 1, 2, threeBits({first, 1, 2, 5})), (std::vector<Bytes>{{1, 2}})) << first;
  }
  EXPECT_EQ(decoded(2, 1, 2, threeBits({4, 4, 4, 1, 4, 4, 2, 5})), (std::vector<Bytes>{{1, 2}}));
  EXPECT_EQ(decoded(2, 1, 2, threeBits({4, 5, 1, 2})), (std::vector<Bytes>{{9, 9}}));
}

TEST(GifLzw, DamageLeavesWhatWasDecoded) {
  // The end of the data without an end code, in the middle of a code.
  EXPECT_EQ(decoded(3, 1, 2, {0b10'001'100}), (std::vector<Bytes>{{1, 9, 9}}));
  EXPECT_EQ(decoded(3, 1, 2, {}), (std::vector<Bytes>{{9, 9, 9}}));
  // A code that is not known yet repeats the last string, or a zero when there is none.
  EXPECT_EQ(decoded(4, 1, 2, threeBits({4, 1, 7, 2, 5})), (std::vector<Bytes>{{1, 0, 2, 9}}));
  // A first pixel too large for the table is cut to a byte.
  BitWriter cut;
  for (const unsigned code : {256U, 300U, 257U}) cut.put(code, 9);
  EXPECT_EQ(decoded(2, 1, 8, cut.bytes), (std::vector<Bytes>{{300 - 256, 9}}));
  // Surplus pixels go on at the top; with passes they are dropped.
  EXPECT_EQ(decoded(1, 2, 2, threeBits({4, 1, 2, 4, 3, 5})), (std::vector<Bytes>{{3}, {2}}));
  EXPECT_EQ(decoded(1, 5, 2, threeBits({4, 1, 1, 4, 1, 1, 4, 2, 3, 5}), true),
            (std::vector<Bytes>{{1}, {1}, {1}, {2}, {1}}));
}

// A table that nobody clears goes on with the strings it has (deferred clear codes, as old writers send them).
TEST(GifLzw, AFullTableThatIsNotClearedDecodesOn) {
  BitWriter bits;
  bits.put(4, 3);
  int size = 3;
  Bytes pixels;
  for (int i = 0, free = 5; i < 60000; ++i) {
    const auto pixel = static_cast<std::uint8_t>(std::int64_t{i} * i / 7 & 3);
    pixels.push_back(pixel);
    bits.put(pixel, size);
    if (free < 4095 && ++free == 1 << size && size < 12) ++size;
  }
  EXPECT_EQ(decoded(60000, 1, 2, bits.bytes)[0], pixels);
  // The longest string: zeros, each code one longer than the last.
  BitWriter zeros;
  zeros.put(4, 3);
  zeros.put(0, 3);
  size = 3;
  int total = 1;
  for (unsigned code = 6; code < 4096; ++code) {
    zeros.put(code, size);
    total += static_cast<int>(code) - 4;
    if (code + 1 == 1U << size && size < 12) ++size;
  }
  zeros.put(4095, 12);
  total += 4091;
  const Bytes line = decoded(total / 1000 + 1, 1000, 2, zeros.bytes).back();
  EXPECT_EQ(decoded(total / 1000, 1000, 2, zeros.bytes).back(), Bytes(static_cast<std::size_t>(total / 1000), 0));
  EXPECT_EQ(line.back(), kUntouched);
}

// Streams of single pixels between clear codes, as writers without a table send them.
TEST(GifLzw, AnyNumberOfPixelsMayStandBetweenClearCodes) {
  BitWriter bits;
  Bytes pixels;
  for (int i = 0; i < 100000; ++i) {
    pixels.push_back(static_cast<std::uint8_t>(i % 3));
    bits.put(4, 3);
    bits.put(pixels.back(), 3);
  }
  EXPECT_EQ(decoded(100000, 1, 2, bits.bytes)[0], pixels);
  EXPECT_EQ(decoded(10, 1, 2, bits.bytes)[0], Bytes(pixels.begin() + 30, pixels.begin() + 40)) << "it starts over";
}

TEST(GifLzw, OtherDepthsAndCodeSizesAreLeftAlone) {
  const Bytes data = threeBits({4, 1, 2, 5});
  for (const int bpp : {1, 4, 24, 32}) {
    clsDIB dib = plainDib(2, 1, kWhite, bpp);
    const Bytes before(dib.surface().bytes().begin(), dib.surface().bytes().end());
    Decode(dib, false, 2, data);
    EXPECT_TRUE(std::ranges::equal(dib.surface().bytes(), before)) << bpp;
    EXPECT_TRUE(encoded(dib, 3).empty());
  }
  for (const int minCodeSize : {-1, 0, 12, 31, 255}) {
    EXPECT_EQ(decoded(2, 1, minCodeSize, data), (std::vector<Bytes>{{9, 9}}));
  }
  const clsDIB one = indexedDib(1, 1, false, [](int, int) { return 2; });
  EXPECT_EQ(encoded(one, 3), (Bytes{2, 0b01'010'100, 0b1}));
  clsDIB none;
  Decode(none, false, 2, data);
  EXPECT_TRUE(encoded(none, 3).empty());
}

}  // namespace
}  // namespace ruvo
