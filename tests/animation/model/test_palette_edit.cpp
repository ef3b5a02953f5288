#include "animation/model/palette_edit.h"

#include "animation/model/pal_file.h"
#include "random_gif.h"

namespace ruvo {
namespace {

using test::RandomGif;

// Frames 1 and 3 of one colour in the global table, frame 2 in its own.
clsGIF threeFrames(Colour colour) {
  clsGIF gif;
  GifTable table{};
  table[0] = raster::TableEntry::of(colour);
  for (int frame = 1; frame <= 3; ++frame) {
    gif.FrameInsertImage(test::plainDib(2, 1, kBlack, 8, true), frame);
    gif.setLocalPaletteUsed(frame, frame == 2);
    setFrameTable(gif, frame, table, 1);
  }
  gif.setGlobalPaletteExists(true);
  setGlobalTable(gif, table, 1);
  gif.Remask_All_Frames();
  return gif;
}

TEST(PaletteEdit, PutsSavedTablesBack) {
  for (unsigned seed = 0; seed < 50; ++seed) {
    clsGIF gif = RandomGif(seed).make();
    const auto before = test::shown(gif);
    SavedPalettes saved;
    saved.save(gif);
    for (int frame = 1; frame <= gif.FramesCount(); ++frame) scalePalette(gif, frame, 90);
    EXPECT_TRUE(changePaletteColor(gif, 1, 0, rgb(9, 8, 7)));
    EXPECT_EQ(gif.LocalPaletteColor(1, 0), rgb(9, 8, 7));
    EXPECT_FALSE(changePaletteColor(gif, 1, gif.LocalPaletteEntries(1), kWhite));
    EXPECT_FALSE(changePaletteColor(gif, 99, 0, kWhite));
    test::expectInStep(gif);
    saved.putBack(gif);
    EXPECT_EQ(test::shown(gif), before) << seed;
    test::expectInStep(gif);
  }
}

TEST(PaletteEdit, SetsTheTransparentIndexOfAScope) {
  const auto transparent = [](PaletteScope scope, int current, int index) {
    clsGIF gif = threeFrames(kWhite);
    gif.setLocalPaletteEntries(2, 2);
    gif.setFrameUseTransparentColor(3, true);
    std::string set = std::to_string(setTransparentIndex(gif, current, scope, index)) + ':';
    for (int frame = 1; frame <= 3; ++frame) set += gif.FrameUseTransparentColor(frame) ? 't' : '-';
    gif.FrameMask(3, 0);  // of that frame only the flag was set above
    test::expectInStep(gif);
    return set;
  };
  EXPECT_EQ(transparent(PaletteScope::AllFrames, 1, 0), "3:ttt");
  EXPECT_EQ(transparent(PaletteScope::AllFrames, 1, 1), "1:-tt") << "the global table has one entry";
  EXPECT_EQ(transparent(PaletteScope::GlobalOnly, 1, -1), "2:---");
  EXPECT_EQ(transparent(PaletteScope::AllLocal, 1, 1), "1:-tt");
  EXPECT_EQ(transparent(PaletteScope::CurrentLocalOnly, 2, 0), "1:-tt");
  EXPECT_EQ(transparent(PaletteScope::CurrentLocalOnly, 1, 0), "0:--t");
}

TEST(PalFile, WritesAndReadsAllEntries) {
  GifTable table{};
  for (int i = 0; i < 256; ++i) table[static_cast<std::size_t>(i)] = raster::TableEntry::of(rgb(i, 255 - i, i / 2));
  const std::string text = palText(table, 2);
  EXPECT_TRUE(text.starts_with("JASC-PAL\r\n0100\r\n256\r\n000 255 000\r\n001 254 000\r\n000 000 000\r\n"));
  EXPECT_EQ(text.size(), 3349u);
  const auto read = parsePal(palText(table, 256));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->table, table);
  EXPECT_EQ(read->entries, 256);
}

TEST(PalFile, TakesOtherSpacingAndRefusesWhatIsNotWhole) {
  const auto read = parsePal("JASC-PAL\n0100\n\n2\n 1\t2  3\n255 0 7");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->entries, 2);
  EXPECT_EQ(read->table[0].colour(), rgb(1, 2, 3));
  EXPECT_EQ(read->table[1].colour(), rgb(255, 0, 7));
  EXPECT_EQ(read->table[2], raster::TableEntry{});
  for (const char* text :
       {"", "JASC-PAL", "JASC-PAL 0100", "RIFF 0100 1 1 2 3", "JASC-PAL 0200 1 1 2 3", "JASC-PAL 0100 0",
        "JASC-PAL 0100 257 1 2 3", "JASC-PAL 0100 2 1 2 3 4 5", "JASC-PAL 0100 1 1 2 256", "JASC-PAL 0100 1 1 -2 3",
        "JASC-PAL 0100 1 1 2 3x", "JASC-PAL 0100 99999999999 1 2 3"}) {
    EXPECT_FALSE(parsePal(text)) << text;
  }
}

}  // namespace
}  // namespace ruvo
