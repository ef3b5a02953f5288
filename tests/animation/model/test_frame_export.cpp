#include "animation/model/frame_export.h"

#include <gif_lib.h>

#include "base/file_io.h"
#include "formats/gif_bytes.h"
#include "support/file_size_limit.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;

// The rows of a file of one frame as another reader finds them: its pixels' colours, and -1 where one is see-through.
using Pixels = std::vector<std::vector<int>>;
Pixels readBack(const std::filesystem::path& path, int& transparent) {
  GifFileType* file = DGifOpenFileName(path.c_str(), nullptr);
  Pixels rows;
  if (!file || DGifSlurp(file) != GIF_OK || file->ImageCount != 1) return rows;
  const SavedImage& image = file->SavedImages[0];
  GraphicsControlBlock control{};
  DGifSavedExtensionToGCB(file, 0, &control);
  transparent = control.TransparentColor;
  const ColorMapObject* map = image.ImageDesc.ColorMap ? image.ImageDesc.ColorMap : file->SColorMap;
  for (int y = 0; y < image.ImageDesc.Height; ++y) {
    rows.emplace_back();
    for (int x = 0; x < image.ImageDesc.Width; ++x) {
      const int index = image.RasterBits[y * image.ImageDesc.Width + x];
      const GifColorType& c = map->Colors[index];
      rows.back().push_back(index == transparent ? -1 : static_cast<int>(rgb(c.Red, c.Green, c.Blue)));
    }
  }
  DGifCloseFile(file, nullptr);
  return rows;
}

constexpr Colour kRed = rgb(255, 0, 0);

// 4 x 3, the second frame at 1, 1. Its table holds white twice; index 2 is see-through.
clsGIF animation(int packed) {
  clsGIF gif;
  EXPECT_EQ(load(gif, GifBytes(4, 3)
                          .control(0)
                          .image({"1111", "1111", "1111"})
                          .control(packed, 5, 2)
                          .image({"021", "110"}, 1, 1, 0x81, {kWhite, kRed, kWhite, kBlack})
                          .bytes()),
            kGifOk);
  return gif;
}

TEST(FrameExport, KeepsColoursAndSeeThroughPixels) {
  constexpr int w = static_cast<int>(kWhite), r = static_cast<int>(kRed);
  struct Row {
    int packed;
    FrameExport how;
    Pixels pixels;
    int transparent;
  };
  const TempFolder folder;
  for (const Row& row : {Row{1, {true, false}, {{w, -1, r}, {r, r, w}}, 0},
                         Row{1, {true, true}, {{-1, -1, -1, -1}, {-1, w, -1, r}, {-1, r, r, w}}, 0},
                         Row{1, {false, false}, {{w, w, r}, {r, r, w}}, -1},
                         Row{1, {false, true}, {{w, w, w, w}, {w, w, w, r}, {w, r, r, w}}, -1},
                         Row{0, {true, false}, {{w, w, r}, {r, r, w}}, -1}}) {
    ASSERT_TRUE(exportFrame(animation(row.packed), 2, folder / "frame.gif", row.how));
    int transparent = -2;
    EXPECT_EQ(readBack(folder / "frame.gif", transparent), row.pixels);
    EXPECT_EQ(transparent, row.transparent);
  }
  clsGIF whole = animation(1);
  whole.setFrameTransparentColorIndex(2, 3);
  ASSERT_TRUE(exportFrame(whole, 2, folder / "frame.gif", {}));
  int transparent = -2;
  EXPECT_EQ(readBack(folder / "frame.gif", transparent)[0], (std::vector<int>{w, w, r}));
  EXPECT_EQ(transparent, -1) << "no pixel is see-through";
}

// All 256 colours of a table, and a surround that is none of them.
TEST(FrameExport, ReducesOnlyWhatNoTableHolds) {
  const TempFolder folder;
  const auto colour = [](int i) { return static_cast<int>(rgb(i, 7 * i & 255, 90)); };
  clsDIB full = plainDib(256, 1, kWhite, 8, true);
  for (int i = 0; i < 256; ++i) {
    full.surface().pictureRow(0)[i] = static_cast<std::uint8_t>(i);
    full.surface().table()[i] = raster::TableEntry::of(static_cast<Colour>(colour(i)));
  }
  clsGIF gif;
  ASSERT_TRUE(gif.FrameInsertImage(full, 1));
  const auto exported = [&] {
    int transparent = 0;
    EXPECT_TRUE(exportFrame(gif, 1, folder / "a.gif", {true, true}));
    return readBack(folder / "a.gif", transparent);
  };
  const Pixels exact = exported();
  ASSERT_EQ(exact.size(), 1u);
  for (int i = 0; i < 256; ++i) EXPECT_EQ(exact[0][i], colour(i));
  gif.setBgdHeight(9);
  const Pixels reduced = exported();
  ASSERT_EQ(reduced.size(), 9u);
  EXPECT_EQ(reduced[8][39], static_cast<int>(kWhite));
  EXPECT_NEAR(redOf(static_cast<Colour>(reduced[0][200])), 200, 40);
}

TEST(FrameExport, AFailureLeavesTheOldFile) {
  const TempFolder folder;
  const auto target = folder / "old.gif";
  ASSERT_TRUE(replaceFile(target, Bytes{1, 2, 3}));
  const clsGIF gif = animation(1);
  EXPECT_FALSE(exportFrame(gif, 3, target, {}));
  {
    const FileSizeLimit limit(50);
    EXPECT_FALSE(exportFrame(gif, 2, target, {}));
  }
  EXPECT_EQ(readWholeFile(target, 100), (Bytes{1, 2, 3}));
  EXPECT_EQ(folder.names().size(), 1u);
  EXPECT_EQ(exportName("walk", 3) + exportName("", 12), "walk_3.gifUntitled_12.gif");
  EXPECT_EQ(extractName("walk", 3) + extractName("walk", 12), "walk_03.gifwalk_12.gif");
}

}  // namespace
}  // namespace ruvo
