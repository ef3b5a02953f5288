#include "platform/imaging/bmp_reader.h"

#include "base/file_io.h"
#include "support/bmp_bytes.h"
#include "support/temp_folder.h"

namespace ruvo::imaging {
namespace {

using test::BmpFile;

// The pixels as rows of hexadecimal RRGGBB (AARRGGBB with alpha) or indices, top line first.
std::vector<std::string> shown(const BmpResult& result) {
  std::vector<std::string> rows;
  const raster::Surface& s = result.surface;
  for (int y = 0; y < s.height(); ++y) {
    const std::uint8_t* row = s.pictureRow(y);
    std::string text;
    for (int x = 0; x < s.width(); ++x) {
      char cell[16];
      if (s.depth() == 32) {
        const Pixel32 p = reinterpret_cast<const Pixel32*>(row)[x];
        snprintf(cell, sizeof cell, "%02X%02X%02X%02X", p.alpha, p.red, p.green, p.blue);
      } else if (s.depth() == 24) {
        snprintf(cell, sizeof cell, "%02X%02X%02X", row[3 * x + 2], row[3 * x + 1], row[3 * x]);
      } else {
        const int perByte = 8 / s.depth();
        snprintf(cell, sizeof cell, "%d",
                 row[x / perByte] >> (perByte - 1 - x % perByte) * s.depth() & ((1 << s.depth()) - 1));
      }
      if (x > 0) text += ' ';
      text += cell;
    }
    rows.push_back(text);
  }
  return rows;
}
using Lines = std::vector<std::string>;
using Data = std::vector<std::uint8_t>;

BmpResult read(int width, int height, int bits, const Data& data, BmpFile rest = {}) {
  rest.width = width;
  rest.height = height;
  rest.bits = bits;
  rest.data = data;
  return readBmp(rest.bytes());
}

TEST(BmpReader, PlainDepths) {
  const std::vector<Colour> two = {rgb(1, 2, 3), rgb(4, 5, 6)};
  const BmpResult one = read(3, 2, 1, {0x40, 9, 9, 9, 0xA0, 9, 9, 9}, {.table = two});
  EXPECT_EQ(shown(one), (Lines{"1 0 1", "0 1 0"}));
  EXPECT_EQ(one.surface.table()[1].colour(), rgb(4, 5, 6));
  EXPECT_EQ(one.surface.memoryRow(0)[1], 0);  // padding is cleaned
  EXPECT_EQ(shown(read(5, 1, 2, {0x1B, 0xC0, 0, 0}, {.table = two})), Lines{"0 1 2 3 3"});
  EXPECT_EQ(shown(read(3, 1, 4, {0x01, 0xF0, 0, 0}, {.table = two})), Lines{"0 1 15"});
  EXPECT_EQ(shown(read(2, 1, 8, {1, 200, 0, 0}, {.table = two})), Lines{"1 200"});
  EXPECT_EQ(shown(read(1, 2, 24, {3, 2, 1, 0, 6, 5, 4, 0})), (Lines{"040506", "010203"}));
}

TEST(BmpReader, SixteenBitsBecome24AndOpenTheirFullRange) {
  EXPECT_EQ(shown(read(2, 1, 16, {0xFF, 0x7F, 0x01, 0x04})), Lines{"FFFFFF 080008"});
  const BmpFile fields{.compression = 3, .masks = {0xF800, 0x07E0, 0x001F}};
  EXPECT_EQ(shown(read(2, 1, 16, {0xE0, 0x07, 0x00, 0x08}, fields)), Lines{"00FF00 080000"});
  const BmpFile alpha{.compression = 3, .headerSize = 56, .masks = {0x0F00, 0x00F0, 0x000F, 0xF000}};
  const BmpResult result = read(2, 1, 16, {0x34, 0x12, 0x00, 0x00}, alpha);
  EXPECT_EQ(shown(result), Lines{"11223344 00000000"});
  EXPECT_TRUE(result.hasAlpha);
}

TEST(BmpReader, ThirtyTwoBitsKeepWhatTheMasksClaim) {
  const auto deep = [&](std::uint32_t compression, std::uint32_t header, const std::vector<std::uint32_t>& masks) {
    const BmpFile fields{.compression = compression, .headerSize = header, .masks = masks};
    return read(1, 1, 32, {0x11, 0x22, 0x33, 0x44}, fields);
  };
  EXPECT_EQ(shown(deep(0, 40, {})), Lines{"44332211"});  // the fourth byte of plain files is kept
  EXPECT_TRUE(deep(0, 40, {}).hasAlpha);
  EXPECT_EQ(shown(deep(3, 40, {0xFF0000, 0xFF00, 0xFF})), Lines{"00332211"});
  EXPECT_FALSE(deep(3, 40, {0xFF0000, 0xFF00, 0xFF}).hasAlpha);
  EXPECT_EQ(shown(deep(3, 108, {0xFF0000, 0xFF00, 0xFF, 0xFF000000})), Lines{"44332211"});
  EXPECT_EQ(shown(deep(3, 124, {0xFF, 0xFF00, 0xFF0000, 0xFF000000})), Lines{"44112233"});
  EXPECT_EQ(shown(deep(6, 40, {0xFF000000, 0xFF0000, 0xFF00, 0xFF})), Lines{"11443322"});
  EXPECT_EQ(shown(deep(3, 52, {0xFFC00000, 0x003FF000, 0x00000FFF})), Lines{"0044CC21"});  // 10, 10 and 12 bits wide
  EXPECT_EQ(shown(deep(3, 108, {0, 0, 0, 0})), Lines{"00332211"});  // no masks at all: the usual ones
}

TEST(BmpReader, RowOrdersAndHeaders) {
  const std::vector<std::uint8_t> data = {0x80, 0, 0, 0, 0x00, 0, 0, 0};
  const std::vector<Colour> table = {kBlack, rgb(7, 8, 9)};
  const BmpResult down = read(1, -2, 1, data, {.table = table});
  EXPECT_EQ(shown(down), (Lines{"1", "0"}));
  EXPECT_EQ(down.surface.order(), raster::RowOrder::BottomUp);
  EXPECT_EQ(down.height, 2);
  for (const std::uint32_t header : {12u, 16u, 24u, 40u, 52u, 56u, 64u, 108u, 124u}) {
    const BmpResult r = read(1, 2, 1, data, {.headerSize = header, .table = table});
    EXPECT_EQ(shown(r), (Lines{"0", "1"})) << header;
    ASSERT_TRUE(r);
    EXPECT_EQ(r.surface.table()[1].colour(), rgb(7, 8, 9)) << header;
  }
}

TEST(BmpReader, TablesAndOffsetsThatWritersGetWrong) {
  const std::vector<std::uint8_t> data = {1, 3, 0, 0};
  const auto check = [](const BmpFile& file, Colour second) {
    const BmpResult r = readBmp(file.bytes());
    EXPECT_EQ(shown(r), Lines{"1 3"});
    ASSERT_TRUE(r);
    EXPECT_EQ(r.surface.table()[1].colour(), second);
    EXPECT_EQ(r.surface.table()[3].colour(), kBlack);  // past the table
  };
  const std::vector<Colour> two = {rgb(1, 1, 1), rgb(2, 2, 2)};
  BmpFile file{.width = 2, .height = 1, .bits = 8, .table = two, .data = data};
  check(file, two[1]);  // no count: the offset tells the length
  file.coloursUsed = 0x7FFFFFFF;
  check(file, two[1]);
  file.coloursUsed = 2;
  file.gap.assign(100, 0xEE);
  check(file, two[1]);  // junk between table and data
  file.gap.clear();
  for (const int offset : {0, 14, 54}) {
    file.statedOffset = offset;
    check(file, two[1]);
  }
  file.coloursUsed = 1;
  file.table.resize(1);
  check(file, kBlack);
  // A table in front of true-colour pixels is passed over.
  EXPECT_EQ(shown(read(1, 1, 24, {3, 2, 1, 0}, {.coloursUsed = 2, .table = two})), Lines{"010203"});
}

TEST(BmpReader, RunLengthCodes) {
  const auto eight = [](int width, int height, const Data& data) {
    return read(width, height, 8, data, {.compression = 1, .table = {1}});
  };
  // A run, a literal with padding, end of line, a jump over a pixel, end of picture.
  EXPECT_EQ(shown(eight(5, 2, {2, 7, 0, 3, 1, 2, 3, 0, 0, 0, 0, 2, 1, 0, 3, 9, 0, 1})),
            (Lines{"0 9 9 9 0", "7 7 1 2 3"}));
  // A jump upwards; too long a run is cut at the end of its row.
  EXPECT_EQ(shown(eight(2, 3, {9, 5, 0, 2, 0, 2, 9, 6, 0, 0, 1, 6, 0, 1})), (Lines{"0 0", "0 0", "5 5"}));
  EXPECT_EQ(shown(eight(2, 3, {1, 5, 0, 2, 0, 2, 9, 6, 0, 1})), (Lines{"0 6", "0 0", "5 0"}));
  // Without an end mark all rows are there; codes that go on above the last row are ignored.
  EXPECT_FALSE(eight(2, 1, {2, 4}).truncated);
  EXPECT_EQ(shown(eight(1, 1, {1, 4, 0, 0, 1, 5, 0, 0, 1, 6})), Lines{"4"});

  const BmpFile four{.compression = 2, .table = {1}};
  EXPECT_EQ(shown(read(5, 1, 4, {3, 0x12, 0, 3, 0x34, 0x50, 0, 1}, four)), Lines{"1 2 1 3 4"});
  EXPECT_EQ(shown(read(1, -2, 4, {1, 0x10, 0, 0, 1, 0x20, 0, 1}, four)), (Lines{"1", "2"}));
  const BmpFile os2{.compression = 4, .headerSize = 64};
  EXPECT_EQ(shown(read(3, 1, 24, {2, 3, 2, 1, 0, 1}, os2)), Lines{"010203 010203 000000"});
}

TEST(BmpReader, TruncatedPixelsKeepTheRowsThatCame) {
  EXPECT_FALSE(read(1, 3, 24, {3, 2, 1, 0, 6, 5, 4, 0, 9, 8, 7}).truncated) << "only padding is missing";
  for (const int height : {3, -3}) {
    const BmpResult r = read(1, height, 24, {3, 2, 1, 0, 6, 5, 4, 0, 9, 8});
    EXPECT_TRUE(r.truncated);
    EXPECT_EQ(shown(r), height > 0 ? (Lines{"000000", "040506", "010203"}) : (Lines{"010203", "040506", "000000"}));
  }
  const BmpResult runs = read(2, 2, 8, {2, 4, 0, 0, 1}, {.compression = 1, .table = {1}});
  EXPECT_TRUE(runs.truncated);
  EXPECT_EQ(shown(runs), (Lines{"0 0", "4 4"}));
}

TEST(BmpReader, RefusesWhatCanNotBeShown) {
  const Data data(64);
  const auto error = [&](int width, int height, int bits = 24, const BmpFile& rest = {}) {
    return read(width, height, bits, data, rest).error;
  };
  EXPECT_EQ(readBmp({}).error, LoadError::NotThisFormat);
  EXPECT_EQ(readBmp(Data{'G', 'I', 'F', '8'}).error, LoadError::NotThisFormat);
  EXPECT_EQ(readBmp(Data{'B', 'M', 0}).error, LoadError::Broken);
  for (const Size size : {Size{0, 1}, {-1, 1}, {1, 0}}) EXPECT_EQ(error(size.width, size.height), LoadError::Broken);
  for (const Size size : {Size{1, INT32_MIN}, {5001, 5000}, {40000, 1}}) {
    EXPECT_EQ(error(size.width, size.height), LoadError::TooLarge);
  }
  EXPECT_EQ(error(5000, 5000), LoadError::Broken);  // a size and no row
  EXPECT_EQ(read(1, 1, 24, {}).error, LoadError::Broken);
  EXPECT_EQ(read(9, 9, 8, {0}, {.compression = 1, .table = {1}}).error, LoadError::Broken);
  EXPECT_EQ(error(1, 1, 7), LoadError::Broken);
  EXPECT_EQ(error(1, 1, 8, {.compression = 2, .table = {1}}), LoadError::Broken);
  EXPECT_EQ(error(1, 1, 0, {.compression = 5}), LoadError::Broken);
  EXPECT_EQ(error(1, 1, 24, {.headerSize = 0}), LoadError::Broken);
  EXPECT_EQ(error(1, 1, 24, {.statedOffset = 0x7FFFFFFF}), LoadError::Broken);
  const BmpResult large = read(6000, 6000, 24, {});
  EXPECT_EQ(large.width, 6000);
  EXPECT_EQ(large.height, 6000);
  EXPECT_EQ(large.fileDepth, 24);
}

TEST(BmpReader, FilesReadAsTheirBytesDo) {
  const test::TempFolder folder;
  // More rows than one chunk, top-down so that chunks are used.
  BmpFile file{.width = 301, .height = -1000, .data = std::vector<std::uint8_t>(904 * 1000)};
  for (std::size_t i = 0; i < file.data.size(); ++i) file.data[i] = static_cast<std::uint8_t>(i * 7 + i / 904);
  const auto bytes = file.bytes();
  ASSERT_TRUE(replaceFile(folder / "a.bmp", bytes));
  const BmpResult fromFile = readBmpFile(folder / "a.bmp");
  const BmpResult fromBytes = readBmp(bytes);
  ASSERT_TRUE(fromFile);
  EXPECT_TRUE(std::ranges::equal(fromFile.surface.bytes(), fromBytes.surface.bytes()));
  EXPECT_EQ(fromFile.surface.pictureRow(777)[300 * 3 + 2], file.data[777 * 904 + 902]);
  EXPECT_EQ(readBmpFile(folder / "none.bmp").error, LoadError::Missing);
  EXPECT_EQ(readBmpFile(folder.path()).error, LoadError::Missing);
}

}  // namespace
}  // namespace ruvo::imaging
