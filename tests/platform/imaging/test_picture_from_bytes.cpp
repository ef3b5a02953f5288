#include "base/limits.h"
#include "formats/png_bytes.h"
#include "platform/imaging/clipboard_types.h"
#include "platform/imaging/metafile_files.h"
#include "support/bmp_bytes.h"

namespace ruvo::imaging {
namespace {

using test::Bytes;

TEST(PictureFromBytes, EveryKindIsKnownByItsContentAndRefusedByItsHeaderWhenItIsTooLarge) {
  const Bytes bmp = test::BmpFile{.width = 2, .height = 2, .data = Bytes(16)}.bytes(), dib(bmp.begin() + 14, bmp.end());
  for (const Bytes& bytes :
       {bmp, dib, test::EmfFile(24, 24).bytes(), test::PngParts{{9, 1, 8, 0, 0, 0, 0}, {}, Bytes(10)}.bytes()}) {
    const LoadResult loaded = LoadPictureFromBytes(bytes, kLargePicturePixels);
    ASSERT_TRUE(loaded);
    const LoadResult large = LoadPictureFromBytes(bytes, loaded.width * loaded.height - 1);
    EXPECT_EQ(large.error, LoadError::TooLarge);
    EXPECT_EQ(large.width, loaded.width);
    EXPECT_FALSE(large);
  }
  for (const Bytes& other : {Bytes(), Bytes(100, 'x'), Bytes(bmp.begin() + 15, bmp.end())})
    EXPECT_EQ(LoadPictureFromBytes(other, 4).error, LoadError::NotThisFormat);
  EXPECT_EQ(LoadPictureFromBytes({dib.begin(), dib.end() - 4}, 4).error, LoadError::Broken);
}

TEST(ClipboardTypes, BitmapsComeBeforeMetafilesWhateverTheSpelling) {
  int before = -1;
  for (const char* type : {"image/png", "IMAGE/X-MS-BMP", "image/tiff;charset=x", "image/x-dib",
                           "application/x-openoffice-emf;windows_formatname=\"Image EMF\"", "image/wmf"}) {
    const int rank = clipboardRank(type).value_or(-1);
    EXPECT_GT(rank, std::exchange(before, rank)) << type;
  }
  for (const char* type : {"text/plain", "image/svg+xml", "image", ""}) EXPECT_FALSE(clipboardRank(type)) << type;
}

}  // namespace
}  // namespace ruvo::imaging
