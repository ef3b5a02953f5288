// Each decoder against files that the format's own library wrote.
#include <gtest/gtest.h>
#include <zlib.h>

#include "platform/imaging/codecs.h"
#include "platform/imaging/sample_files.h"
#include "support/pictures.h"

namespace ruvo::imaging {
namespace {

using test::Bytes;
using Reader = LoadResult (*)(ByteSource&, std::int64_t);

LoadResult read(Reader reader, const Bytes& bytes) {
  MemorySource source(bytes);
  return reader(source, kMaxPicturePixels);
}

Pixel32 pixelAt(const LoadResult& result, int x, int y) {
  return result ? test::pixelAt(*result.picture.bitmap, x, y) : Pixel32{1, 2, 3, 4};
}
int farthest(const LoadResult& result, const test::PixelOf& wanted) {
  return test::farthest(result.picture.bitmap.get(), wanted);
}
Bytes cut(const Bytes& whole, std::size_t length) {
  return Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
}

// Smooth in both directions, so that lossy files come close.
int smooth(int x, int y, int channel) {
  return 20 + 60 * channel + 3 * x + 2 * y;
}
Pixel32 smoothPixel(int x, int y) {
  return Pixel32::plain(rgb(smooth(x, y, 0), smooth(x, y, 1), smooth(x, y, 2)));
}

TEST(JpegReader, EveryKindOfFileGivesItsColours) {
  for (const test::JpegFile& file : {test::JpegFile{.width = 23, .height = 19},
                                     {.width = 23, .height = 19, .progressive = true},
                                     {.arithmetic = true},
                                     {.width = 17, .restart = 1}}) {
    const LoadResult result = read(readJpeg, test::makeJpeg(file, smooth));
    EXPECT_EQ(result.width, file.width);
    EXPECT_EQ(result.fileDepth, 24);
    EXPECT_LE(farthest(result, smoothPixel), 6) << file.progressive << file.arithmetic << file.restart;
  }
  const LoadResult grey = read(readJpeg, test::makeJpeg({.channels = 1}, smooth));
  EXPECT_EQ(grey.fileDepth, 8);
  const auto level = [](int x, int y) { return Pixel32::plain(0x10101u * static_cast<Colour>(smooth(x, y, 0))); };
  EXPECT_LE(farthest(grey, level), 2);
}

TEST(JpegReader, FourInksAreLightInAdobesFilesAndInkInOthers) {
  // Cyan 100, magenta 150, yellow 200 of the light pass; a quarter is held back by black.
  const auto light = [](int, int, int channel) { return channel == 3 ? 191 : 100 + 50 * channel; };
  const auto ink = [&](int x, int y, int channel) { return 255 - light(x, y, channel); };
  const auto wanted = [](int, int) { return Pixel32::plain(rgb(75, 112, 150)); };
  EXPECT_LE(farthest(read(readJpeg, test::makeJpeg({.channels = 4, .adobeMarker = true}, light)), wanted), 2);
  EXPECT_LE(farthest(read(readJpeg, test::makeJpeg({.channels = 4}, ink)), wanted), 2);
}

// Blank or coarse rows would be taken for the picture and saved over it. Only the end marker may be missing.
TEST(JpegReader, CutFilesAreRefusedUnlessAllRowsCame) {
  const auto busy = [](int x, int y, int c) { return (x * y * 7 + c * 31) & 255; };
  const test::JpegFile files[] = {{.width = 64, .height = 256},
                                  {.width = 64, .height = 256, .restart = 1},
                                  {.width = 64, .height = 256, .channels = 1, .arithmetic = true},
                                  {.width = 64, .height = 256, .progressive = true},
                                  {.width = 64, .height = 256, .progressive = true, .arithmetic = true}};
  for (const test::JpegFile& file : files) {
    SCOPED_TRACE(testing::Message() << file.restart << file.progressive << file.arithmetic);
    const Bytes whole = test::makeJpeg(file, busy);
    const auto cutTo = [&](std::size_t length) { return read(readJpeg, cut(whole, length)); };
    const LoadResult open = cutTo(whole.size() - 2);
    ASSERT_TRUE(open) << "only the end marker is gone";
    const LoadResult full = read(readJpeg, whole);
    EXPECT_EQ(farthest(open, [&](int x, int y) { return pixelAt(full, x, y); }), 0);
    for (std::size_t tenths = 1; tenths < 10; ++tenths) {
      EXPECT_EQ(cutTo(whole.size() * tenths / 10).error, LoadError::Broken) << tenths;
    }
    // Every scan of a progressive file starts with this marker; a cut there leaves a coarse picture of all rows.
    for (std::size_t at = whole.size() - 2; file.progressive && at > whole.size() / 2; --at) {
      if (whole[at] != 0xFF || whole[at + 1] != 0xDA) continue;
      EXPECT_EQ(cutTo(at).error, LoadError::Broken) << at;
    }
  }
}

TEST(PngReader, EveryColourTypeAndDepth) {
  const auto small = [](int x, int y, int channel) { return (x + 2 * y + channel) & 1; };
  for (const int depth : {1, 2, 4, 8, 16}) {
    const int step = depth == 16 ? 65535 : 255 / (255 / ((1 << depth) - 1));
    const LoadResult grey =
        read(readPng, test::makePng({.width = 11, .depth = depth, .colourType = 0, .interlaced = depth == 4},
                                    [&](int x, int y, int c) { return small(x, y, c) * step; }));
    EXPECT_EQ(farthest(grey, [&](int x, int y) { return Pixel32::plain(small(x, y, 0) ? kWhite : kBlack); }), 0)
        << depth;
    EXPECT_EQ(grey.fileDepth, depth);
  }
  const std::vector<Colour> table = {rgb(1, 2, 3), rgb(200, 100, 50)};
  for (const int depth : {1, 8}) {
    const LoadResult indexed = read(readPng, test::makePng({.depth = depth, .colourType = 3, .table = table}, small));
    EXPECT_FALSE(indexed.picture.hasAlpha);
    EXPECT_EQ(farthest(indexed, [&](int x, int y) { return Pixel32::plain(table[small(x, y, 0)]); }), 0) << depth;
  }
  EXPECT_EQ(farthest(read(readPng, test::makePng({.width = 9, .interlaced = true}, smooth)), smoothPixel), 0);
}

TEST(PngReader, AlphaComesOutStraight) {
  const auto sample = [](int x, int y, int channel) { return channel == 3 ? 16 * x + y : smooth(x, y, channel); };
  const auto wanted = [&](int x, int y) {
    Pixel32 p = smoothPixel(x, y);
    p.alpha = static_cast<std::uint8_t>(sample(x, y, 3));
    return p;
  };
  const LoadResult full = read(readPng, test::makePng({.colourType = 6}, sample));
  EXPECT_TRUE(full.picture.hasAlpha);
  EXPECT_EQ(farthest(full, wanted), 0);
  const LoadResult wide = read(readPng, test::makePng({.depth = 16, .colourType = 6},
                                                      [&](int x, int y, int c) { return 257 * sample(x, y, c); }));
  EXPECT_EQ(farthest(wide, wanted), 0);
  const LoadResult keyed =
      read(readPng, test::makePng({.colourType = 3, .transparent = 1, .table = {kWhite, rgb(9, 8, 7)}},
                                  [](int x, int, int) { return x & 1; }));
  EXPECT_TRUE(keyed.picture.hasAlpha);
  EXPECT_EQ(pixelAt(keyed, 0, 0), Pixel32::opaque(kWhite));
  EXPECT_EQ(pixelAt(keyed, 1, 0), (Pixel32{7, 8, 9, 0}));
}

TEST(PngReader, CutAndDamagedFilesAreRefused) {
  Bytes bytes =
      test::makePng({.width = 40, .height = 40}, [](int x, int y, int c) { return (x * y * 7 + c * 31) & 255; });
  EXPECT_EQ(read(readPng, cut(bytes, bytes.size() / 2)).error, LoadError::Broken);
  bytes[29] ^= 1;  // the checksum of the header
  EXPECT_EQ(read(readPng, bytes).error, LoadError::Broken);
}

// Data behind the last row are inflated only to be checked: a small file can hold hours of them.
TEST(PngReader, RowsBehindTheLastAreReadOnlyToALimit) {
  const auto busy = [](int x, int y, int c) {
    const auto n = static_cast<std::uint32_t>((x + 64 * y) * 3 + c) * 2654435761u;
    return static_cast<int>((n ^ n >> 15) * 2246822519u >> 24);
  };
  const auto statingFourRows = [&](int rows) {
    Bytes bytes = test::makePng({.width = 64, .height = rows}, busy);
    bytes[22] = 0;
    bytes[23] = 4;
    const auto sum = static_cast<std::uint32_t>(crc32(0, bytes.data() + 12, 17));
    for (int i = 0; i < 4; ++i) bytes[29 + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
    return read(readPng, bytes);
  };
  EXPECT_TRUE(statingFourRows(40));
  const LoadResult endless = statingFourRows(4000);
  EXPECT_EQ(endless.error, LoadError::Broken);
  EXPECT_EQ(endless.height, 4);
}

TEST(TiffReader, StripsTilesAndPlanesGiveTheSamePicture) {
  for (const int tile : {0, 16}) {
    for (const bool planes : {false, true}) {
      for (const int compression : {1, 5, 8, 32773}) {  // none, LZW, deflate, PackBits
        test::TiffFile file{.width = 21, .height = 18, .compression = compression, .planes = planes};
        file.tile = tile;
        file.rowsPerStrip = 5;
        EXPECT_EQ(farthest(read(readTiff, test::makeTiff(file, smooth)), smoothPixel), 0)
            << tile << planes << compression;
      }
    }
  }
}

TEST(TiffReader, SamplesOfEveryDepth) {
  for (const int bits : {1, 2, 4, 6, 8, 12, 16, 24}) {
    const std::int64_t most = (1LL << bits) - 1;
    const auto level = [&](int x, int, int) { return static_cast<int>(most * (x % 2)); };
    for (const int photometric : {0, 1}) {  // white is zero, black is zero
      const LoadResult grey =
          read(readTiff, test::makeTiff({.bits = bits, .samples = 1, .photometric = photometric}, level));
      EXPECT_EQ(grey.fileDepth, bits);
      const auto wanted = [&](int x, int) { return Pixel32::plain(x % 2 == photometric ? kWhite : kBlack); };
      EXPECT_EQ(farthest(grey, wanted), 0) << bits << ' ' << photometric;
    }
    const LoadResult planar = read(readTiff, test::makeTiff({.bits = bits, .planes = true}, [&](int x, int y, int c) {
                                     return c == 1 ? level(x, y, c) : 0;
                                   }));
    EXPECT_EQ(farthest(planar, [](int x, int) { return Pixel32::plain(x % 2 ? rgb(0, 255, 0) : kBlack); }), 0) << bits;
  }
  const LoadResult real = read(readTiff, test::makeTiff({.bits = 32, .isFloat = true}, smooth));
  EXPECT_EQ(farthest(real, smoothPixel), 0);
  const LoadResult fax = read(
      readTiff, test::makeTiff({.width = 40, .height = 9, .bits = 1, .samples = 1, .photometric = 0, .compression = 4},
                               [](int x, int y, int) { return (x / 3 + y) & 1; }));
  EXPECT_EQ(farthest(fax, [](int x, int y) { return Pixel32::plain((x / 3 + y) & 1 ? kBlack : kWhite); }), 0);
}

TEST(TiffReader, TablesAndInks) {
  const std::vector<Colour> table = {rgb(255, 0, 0), rgb(0, 9, 0), rgb(0, 0, 200), rgb(1, 2, 3)};
  const LoadResult indexed = read(readTiff, test::makeTiff({.bits = 2, .samples = 1, .photometric = 3, .table = table},
                                                           [](int x, int y, int) { return (x + y) & 3; }));
  EXPECT_EQ(farthest(indexed, [&](int x, int y) { return Pixel32::plain(table[(x + y) & 3]); }), 0);
  const LoadResult inks = read(readTiff, test::makeTiff({.samples = 4, .photometric = 5},
                                                        [](int, int, int c) { return c == 3 ? 64 : 155 - 50 * c; }));
  EXPECT_LE(farthest(inks, [](int, int) { return Pixel32::plain(rgb(75, 112, 150)); }), 1);
}

TEST(TiffReader, AlphaIsWhatTheFileCallsAlpha) {
  // Extra kinds: 0 unspecified, 1 multiplied, 2 straight.
  const auto rgba = [](int extra, int red) {
    return read(readTiff, test::makeTiff({.samples = 4, .extra = extra}, [=](int, int, int c) {
                  return c == 3 ? 128 : c == 0 ? red : 0;
                }));
  };
  EXPECT_FALSE(rgba(0, 200).picture.hasAlpha);
  EXPECT_EQ(pixelAt(rgba(0, 200), 0, 0), (Pixel32{0, 0, 200, 0}));
  EXPECT_EQ(pixelAt(rgba(1, 100), 0, 0), (Pixel32{0, 0, 199, 128}));
  EXPECT_EQ(pixelAt(rgba(2, 200), 0, 0), (Pixel32{0, 0, 200, 128}));
}

TEST(TiffReader, ThePictureIsNotTurnedByItsOrientation) {
  for (const int orientation : {3, 6}) {
    const LoadResult result =
        read(readTiff, test::makeTiff({.orientation = orientation}, [](int x, int y, int) { return 10 * x + y + 1; }));
    EXPECT_EQ(result.width, 5);
    EXPECT_EQ(result.picture.width, 5);
    EXPECT_EQ(pixelAt(result, 4, 2).red, 43);
  }
}

TEST(TiffReader, CutFilesAreRefused) {
  const Bytes bytes = test::makeTiff({.width = 50, .height = 50}, smooth);
  for (const std::size_t length : {8u, 100u, static_cast<unsigned>(bytes.size() - 20)}) {
    EXPECT_EQ(read(readTiff, cut(bytes, length)).error, LoadError::Broken);
  }
}

TEST(GifReader, FirstFrameLiesOnItsScreen) {
  test::GifFile file{
      .screenWidth = 5,
      .screenHeight = 4,
      .background = 2,
      .table = {kBlack, kWhite, rgb(10, 20, 30), rgb(255, 0, 0)},
      .frames = {{.left = 1, .top = 1, .width = 3, .height = 9, .transparent = 3, .interlaced = true}, {.width = 5}}};
  const LoadResult result = read(readGif, test::makeGif(file, [](int x, int y, int) { return x == 2 ? 3 : y & 1; }));
  ASSERT_EQ(result.width, 5);
  ASSERT_EQ(result.height, 4);
  const auto wanted = [&](int x, int y) {
    return Pixel32::plain(file.table[x >= 1 && x < 3 && y >= 1 ? (y - 1) & 1 : 2]);
  };
  EXPECT_EQ(farthest(result, wanted), 0);
}

TEST(GifReader, DamagedFirstFrameIsRefusedLaterOnesDoNotMatter) {
  const test::GifFile file{.screenWidth = 30,
                           .screenHeight = 30,
                           .table = {kBlack, kWhite},
                           .frames = {{.width = 30, .height = 30}, {.width = 30, .height = 30}}};
  const Bytes bytes = test::makeGif(file, [](int x, int y, int) { return (x * y * 7 >> 2) & 1; });
  EXPECT_TRUE(read(readGif, cut(bytes, bytes.size() * 3 / 4)));
  EXPECT_EQ(read(readGif, cut(bytes, bytes.size() / 4)).error, LoadError::Broken);
}

}  // namespace
}  // namespace ruvo::imaging
