#include "formats/format_table.h"

#include "base/file_io.h"
#include "formats/clsGIF.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

TEST(FormatTable, NamesAFormatByItsExtension) {
  for (const auto& [extension, format] : {std::pair{".bmp", Format::Bmp},
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
  EXPECT_EQ(formatToOpen(".png")->format, Format::Png);
  EXPECT_TRUE(formatToOpen(".jpe")) << "part of an extension";
  EXPECT_FALSE(formatToOpen(".xbm") || formatToOpen(""));
  EXPECT_EQ(openableExtensions(), ".bmp/.gif/.jpg/.jpeg/.wmf/.emf/.png/.tif/.tiff/.tga/.pcx/.ico/.cur");
}

// Appended bytes take the file over the limit: the platform's loader then reads it, and knows no transparency.
TEST(FormatTable, ReadsALargeGifByThePlatform) {
  const test::TempFolder folder;
  clsGIF gif;
  ASSERT_TRUE(gif.FrameInsertImage(test::dibOf({"#."}), 1, {}));
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

}  // namespace
}  // namespace ruvo
