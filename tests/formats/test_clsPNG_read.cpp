#include "base/file_io.h"
#include "formats/clsPNG.h"
#include "formats/png_bytes.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;
using png::Header;

struct Kind {
  int type;
  int depth;
  int surfaceDepth;
};
constexpr Kind kKinds[] = {{0, 1, 1}, {0, 2, 8}, {0, 4, 4}, {0, 8, 8},  {0, 16, 24}, {2, 8, 24}, {2, 16, 24}, {3, 1, 1},
                           {3, 2, 8}, {3, 4, 4}, {3, 8, 8}, {4, 8, 32}, {4, 16, 32}, {6, 8, 32}, {6, 16, 32}};

Bytes paletteChunk(int depth, std::mt19937& random) {
  Bytes colours;
  for (int i = 0; i < 3 << depth; ++i) colours.push_back(static_cast<std::uint8_t>(random()));
  return chunk("PLTE", colours);
}

// A picture of one kind, with a tRNS chunk or without.
Bytes randomFile(const Kind& kind, std::uint32_t width, std::uint32_t height, bool interlaced, bool keyed,
                 std::mt19937& random) {
  PngParts parts{{width, height, kind.depth, kind.type, 0, 0, interlaced}};
  parts.rows = randomRows(parts.header, random);
  if (kind.type == 3) parts.before.push_back(paletteChunk(kind.depth, random));
  if (keyed) {
    const auto key = static_cast<std::uint8_t>(random() % (1 << std::min(kind.depth, 8)));
    const Bytes sample = kind.depth == 16 ? Bytes{key, key} : Bytes{0, key};
    Bytes data;
    if (kind.type == 3) data = {200, 0, 17};
    if (kind.type == 3 && kind.depth == 1) data = {200, 0};
    for (int i = 0; kind.type != 3 && i < (kind.type == 2 ? 3 : 1); ++i)
      data.insert(data.end(), sample.begin(), sample.end());
    parts.before.push_back(chunk("tRNS", data));
  }
  return parts.bytes();
}

int farthestColour(const raster::Surface& got, const raster::Surface& wanted, bool alpha) {
  return farthest(&got, [&](int x, int y) {
    Pixel32 p = pixelAt(wanted, x, y);
    if (!alpha) p.alpha = pixelAt(got, x, y).alpha;
    return p;
  });
}

TEST(PngRead, EveryTypeDepthAndInterlaceIsWhatLibpngReads) {
  std::mt19937 random(5);
  for (const Kind& kind : kKinds) {
    for (const auto& [width, height] : {std::pair{1, 1}, {1, 8}, {3, 5}, {9, 2}, {33, 21}, {257, 70}}) {
      for (const bool interlaced : {false, true}) {
        for (const bool keyed : {false, true}) {
          if (keyed && (kind.type == 4 || kind.type == 6)) continue;
          const Bytes file = randomFile(kind, width, height, interlaced, keyed, random);
          SCOPED_TRACE(testing::Message() << "type " << kind.type << " depth " << kind.depth << ' ' << width << 'x'
                                          << height << (interlaced ? " interlaced" : "") << (keyed ? " keyed" : ""));
          const raster::Surface wanted = readByLibpng(file);
          ASSERT_FALSE(wanted.empty());
          for (const auto& [alpha, asked] : {std::pair{false, 0}, {true, 0}, {false, 24}}) {
            clsPNG read;
            read.AlphaSet = alpha;
            read.BitmapBPP = asked;
            ASSERT_EQ(read.openBytes(file), kPngOpened);
            const bool counts = alpha && (keyed || kind.surfaceDepth == 32);
            EXPECT_EQ(read.dib().DIBhasAlpha(), counts);
            EXPECT_EQ(read.dib().DIBbpp(), counts ? 32 : std::max(asked, kind.surfaceDepth));
            EXPECT_FALSE(read.dib().BottomUp());
            ASSERT_LE(farthestColour(deepOf(read.dib().surface()), wanted, counts || kind.surfaceDepth == 32),
                      kind.depth == 16)
                << "libpng rounds, this takes the high byte";
          }
        }
      }
    }
  }
}

int codeOf(const Bytes& file) {
  clsPNG png;
  const int code = png.openBytes(file);
  EXPECT_EQ(png.ErrorNum(), code);
  EXPECT_EQ(png.dib().empty(), code != kPngOpened);
  return code;
}

TEST(PngRead, FilesThatAreNoneHaveTheirCodes) {
  const TempFolder folder;
  const Bytes file = randomPng().bytes();
  Bytes badName = file;
  badName[1] = 'p';
  for (const auto& [bytes, code] : {std::pair{Bytes(), kPngTooShort},
                                    {Bytes(file.begin(), file.begin() + 99), kPngTooShort},
                                    {Bytes(file.begin(), file.begin() + 100), kPngPastEnd},
                                    {file, kPngOpened},
                                    {badName, kPngBadSignature}}) {
    ASSERT_TRUE(replaceFile(folder / "a.png", bytes));
    EXPECT_EQ(clsPNG().OpenPNG(folder / "a.png"), code);
  }
  EXPECT_EQ(clsPNG().OpenPNG(folder / "missing.png"), kPngNotFound);
  EXPECT_EQ(clsPNG().OpenPNG(folder.path()), kPngNotFound);
}

TEST(PngRead, DamagedChunksHaveTheirCodes) {
  PngParts parts = randomPng();
  parts.before = {chunk("te1t", {1})};
  EXPECT_EQ(codeOf(parts.bytes()), kPngBadChunkName);
  Bytes wrongSum = chunk("abCd", {1, 2, 3});
  wrongSum.back() ^= 1;
  parts.before = {wrongSum};
  EXPECT_EQ(codeOf(parts.bytes()), kPngBadSum) << "of an ancillary chunk";
  parts.before = {chunk("abCd", {1, 2, 3}), chunk("IHDR", headerBytes(parts.header))};
  EXPECT_EQ(codeOf(parts.bytes()), kPngChunksRepeated);
  parts = randomPng();
  parts.header.type = 3;
  EXPECT_EQ(codeOf(parts.bytes()), kPngChunksMissing) << "a palette";
  const Bytes whole = randomPng().bytes();
  Bytes noData(whole.begin(), whole.begin() + 33), noHeader(whole.begin(), whole.begin() + 8);
  const Bytes end = chunk("IEND", {});
  noHeader.insert(noHeader.end(), whole.begin() + 33, whole.end());
  EXPECT_EQ(codeOf(noHeader), kPngChunksMissing);
  EXPECT_EQ(codeOf(noData), kPngPastEnd) << "no IEND";
  noData.insert(noData.end(), end.begin(), end.end());
  EXPECT_EQ(codeOf(noData), kPngChunksMissing);
  for (std::size_t length = 8; length < whole.size(); ++length) {
    ASSERT_EQ(codeOf(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))), kPngPastEnd) << length;
  }
  for (std::size_t at = 0; at < whole.size(); ++at) {
    Bytes changed = whole;
    changed[at] ^= 0x20;
    ASSERT_NE(codeOf(changed), kPngOpened) << "at " << at;
  }
}

TEST(PngRead, HeadersThatAreNotAllowedStillTellTheSize) {
  const auto code = [](Header header) {
    PngParts parts = randomPng();
    parts.header = header;
    clsPNG png;
    const int result = png.openBytes(parts.bytes());
    EXPECT_EQ(png.Width(), static_cast<int>(std::min<std::uint32_t>(header.width, INT32_MAX)));
    EXPECT_EQ(png.Height(), static_cast<int>(std::min<std::uint32_t>(header.height, INT32_MAX)));
    return result;
  };
  for (const Header& header :
       {Header{0, 3, 8, 2, 0, 0, 0}, Header{20, 0, 8, 2, 0, 0, 0}, Header{32761, 3, 8, 2, 0, 0, 0},
        Header{6000, 6000, 8, 2, 0, 0, 0}, Header{0xFFFFFFFF, 0xFFFFFFFF, 8, 2, 0, 0, 0}, Header{20, 3, 4, 2, 0, 0, 0},
        Header{20, 3, 0, 0, 0, 0, 0}, Header{20, 3, 16, 3, 0, 0, 0}, Header{20, 3, 8, 5, 0, 0, 0},
        Header{20, 3, 8, 2, 0, 0, 2}}) {
    EXPECT_EQ(code(header), kPngBadHeader);
  }
  EXPECT_EQ(code({25000, 1000, 8, 2, 0, 0, 0}), kPngInflateFailed) << "allowed, but the rows are not there";
  PngParts parts = randomPng();
  Bytes shortHeader = parts.bytes();
  const Bytes twelve = chunk("IHDR", Bytes(12, 1));
  shortHeader.erase(shortHeader.begin() + 8, shortHeader.begin() + 33);
  shortHeader.insert(shortHeader.begin() + 8, twelve.begin(), twelve.end());
  EXPECT_EQ(codeOf(shortHeader), kPngBadHeader);
}

TEST(PngRead, StreamsThatAreShortFailAndLongOnesEndAtTheLastRow) {
  PngParts parts = randomPng();
  const Bytes rows = parts.rows;
  parts.rows.pop_back();
  EXPECT_EQ(codeOf(parts.bytes()), kPngInflateFailed);
  parts.rows = rows;
  parts.rows.resize(rows.size() + 50000000);  // a small file that would grow and grow
  EXPECT_EQ(codeOf(parts.bytes()), kPngOpened);
  parts.rows = rows;
  parts.packed = zlibOf(rows);
  parts.packed.back() ^= 1;  // the Adler sum is not looked at
  EXPECT_EQ(codeOf(parts.bytes()), kPngOpened);
  parts.packed[2] = 7;  // block type 3
  EXPECT_EQ(codeOf(parts.bytes()), kPngInflateFailed);
  // Another compression than 0: the rows as they are, behind two bytes.
  parts.header.compression = 1;
  parts.packed = rows;
  parts.packed.insert(parts.packed.begin(), 2, 0);
  clsPNG stored, deflated;
  ASSERT_EQ(stored.openBytes(parts.bytes()), kPngOpened);
  ASSERT_EQ(deflated.openBytes(randomPng().bytes()), kPngOpened);
  EXPECT_EQ(stored.Compression(), 1);
  EXPECT_TRUE(std::ranges::equal(stored.dib().surface().bytes(), deflated.dib().surface().bytes()));
}

TEST(PngRead, FilterTypesAboveFourAreNoneAndDeepSamplesAreTheirHighBytes) {
  PngParts parts{{8, 1, 8, 0, 0, 0, 0}};
  parts.rows = {9, 1, 2, 3, 4, 5, 6, 7, 8};
  clsPNG png;
  ASSERT_EQ(png.openBytes(parts.bytes()), kPngOpened);
  EXPECT_TRUE(std::ranges::equal(png.dib().surface().bytes(), Bytes{1, 2, 3, 4, 5, 6, 7, 8}));
  PngParts deep{{1, 1, 16, 2, 0, 0, 0}, {}, {0, 0x80, 0xFF, 0x10, 0xFF, 0x20, 0xFF}};
  ASSERT_EQ(png.openBytes(deep.bytes()), kPngOpened);
  EXPECT_EQ(rowsOf(png.dib(), {{'h', rgb(0x80, 0x10, 0x20)}}), Rows{"h"}) << "the high bytes";
}

// Header and rows that do not matter, with these chunks before the data.
std::unique_ptr<clsPNG> withChunks(Header header, std::vector<Bytes> chunks,
                                   const std::function<void(clsPNG&)>& prepare = {}) {
  PngParts parts{header, std::move(chunks)};
  parts.rows.resize(static_cast<std::size_t>(png::bytesOf(png::passesOf(header))));
  auto png = std::make_unique<clsPNG>();
  if (prepare) prepare(*png);
  EXPECT_EQ(png->openBytes(parts.bytes()), kPngOpened);
  return png;
}

Bytes textBytes(std::string_view text) {
  return {text.begin(), text.end()};
}

TEST(PngRead, TextsTimeAndGamma) {
  Bytes packed = textBytes(std::string_view("Key\0\0", 5));
  const Bytes stream = zlibOf(textBytes("packed text, packed text"));
  packed.insert(packed.end(), stream.begin(), stream.end());
  Bytes bomb = textBytes(std::string_view("Key\0\0", 5));
  const Bytes huge = zlibOf(Bytes(1000000, 'a'));
  bomb.insert(bomb.end(), huge.begin(), huge.end());
  const Header header{9, 9, 8, 0, 0, 0, 0};
  const auto png =
      withChunks(header, {chunk("tEXt", textBytes(std::string_view("Title\0K\xF6nig", 11))),
                          chunk("tEXt", textBytes("plain")), chunk("zTXt", packed), chunk("zTXt", bomb),
                          chunk("zTXt", {1}), chunk("tIME", {7, 0xE8, 2, 29, 23, 5, 9}),
                          chunk("gAMA", {0, 0, 0xB1, 0x8F}), chunk("iTXt", {1, 2}), chunk("pHYs", Bytes(9))});
  EXPECT_EQ(png->CommentText, "Title K\u00F6nig\r\nplain");
  EXPECT_EQ(png->zText().substr(0, 27), "packed text, packed text\r\na");
  EXPECT_EQ(png->zText().size(), 26 + 12 * (huge.size() - 2)) << "grows to twelve times the packed length";
  EXPECT_EQ(png->ModiTime(), "2024-02-29 23:05:09");
  EXPECT_DOUBLE_EQ(png->Gama(), 0.45455);
}

TEST(PngRead, BackgroundAndTransparentColours) {
  const Header grey{9, 9, 4, 0, 0, 0, 0}, deepGrey{9, 9, 16, 0, 0, 0, 0}, colour{9, 9, 16, 2, 0, 0, 0},
      table{9, 9, 8, 3, 0, 0, 0}, alpha{9, 9, 8, 6, 0, 0, 0};
  const Bytes palette = chunk("PLTE", {1, 2, 3, 4, 5, 6, 7, 8, 9, 250});
  // A grey background is the sum of the two bytes of its sample, whatever the depth.
  for (const auto& [header, sample, background] :
       std::vector<std::tuple<Header, Bytes, Colour>>{{grey, {0, 7}, rgb(7, 7, 7)},
                                                      {deepGrey, {100, 120}, rgb(220, 220, 220)},
                                                      {deepGrey, {200, 120}, kWhite},
                                                      {colour, {255, 255, 128, 0, 0, 0}, rgb(255, 128, 0)}}) {
    EXPECT_EQ(withChunks(header, {chunk("bKGD", sample)})->BKGDColorToUse, background);
  }
  const auto indexed = withChunks(table, {palette, chunk("bKGD", {1}), chunk("tRNS", {9, 0, 0})});
  EXPECT_TRUE(indexed->HasBKGDChunk && indexed->HasTranspColor);
  EXPECT_EQ(indexed->BKGDColorToUse, rgb(4, 5, 6));
  EXPECT_EQ(indexed->TranspColor, rgb(4, 5, 6));
  EXPECT_EQ(indexed->getTranspColorPos(), 1);
  EXPECT_EQ(indexed->getPNGpalette().size(), 9u) << "the remainder is dropped";
  EXPECT_EQ(withChunks(table, {palette, chunk("tRNS", {9, 1})})->getTranspColorPos(), -1);
  EXPECT_EQ(withChunks(grey, {chunk("tRNS", {0, 15})})->TranspColor, kWhite);
  EXPECT_FALSE(withChunks(grey, {chunk("tRNS", {})})->HasTranspColor);
  EXPECT_FALSE(withChunks(alpha, {chunk("tRNS", {0, 0, 0, 0, 0, 0})})->HasTranspColor);
  const auto own = withChunks(grey, {chunk("bKGD", {0, 7})}, [](clsPNG& png) {
    png.setOwnerBkgd = true;
    png.BKGDColorToUse = 0x123456;
  });
  EXPECT_EQ(own->BKGDColorToUse, 0x123456u);
  EXPECT_EQ(own->BKGDchunkColorPerFile(), rgb(7, 7, 7));
}

TEST(PngRead, AlphaIsBlendedOnAColourOrAPattern) {
  PngParts parts{{3, 2, 8, 4, 0, 0, 0}};
  parts.rows = {0, 200, 255, 200, 0, 200, 51, 0, 200, 0, 200, 255, 200, 0};
  clsPNG png;
  png.AlphaSet = true;
  png.setOwnerBkgd = true;
  png.BKGDColorToUse = rgb(100, 0, 50);
  ASSERT_EQ(png.openBytes(parts.bytes()), kPngOpened);
  EXPECT_FALSE(png.dib().DIBhasAlpha());
  EXPECT_EQ(pixelAt(png.dib(), 0, 0).colour(), rgb(200, 200, 200));
  EXPECT_EQ(pixelAt(png.dib(), 1, 0).colour(), rgb(100, 0, 50));
  EXPECT_EQ(pixelAt(png.dib(), 2, 0).colour(), rgb(120, 40, 80));
  png.setOwnerBkgd = false;
  png.setOwnerBkgdPattern = true;
  png.storePattern(dibOf(Rows{"#.", ".#"}));
  ASSERT_EQ(png.openBytes(parts.bytes()), kPngOpened);
  const Ink ink = {{'#', kBlack}, {'.', kWhite}, {'g', rgb(200, 200, 200)}, {'m', rgb(40, 40, 40)}};
  EXPECT_PICTURE(rowsOf(png.dib(), ink), ({"g.m", ".g."}));
}

TEST(PngRead, TheListingNamesEveryChunkAndNoPixelsAreBuilt) {
  const TempFolder folder;
  PngParts parts = randomPng();
  parts.split = 100;
  ASSERT_TRUE(replaceFile(folder / "a.png", parts.bytes()));
  clsPNG png;
  std::vector<std::string> lines;
  ASSERT_EQ(png.OpenPNG_GetTagData(folder / "a.png", &lines), kPngOpened);
  EXPECT_TRUE(png.dib().empty());
  EXPECT_EQ(png.BitmapBPP, 24);
  EXPECT_EQ(png.BitsPerPixel(), 24);
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0].substr(0, 13), "8  IHDR  13  ");
  EXPECT_EQ(lines[1].substr(0, 15), "33  IDAT  100  ");
  EXPECT_EQ(lines.back().substr(lines.back().size() - 17), "IEND  0  AE426082");
}

TEST(PngRead, ADepthThatTheFileFilledInIsNotTakenForAWish) {
  std::mt19937 random(9);
  clsPNG png;
  ASSERT_EQ(png.openBytes(randomPng().bytes()), kPngOpened);
  EXPECT_EQ(png.BitmapBPP, 24);
  ASSERT_EQ(png.openBytes(randomFile({0, 8, 8}, 20, 20, false, false, random)), kPngOpened);
  EXPECT_EQ(png.dib().DIBbpp(), 8);
}

}  // namespace
}  // namespace ruvo
