#include "platform/imaging/picture_loader.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include "base/file_io.h"
#include "base/limits.h"
#include "formats/gif_bytes.h"
#include "formats/png_bytes.h"
#include "platform/imaging/codecs.h"
#include "platform/imaging/imaging_service.h"
#include "platform/imaging/sample_files.h"
#include "support/bmp_bytes.h"
#include "support/temp_folder.h"

namespace ruvo::imaging {
namespace {

using test::Bytes;

Bytes bmpOneRedPixel() {
  return test::BmpFile{.width = 1, .height = 1, .data = {0, 0, 255, 0}}.bytes();
}

int ramp(int x, int y, int channel) {
  return 40 * channel + 10 * x + y;
}

class PictureLoader : public testing::Test {
 protected:
  void SetUp() override {
    setServiceFaults({});
    startImagingService();
  }
  void TearDown() override { setServiceFaults({}); }

  std::filesystem::path put(const std::string& name, const Bytes& bytes) {
    replaceFile(folder_ / name, bytes);
    return folder_ / name;
  }
  test::TempFolder folder_;
};

TEST_F(PictureLoader, ContentDecidesWhateverTheExtension) {
  const auto jpeg = put("photo.bmp", test::makeJpeg({}, ramp));
  const auto bmp = put("drawing.jpg", bmpOneRedPixel());
  const auto gif = put("still.wmf", test::GifBytes(2, 1).image({"01"}).bytes());
  const auto png = put("shot.jpg", test::randomPng().bytes());
  const auto tiff = put("scan.bmp", test::makeTiff({}, ramp));
  for (const auto& path : {jpeg, bmp, gif}) {
    EXPECT_TRUE(LoadPicture(path)) << path;
    EXPECT_TRUE(LoadImageThroughGDIPlus(path)) << path;
  }
  for (const auto& path : {png, tiff}) {
    EXPECT_EQ(LoadPicture(path).error, LoadError::NotThisFormat) << path;
    EXPECT_TRUE(LoadImageThroughGDIPlus(path)) << path;
  }
  EXPECT_EQ(LoadPicture(bmp).picture.bitmap->depth(), 24);
  EXPECT_EQ(LoadPicture(bmp).picture.bitmap->pictureRow(0)[2], 255);
}

TEST_F(PictureLoader, WhatIsNoPictureIsRefusedByItsReason) {
  EXPECT_EQ(LoadPicture(folder_ / "none.jpg").error, LoadError::Missing);
  EXPECT_EQ(LoadPicture(folder_.path()).error, LoadError::Missing);
  EXPECT_EQ(LoadPicture(put("empty.jpg", {})).error, LoadError::NotThisFormat);
  EXPECT_EQ(LoadPicture(put("text.jpg", Bytes(100, 'x'))).error, LoadError::NotThisFormat);
  EXPECT_EQ(LoadPicture(put("head.jpg", {0xFF, 0xD8, 0xFF})).error, LoadError::Broken);
  Bytes cutBmp = bmpOneRedPixel();
  cutBmp.resize(55);
  EXPECT_EQ(LoadPicture(put("cut.bmp", cutBmp)).error, LoadError::Broken);
  const auto huge = put("huge.png", {});
  ASSERT_EQ(::truncate(huge.c_str(), kMaxFileBytes + 1), 0);
  EXPECT_EQ(LoadImageThroughGDIPlus(huge).error, LoadError::TooLarge);
}

TEST_F(PictureLoader, ServiceSwitchesDecideWhatLoads) {
  const auto png = put("a.png", test::randomPng().bytes());
  setServiceFaults({.failsToStart = true});
  EXPECT_TRUE(imagingUsable());  // not before the next start
  EXPECT_FALSE(startImagingService());
  EXPECT_TRUE(imagingFound());
  EXPECT_FALSE(LoadImageThroughGDIPlus(png));
  EXPECT_TRUE(LoadPicture(put("b.jpg", test::makeJpeg({}, ramp))));
  setServiceFaults({.notFound = true});
  EXPECT_FALSE(startImagingService());
  EXPECT_FALSE(imagingFound());
  setServiceFaults({.noZlib = true});
  EXPECT_FALSE(zlibPresent());
  EXPECT_TRUE(startImagingService());
  stopImagingService();
  EXPECT_FALSE(imagingUsable());
}

// A hostile header must be refused for its size, with the size told, and before any pixels are allocated.
TEST(ReaderLimits, StatedSizesAreCheckedBeforePixelsAreMade) {
  Bytes jpeg = test::makeJpeg({}, ramp);
  for (std::size_t i = 0; i + 9 < jpeg.size(); ++i) {
    if (jpeg[i] == 0xFF && jpeg[i + 1] == 0xC0) jpeg[i + 5] = jpeg[i + 6] = jpeg[i + 7] = jpeg[i + 8] = 0xFF;
  }
  Bytes gif = test::GifBytes(2, 1).image({"01"}).bytes();
  gif[6] = gif[7] = gif[8] = gif[9] = 0xFF;
  MemorySource jpegSource(jpeg), gifSource(gif);
  for (const LoadResult& result : {readJpeg(jpegSource), readGif(gifSource)}) {
    EXPECT_EQ(result.error, LoadError::TooLarge);
    EXPECT_EQ(result.width, 65535);
    EXPECT_EQ(result.height, 65535);
  }
  const Bytes wide =
      test::makeTiff({.width = 32761, .height = 1, .samples = 1, .photometric = 1}, [](int, int, int) { return 0; });
  const Bytes large = test::PngParts{{5001, 5000, 1, 0, 0, 0, 0}}.bytes();
  MemorySource wideSource(wide), largeSource(large);
  EXPECT_EQ(readTiff(wideSource).error, LoadError::TooLarge);
  const LoadResult png = readPng(largeSource);
  EXPECT_EQ(png.error, LoadError::TooLarge);
  EXPECT_EQ(png.width, 5001);
}

}  // namespace
}  // namespace ruvo::imaging
