// Each decoder against files that the format's own library wrote.
#include <gtest/gtest.h>

#include "formats/gif_bytes.h"
#include "formats/png_bytes.h"
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

// What every type and depth gives is compared with the program's own reader in the tests of that.
TEST(PngReader, CutAndDamagedFilesAreRefused) {
  Bytes bytes = test::randomPng(40, 40).bytes();
  EXPECT_EQ(read(readPng, cut(bytes, bytes.size() / 2)).error, LoadError::Broken);
  bytes[29] ^= 1;  // the checksum of the header
  EXPECT_EQ(read(readPng, bytes).error, LoadError::Broken);
}

// Data behind the last row are inflated only to be checked: a small file can hold hours of them.
TEST(PngReader, RowsBehindTheLastAreReadOnlyToALimit) {
  const auto statingFourRows = [](std::uint32_t rows) {
    test::PngParts parts = test::randomPng(64, rows);
    parts.header.height = 4;
    return read(readPng, parts.bytes());
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
  test::GifBytes file(5, 4);
  file.control(1, 0, 3).image({"013", "103", "013", "103", "013", "103", "013", "103", "013"}, 1, 1, 64);
  const LoadResult result = read(readGif, file.control(0).image({"11111"}).bytes());
  ASSERT_TRUE(result);
  const test::Ink ink = {{'0', test::kFourColours[0]}, {'1', test::kFourColours[1]}, {'.', test::kFourColours[2]}};
  EXPECT_PICTURE(test::rowsOf(*result.picture.bitmap, ink), {".....", ".01..", ".10..", ".01.."})
      << "on the background";
}

TEST(GifReader, DamagedFirstFrameIsRefusedLaterOnesDoNotMatter) {
  test::Rows rows(30, std::string(30, '0'));
  for (int i = 0; i < 900; ++i) rows[i / 30][i % 30] += (i % 30 * (i / 30) * 7 >> 2) & 1;
  const Bytes bytes = test::GifBytes(30, 30).control(0).image(rows).control(0).image(rows).bytes();
  EXPECT_TRUE(read(readGif, cut(bytes, bytes.size() * 3 / 4)));
  EXPECT_EQ(read(readGif, cut(bytes, bytes.size() / 4)).error, LoadError::Broken);
}

}  // namespace
}  // namespace ruvo::imaging
