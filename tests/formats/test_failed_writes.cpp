// Every writer of a picture file, where the disk is full, the folder is missing or the picture is none.
#include "base/file_io.h"
#include "formats/clsGIF.h"
#include "formats/clsICO.h"
#include "formats/clsPCX.h"
#include "formats/clsPNG.h"
#include "formats/clsTGA.h"
#include "platform/imaging/encoders.h"
#include "support/file_size_limit.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using test::FileSizeLimit;
using Bytes = std::vector<std::uint8_t>;
using Path = std::filesystem::path;

TEST(FailedWrites, LeaveTheOldFileAndNothingElse) {
  const test::TempFolder folder;
  const Path path = folder / "picture";
  const auto noise = [](int x, int y) { return Pixel32::plain(rgb(x * y * 7, x ^ y * 31, x + y)); };
  const clsDIB dib = test::dibOf(200, 200, noise);
  const raster::Surface& deep = dib.surface();
  clsDIB grey = test::plainDib(200, 200, kWhite, 8);
  for (int y = 0; y < 200; ++y)
    std::generate_n(grey.surface().pictureRow(y), 200, [y, i = y]() mutable { return i += y; });
  clsGIF gif;
  ASSERT_TRUE(gif.FrameInsertImage(grey, 1, {}));
  const std::map<std::string, std::function<bool(const Path&)>> writers = {
      {"BMP", [&](const Path& to) { return dib.Save_DIB_To_File(to, dib); }},
      {"GIF", [&](const Path& to) { return gif.Save(to); }},
      {"GIF of one picture", [&](const Path& to) { return clsGIF::SaveGIFFrom_BPP8_DIB(to, grey, clsPal(), 8); }},
      {"ICO", [&](const Path& to) { return clsICO::SaveICO_Single(to, dib, clsDIB(), kIconType); }},
      {"PCX", [&](const Path& to) { return clsPCX().SavePCXinFile(to, deep, 200, 200); }},
      {"PNG", [&](const Path& to) { return clsPNG().SavePNG(to, dib, 24) == kPngSaved; }},
      {"TGA", [&](const Path& to) { return clsTGA().SaveTGAinFile(to, deep, 200, 200); }},
      {"GIF by the platform", [&](const Path& to) { return imaging::saveGif(grey.surface(), to); }},
      {"JPEG by the platform", [&](const Path& to) { return imaging::saveJpeg(deep, to, 80); }},
      {"PNG by the platform", [&](const Path& to) { return imaging::savePng(deep, to, false); }},
      {"TIFF by the platform", [&](const Path& to) { return imaging::saveTiff(deep, to, 24, false); }}};
  for (const auto& [name, save] : writers) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(save(path));
    const auto whole = std::filesystem::file_size(path);
    ASSERT_TRUE(replaceFile(path, Bytes{1, 2, 3}));
    for (const auto room : {std::uintmax_t{0}, whole / 2, whole - 1}) {
      const FileSizeLimit full(room);
      EXPECT_FALSE(save(path)) << room;
    }
    EXPECT_FALSE(save(folder / "none" / "picture") || save(folder.path()));
    EXPECT_EQ(readWholeFile(path, 100), (Bytes{1, 2, 3}));
    EXPECT_EQ(folder.names(), std::vector<std::string>{"picture"});
  }
}

TEST(FailedWrites, PicturesThatNoFileHoldsAreRefused) {
  const test::TempFolder folder;
  const Path path = folder / "picture";
  const raster::Surface none, some = test::surfaceOf({"#."});
  for (const auto& [width, height] : {std::pair{0, 1}, {1, 0}, {5001, 5001}}) {
    EXPECT_FALSE(clsTGA().SaveTGAinFile(path, some, width, height) ||
                 clsPCX().SavePCXinFile(path, some, width, height));
  }
  EXPECT_FALSE(clsTGA().SaveTGAinFile(path, none, 1, 1) || clsPCX().SavePCXinFile(path, none, 1, 1));
  EXPECT_FALSE(imaging::saveJpeg(none, path, 80) || imaging::savePng(none, path, false) ||
               imaging::saveTiff(none, path, 24, false) || imaging::saveTiff(some, path, 16, false) ||
               imaging::saveGif(none, path));
  EXPECT_TRUE(folder.names().empty());
}

}  // namespace
}  // namespace ruvo
