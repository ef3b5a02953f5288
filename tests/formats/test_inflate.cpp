#include "formats/inflate.h"

#include <zlib.h>

#include <random>

#include "formats/bit_writer.h"
#include "formats/inflate_tables.h"

namespace ruvo {
namespace {

using test::BitWriter;
using test::Bytes;

Bytes deflateRaw(const Bytes& plain, int level, int strategy = Z_DEFAULT_STRATEGY, int memory = 8) {
  z_stream z{};
  deflateInit2(&z, level, Z_DEFLATED, -15, memory, strategy);
  Bytes out(deflateBound(&z, plain.size()) + 64);
  z.next_in = const_cast<Bytef*>(plain.data());
  z.avail_in = static_cast<uInt>(plain.size());
  z.next_out = out.data();
  z.avail_out = static_cast<uInt>(out.size());
  deflate(&z, Z_FINISH);
  out.resize(z.total_out);
  deflateEnd(&z);
  return out;
}

std::vector<Bytes> materials() {
  std::mt19937 random(7);
  std::vector<Bytes> all(6);
  const auto fill = [&](Bytes& to, std::size_t size, auto&& value) {
    for (std::size_t i = 0; i < size; ++i) to.push_back(static_cast<std::uint8_t>(value(i)));
  };
  fill(all[1], 1, [](std::size_t) { return 'x'; });
  fill(all[2], 150000, [&](std::size_t) { return random(); });                                           // stored
  fill(all[3], 150000, [&](std::size_t) { return std::popcount(random()) * std::popcount(random()); });  // literals
  fill(all[4], 200000, [&](std::size_t i) { return i % 40000 < 35000 ? i % 5 : random() % 7; });         // long copies
  fill(all[5], 150000, [&](std::size_t i) {  // far distances
    const bool back = i >= 32768 && random() % 50 != 0;
    return back ? all[5][i - 32768 + (i % 3 == 0)] : random();
  });
  return all;
}

TEST(Inflate, GivesBackWhatEveryKindOfCompressionTook) {
  for (const Bytes& plain : materials()) {
    for (const int level : {0, 1, 6, 9}) {
      for (const int strategy : {Z_DEFAULT_STRATEGY, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED}) {
        const Bytes packed = deflateRaw(plain, level, strategy, level == 9 ? 1 : 8);
        const auto limit = static_cast<std::int64_t>(plain.size());
        Bytes out;
        EXPECT_EQ(inflateAll(packed, limit, out), InflateResult::Done);
        EXPECT_TRUE(out == plain) << plain.size() << " level " << level << " strategy " << strategy;
      }
    }
  }
}

TEST(Inflate, PartsOfAnySizeReadLikeOneArray) {
  const Bytes plain = materials()[4];
  for (const int level : {0, 6}) {
    const Bytes packed = deflateRaw(plain, level);
    for (const std::size_t step : {1, 7, 20, 1000}) {
      std::vector<std::span<const std::uint8_t>> parts;
      for (std::size_t at = 0; at < packed.size(); at += step) {
        parts.push_back(std::span(packed).subspan(at, std::min(step, packed.size() - at)));
        if (at % 3 == 0) parts.emplace_back();
      }
      Bytes out;
      const auto result = inflateTo(parts, 1 << 20, [&](std::span<const std::uint8_t> piece) {
        out.insert(out.end(), piece.begin(), piece.end());
        return true;
      });
      EXPECT_EQ(result, InflateResult::Done);
      EXPECT_TRUE(out == plain) << "parts of " << step;
    }
  }
}

TEST(Inflate, EndsAtTheLimitAndWhereTheTakerSays) {
  for (const int level : {0, 6}) {
    const Bytes packed = deflateRaw(Bytes(1000000, 'a'), level);
    for (const int limit : {0, 1, 257, 70000, 999999}) {
      Bytes out;
      EXPECT_EQ(inflateAll(packed, limit, out), InflateResult::TooLong) << limit;
      EXPECT_EQ(out.size(), static_cast<std::size_t>(limit));
    }
    int calls = 0;
    const auto stop = [&](std::span<const std::uint8_t>) { return ++calls < 3; };
    EXPECT_EQ(inflateTo(packed, 1000000, stop), InflateResult::Done);
    EXPECT_EQ(calls, 3);
  }
}

TEST(Inflate, EveryTruncationIsBadAndHandsOverItsBeginning) {
  Bytes plain = materials()[3];
  plain.resize(3000);
  for (const int level : {0, 1, 6}) {
    const Bytes packed = deflateRaw(plain, level);
    for (std::size_t length = 0; length < packed.size(); ++length) {
      const Bytes cut(packed.begin(), packed.begin() + static_cast<std::ptrdiff_t>(length));
      Bytes out;
      ASSERT_EQ(inflateAll(cut, 100000, out), InflateResult::Bad) << length;
      ASSERT_LE(out.size(), plain.size());
      ASSERT_TRUE(std::equal(out.begin(), out.end(), plain.begin())) << length;
    }
  }
}

TEST(Inflate, RefusesWhatNoCompressorWrites) {
  const auto result = [](BitWriter& bits, std::size_t padding = 0) {
    Bytes bytes = bits.bytes;
    bytes.resize(bytes.size() + padding);  // with room behind, the fast loop meets it too
    Bytes out;
    return inflateAll(bytes, 1 << 20, out);
  };
  for (const std::size_t padding : {0, 40}) {
    EXPECT_EQ(result(BitWriter().put(1, 1).put(3, 2), padding), InflateResult::Bad) << "block type 3";
    EXPECT_EQ(result(BitWriter().put(1, 1).put(0, 2).put(0, 5).put(1, 16).put(0xFFFF, 16), padding), InflateResult::Bad)
        << "the length's complement";
    // Fixed codes: literal 0 is 00110000, length 3 is 0000001, length symbol 286 is 11000110.
    const auto fixed = [] { return BitWriter().put(1, 1).put(1, 2); };
    EXPECT_EQ(result(fixed().code(0x30, 8).code(1, 7).code(1, 5).code(0, 7), padding), InflateResult::Bad)
        << "a distance before the beginning";
    EXPECT_EQ(result(fixed().code(0x30, 8).code(1, 7).code(30, 5).put(0, 20), padding), InflateResult::Bad)
        << "distance symbol 30";
    EXPECT_EQ(result(fixed().code(0xC6, 8).code(0, 5).code(0, 7), padding), InflateResult::Bad) << "length symbol 286";
    EXPECT_EQ(result(fixed().code(0x30, 8).code(1, 7).code(0, 5).code(0, 7), padding), InflateResult::Done);
    // A dynamic block whose first code length is "as the one before".
    BitWriter repeat = BitWriter().put(1, 1).put(2, 2).put(0, 5).put(0, 5).put(0, 4).put(1, 3).put(1, 3).put(0, 6);
    EXPECT_EQ(result(repeat.put(0, 1).put(0, 2), padding), InflateResult::Bad);
  }
}

TEST(Inflate, CodeTablesHoldEveryCodeAndRefuseTooMany) {
  using namespace inflate;
  std::vector<Entry> table(roomFor(kDistanceRoot, kDistanceSymbols));
  EXPECT_FALSE(build(table, kDistanceRoot, Bytes{1, 1, 1}, Meaning::Plain));
  // The longest chain of codes, and one that leaves its last code free.
  for (const int last : {15, 0}) {
    Bytes lengths;
    for (int bits = 1; bits <= 15; ++bits) lengths.push_back(static_cast<std::uint8_t>(bits));
    lengths.push_back(static_cast<std::uint8_t>(last));
    ASSERT_TRUE(build(table, kDistanceRoot, lengths, Meaning::Plain));
    for (int symbol = 0; symbol < 16; ++symbol) {
      const std::uint32_t stream = (1u << symbol) - 1;  // ones, then a zero; sixteen symbols in 15 bits
      Entry entry = table[stream & ((1u << kDistanceRoot) - 1)];
      int bits = 0;
      if ((entry & kSecondTable) != 0) {
        bits = dropBits(entry);
        entry = table[valueOf(entry) + ((stream >> bits) & ((1u << codeBits(entry)) - 1))];
      }
      if (symbol == 15 && last == 0) {
        EXPECT_EQ(entry, kNoCode);
        continue;
      }
      EXPECT_EQ(valueOf(entry), static_cast<std::uint32_t>(symbol));
      EXPECT_EQ(bits + dropBits(entry), std::min(symbol + 1, 15));
    }
  }
}

}  // namespace
}  // namespace ruvo
