// What the encoders write, read back by the decoders (which are checked against the libraries' own files).
#include "platform/imaging/encoders.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/imaging/codecs.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo::imaging {
namespace {

using raster::Surface;

Pixel32 rampPixel(int x, int y) {
  return {static_cast<std::uint8_t>(5 * x), static_cast<std::uint8_t>(9 * y), static_cast<std::uint8_t>(200 - x),
          static_cast<std::uint8_t>(7 * x + 3)};
}

class Encoders : public testing::Test {
 protected:
  LoadResult back() {
    FileBytes file(path_);
    std::array<std::uint8_t, 8> first{};
    return readAny(file, kindOf(std::span(first).first(file.readAt(0, first))));
  }
  int farthest(const test::PixelOf& wanted) { return test::farthest(back().picture.bitmap.get(), wanted); }
  static Pixel32 noAlpha(Pixel32 p) { return {p.blue, p.green, p.red, 0}; }

  test::TempFolder folder_;
  std::filesystem::path path_ = folder_ / "picture.out";
};

TEST_F(Encoders, PngAndTiffKeepEveryPixelAndAlphaOnlyWhenAsked) {
  for (const auto order : {raster::RowOrder::BottomUp, raster::RowOrder::TopDown}) {
    const Surface surface = test::surfaceOf(33, 21, rampPixel, order);
    for (const bool alpha : {false, true}) {
      const auto wanted = [&](int x, int y) { return alpha ? rampPixel(x, y) : noAlpha(rampPixel(x, y)); };
      ASSERT_TRUE(savePng(surface, path_, alpha));
      EXPECT_EQ(back().fileDepth, alpha ? 32 : 24);
      EXPECT_EQ(farthest(wanted), 0);
      ASSERT_TRUE(saveTiff(surface, path_, alpha ? 32 : 24, alpha));
      EXPECT_EQ(back().picture.hasAlpha, alpha);
      EXPECT_EQ(farthest(wanted), 0);
    }
    ASSERT_TRUE(saveTiff(surface, path_, 32, false));
    EXPECT_EQ(farthest([](int x, int y) { return Pixel32::opaque(rampPixel(x, y).colour()); }), 0);
  }
}

TEST_F(Encoders, SurfacesOfEveryDepthAreTaken) {
  for (const int depth : {1, 4, 8, 24}) {
    Surface surface;
    ASSERT_TRUE(surface.create(13, 5, depth));
    if (depth <= 8) {
      surface.table()[0] = raster::TableEntry::of(rgb(1, 100, 200));
      surface.table()[1] = raster::TableEntry::of(rgb(250, 0, 60));
    }
    // One pixel of another colour at (8, 1).
    std::uint8_t* row = surface.pictureRow(1);
    if (depth == 24) {
      row[24] = 60;
      row[26] = 250;
    } else {
      row[8 * depth / 8] = depth == 1 ? 0x80 : depth == 4 ? 0x10 : 1;
    }
    const auto wanted = [&](int x, int y) {
      return Pixel32::plain(x == 8 && y == 1 ? rgb(250, 0, 60) : depth == 24 ? kBlack : rgb(1, 100, 200));
    };
    ASSERT_TRUE(savePng(surface, path_, true));
    EXPECT_EQ(back().fileDepth, depth);
    EXPECT_EQ(farthest(wanted), 0) << depth;
    ASSERT_TRUE(saveTiff(surface, path_, 8, false));
    EXPECT_EQ(farthest(wanted), 0) << depth;
    ASSERT_TRUE(saveGif(surface, path_));
    EXPECT_EQ(back().fileDepth, std::min(depth, 8));
    EXPECT_EQ(farthest(wanted), 0) << depth;
    EXPECT_TRUE(saveJpeg(surface, path_, 90));
  }
}

TEST_F(Encoders, JpegQualityIsTakenAsItIsAndChromaIsHalved) {
  const auto smooth = [](int x, int y) { return Pixel32::plain(rgb(3 * x, 3 * y, 200 - x)); };
  const Surface surface = test::surfaceOf(64, 64, smooth);
  std::uintmax_t last = 0;
  for (const int quality : {10, 55, 65, 95, 100}) {
    ASSERT_TRUE(saveJpeg(surface, path_, quality));
    EXPECT_GT(std::filesystem::file_size(path_), last) << quality;
    last = std::filesystem::file_size(path_);
  }
  EXPECT_LE(farthest(smooth), 8);
  std::ifstream in(path_, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), {});
  const std::size_t frame = bytes.find("\xFF\xC0");
  ASSERT_NE(frame, std::string::npos);
  EXPECT_EQ(bytes[frame + 11], 0x22);  // luma twice as dense both ways
  EXPECT_EQ(bytes[frame + 14], 0x11);
}

TEST_F(Encoders, TiffTablesAreExactWhenTheyCanBeAndDitheredElse) {
  const auto blackOrWhite = [](int x, int y) { return Pixel32::plain((x ^ y) & 1 ? kWhite : kBlack); };
  ASSERT_TRUE(saveTiff(test::surfaceOf(9, 4, blackOrWhite), path_, 1, false));
  EXPECT_EQ(back().fileDepth, 1);
  EXPECT_EQ(farthest(blackOrWhite), 0);
  const auto sixteen = [](int x, int y) { return Pixel32::plain(rgb(17 * (x & 3), 90 * (y & 3), 5)); };
  ASSERT_TRUE(saveTiff(test::surfaceOf(8, 8, sixteen), path_, 4, false));
  EXPECT_EQ(back().fileDepth, 4);
  EXPECT_EQ(farthest(sixteen), 0);
  // A flat grey at depth 1 keeps its brightness on the average.
  ASSERT_TRUE(
      saveTiff(test::surfaceOf(64, 64, [](int, int) { return Pixel32::plain(rgb(64, 64, 64)); }), path_, 1, false));
  const LoadResult dithered = back();
  std::int64_t sum = 0;
  for (const std::uint8_t byte : dithered.picture.bitmap->bytes()) sum += byte;
  EXPECT_NEAR(static_cast<double>(sum) / (64 * 64 * 3), 64, 3);
  // 8 bits with more colours than fit: every pixel stays within a step of the fixed table.
  const auto many = [](int x, int y) { return Pixel32::plain(rgb(4 * x, 4 * y, 2 * (x + y))); };
  ASSERT_TRUE(saveTiff(test::surfaceOf(60, 60, many), path_, 8, false));
  EXPECT_LE(farthest(many), 90);
}

}  // namespace
}  // namespace ruvo::imaging
