#include "platform/raster/blit.h"

#include <cstring>

#include "platform/raster/palette_match.h"
#include "platform/raster/pixel_rows.h"

namespace ruvo::raster {
namespace {

using Values = std::vector<std::uint32_t>;

// A one-row surface of raw values: indices, or AARRGGBB.
Surface rowOf(int depth, const Values& values, const std::vector<Colour>& table = {},
              RowOrder order = RowOrder::BottomUp) {
  Surface s;
  s.create(static_cast<int>(values.size()), 1, depth, order);
  for (std::size_t i = 0; i < table.size(); ++i) s.table()[i] = TableEntry::of(table[i]);
  RowStore store(s, Rop2::CopyPen);
  for (int x = 0; x < s.width(); ++x) store.put(x, 0, 1, reinterpret_cast<const std::uint8_t*>(&values[x]));
  return s;
}

Values valuesOf(const Surface& s) {
  Values values;
  std::vector<std::uint8_t> buffer(static_cast<std::size_t>(s.width()) * 4);
  for (int y = 0; y < s.height(); ++y) {
    const std::uint8_t* loose = looseRow(s, y, 0, s.width(), buffer.data());
    for (int x = 0; x < s.width(); ++x) {
      std::uint32_t v = 0;
      std::memcpy(&v, loose + x * looseBytes(s.depth()), static_cast<std::size_t>(looseBytes(s.depth())));
      values.push_back(v);
    }
  }
  return values;
}

Values blitted(const Surface& src, Surface dst, RasterOp op = RasterOp::SrcCopy) {
  blit(dst, 0, 0, src, op);
  return valuesOf(dst);
}

std::vector<TableEntry> randomTable(int count, std::uint32_t seed) {
  std::vector<TableEntry> table;
  for (int i = 0; i < count; ++i) {
    seed = seed * 1664525 + 1013904223;
    table.push_back(TableEntry::of(seed >> 8));
    if (i % 7 == 3) table.back() = table[static_cast<std::size_t>(i / 2)];  // duplicates
  }
  return table;
}

// Whole bytes of eight pixels are packed at once, the ends pixel by pixel.
TEST(Blit, OneBitRowsTakeAnyRunOfPixels) {
  Surface source;
  source.create(40, 1, 8);
  source.table()[9] = TableEntry::of(kWhite);
  for (int x = 0; x < 40; ++x) source.bits()[x] = (x * x / 3) % 4 == 1 ? 9 : 3;
  for (int at = 0; at < 10; ++at) {
    for (int width = 1; width <= 30; ++width) {
      Surface mask = rowOf(1, Values(40, 1), {kBlack, kWhite});
      blit(mask, at, 0, width, 1, source, 2, 0);
      Values expected(40, 1);
      for (int x = 0; x < width; ++x) expected[at + x] = source.bits()[x + 2] == 9;
      ASSERT_EQ(valuesOf(mask), expected) << at << ' ' << width;
    }
  }
}

TEST(PaletteMatch, LowestIndexWinsTiesAndTheMatcherAgreesEverywhere) {
  const TableEntry three[] = {TableEntry::of(0), TableEntry::of(rgb(20, 0, 0)), TableEntry::of(rgb(20, 0, 0))};
  EXPECT_EQ(nearestPaletteIndex(three, rgb(10, 0, 0)), 0);
  EXPECT_EQ(nearestPaletteIndex(three, rgb(11, 0, 0)), 1);
  EXPECT_EQ(nearestPaletteIndex(three, 0x01000000u | rgb(30, 0, 0)), 1) << "only the low 24 bits count";
  for (int count : {1, 3, 5, 16, 200, 256}) {
    const auto table = randomTable(count, static_cast<std::uint32_t>(count));
    PaletteMatcher matcher(table);
    for (std::uint32_t c = 0; c < 0x1000000; c += 4099) {
      ASSERT_EQ(matcher.indexOf(c), nearestPaletteIndex(table, c)) << count << " entries, colour " << c;
    }
  }
}

TEST(Blit, ColourToIndexTakesTheMiddleOfTheCellOnlyAtEightBits) {
  // 0x10 and 0x17 share a cell whose middle is 0x14: nearer to 0x15 than to 0x10.
  const std::vector<Colour> table = {rgb(0x10, 0x10, 0x10), rgb(0x15, 0x15, 0x15)};
  const Values colours = {0x101010, 0x171717, 0x0F0F0F};
  EXPECT_EQ(blitted(rowOf(32, colours), rowOf(8, {9, 9, 9}, table)), (Values{1, 1, 0}));
  EXPECT_EQ(blitted(rowOf(24, colours), rowOf(4, {9, 9, 9}, table)), (Values{0, 1, 0}));
  Surface painted = rowOf(8, {9, 9, 9}, table);
  fillRect(painted, {0, 0, 1, 1}, rgb(0x10, 0x10, 0x10));
  EXPECT_EQ(valuesOf(painted), (Values{0, 9, 9}));
  // Entries that were never set are black and can be chosen.
  EXPECT_EQ(blitted(rowOf(32, {0}), rowOf(4, {9}, table)), (Values{2}));
}

TEST(Blit, IndexToIndexKeepsIndicesOfEqualTablesOnly) {
  const std::vector<Colour> twins = {kWhite, rgb(9, 9, 9), rgb(9, 9, 9)};
  EXPECT_EQ(blitted(rowOf(8, {2, 1, 0}, twins), rowOf(8, {0, 0, 0}, twins)), (Values{2, 1, 0}));
  EXPECT_EQ(blitted(rowOf(8, {2, 1, 0}, twins), rowOf(4, {0, 0, 0}, {rgb(9, 9, 9), kWhite})), (Values{0, 0, 1}));
  // A table that is black but for one white entry makes a mask at one bit.
  EXPECT_EQ(blitted(rowOf(8, {4, 5, 6}, {0, 0, 0, 0, 0, kWhite}), rowOf(1, {0, 0, 0}, {kBlack, kWhite})),
            (Values{0, 1, 0}));
}

TEST(Blit, OperationsRunOnAllBitsOfTheDestination) {
  struct Case {
    RasterOp op;
    std::uint32_t from32, from24, index8;
  };
  // Source BB778899 (32), 445566 (24), index 0x0F (8); destination AA112233 and index 0x3C.
  const Case cases[] = {
      {RasterOp::SrcCopy, 0xBB778899, 0x00445566, 0x0F},     {RasterOp::SrcAnd, 0xAA110011, 0x00000022, 0x0C},
      {RasterOp::SrcPaint, 0xBB77AABB, 0xAA557777, 0x3F},    {RasterOp::SrcInvert, 0x1166AAAA, 0xAA557755, 0x33},
      {RasterOp::NotSrcCopy, 0x44887766, 0xFFBBAA99, 0xF0},  {RasterOp::SrcErase, 0x11668888, 0x00445544, 0x03},
      {RasterOp::MergePaint, 0xEE997777, 0xFFBBAABB, 0xFC},  {RasterOp::DstInvert, 0x55EEDDCC, 0x55EEDDCC, 0xC3},
      {RasterOp::NotSrcErase, 0x44885544, 0x55AA8888, 0xC0}, {RasterOp::Blackness, 0, 0, 0},
      {RasterOp::Whiteness, 0xFFFFFFFF, 0xFFFFFFFF, 0xFF}};
  for (const Case& c : cases) {
    EXPECT_EQ(blitted(rowOf(32, {0xBB778899}), rowOf(32, {0xAA112233}), c.op), Values{c.from32}) << int(c.op);
    EXPECT_EQ(blitted(rowOf(24, {0x445566}), rowOf(32, {0xAA112233}), c.op), Values{c.from24}) << int(c.op);
    EXPECT_EQ(blitted(rowOf(8, {0x0F}), rowOf(8, {0x3C}), c.op), Values{c.index8}) << int(c.op);
    // Single bits beside others that must not change.
    Surface bits = rowOf(1, {0, 1, 0, 1, 1}, {kBlack, kWhite});
    blit(bits, 0, 0, rowOf(1, {0, 0, 1, 1}, {kBlack, kWhite}), c.op);
    for (std::uint32_t k = 0; k < 4; ++k) {
      const Values one = blitted(rowOf(8, {k >> 1}), rowOf(8, {k & 1}), c.op);
      EXPECT_EQ(valuesOf(bits)[k], one[0] & 1) << int(c.op);
    }
    EXPECT_EQ(valuesOf(bits)[4], 1u);
  }
}

TEST(Blit, OverlapsEdgesAndRowOrders) {
  for (RowOrder order : {RowOrder::BottomUp, RowOrder::TopDown}) {
    for (int depth : {8, 24, 32}) {
      for (const Point to : {Point{1, 1}, Point{-1, -1}, Point{1, -1}, Point{-1, 1}, Point{1, 0}}) {
        Surface s;
        s.create(3, 3, depth, order);
        RowStore store(s, Rop2::CopyPen);
        for (std::uint32_t i = 0; i < 9; ++i) store.put(i % 3, i / 3, 1, reinterpret_cast<const std::uint8_t*>(&i));
        Values expected = valuesOf(s);
        const Values before = expected;
        for (int y = 0; y < 3; ++y) {
          for (int x = 0; x < 3; ++x) {
            if (s.bounds().contains(x + to.x, y + to.y)) expected[(y + to.y) * 3 + x + to.x] = before[y * 3 + x];
          }
        }
        blit(s, to.x, to.y, 3, 3, s, 0, 0);
        EXPECT_EQ(valuesOf(s), expected) << depth << " bits by " << to.x << ", " << to.y;
      }
    }
  }
  // Longer than the eight pixels that are turned at once; the padding of 24-bit rows stays.
  Values wide, narrow;
  for (std::uint32_t i = 0; i < 22; ++i) {
    wide.push_back(0xFF0A0B0C + i * 0x10307);
    narrow.push_back(wide[i] & 0xFFFFFF);
  }
  Surface padded = rowOf(24, Values(21, 1));
  padded.bits()[63] = 0xEE;
  blit(padded, 0, 0, rowOf(32, wide));
  EXPECT_EQ(padded.bits()[63], 0xEE);
  narrow.back() = 0xAAAAAAAA;
  EXPECT_EQ(blitted(padded, rowOf(32, Values(22, 0xAAAAAAAA))), narrow);
}

}  // namespace
}  // namespace ruvo::raster
