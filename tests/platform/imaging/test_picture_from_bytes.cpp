#include <gtest/gtest.h>

#include "base/limits.h"
#include "formats/png_bytes.h"
#include "image/clsDIB.h"
#include "platform/imaging/clipboard_types.h"
#include "platform/imaging/metafile_files.h"
#include "platform/imaging/picture_loader.h"
#include "platform/imaging/sample_files.h"
#include "support/bmp_bytes.h"

namespace ruvo::imaging {
namespace {

using test::Bytes;

TEST(PictureFromBytes, FilesAndBitmapsWithoutFileHeaderAreToldApart) {
  const test::BmpFile file{.width = 2,
                           .height = 2,
                           .bits = 8,
                           .coloursUsed = 2,
                           .table = {rgb(9, 8, 7), kWhite},
                           .data = {1, 0, 0, 0, 0, 1, 0, 0}};
  const Bytes whole = file.bytes();
  const auto rowsOf = [](const LoadResult& loaded) {
    clsDIB picture;
    EXPECT_TRUE(picture.CreateDIBFromPic(loaded.picture, true));
    return test::rowsOf(picture, {{'.', kWhite}, {'c', rgb(9, 8, 7)}});
  };
  EXPECT_PICTURE(rowsOf(LoadPictureFromBytes(whole, 4)), ({"c.", ".c"}));
  EXPECT_PICTURE(rowsOf(LoadPictureFromBytes({whole.begin() + 14, whole.end()}, 4)), ({"c.", ".c"}));
  EXPECT_PICTURE(rowsOf(LoadPictureFromBytes(test::EmfFile(24, 24).bytes(), 24 * 24)), (24, std::string(24, '.')));
  EXPECT_EQ(LoadPictureFromBytes(test::randomPng().bytes(), kMaxPicturePixels).error, LoadError::None);
  EXPECT_EQ(LoadPictureFromBytes(test::makeJpeg({}, [](int x, int y, int) { return x + y; }), kMaxPicturePixels).error,
            LoadError::None);
  for (const Bytes& other : {Bytes(), Bytes(100, 'x'), Bytes(whole.begin() + 15, whole.end())})
    EXPECT_EQ(LoadPictureFromBytes(other, 4).error, LoadError::NotThisFormat);
  for (const std::size_t left : {std::size_t{60}, whole.size() - 4})
    EXPECT_EQ(LoadPictureFromBytes({whole.begin(), whole.begin() + left}, 4).error, LoadError::Broken) << left;
}

TEST(PictureFromBytes, EveryKindIsRefusedByItsHeaderWhenItIsTooLarge) {
  const Bytes bmp = test::BmpFile{.width = 3517, .height = -853, .data = Bytes(4)}.bytes();
  for (const Bytes& bytes :
       {bmp, Bytes(bmp.begin() + 14, bmp.end()), test::PngParts{{3517, 853, 8, 2, 0, 0, 0}}.bytes(),
        test::EmfFile(24 * 146, 24 * 36).bytes()}) {
    const LoadResult loaded = LoadPictureFromBytes(bytes, kLargePicturePixels);
    EXPECT_EQ(loaded.error, LoadError::TooLarge);
    EXPECT_FALSE(loaded);
    EXPECT_GT(static_cast<std::int64_t>(loaded.width) * loaded.height, kLargePicturePixels);
  }
}

TEST(ClipboardTypes, BitmapsComeBeforeMetafilesWhateverTheSpelling) {
  const char* const kInOrder[] = {"image/png",
                                  "IMAGE/X-MS-BMP",
                                  "image/tiff;charset=x",
                                  "image/x-dib",
                                  "application/x-openoffice-emf;windows_formatname=\"Image EMF\"",
                                  "image/wmf"};
  int before = -1;
  for (const char* type : kInOrder) {
    const auto rank = clipboardRank(type);
    ASSERT_TRUE(rank) << type;
    EXPECT_GT(*rank, before) << type;
    before = *rank;
  }
  for (const char* type : {"text/plain", "image/svg+xml", "image", "", "application/x-qt-windows-mime;value=\"CSV\""})
    EXPECT_FALSE(clipboardRank(type)) << type;
}

}  // namespace
}  // namespace ruvo::imaging
