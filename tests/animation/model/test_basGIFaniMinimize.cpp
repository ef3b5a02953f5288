#include "animation/model/basGIFaniMinimize.h"

#include <gmock/gmock.h>

#include "animation/model/gif_discrepancies.h"
#include "base/random_source.h"
#include "formats/gif_bytes.h"
#include "random_gif.h"

namespace ruvo {
namespace {

using test::GifBytes;
using test::shown;
using testing::ElementsAre;

const Colour kRed = rgb(255, 0, 0), kBlue = rgb(0, 0, 255), kGreen = rgb(0, 255, 0);

using Screens = std::vector<std::vector<std::uint32_t>>;

// True when `after` is a window on `before`, at one place for all frames, with nothing drawn outside it.
bool onlyCropped(const Screens& before, Size whole, const Screens& after, Size part) {
  const auto painted = [](const auto& screen) { return std::ranges::count_if(screen, [](auto p) { return p != 0; }); };
  const auto window = [&](const auto& screen, int left, int top) {
    std::vector<std::uint32_t> pixels;
    for (int y = top; y < top + part.height; ++y) {
      const auto row = screen.begin() + y * whole.width + left;
      pixels.insert(pixels.end(), row, row + part.width);
    }
    return pixels;
  };
  for (int top = 0; top + part.height <= whole.height; ++top) {
    for (int left = 0; left + part.width <= whole.width; ++left) {
      if (std::ranges::equal(before, after, [&](const auto& old, const auto& now) {
            return painted(old) == painted(now) && window(old, left, top) == now;
          }))
        return true;
    }
  }
  return false;
}

// A GIF with whatever a file may say: few colours that repeat, indices past the tables, frames anywhere.
test::Bytes anyGif(RandomSource& random) {
  const auto upTo = [&random](int most) { return static_cast<int>(random.next() * (most + 1)); };
  const auto table = [&](int bits) {
    std::vector<Colour> colours;
    for (int i = 0; i < 2 << bits; ++i) colours.push_back(rgb(upTo(1) * 255, 0, upTo(1) * 255));
    return colours;
  };
  const int width = 1 + upTo(8), height = 1 + upTo(5);
  const int bits = upTo(2);
  const bool global = upTo(3) > 0;
  GifBytes file(width, height, "89a", global ? 0x80 | bits : 0, global ? table(bits) : std::vector<Colour>());
  const int frames = 1 + upTo(4);
  for (int frame = 1; frame <= frames; ++frame) {
    const bool first = frame == 1 && upTo(3) > 0;  // a first frame often covers the screen
    test::Rows rows(
        static_cast<std::size_t>(first ? height : 1 + upTo(6)),
        std::string(static_cast<std::size_t>(first ? width : 1 + upTo(9)), static_cast<char>('0' + upTo(3))));
    for (int i = upTo(12); i > 0; --i) {
      auto& row = rows[static_cast<std::size_t>(random.next() * static_cast<double>(rows.size()))];
      row[static_cast<std::size_t>(random.next() * static_cast<double>(row.size()))] = static_cast<char>('0' + upTo(3));
    }
    file.control(upTo(3) << 2 | (upTo(4) > 0), 1, upTo(5));
    const bool local = !global || upTo(2) == 0;
    const int localBits = upTo(2);
    const int interlaced = upTo(1) * 64;
    file.image(rows, first ? 0 : upTo(width), first ? 0 : upTo(height), interlaced | (local ? 0x80 | localBits : 0),
               local ? table(localBits) : std::vector<Colour>());
  }
  return file.bytes();
}

TEST(Minimize, AnyAnimationIsShownAsBeforeButForACrop) {
  RandomSource random;
  int crops = 0;
  for (int round = 0; round < 6000; ++round) {
    const test::Bytes bytes = anyGif(random);
    clsGIF gif;
    ASSERT_EQ(test::load(gif, bytes), kGifOk);
    // Frames that share their pixels must not be changed twice.
    if (round % 3 == 0) gif.FrameCopy(1, gif.FramesCount());
    const auto before = shown(gif);
    const Size whole = GifPlayer::screenSize(gif);
    const int way = round % 24;
    if (way < 16) {
      minimizeGif(gif, {(way & 1) != 0, (way & 2) != 0, (way & 4) != 0, (way & 8) != 0});
    } else if (way == 16) {
      RemoveDuplicateGlobal(gif);
    } else if (way == 17) {
      RemoveUnusedGlobal(gif);
    } else if (way == 18) {
      LocalToGlobalOneFrame(gif, gif.FramesCount());
    } else if (way == 19) {
      LocalToGlobalAllFrames(gif);
    } else if (way == 20) {
      RemoveSlackTransparentAreas(gif);
    } else if (way == 21) {
      RemoveUnusedLocal(gif, 1);
      RemoveDuplicateLocal(gif, 1);
    } else {
      cleanPalettes(gif);
    }
    const auto after = shown(gif);
    ASSERT_TRUE(onlyCropped(before, whole, after, GifPlayer::screenSize(gif))) << "round " << round;
    crops += before[0] != after[0];
    gif.Remask_All_Frames();
    clsGIF again;
    ASSERT_EQ(test::load(again, gif.saveBytes()), kGifOk);
    ASSERT_EQ(shown(again), after) << "round " << round;
  }
  EXPECT_GT(crops, 100);
}

clsGIF loaded(const GifBytes& file) {
  clsGIF gif;
  EXPECT_EQ(test::load(gif, file.bytes()), kGifOk);
  return gif;
}
constexpr int kTwo = 0x80, kFour = 0x81;  // tables of two and of four entries
constexpr int kSeeThrough = 1;

std::vector<Colour> globalTable(const clsGIF& gif) {
  std::vector<Colour> colours;
  for (int i = 0; i < gif.GlobalPaletteEntries(); ++i) colours.push_back(gif.GlobalPaletteColor(i));
  return colours;
}

TEST(Minimize, UnusedEntriesGoAndIndicesFollow) {
  clsGIF gif = loaded(GifBytes(3, 1).control(kSeeThrough, 0, 3).image({"133"}).control(kSeeThrough, 0, 1).image({"3"}));
  EXPECT_TRUE(RemoveUnusedGlobal(gif));
  EXPECT_THAT(globalTable(gif), ElementsAre(kRed, kBlue));
  EXPECT_EQ(gif.BgdColorIndex(), 0);  // nothing was drawn with it
  EXPECT_EQ(gif.FrameTransparentColorIndex(1), 1);
  EXPECT_EQ(gif.LocalPaletteEntries(2), 2);
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(1)), test::Rows{"011"});
  EXPECT_FALSE(RemoveUnusedLocal(gif, 1));

  gif = loaded(GifBytes(2, 1).image({"01"}, 0, 0, kTwo, {kRed, kBlue}));
  EXPECT_TRUE(RemoveUnusedGlobal(gif));  // no frame uses that table
  EXPECT_FALSE(gif.GlobalPaletteExists());
  EXPECT_EQ(gif.GlobalPaletteEntries() + gif.BgdColorIndex(), 0);
}

TEST(Minimize, EqualEntriesBecomeOneButNeverASeeThroughOne) {
  clsGIF gif = loaded(GifBytes(4, 1, "89a", kFour, {kBlue, kRed, kRed, kGreen}).control(0).image({"0123"}));
  EXPECT_EQ(RemoveDuplicateGlobal(gif), 1);
  EXPECT_THAT(globalTable(gif), ElementsAre(kBlue, kRed, kGreen));
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(1)), test::Rows{"0112"});
  EXPECT_EQ(gif.BgdColorIndex(), 1);

  gif = loaded(GifBytes(4, 1).control(kSeeThrough, 0, 1).image({"0123"}, 0, 0, kFour, {kRed, kRed, kRed, kBlue}));
  EXPECT_EQ(RemoveDuplicateLocal(gif, 1), 1);
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(1)), test::Rows{"0102"});
  EXPECT_EQ(gif.FrameTransparentColorIndex(1), 1);

  // Where nothing stands behind what goes, the number of entries stays.
  gif = loaded(GifBytes(2, 1, "89a", kTwo, {kRed, kRed}).image({"01"}));
  EXPECT_EQ(RemoveDuplicateGlobal(gif), 1);
  EXPECT_THAT(globalTable(gif), ElementsAre(kRed, kBlack));
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(1)), test::Rows{"00"});
}

TEST(Minimize, LocalTablesFindTheirColoursInTheGlobalOne) {
  const std::vector<Colour> twice = {kGreen, kRed, kGreen, kBlue};
  clsGIF gif =
      loaded(GifBytes(4, 1).control(0).image({"0123"}).control(kSeeThrough, 0, 2).image({"0123"}, 0, 0, kFour, twice));
  EXPECT_EQ(LocalToGlobalAllFrames(gif), 1);
  EXPECT_THAT(globalTable(gif), ElementsAre(rgb(1, 2, 3), kRed, kGreen, kBlue, kGreen));
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(2)), test::Rows{"2143"});
  EXPECT_EQ(gif.FrameTransparentColorIndex(2), 4);
  EXPECT_EQ(gif.LocalPaletteEntries(1), 5);
  EXPECT_FALSE(gif.LocalPaletteUsed(2));

  for (const auto& [unmatched, moves] : {std::pair{6, true}, std::pair{7, false}}) {
    gif = loaded(
        GifBytes(1, 1).control(0).image({"0"}).control(0).image({"0"}, 0, 0, 0x82, std::vector<Colour>(8, kRed)));
    gif.setGlobalPaletteEntries(250);
    gif.setLocalPaletteEntries(2, unmatched + 1);
    EXPECT_EQ(LocalToGlobalOneFrame(gif, 2), moves);
    EXPECT_EQ(gif.GlobalPaletteEntries(), moves ? 256 : 250);
  }
  // A frame without any table is shown black, and its see-through index has no room of others.
  gif = loaded(GifBytes(2, 1, "89a", 1, {})
                   .control(kSeeThrough, 0, 2)
                   .image({"02"})
                   .control(0)
                   .image({"0"}, 0, 0, kTwo, {kRed, kGreen}));
  EXPECT_EQ(LocalToGlobalAllFrames(gif), 1);
  EXPECT_THAT(globalTable(gif), ElementsAre(kBlack, kBlack, kBlack, kRed, kGreen));

  for (const auto& [count, size] : {std::pair{0, 2}, {1, 2}, {3, 4}, {128, 128}, {129, 256}, {300, 256}}) {
    EXPECT_EQ(PaletteSizeForEntries(count), size);
  }
}

struct SlackCase {
  const char* what;
  Size screen;
  std::vector<test::Rows> frames;  // 1 is see-through
  std::vector<Point> places;
  int disposal;  // of the last frame
  Size screenAfter;
  std::vector<Rect> after;
};

TEST(Minimize, SlackIsCutAndOnlyWhatNeverShowsIsLost) {
  const test::Rows left = {"111111", "110111", "111111"}, right = {"111111", "111101", "111111"};
  const test::Rows blank(3, "111111"), whole(3, "000000");
  const SlackCase cases[] = {
      {"both boxes", {6, 3}, {left, right}, {{}, {}}, 0, {3, 1}, {{0, 0, 3, 1}, {2, 0, 3, 1}}},
      {"a blank frame stays", {6, 3}, {left, blank}, {{}, {}}, 0, {1, 1}, {{0, 0, 1, 1}, {0, 0, 6, 3}}},
      {"a blank first frame too", {6, 3}, {blank, right}, {{}, {}}, 0, {6, 3}, {{0, 0, 6, 3}, {4, 1, 5, 2}}},
      {"all are blank", {6, 3}, {blank, blank}, {{}, {}}, 0, {6, 3}, {{0, 0, 6, 3}, {0, 0, 6, 3}}},
      {"a smaller first frame", {9, 9}, {left, right}, {{}, {}}, 0, {9, 9}, {{0, 0, 5, 2}, {4, 1, 5, 2}}},
      {"an opaque frame moves along", {6, 3}, {right, {"0"}}, {{}, {5, 2}}, 0, {2, 2}, {{0, 0, 2, 2}, {1, 1, 2, 2}}},
      {"more stays than is needed", {6, 3}, {right, {"10"}}, {{}, {1, 1}}, 0, {4, 1}, {{0, 0, 4, 1}, {1, 0, 2, 1}}},
      // What was drawn before is cleared together with the second frame.
      {"a cleared area", {6, 3}, {whole, right}, {{}, {}}, 2, {6, 3}, {{0, 0, 6, 3}, {0, 0, 6, 3}}},
      {"nothing to clear", {6, 3}, {right, right}, {{}, {}}, 2, {1, 1}, {{0, 0, 1, 1}, {0, 0, 1, 1}}},
  };
  for (const SlackCase& c : cases) {
    SCOPED_TRACE(c.what);
    GifBytes file(c.screen.width, c.screen.height);
    for (std::size_t i = 0; i < c.frames.size(); ++i) {
      file.control((i + 1 == c.frames.size() ? c.disposal << 2 : 0) | kSeeThrough, 0, 1);
      file.image(c.frames[i], c.places[i].x, c.places[i].y);
    }
    clsGIF gif = loaded(file);
    const auto before = shown(gif);
    RemoveSlackTransparentAreas(gif);
    EXPECT_EQ((Size{gif.BgdWidth(), gif.BgdHeight()}), c.screenAfter);
    for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
      const Rect rect =
          Rect::fromSize(gif.FrameLeft(frame), gif.FrameTop(frame), gif.FrameWidth(frame), gif.FrameHeight(frame));
      EXPECT_EQ(rect, c.after[static_cast<std::size_t>(frame) - 1]) << frame;
      EXPECT_EQ(gif.FrameDIBAND(frame).size(), gif.FrameDIBXOR(frame).size());
    }
    EXPECT_TRUE(onlyCropped(before, c.screen, shown(gif), c.screenAfter));
  }
}

TEST(Minimize, FindingsAreToldAndRepaired) {
  clsGIF gif = loaded(GifBytes(2, 2)
                          .control(2 << 2 | kSeeThrough, 0, 9)
                          .image({"0"}, 1, 1)
                          .control(0)
                          .image({"00", "00"})
                          .control(3 << 2 | kSeeThrough, 0, 6)
                          .image({"01"}, 2, 5, kTwo, {kRed, kBlue}));
  gif.setBgdColorIndex(4);
  gif.setLocalPaletteEntries(2, 3);
  gif.LocalPaletteR_G_B_Change(2, 1, 7, 7, 7);
  const auto tells = [](const char* where, const char* what) {
    return testing::AllOf(testing::StartsWith(where), testing::HasSubstr(what));
  };
  EXPECT_THAT(
      gifDiscrepancies(gif),
      ElementsAre(tells("Background Color Index coded at 4", "Entries of 4"),
                  tells("Frame 1: Transparent Color Index at 9", "Global Palette Entries of 4"),
                  tells("Frame 3: Transparent Color Index at 6", "Local Palette Entries of 2"),
                  tells("Frame 2: Local Palette Entry of 3", "Entry of 4"),
                  tells("Frame 1 ", "no transparent color found"), tells("Frame 3 ", "no transparent color found"),
                  tells("Frame 2: ", "not identical"), tells("Frame 1: ", "Disposal method"),
                  tells("Frame 3: ", "Frame Left"), tells("Frame 3: ", "Frame Top")));
  EXPECT_TRUE(RectifyGIFData(gif));
  EXPECT_EQ(gif.GlobalPaletteEntries(), 10);
  EXPECT_EQ(gif.LocalPaletteEntries(3), 7);
  EXPECT_EQ(gif.LocalPaletteColor(2, 1), kRed);
  EXPECT_EQ(gifDiscrepancies(gif).size(), 3U);  // disposal, left and top are for the user to change
  EXPECT_FALSE(RectifyGIFData(gif));

  gif = loaded(GifBytes(1, 1).image({"0"}, 0, 0, kTwo, {kRed, kBlue}));
  gif.setGlobalPaletteExists(false);
  EXPECT_THAT(gifDiscrepancies(gif),
              ElementsAre("Background Color Index coded at 2 while there is no Global Palette in existence."));
  RectifyGIFData(gif);
  EXPECT_THAT(discrepancyReport(gif), testing::StartsWith("No discrepancy found.\n(If you suspect"));
}

// Two frames with tables of their own, of 4 and 256 entries.
clsGIF colourful() {
  std::vector<Colour> many;
  for (int i = 0; i < 256; ++i) many.push_back(rgb(i, 1, 2));
  GifBytes file(2, 1);
  file.extension(0xFE, {"words"}).control(kSeeThrough, 0, 3).image({"03"}, 0, 0, kFour | 64, test::kFourColours);
  file.control(kSeeThrough, 0, 1).image({"01"}, 0, 0, 0x87, many);
  return loaded(file);
}

TEST(Minimize, ARunThatCanNotMakeAllGlobalEndsThereAndLeavesGoodMasks) {
  clsGIF gif = colourful();
  // Every entry of the second table is in use, so it can not join the first one.
  clsDIB* all = gif.ownFrameDIBXOR(2);
  ASSERT_TRUE(all->CreateBlankDIB(256, 1, 8, kWhite, true, true));
  ASSERT_TRUE(gif.ownFrameDIBAND(2)->CreateBlankDIB(256, 1, 1, kWhite, true));
  for (int x = 0; x < 256; ++x) all->surface().pictureRow(0)[x] = static_cast<std::uint8_t>(x);
  const MinimizeResult result = minimizeGif(gif, {.localToGlobal = true, .removeInterlace = true});
  EXPECT_TRUE(result.endedEarly && result.changed);
  EXPECT_EQ(result.converted, 1);
  EXPECT_THAT(minimizeMessage(result), testing::StartsWith("Converted 1 frames only, out of 2 local frames"));
  EXPECT_TRUE(gif.hasComment() && gif.FrameInterlaced(1));
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(1)), test::Rows{"01"});
  EXPECT_EQ(gif.FrameDIBXOR(1).surface().table()[1].colour(), kBlack);  // see-through
}

TEST(Minimize, AWholeRunDoesWhatWasChosen) {
  clsGIF gif = colourful();
  std::vector<int> steps;
  EXPECT_FALSE(minimizeGif(gif, {}).changed);
  EXPECT_TRUE(gif.hasComment());
  const Progress progress{[&steps](int percent) { steps.push_back(percent); }, [&steps] { steps.push_back(-1); }};
  const MinimizeResult result = minimizeGif(gif, {true, true, true, true}, progress);
  EXPECT_TRUE(result.changed && !result.endedEarly);
  EXPECT_EQ(minimizeMessage(result), "");
  EXPECT_THAT(steps, ElementsAre(0, 30, 60, 85, 90, 100, -1));
  EXPECT_FALSE(gif.hasComment() || gif.FrameInterlaced(1) || gif.LocalPaletteUsed(2));
  EXPECT_EQ(gif.BgdWidth(), 1);
  // Nothing see-through is left in the boxes, and no entry for it.
  EXPECT_FALSE(gif.FrameUseTransparentColor(1) || gif.FrameUseTransparentColor(2));
  EXPECT_EQ(gif.GlobalPaletteEntries(), 2);
  EXPECT_EQ(minimizedSizeText(1234567, 987), "Orig file size:  1,234,567       New:  987 bytes");
}

}  // namespace
}  // namespace ruvo
