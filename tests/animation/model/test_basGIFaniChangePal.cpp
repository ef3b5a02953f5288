#include "animation/model/basGIFaniChangePal.h"

#include "random_gif.h"

namespace ruvo {
namespace {

using test::RandomGif;
using test::shown;

constexpr unsigned kSeeds = 300;

class ChangePal : public testing::Test {
 protected:
  // A frame of one line with that table, global or its own.
  void addFrame(const std::vector<int>& indices, const std::vector<Colour>& colours, int transparent = -1,
                bool local = false) {
    clsDIB line = test::plainDib(static_cast<int>(indices.size()), 1, kBlack, 8, true);
    std::ranges::copy(indices, line.surface().pictureRow(0));
    const int frame = gif.FramesCount() + 1;
    ASSERT_TRUE(gif.FrameInsertImage(line, frame));
    GifTable table{};
    std::ranges::transform(colours, table.begin(), raster::TableEntry::of);
    gif.setLocalPaletteUsed(frame, local);
    setFrameTable(gif, frame, table, static_cast<int>(colours.size()));
    if (!local) setGlobalTable(gif, table, static_cast<int>(colours.size()));
    gif.setGlobalPaletteExists(gif.GlobalPaletteExists() || !local);
    gif.setFrameUseTransparentColor(frame, transparent >= 0);
    gif.setFrameTransparentColorIndex(frame, std::max(transparent, 0));
  }
  std::vector<int> indices(int frame) const {
    const std::uint8_t* row = gif.FrameDIBXOR(frame).surface().pictureRow(0);
    return {row, row + gif.FrameWidth(frame)};
  }
  std::vector<Colour> colours(int frame) const {
    std::vector<Colour> all;
    for (int i = 0; i < gif.LocalPaletteEntries(frame); ++i) all.push_back(gif.LocalPaletteColor(frame, i));
    return all;
  }
  static clsPal paletteOf(const std::vector<Colour>& colours) {
    clsPal palette;
    palette.setMaxCount(static_cast<int>(colours.size()));
    std::ranges::transform(colours, palette.PalettePtr(), raster::TableEntry::of);
    return palette;
  }

  clsGIF gif;
};

constexpr Colour kRed = rgb(255, 0, 0), kGreen = rgb(0, 255, 0), kBlue = rgb(0, 0, 255);

// The frames of `before` moved over: pixels keep their transparency and the others have the nearest opaque entry.
void expectNearest(const clsGIF& before, const clsGIF& after, int frame) {
  // Opaque frames leave the transparent entry of the others alone.
  const int transparent = !after.LocalPaletteUsed(frame)          ? after.GlobalTransparentColorIndex()
                          : after.FrameUseTransparentColor(frame) ? after.FrameTransparentColorIndex(frame)
                                                                  : -1;
  std::vector<raster::TableEntry> opaque;
  for (int i = 0; i < after.LocalPaletteEntries(frame); ++i) {
    if (i != transparent) opaque.push_back(after.getLocalPalette(frame)[static_cast<std::size_t>(i)]);
  }
  const auto distance = [](Colour a, Colour b) {
    const auto square = [](int d) { return d * d; };
    return square(redOf(a) - redOf(b)) + square(greenOf(a) - greenOf(b)) + square(blueOf(a) - blueOf(b));
  };
  for (int y = 0; y < before.FrameHeight(frame); ++y) {
    for (int x = 0; x < before.FrameWidth(frame); ++x) {
      const bool seeThrough = test::isSeeThrough(before, frame, x, y);
      ASSERT_EQ(test::isSeeThrough(after, frame, x, y), seeThrough) << frame << ": " << x << ", " << y;
      if (seeThrough) continue;
      const Colour old = before.LocalPaletteColor(frame, test::indexAt(before, frame, x, y));
      const Colour now = after.LocalPaletteColor(frame, test::indexAt(after, frame, x, y));
      for (const raster::TableEntry& entry : opaque) ASSERT_LE(distance(old, now), distance(old, entry.colour()));
    }
  }
}

TEST_F(ChangePal, ReducedFramesKeepTheirHolesAndTakeTheNearestEntries) {
  for (unsigned seed = 0; seed < kSeeds; ++seed) {
    SCOPED_TRACE(seed);
    const clsGIF before = RandomGif(seed).make(true);
    gif = RandomGif(seed).make(true);
    RandomGif choice(seed + kSeeds);
    const int entries = 2 + choice.below(12);
    if (choice.chance(50)) {
      clsPal palette;
      ASSERT_TRUE(BuildCommonPalette(gif, palette, entries));
      ASSERT_TRUE(ApplyCommonPalette(gif, palette));
    } else {
      ReduceGlobalPalette(gif, entries);
    }
    for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
      EXPECT_EQ(ReduceLocalPalette(gif, frame, entries), gif.LocalPaletteUsed(frame));
      EXPECT_LE(gif.LocalPaletteEntries(frame), entries);
      expectNearest(before, gif, frame);
    }
    test::expectInStep(gif);
  }
}

TEST_F(ChangePal, MovedAndAddedEntriesShowNothingNew) {
  for (unsigned seed = 0; seed < kSeeds; ++seed) {
    SCOPED_TRACE(seed);
    gif = RandomGif(seed).make(true);
    const auto before = shown(gif);
    RandomGif choice(seed);
    MoveGlobalTransparentIndex(gif, choice.below(12));
    EXPECT_TRUE(AddGlobalEntry(gif, kWhite) && AddGlobalEntry(gif, kRed));
    for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
      MoveLocalTransparentIndex(gif, frame, choice.below(12));
      EXPECT_EQ(AddLocalEntry(gif, frame, kGreen), gif.LocalPaletteUsed(frame));
    }
    EXPECT_EQ(shown(gif), before);
    test::expectInStep(gif);
  }
}

TEST_F(ChangePal, ADeletedEntryShowsItsReplacement) {
  for (unsigned seed = 0; seed < kSeeds; ++seed) {
    SCOPED_TRACE(seed);
    gif = RandomGif(seed).make(true);
    clsGIF expected = RandomGif(seed).make(true);
    RandomGif choice(seed);
    const int frame = choice.below(gif.FramesCount() + 1);
    const bool global = frame == 0 || !gif.LocalPaletteUsed(frame);
    const int entries = global ? gif.GlobalPaletteEntries() : gif.LocalPaletteEntries(frame);
    const int index = choice.below(entries), replacement = choice.below(entries);
    const Colour background = gif.GlobalPaletteColor(gif.BgdColorIndex() == index ? replacement : gif.BgdColorIndex());
    const bool done =
        global ? DeleteGlobalEntry(gif, index, replacement) : DeleteLocalEntry(gif, frame, index, replacement);
    ASSERT_EQ(done, index != replacement);
    if (!done) continue;
    IndexMap map = identityMap();
    map[static_cast<std::size_t>(index)] = static_cast<std::uint8_t>(replacement);
    for (int i = 1; i <= gif.FramesCount(); ++i) {
      if (global ? expected.LocalPaletteUsed(i) : i != frame) continue;
      ASSERT_TRUE(mapFramePixels(expected, i, map));
      if (expected.FrameTransparentColorIndex(i) == index) expected.setFrameUseTransparentColor(i, false);
    }
    EXPECT_EQ(shown(gif), shown(expected));
    if (global) EXPECT_EQ(gif.GlobalPaletteColor(gif.BgdColorIndex()), background);
    EXPECT_EQ(global ? gif.GlobalPaletteEntries() : gif.LocalPaletteEntries(frame), entries - 1);
    test::expectInStep(gif);
  }
}

TEST_F(ChangePal, ATransparentColourThatNoOpaqueEntryNeedsTakesNoPlace) {
  addFrame({0, 1, 2}, {kGreen, kRed, kBlue}, 0);
  gif.setBgdColorIndex(2);
  clsPal palette = paletteOf({kBlue, kGreen, kRed, kWhite});
  ASSERT_TRUE(ApplyReducedGlobal(gif, palette));
  EXPECT_EQ(gif.GlobalPaletteEntries(), 3);
  EXPECT_EQ(indices(1), (std::vector{1, 2, 0}));
  EXPECT_EQ(gif.FrameTransparentColorIndex(1), 1);
  EXPECT_EQ(gif.BgdColorIndex(), 0) << "as blue went";
  clsPal full = paletteOf({kWhite});
  EXPECT_FALSE(ApplyReducedGlobal(gif, full)) << "no place for an opaque colour";
  EXPECT_EQ(indices(1), (std::vector{1, 2, 0}));
}

TEST_F(ChangePal, MovesTheTransparentEntryWithinItsTable) {
  addFrame({0, 1, 2, 3}, {kRed, kGreen, kBlue, kWhite}, 1);
  gif.setBgdColorIndex(3);
  EXPECT_FALSE(MoveGlobalTransparentIndex(gif, 1) || MoveGlobalTransparentIndex(gif, -1));
  EXPECT_FALSE(MoveLocalTransparentIndex(gif, 1, 0)) << "it has no table of its own";
  ASSERT_TRUE(MoveGlobalTransparentIndex(gif, 200));
  EXPECT_EQ(colours(1), (std::vector{kRed, kBlue, kWhite, kGreen}));
  EXPECT_EQ(gif.BgdColorIndex(), 2);
  addFrame({0}, {kRed, kBlue, kWhite, kGreen}, 0);
  EXPECT_FALSE(MoveGlobalTransparentIndex(gif, 0)) << "the frames disagree";
}

TEST_F(ChangePal, RefusesEntriesThatCanNotGoOrCome) {
  addFrame({0, 1}, {kRed, kGreen}, 1);
  addFrame({0, 1}, {kRed, kGreen}, 0, true);
  for (const auto& [index, replacement] : {std::pair{2, 0}, {0, 2}, {-1, 0}, {0, -1}}) {
    EXPECT_FALSE(DeleteGlobalEntry(gif, index, replacement) || DeleteLocalEntry(gif, 2, index, replacement));
  }
  EXPECT_FALSE(DeleteLocalEntry(gif, 1, 0, 1)) << "it has no table of its own";
  ASSERT_TRUE(DeleteGlobalEntry(gif, 1, 0));
  EXPECT_TRUE(!gif.FrameUseTransparentColor(1) && gif.FrameUseTransparentColor(2));
  for (int entries = 2; entries < 256; ++entries) ASSERT_TRUE(AddLocalEntry(gif, 2, rgb(entries, 0, 0)));
  EXPECT_FALSE(AddLocalEntry(gif, 2, kWhite));
  EXPECT_EQ(colours(2).back(), rgb(255, 0, 0));
}

}  // namespace
}  // namespace ruvo
