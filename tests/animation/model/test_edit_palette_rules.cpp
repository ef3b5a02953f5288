#include "animation/model/edit_palette_rules.h"

#include <gmock/gmock.h>

#include <fstream>

#include "animation/model/palette_texts.h"
#include "animation/model/work_copy.h"
#include "formats/gif_bytes.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using test::GifBytes;
using testing::Optional;
using testing::StartsWith;

const std::vector<Colour> kTwoColours = {rgb(9, 8, 7), rgb(6, 5, 4)};

// Frames 1 and 2 use the global table of four, 1 with transparent index 1, 2 with 3; frame 3 has two entries of its own.
clsGIF mixedGif() {
  clsGIF gif;
  test::load(gif, GifBytes(4, 1)
                      .control(1, 0, 1)
                      .image({"0123"})
                      .control(1, 0, 3)
                      .image({"0123"})
                      .control(0)
                      .image({"0101"}, 0, 0, 0x80, kTwoColours)
                      .bytes());
  return gif;
}
// One frame with a global table of so many entries.
clsGIF gifOf(int bits) {
  clsGIF gif;
  const std::vector<Colour> table(std::size_t{1} << bits, rgb(1, 1, 1));
  test::load(gif, GifBytes(4, 1, "89a", 0x80 | (bits - 1), table).image({"0101"}).bytes());
  return gif;
}

TEST(PaletteTexts, EndAtTheTable) {
  const clsGIF gif = mixedGif();
  const FramePalette first = framePalette(gif, 1), third = framePalette(gif, 3);
  EXPECT_EQ(paletteTypeText(third, 3), "Local palette - Frame 3\n(As 2-BPP  2 entries)");
  EXPECT_THAT(paletteTypeText(framePalette(gifOf(8), 1), 1), testing::EndsWith("(As 8-BPP  256 entries)"));
  EXPECT_EQ(paletteHoverText(first.table, 4, 3, true), "Index  3    03h     RGB(0, 0, 255)");
  EXPECT_EQ(paletteHoverText(first.table, 4, 256, true), "");
  EXPECT_EQ(framePalette(gif, 4).entries, 0);
}

TEST(EditPaletteRules, DeletionIsRefusedInItsOrderAndAsked) {
  const clsGIF gif = mixedGif();
  EXPECT_THAT(deleteEntryRefusal(gif, {true, 3, -1, -1}), Optional(StartsWith("No palette index selected")));
  EXPECT_THAT(deleteEntryRefusal(gif, {true, 3, 1, -1}), Optional(StartsWith("No palette index to be replaced")));
  EXPECT_THAT(deleteEntryRefusal(gif, {true, 3, 1, 1}), Optional(StartsWith("Index to delete and index to be")));
  EXPECT_THAT(deleteEntryRefusal(gif, {false, 1, 0, 1}), Optional(StartsWith("Current frame does not use local")));
  EXPECT_THAT(deleteEntryRefusal(gif, {true, 1, 4, 0}), Optional(StartsWith("Current index outside")));
  EXPECT_THAT(deleteEntryRefusal(gif, {false, 3, 0, 2}), Optional(StartsWith("Current index outside")));
  EXPECT_EQ(deleteEntryRefusal(gif, {true, 3, 2, 0}), std::nullopt) << "the scope decides, not the current frame";
  clsGIF local = mixedGif();
  for (int frame = 1; frame <= 2; ++frame) local.setLocalPaletteUsed(frame, true);
  EXPECT_THAT(deleteEntryRefusal(local, {true, 1, 2, 0}), Optional(StartsWith("No frame using global palette.")));

  using enum PaletteWindow;
  EXPECT_EQ(deleteEntryQuestion(gif, {true, 1, 2, 0}, EditPalette), "Proceed to delete color at palette index 2?");
  EXPECT_THAT(deleteEntryQuestion(gif, {true, 1, 3, 0}, EditPalette),
              StartsWith("Index 3 is the transparent index. Sure"))
      << "of frame 2, which the deletion touches too";
  EXPECT_THAT(deleteEntryQuestion(gif, {true, 1, 1, 0}, ChangeBpp),
              StartsWith("Index 1 is the transparent index for one of more frames."));
  EXPECT_EQ(deleteEntryQuestion(gif, {false, 3, 1, 0}, ChangeBpp), "Proceed to delete color at palette index 1?");
  clsGIF transparent = mixedGif();
  setTransparentIndex(transparent, 3, PaletteScope::CurrentLocalOnly, 1);
  EXPECT_THAT(deleteEntryQuestion(transparent, {false, 3, 1, 0}, ChangeBpp),
              StartsWith("Index 1 is the transparent index for current frame.   Sure"));

  EXPECT_THAT(deleteEntry(transparent, {true, 1, 9, 0}, ChangeBpp),
              Optional(StartsWith("Failed to delete color entry for frames using global palette.")));
  EXPECT_THAT(deleteEntry(transparent, {false, 1, 0, 1}, EditPalette),
              Optional(StartsWith("Failed to delete color for current frame.")));
  EXPECT_EQ(deleteEntry(transparent, {true, 1, 1, 0}, EditPalette), std::nullopt);
  EXPECT_EQ(test::digits(transparent.FrameDIBXOR(1)), (test::Rows{"0012"}));
  EXPECT_FALSE(transparent.FrameUseTransparentColor(1));
  EXPECT_EQ(transparent.FrameTransparentColorIndex(2), 2);
}

TEST(EditPaletteRules, AddingAsksAtAFullDepthAndStopsAt256) {
  clsGIF gif = gifOf(2);
  EXPECT_THAT(addEntryQuestion(gif, 1), Optional(StartsWith("Current palette has been defined to have a max of 4 ")));
  EXPECT_EQ(addEntry(gif, 1, rgb(7, 7, 7)), std::nullopt);
  EXPECT_EQ(framePalette(gif, 1).entries, 5);
  EXPECT_EQ(addEntryQuestion(gif, 1), std::nullopt);
  EXPECT_EQ(addEntryRefusal(gif, 1), std::nullopt);
  clsGIF full = gifOf(8);
  EXPECT_THAT(addEntryRefusal(full, 1), Optional(StartsWith("There are already 256 entries")));
  EXPECT_NE(addEntry(full, 1, 0), std::nullopt);
  clsGIF mixed = mixedGif();
  EXPECT_EQ(addEntry(mixed, 3, rgb(7, 7, 7)), std::nullopt);
  EXPECT_EQ(framePalette(mixed, 3).entries, 3);
  EXPECT_EQ(framePalette(mixed, 1).entries, 4);
}

TEST(EditPaletteRules, TransparencyChecksScopeThenIndex) {
  using enum PaletteScope;
  const clsGIF mixed = mixedGif(), global = gifOf(2);
  clsGIF local = mixedGif();
  for (int frame = 1; frame <= 2; ++frame) local.setLocalPaletteUsed(frame, true);
  const auto refusal = [](const clsGIF& gif, PaletteScope scope, int frame, int index, bool use = true) {
    return transparencyRefusal(gif, {use, scope, frame, index}).value_or("").substr(0, 20);
  };
  EXPECT_EQ(refusal(local, GlobalOnly, 1, -1), "No frame using globa");
  EXPECT_EQ(refusal(global, AllLocal, 1, -1), "No frame uses local ");
  EXPECT_EQ(refusal(mixed, CurrentLocalOnly, 1, -1), "Current frame does n");
  EXPECT_EQ(refusal(mixed, AllFrames, 1, -1), "No currently selecte");
  EXPECT_EQ(refusal(mixed, AllLocal, 1, 2), "Currently selected i");
  EXPECT_EQ(refusal(mixed, AllFrames, 1, 2), "") << "frames 1 and 2 have it";
  EXPECT_EQ(refusal(mixed, AllFrames, 1, -1, false), "") << "off needs no index";
}

TEST(EditPaletteRules, TransparentColourAndIndexAreChangedWhereTheyAreTheSame) {
  clsGIF gif = mixedGif();
  EXPECT_THAT(transparentColorRefusal(gif, 3), Optional(StartsWith("Current frame does not have transparent")));
  EXPECT_EQ(transparentColorRefusal(gif, 1), std::nullopt);
  EXPECT_THAT(transparentIndexRefusal(gif, 1, 1), Optional(StartsWith("Current position is already")));
  EXPECT_THAT(transparentIndexRefusal(gif, 1, 4), Optional(StartsWith("Currently selected index is outside")));
  EXPECT_EQ(transparentIndexRefusal(gif, 1, 2), std::nullopt);
  moveTransparencyTo(gif, 1, 2);
  EXPECT_EQ(gif.FrameTransparentColorIndex(1), 2);
  EXPECT_EQ(gif.FrameTransparentColorIndex(2), 3) << "it had another one";
  EXPECT_EQ(test::rowsOf(gif.FrameDIBAND(1)), (test::Rows{"##.#"}));
  setTransparentIndex(gif, 1, PaletteScope::GlobalOnly, 0);
  moveTransparencyTo(gif, 1, 2);
  EXPECT_EQ(gif.FrameTransparentColorIndex(2), 2);
  EXPECT_THAT(changeColorRefusal(gif, 3, 2), Optional(StartsWith("Current index outside")));
  EXPECT_THAT(changeColorRefusal(gif, 3, -1), Optional(StartsWith("No currently selected")));
  EXPECT_EQ(changeColorRefusal(gif, 3, 1), std::nullopt);
}

TEST(WorkCopy, GoesBackToItsFileAndIsStoredThere) {
  const test::TempFolder folder;
  const auto file = folder / "tmpEditPalette.tmp";
  EXPECT_FALSE(WorkCopy(file).loaded());
  mixedGif().Save(file);
  WorkCopy work(file);
  ASSERT_TRUE(work.loaded());
  EXPECT_EQ(work.measure(), work.originalSize());
  EXPECT_TRUE(work.store());
  EXPECT_FALSE(work.stored()) << "nothing was changed";

  changePaletteColor(work.gif(), 3, 0, rgb(1, 1, 1));
  work.touch();
  EXPECT_EQ(work.originalPalette(3).table[0].red, 9);
  EXPECT_EQ(work.restore(), "");
  EXPECT_EQ(work.gif().LocalPaletteColor(3, 0), rgb(9, 8, 7));

  changePaletteColor(work.gif(), 3, 0, rgb(1, 1, 1));
  work.touch();
  std::ofstream(file) << "broken";
  EXPECT_EQ(work.restore(), "Failed to restore.");
  std::filesystem::remove(file);
  EXPECT_EQ(work.restore(), "Backup file missing; cannot Restore.");
  EXPECT_EQ(work.gif().LocalPaletteColor(3, 0), rgb(1, 1, 1)) << "the work is still there";
  std::filesystem::create_directory(file);
  EXPECT_FALSE(work.store());
  std::filesystem::remove(file);
  EXPECT_TRUE(work.store() && work.stored());
  EXPECT_EQ(WorkCopy(file).gif().LocalPaletteColor(3, 0), rgb(1, 1, 1));
}

}  // namespace
}  // namespace ruvo
