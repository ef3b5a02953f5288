#include "formats/format_table.h"

#include <gmock/gmock.h>

#include "base/file_io.h"
#include "formats/clsGIF.h"
#include "formats/clsICO.h"
#include "image/basGDIProc.h"
#include "platform/imaging/imaging_service.h"
#include "support/bmp_bytes.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using test::BmpFile;
using test::dibOf;
using test::TempFolder;

TEST(FormatTable, NamesAFormatByItsExtension) {
  for (const auto& [extension, format] : std::vector<std::pair<std::string, Format>>{{".bmp", Format::Bmp},
                                                                                     {".JPEG", Format::Jpeg},
                                                                                     {".Jpg", Format::Jpeg},
                                                                                     {".tiff", Format::Tiff},
                                                                                     {".cur", Format::Cur}}) {
    const FormatRow* row = formatOfExtension(extension);
    ASSERT_TRUE(row) << extension;
    EXPECT_EQ(row->format, format) << extension;
    EXPECT_EQ(&rowOf(format), row) << extension;
  }
  for (const char* none : {"", ".", "bmp", ".jp", ".jpe", ".bmp/.gif", ".gif/", ".xbm"}) {
    EXPECT_EQ(formatOfExtension(none), nullptr) << none;
  }
  EXPECT_EQ(openableExtensions(), ".bmp/.gif/.jpg/.jpeg/.wmf/.emf/.png/.tif/.tiff/.tga/.pcx/.ico/.cur");
}

TEST(FormatTable, OpensPartsOfAnExtensionByContent) {
  EXPECT_EQ(formatToOpen(".png")->format, Format::Png);
  ASSERT_TRUE(formatToOpen(".jpe"));
  EXPECT_EQ(formatToOpen(".xbm"), nullptr);
  EXPECT_EQ(formatToOpen(""), nullptr);

  TempFolder folder;
  const auto file = folder / "rose.jpe";
  replaceFile(file, BmpFile{.width = 2, .height = 1, .data = {1, 2, 3, 4, 5, 6, 0, 0}}.bytes());
  const ReadPicture read = readPicture(file, *formatToOpen(".jpe"));
  ASSERT_TRUE(read);
  EXPECT_EQ(read.fileDepth, 24);
  EXPECT_EQ(read.dib.size(), (Size{2, 1}));
}

// Half-transparent pixels of the file that the imaging service reads, with and without the white ground.
TEST(FormatTable, ShowsAlphaOnWhiteUnlessItIsKept) {
  TempFolder folder;
  imaging::startImagingService();
  clsDIB half = dibOf(2, 1, [](int x, int) { return x == 0 ? Pixel32{0, 100, 200, 128} : Pixel32{9, 8, 7, 0}; });
  half.setDIBhasAlpha(true);
  for (const Format format : {Format::Png, Format::Tiff}) {
    const FormatRow& row = rowOf(format);
    const auto file = folder / ("half" + std::string(row.extensions.substr(0, 4)));
    ASSERT_TRUE(SaveDIBWithEncoder(half, file, format == Format::Png ? kEncodePng : kEncodeTiff, 32));
    const ReadPicture shown = readPicture(file, row);
    ASSERT_TRUE(shown);
    EXPECT_FALSE(shown.dib.DIBhasAlpha());
    EXPECT_EQ(test::pixelAt(shown.dib, 0, 0), (Pixel32{127, 177, 227, 0})) << row.name;
    EXPECT_EQ(test::pixelAt(shown.dib, 1, 0), (Pixel32{255, 255, 255, 0})) << row.name;
    const ReadPicture kept = readPicture(file, row, {.keepAlpha = true});
    ASSERT_TRUE(kept);
    EXPECT_TRUE(kept.dib.DIBhasAlpha());
    EXPECT_EQ(test::pixelAt(kept.dib, 0, 0), (Pixel32{0, 100, 200, 128})) << row.name;
  }
  imaging::stopImagingService();
  EXPECT_EQ(readPicture(folder / "half.png", rowOf(Format::Png)).error, imaging::LoadError::NotThisFormat);
}

TEST(FormatTable, AsksWhichImageOfAnIconToShow) {
  TempFolder folder;
  clsICO icon;
  for (const int width : {2, 1}) {
    clsICO::Image image;
    image.XOR.CreateBlankDIB(width, 1, 24, rgb(200, 100, 50));
    image.AND.CreateBlankDIB(width, 1, 1, kWhite);
    icon.add(std::move(image));
  }
  ASSERT_TRUE(icon.SaveICO_All(folder / "two.ico"));
  for (const int choice : {0, 1, -1}) {
    const ReadPicture read =
        readPicture(folder / "two.ico", rowOf(Format::Ico), {.chooseImage = [=](const clsICO&) { return choice; }});
    EXPECT_EQ(read.cancelled, choice < 0);
    EXPECT_EQ(read.dib.DIBWidth(), choice < 0 ? 0 : 2 - choice);
  }
}

// Appended bytes take the file over the limit: the platform's loader then reads it, and knows no transparency.
TEST(FormatTable, ReadsALargeGifByThePlatform) {
  TempFolder folder;
  clsGIF gif;
  ASSERT_TRUE(gif.FrameInsertImage(dibOf({"#."}), 1, {}));
  std::vector<std::uint8_t> bytes = gif.saveBytes();
  bytes.resize(kLargestModelledGif);
  replaceFile(folder / "limit.gif", bytes);
  EXPECT_TRUE(readPicture(folder / "limit.gif", rowOf(Format::Gif)).transparent);
  bytes.push_back(0);
  replaceFile(folder / "large.gif", bytes);
  const ReadPicture large = readPicture(folder / "large.gif", rowOf(Format::Gif));
  ASSERT_TRUE(large);
  EXPECT_FALSE(large.transparent);
  EXPECT_PICTURE(test::rowsOf(large.dib), {"#."});
  EXPECT_TRUE(readPicture(folder / "large.gif", rowOf(Format::Gif), {.native = true}).transparent);
}

TEST(FormatTable, HandsTheSizeOfARefusedFileOver) {
  TempFolder folder;
  const auto file = folder / "wide.bmp";
  replaceFile(file, BmpFile{.width = 32761, .height = 2}.bytes());
  const ReadPicture read = readPicture(file, rowOf(Format::Bmp));
  EXPECT_FALSE(read);
  EXPECT_EQ(read.error, imaging::LoadError::TooLarge);
  EXPECT_EQ(read.width, 32761);
  EXPECT_EQ(readPicture(folder / "none.bmp", rowOf(Format::Bmp)).error, imaging::LoadError::Missing);
}

}  // namespace
}  // namespace ruvo
