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

// Two images, 2 x 1 and 1 x 1; the first pixel of the first one is see-through.
std::filesystem::path twoIcons(const TempFolder& folder) {
  clsICO icon;
  for (const int width : {2, 1}) {
    clsICO::Image image;
    image.XOR.CreateBlankDIB(width, 1, 24, rgb(200, 100, 50));
    image.AND.CreateBlankDIB(width, 1, 1, kWhite);
    if (width == 2) {
      image.XOR.surface().pictureRow(0)[0] = image.XOR.surface().pictureRow(0)[1] = 0;
      image.XOR.surface().pictureRow(0)[2] = 0;
      image.AND.surface().pictureRow(0)[0] = 0x80;
    }
    icon.add(std::move(image));
  }
  icon.SaveICO_All(folder / "two.ico");
  return folder / "two.ico";
}

TEST(FormatTable, ShowsTheChosenImageOfAnIconOnWhite) {
  TempFolder folder;
  const auto file = twoIcons(folder);
  const FormatRow& row = rowOf(Format::Ico);
  const ReadPicture first = readPicture(file, row);
  ASSERT_TRUE(first);
  EXPECT_EQ(first.severalFrames, true);
  EXPECT_EQ(first.fileDepth, 24);
  EXPECT_EQ(test::pixelAt(first.dib, 0, 0).colour(), kWhite);
  EXPECT_EQ(test::pixelAt(first.dib, 1, 0).colour(), rgb(200, 100, 50));
  EXPECT_EQ(first.mask.surface().pictureRow(0)[0], 0x80);
  const ReadPicture kept = readPicture(file, row, {.keepAlpha = true});
  EXPECT_TRUE(kept.dib.DIBhasAlpha());
  EXPECT_EQ(test::pixelAt(kept.dib, 0, 0).alpha, 0);
  EXPECT_EQ(test::pixelAt(kept.dib, 1, 0).alpha, 255);

  const ReadPicture second = readPicture(file, row, {.chooseImage = [](const clsICO& icon) {
                                           EXPECT_EQ(icon.IconCount(), 2);
                                           return 1;
                                         }});
  EXPECT_EQ(second.dib.size(), (Size{1, 1}));
  const ReadPicture none = readPicture(file, row, {.chooseImage = [](const clsICO&) { return -1; }});
  EXPECT_TRUE(none.cancelled);
  EXPECT_FALSE(none);

  replaceFile(folder / "bad.cur", std::vector<std::uint8_t>{0, 0, 2, 0, 1, 0, 1, 1});
  EXPECT_EQ(readPicture(folder / "bad.cur", rowOf(Format::Cur)).words, clsICO::kInvalidCursor);
}

TEST(FormatTable, ShowsTheFirstFrameOfAGif) {
  TempFolder folder;
  clsGIF gif;
  ASSERT_TRUE(gif.FrameInsertImage(dibOf({"#.", "##", "#.", "#.", "#."}), 1, {}));
  ASSERT_TRUE(gif.FrameInsertImage(dibOf({".."}), 2, {}));
  gif.setFrameLeft(1, 1);
  gif.setFrameInterlaced(1, true);
  gif.setFrameUseTransparentColor(1, true);
  gif.setFrameTransparentColorIndex(1, gif.LocalPaletteColor(1, 0) == kBlack ? 0 : 1);
  gif.setBgdWidth(4);
  gif.setBgdHeight(5);
  ASSERT_TRUE(gif.Save(folder / "a.gif"));
  const FormatRow& row = rowOf(Format::Gif);
  const ReadPicture read = readPicture(folder / "a.gif", row);
  ASSERT_TRUE(read) << read.words;
  EXPECT_EQ(read.transparent, true);
  EXPECT_EQ(read.interlaced, true);
  EXPECT_EQ(read.severalFrames, true);
  EXPECT_EQ(read.fileDepth, 8);
  EXPECT_PICTURE(test::rowsOf(read.dib), (5, "...."));
  EXPECT_EQ(test::pixelAt(read.dib, 2, 0).alpha, 0);
  const ReadPicture kept = readPicture(folder / "a.gif", row, {.keepAlpha = true});
  ASSERT_TRUE(kept.dib.DIBhasAlpha());
  EXPECT_EQ(test::pixelAt(kept.dib, 0, 0).alpha, 0) << "nothing was drawn there";
  EXPECT_EQ(test::pixelAt(kept.dib, 2, 0).alpha, 255);
  EXPECT_EQ(test::pixelAt(kept.dib, 1, 0).alpha, 0) << "see-through";

  replaceFile(folder / "bad.gif", std::vector<std::uint8_t>(200, 'G'));
  const ReadPicture bad = readPicture(folder / "bad.gif", row);
  EXPECT_EQ(bad.gifCode, kGifNoSignature);
  EXPECT_EQ(bad.words, "No GIF signature.");
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

// The program's own reader blends by its own rule and names its refusals.
TEST(FormatTable, ReadsPngNatively) {
  TempFolder folder;
  imaging::startImagingService();
  clsDIB half = dibOf(12, 12, [](int x, int y) {
    return x == 0 ? Pixel32{0, 100, 200, 128} : Pixel32{static_cast<std::uint8_t>(x * y * 37), 8, 7, 255};
  });
  half.setDIBhasAlpha(true);
  ASSERT_TRUE(SaveDIBWithEncoder(half, folder / "half.png", kEncodePng));
  imaging::stopImagingService();
  const FormatRow& row = rowOf(Format::Png);
  const ReadPicture shown = readPicture(folder / "half.png", row, {.native = true});
  ASSERT_TRUE(shown) << shown.words;
  EXPECT_EQ(shown.fileDepth, 32);
  EXPECT_FALSE(shown.dib.DIBhasAlpha());
  EXPECT_NEAR(test::pixelAt(shown.dib, 0, 0).green, 177, 1);
  const ReadPicture kept = readPicture(folder / "half.png", row, {.native = true, .keepAlpha = true});
  EXPECT_TRUE(kept.dib.DIBhasAlpha());
  EXPECT_EQ(test::pixelAt(kept.dib, 0, 11), (Pixel32{0, 100, 200, 128}));
  replaceFile(folder / "bad.png", std::vector<std::uint8_t>(200, 'P'));
  EXPECT_THAT(readPicture(folder / "bad.png", row, {.native = true}).words,
              testing::StartsWith("Invalid PNG file signature."));
}

// A placeable WMF, one inch square, whose records draw nothing: its ground is white.
TEST(FormatTable, DrawsAMetafileOnWhite) {
  TempFolder folder;
  ByteWriter file;
  file.u32(0x9AC6CDD7);
  for (const int word : {0, 0, 0, 1440, 1440, 1440, 0, 0}) file.u16(static_cast<std::uint16_t>(word));
  file.u16(0x9AC6 ^ 0xCDD7 ^ 1440 ^ 1440 ^ 1440);
  for (const int word : {1, 9, 0x300}) file.u16(static_cast<std::uint16_t>(word));
  constexpr int kRecords = 8;
  file.u32(9 + 4 * kRecords + 3);
  file.u16(0);
  file.u32(4);
  file.u16(0);
  for (int i = 0; i < kRecords; ++i) {
    file.u32(4);
    for (const int word : {0x0102, 1}) file.u16(static_cast<std::uint16_t>(word));
  }
  file.u32(3);
  file.u16(0);
  replaceFile(folder / "a.wmf", file.bytes());
  const ReadPicture read = readPicture(folder / "a.wmf", rowOf(Format::Wmf));
  ASSERT_TRUE(read);
  EXPECT_EQ(read.dib.size(), (Size{96, 96}));
  EXPECT_EQ(clsDIB::IsMultiColorDIB(read.dib), kWhite);
  EXPECT_TRUE(rowOf(Format::Wmf).saveFilter.empty()) << "not written";
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
