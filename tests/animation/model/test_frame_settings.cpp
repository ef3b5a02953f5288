#include "animation/model/frame_settings.h"

#include "formats/gif_bytes.h"

namespace ruvo {
namespace {

using namespace test;

// A frame of the global table and two with tables of their own.
clsGIF animation() {
  clsGIF gif;
  EXPECT_EQ(load(gif, GifBytes(9, 9)
                          .control(0, 1)
                          .image({"01"})
                          .control(8, 300)
                          .image({"01"}, 2, 3, 0x80, {kWhite, rgb(255, 0, 0)})
                          .control(28, 65535)
                          .image({"10"}, 4, 0, 0xC0, {rgb(0, 255, 0), kBlack})
                          .bytes()),
            kGifOk);
  return gif;
}

// Delay, disposal, place and interlacing of each frame, loops and comment.
std::string told(const clsGIF& gif) {
  std::string all;
  for (int i = 1; i <= gif.FramesCount(); ++i) {
    for (const int value : {gif.FrameDelay(i), gif.FrameDisposalMethod(i), gif.FrameLeft(i), gif.FrameTop(i)}) {
      all += std::to_string(value) + ' ';
    }
    all += gif.FrameInterlaced(i) ? "i / " : "/ ";
  }
  return all + std::to_string(gif.NetscapeLoops()) + gif.CommentText();
}

TEST(FrameSettings, WritesTheChosenItemToTheChosenFrames) {
  using enum SettingsItem;
  struct Row {
    SettingsItem item;
    bool all;
    const char* told;
  };
  for (const Row& row : {Row{Delay, false, "1 0 0 0 / 50 2 2 3 / 65535 7 4 0 i / 0"},
                         Row{Delay, true, "50 0 0 0 / 50 2 2 3 / 50 7 4 0 i / 0"},
                         Row{Disposal, true, "1 1 0 0 / 300 1 2 3 / 65535 1 4 0 i / 0"},
                         Row{LeftTop, true, "1 0 0 0 / 300 2 5 6 / 65535 7 5 6 i / 0"},
                         Row{Interlace, false, "1 0 0 0 / 300 2 2 3 i / 65535 7 4 0 i / 0"},
                         Row{Loops, false, "1 0 0 0 / 300 2 2 3 / 65535 7 4 0 i / 9"},
                         Row{Comment, true, "1 0 0 0 / 300 2 2 3 / 65535 7 4 0 i / 0two words"},
                         Row{All, false, "1 0 0 0 / 50 1 5 6 i / 65535 7 4 0 i / 9two words"}}) {
    clsGIF gif = animation();
    EXPECT_FALSE(applySettings(gif, {false, row.item, 2, settingsOf(gif, 2)}).changed) << "these values stand there";
    const SettingsOrder order{row.all, row.item, 2, {50, 1, 5, 6, true, true, false, 9, "  two words \n"}};
    EXPECT_EQ(settingsRefusal(gif, order), std::nullopt);
    EXPECT_TRUE(applySettings(gif, order).changed);
    EXPECT_EQ(told(gif), row.told);
  }
}

TEST(FrameSettings, RefusesWhatCanNotBe) {
  using enum SettingsItem;
  const clsGIF gif = animation();
  FrameSettings values = settingsOf(gif, 1);
  values.top = 1;
  values.sorted = true;
  values.comment = std::string(256, 'x');
  values.loops = 65536;
  EXPECT_EQ(settingsRefusal(gif, {false, LeftTop, 1, values}), "For first frame, the [left, top] must be [0, 0]");
  EXPECT_THAT(settingsRefusal(gif, {false, PaletteSorted, 1, values}).value_or(""),
              testing::EndsWith("\nPlease change \"palette sorted\" back to original status first."));
  for (const auto item : {LeftTop, PaletteSorted, Delay}) {
    EXPECT_EQ(settingsRefusal(gif, {true, item, 1, values}), std::nullopt);
  }
  for (const auto item : {Comment, Loops}) EXPECT_NE(settingsRefusal(gif, {true, item, 1, values}), std::nullopt);
}

TEST(FrameSettings, AsksByTheChangeOfPalettes) {
  clsGIF gif = animation();
  const auto question = [&](int frame, bool all, bool local) {
    FrameSettings values;
    values.localPalette = local;
    return settingsQuestion(gif, {all, SettingsItem::PaletteScope, frame, values});
  };
  EXPECT_EQ(question(2, true, true), "Sure to change all frames to use local palette only?");
  EXPECT_EQ(question(2, false, true), "Proceed to change setting of current frame?");
  EXPECT_THAT(question(2, false, false), testing::StartsWith("You have selected to change from local to global"));
  gif.FrameDelete(1);
  gif.setGlobalPaletteExists(false);
  EXPECT_EQ(question(1, true, true), "Proceed to change settings of all frames?");
  EXPECT_THAT(question(1, true, false), testing::StartsWith("No global palette in existence currently"));
}

SettingsResult changeScope(clsGIF& gif, int frame, bool all, bool local) {
  FrameSettings values;
  values.localPalette = local;
  return applySettings(gif, {all, SettingsItem::PaletteScope, frame, values});
}
Colour colourAt(const clsGIF& gif, int frame, int x) {
  return gif.LocalPaletteColor(frame, gif.PaletteIndex_In_DIB_XY(frame, x, 0));
}

TEST(FrameSettings, FramesChangeTheirPaletteAndKeepTheirColours) {
  clsGIF gif = animation();
  EXPECT_EQ(changeScope(gif, 2, false, false).message, "");
  EXPECT_TRUE(!gif.LocalPaletteUsed(2) && gif.LocalPaletteUsed(3));
  EXPECT_EQ(gif.GlobalPaletteEntries(), 3) << "unused entries are gone, and one of the two was there";
  EXPECT_EQ(colourAt(gif, 2, 1), rgb(255, 0, 0));
  EXPECT_TRUE(applySettings(gif, {true, SettingsItem::PaletteSorted, 1, {.sorted = true}}).changed);
  EXPECT_TRUE(changeScope(gif, 1, true, true).changed);
  EXPECT_TRUE(gif.LocalPaletteUsed(1) && gif.LocalPaletteUsed(2) && !gif.GlobalPaletteExists());
  EXPECT_TRUE(gif.LocalPaletteSorted(1) && gif.LocalPaletteSorted(3) && gif.GlobalPaletteEntries() == 0);
  EXPECT_EQ(colourAt(gif, 1, 1), kFourColours[1]);
  EXPECT_EQ(colourAt(gif, 2, 0), kWhite);
}

// Two frames of 200 colours each, of which no table holds all.
TEST(FrameSettings, TellsWhichFramesStayedLocal) {
  clsGIF gif;
  for (int frame = 1; frame <= 2; ++frame) {
    clsDIB picture = plainDib(200, 1, kWhite, 8, true);
    for (int i = 0; i < 200; ++i) {
      picture.surface().pictureRow(0)[i] = static_cast<std::uint8_t>(i);
      picture.surface().table()[i] = raster::TableEntry::of(rgb(i, frame, 0));
    }
    ASSERT_TRUE(gif.FrameInsertImage(picture, frame));
  }
  EXPECT_EQ(changeScope(gif, 1, true, false).message, "1 changed to use global palette; 1 not changed.");
  EXPECT_TRUE(!gif.LocalPaletteUsed(1) && gif.LocalPaletteUsed(2));
  EXPECT_EQ(changeScope(gif, 1, true, false).message, "Failed to change any frame to global palette");
  EXPECT_EQ(changeScope(gif, 2, false, false).message, "Failed to change current frame to global palette");
  EXPECT_EQ(colourAt(gif, 2, 7), rgb(7, 2, 0));
}

}  // namespace
}  // namespace ruvo
