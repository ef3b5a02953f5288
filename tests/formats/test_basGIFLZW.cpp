// The LZW coders of GIF images against straight ones, against giflib, and on streams written by hand.
#include <gif_lib.h>
#include <gtest/gtest.h>

#include <random>

#include "formats/basGIFLZWDec.h"
#include "formats/basGIFLZWEnc.h"
#include "formats/gif_lzw_straight.h"

namespace ruvo {
namespace {

using basGIFLZWDec::Decode;
using test::BitString;
using test::Bytes;
using test::indexedDib;
using test::linesOf;

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
  BitString bits;
  for (const unsigned code : codes) bits.put(code, 3);
  return bits.bytes();
}

// The pixels of a stream by giflib, which reads a file with this one image.
Bytes byGiflib(int width, int height, int minCodeSize, const Bytes& blocks) {
  Bytes file = {'G', 'I', 'F', '8', '9', 'a'};
  const auto size = [&] {
    for (const int v : {width, height}) {
      file.push_back(static_cast<std::uint8_t>(v));
      file.push_back(static_cast<std::uint8_t>(v >> 8));
    }
  };
  size();
  file.insert(file.end(), {0xF7, 0, 0});
  file.resize(file.size() + 768);
  file.insert(file.end(), {0x2C, 0, 0, 0, 0});
  size();
  file.insert(file.end(), {0, static_cast<std::uint8_t>(minCodeSize)});
  file.insert(file.end(), blocks.begin(), blocks.end());
  file.insert(file.end(), {0, 0x3B});
  struct Source {
    const Bytes& bytes;
    std::size_t at = 0;
  } source{file};
  const auto read = [](GifFileType* gif, GifByteType* target, int count) {
    auto& from = *static_cast<Source*>(gif->UserData);
    const std::size_t part = std::min(static_cast<std::size_t>(count), from.bytes.size() - from.at);
    std::copy_n(from.bytes.begin() + static_cast<std::ptrdiff_t>(from.at), part, target);
    from.at += part;
    return static_cast<int>(part);
  };
  GifFileType* gif = DGifOpen(&source, read, nullptr);
  Bytes pixels;
  if (DGifSlurp(gif) == GIF_OK && gif->ImageCount == 1) {
    pixels.assign(gif->SavedImages[0].RasterBits, gif->SavedImages[0].RasterBits + width * height);
  }
  DGifCloseFile(gif, nullptr);
  return pixels;
}

// Pictures of every kind: noise, dither, flat parts, runs that the table holds in long strings.
clsDIB somePicture(std::mt19937& random, int bits) {
  const int width = 1 + static_cast<int>(random() % 150), height = 1 + static_cast<int>(random() % 120);
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

TEST(GifLzw, EncodesAsTheStraightEncoderAndReadsItselfBack) {
  std::mt19937 random(7);
  for (int round = 0; round < 160; ++round) {
    const int bits = 2 + round % 7;
    const clsDIB dib = somePicture(random, bits);
    const bool interlaced = round % 2;
    const Bytes blocks = encoded(dib, bits + 1, interlaced);
    ASSERT_EQ(blocks, test::straightEncode(dib, bits + 1, interlaced)) << round;
    clsDIB back = indexedDib(dib.DIBWidth(), dib.DIBHeight(), random() % 2, [](int, int) { return kUntouched; });
    Decode(back, interlaced, bits, test::joinBlocks(blocks));
    ASSERT_EQ(linesOf(back), linesOf(dib)) << round;
  }
}

TEST(GifLzw, AnotherReaderSeesTheSamePixels) {
  std::mt19937 random(11);
  for (int round = 0; round < 20; ++round) {
    const clsDIB dib = somePicture(random, 8);
    Bytes pixels;
    for (const Bytes& line : linesOf(dib)) pixels.insert(pixels.end(), line.begin(), line.end());
    ASSERT_EQ(byGiflib(dib.DIBWidth(), dib.DIBHeight(), 8, encoded(dib, 9)), pixels) << round;
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
      data = test::joinBlocks(encoded(somePicture(random, 2 + round % 7), 3 + round % 7));
      if (round % 3 == 1) data[random() % data.size()] ^= static_cast<std::uint8_t>(1U << random() % 8);
      if (random() % 4 == 0) data.resize(random() % data.size());
    }
    const bool interlaced = random() % 2;
    clsDIB wanted = indexedDib(width, height, true, [](int, int) { return kUntouched; });
    test::straightDecode(wanted, interlaced, bits, data);
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
  BitString cut;
  for (const unsigned code : {256U, 300U, 257U}) cut.put(code, 9);
  EXPECT_EQ(decoded(2, 1, 8, cut.bytes()), (std::vector<Bytes>{{300 - 256, 9}}));
  // Surplus pixels go on at the top; with passes they are dropped.
  EXPECT_EQ(decoded(1, 2, 2, threeBits({4, 1, 2, 4, 3, 5})), (std::vector<Bytes>{{3}, {2}}));
  EXPECT_EQ(decoded(1, 5, 2, threeBits({4, 1, 1, 4, 1, 1, 4, 2, 3, 5}), true),
            (std::vector<Bytes>{{1}, {1}, {1}, {2}, {1}}));
}

TEST(GifLzw, FewLinesAreNotInterlaced) {
  for (const int height : {3, 4, 5, 9}) {
    const clsDIB dib = indexedDib(3, height, false, [](int x, int y) { return (x + 2 * y) & 3; });
    EXPECT_EQ(encoded(dib, 3, true) == encoded(dib, 3, false), height < 5) << height;
    EXPECT_EQ(decoded(3, height, 2, test::joinBlocks(encoded(dib, 3, true)), true), linesOf(dib));
  }
}

// Every pixel of noise is nearly a string of its own: the table fills and is cleared.
TEST(GifLzw, AFullTableIsClearedWhenTheNextCodeWouldBe4096) {
  std::mt19937 random(1);
  const clsDIB dib = indexedDib(200, 60, false, [&](int, int) { return random() & 255; });
  const Bytes blocks = encoded(dib, 9);
  for (std::size_t at = 0; at < blocks.size(); at += 1U + blocks[at]) {
    EXPECT_EQ(blocks[at], at + 255 < blocks.size() ? 254 : blocks.size() - at - 1);
  }
  const Bytes data = test::joinBlocks(blocks);
  std::size_t position = 9;
  std::vector<unsigned> codes;
  for (int free = 258, size = 9; codes.empty() || codes.back() != 256; ++free) {
    unsigned code = 0;
    for (int i = 0; i < size; ++i, ++position) code |= (data[position / 8] >> position % 8 & 1U) << i;
    codes.push_back(code);
    if (free >= 1 << size && size < 12) ++size;
  }
  EXPECT_EQ(codes.size(), 4096u - 258 + 2);  // one more than the strings, and the clear code
}

// A table that nobody clears goes on with the strings it has (deferred clear codes, as old writers send them).
TEST(GifLzw, AFullTableThatIsNotClearedDecodesOn) {
  BitString bits;
  bits.put(4, 3);
  int size = 3;
  Bytes pixels;
  for (int i = 0, free = 5; i < 60000; ++i) {
    const auto pixel = static_cast<std::uint8_t>(i * i / 7 & 3);
    pixels.push_back(pixel);
    bits.put(pixel, size);
    if (free < 4095 && ++free == 1 << size && size < 12) ++size;
  }
  EXPECT_EQ(decoded(60000, 1, 2, bits.bytes())[0], pixels);
  // The longest string: zeros, each code one longer than the last.
  BitString zeros;
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
  const Bytes line = decoded(total / 1000 + 1, 1000, 2, zeros.bytes()).back();
  EXPECT_EQ(decoded(total / 1000, 1000, 2, zeros.bytes()).back(), Bytes(static_cast<std::size_t>(total / 1000), 0));
  EXPECT_EQ(line.back(), kUntouched);
}

TEST(GifLzw, OtherDepthsAndCodeSizesAreLeftAlone) {
  const Bytes data = threeBits({4, 1, 2, 5});
  for (const int bpp : {1, 4, 24, 32}) {
    clsDIB dib = test::plainDib(2, 1, kWhite, bpp);
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
