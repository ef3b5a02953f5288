#include "image/basGDIProc.h"

#include <gtest/gtest.h>

#include "base/file_io.h"
#include "formats/register_codecs.h"
#include "platform/imaging/encoders.h"
#include "platform/imaging/imaging_service.h"
#include "platform/imaging/picture_loader.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

class GDIProc : public testing::Test {
 protected:
  void SetUp() override { imaging::startImagingService(); }
  void TearDown() override { imaging::startImagingService(); }

  clsDIB noisy() {
    clsDIB dib = test::plainDib(64, 48, kWhite);
    for (int i = 0; i < 64 * 48; ++i) dib.DIBBitsPtr()[4 * i + i % 3] = static_cast<std::uint8_t>(i * i >> 3);
    return dib;
  }
  test::TempFolder folder_;
};

TEST_F(GDIProc, EncodersAreChosenByNumber) {
  const clsDIB dib = noisy();
  const std::string_view mimes[] = {kMimeGif, kMimeJpeg, kMimePng, kMimeTiff};
  const int encoders[] = {kEncodeGif, kEncodeJpeg, kEncodePng, kEncodeTiff};
  for (int file = 1; file <= 4; ++file) {
    const auto path = folder_ / std::to_string(file);
    EXPECT_TRUE(SaveDIBWithEncoder(dib, path, encoders[file - 1]));  // by the usual quality and the surface's depth
    EXPECT_TRUE(imaging::LoadImageThroughGDIPlus(path)) << file;
    for (int mime = 1; mime <= 4; ++mime) EXPECT_EQ(IsFormatLoadable(path, mimes[mime - 1]), mime == file);
  }
  for (const int format : {-1, 0, 5}) EXPECT_FALSE(SaveDIBWithEncoder(dib, folder_ / "none", format, 85));
  EXPECT_EQ(folder_.names().size(), 4u);
  replaceFile(folder_ / "bad.jpg", std::vector<std::uint8_t>{0xFF, 0xD8, 0xFF, 0xD9});
  EXPECT_FALSE(IsFormatLoadable(folder_ / "bad.jpg", kMimeJpeg));
  EXPECT_EQ(GetEncoderClsid(kMimePng), kEncodePng);
  EXPECT_EQ(GetDecoderClsid(kMimeGif), kEncodeGif);
  EXPECT_FALSE(GetEncoderClsid("image/bmp") || GetDecoderClsid("image/webp"));
  EXPECT_GT(std::filesystem::file_size(folder_ / "2"), 1000u);
  EXPECT_EQ(imaging::LoadImageThroughGDIPlus(folder_ / "4").fileDepth, 32);
  EXPECT_TRUE(SaveTIFFWithDepth(dib, folder_ / "4", 24));
  EXPECT_EQ(imaging::LoadImageThroughGDIPlus(folder_ / "4").fileDepth, 24);
}

TEST_F(GDIProc, QualityHasAFloorOnlyInItsOwnOperation) {
  const clsDIB dib = noisy();
  const auto sizeAt = [&](auto&& save, int quality) {
    EXPECT_TRUE(save(quality));
    return std::filesystem::file_size(folder_ / "q.jpg");
  };
  const auto floored = [&](int q) { return SaveJPEGWithQuality(dib, folder_ / "q.jpg", q); };
  const auto exact = [&](int q) { return SaveDIBWithEncoder(dib, folder_ / "q.jpg", kEncodeJpeg, q); };
  EXPECT_EQ(sizeAt(floored, 50), sizeAt(exact, 70));
  EXPECT_EQ(sizeAt(floored, 300), sizeAt(exact, 100));
  EXPECT_LT(sizeAt(exact, 50), sizeAt(exact, 55));
  EXPECT_LT(sizeAt(exact, 55), sizeAt(exact, 70));
}

TEST_F(GDIProc, WithoutAnEncoderThereIsNoGif) {
  const clsDIB dib = test::plainDib(5, 4, kWhite, 8);
  imaging::setGifEncoder(nullptr);
  EXPECT_FALSE(GetEncoderClsid(kMimeGif));
  EXPECT_TRUE(GetEncoderClsid(kMimePng) && GetDecoderClsid(kMimeGif));
  EXPECT_FALSE(SaveDIBWithEncoder(dib, folder_ / "a.gif", kEncodeGif));
  EXPECT_TRUE(folder_.names().empty());
  registerFormatCodecs();
  EXPECT_TRUE(SaveDIBWithEncoder(dib, folder_ / "a.gif", kEncodeGif));
}

TEST_F(GDIProc, ResizingKeepsDepthAlphaTableAndRowOrder) {
  for (const int depth : {1, 4, 8, 24, 32}) {
    for (const bool quality : {false, true}) {
      clsDIB dib = test::plainDib(6, 4, kWhite, depth, depth == 8);
      dib.setDIBhasAlpha(depth == 32);
      if (depth == 8) dib.surface().pictureRow(0)[0] = 1;
      ASSERT_TRUE(ResizeDIBQuality(dib, 12, 8, quality));
      EXPECT_EQ(dib.size(), (Size{12, 8}));
      EXPECT_EQ(dib.DIBbpp(), depth);
      EXPECT_EQ(dib.DIBhasAlpha(), depth == 32);
      EXPECT_EQ(dib.BottomUp(), depth == 8);
      EXPECT_EQ(dib.DIBBackColor(), kWhite);
      EXPECT_TRUE(depth > 8 || dib.surface().table()[1].colour() == kWhite) << depth;
      EXPECT_TRUE(depth != 8 || dib.surface().pictureRow(0)[0] == 1);
    }
  }
  clsDIB dib = test::dibOf({"#.", ".#"});
  ASSERT_TRUE(ResizeDIBQuality(dib, 4, 4, false));
  EXPECT_PICTURE(test::rowsOf(dib), {"##..", "##..", "..##", "..##"});
  for (const auto& [width, height] : {std::pair{0, 5}, {5, -1}, {32761, 1}, {5001, 5000}}) {
    EXPECT_FALSE(ResizeDIBQuality(dib, width, height, true));
  }
  EXPECT_EQ(dib.size(), (Size{4, 4}));
  clsDIB empty;
  EXPECT_FALSE(ResizeDIBQuality(empty, 5, 5, true));
}

}  // namespace
}  // namespace ruvo
