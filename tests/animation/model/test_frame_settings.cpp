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
  gif.setNetscapeLoops(3);
  return gif;
}

SettingsOrder orderOf(const clsGIF& gif, int frame, bool all, SettingsItem item = SettingsItem::All) {
  return {all, item, frame, settingsOf(gif, frame)};
}

// Delays, disposals, places and interlacing of all frames.
std::string told(const clsGIF& gif) {
  std::string all;
  for (int i = 1; i <= gif.FramesCount(); ++i) {
    for (const int value : {gif.FrameDelay(i), gif.FrameDisposalMethod(i), gif.FrameLeft(i), gif.FrameTop(i),
                            static_cast<int>(gif.FrameInterlaced(i))}) {
      all += std::to_string(value) + ' ';
    }
    all += "/ ";
  }
  return all;
}

TEST(FrameSettings, WritesTheChosenItemToTheChosenFrames) {
  const clsGIF before = animation();
  struct Row {
    SettingsItem item;
    bool all;
    std::string told;
  };
  for (const Row& row : {Row{SettingsItem::Delay, false, "1 0 0 0 0 / 50 2 2 3 0 / 65535 7 4 0 1 / "},
                         Row{SettingsItem::Delay, true, "50 0 0 0 0 / 50 2 2 3 0 / 50 7 4 0 1 / "},
                         Row{SettingsItem::Disposal, true, "1 1 0 0 0 / 300 1 2 3 0 / 65535 1 4 0 1 / "},
                         Row{SettingsItem::LeftTop, true, "1 0 0 0 0 / 300 2 5 6 0 / 65535 7 5 6 1 / "},
                         Row{SettingsItem::Interlace, false, "1 0 0 0 0 / 300 2 2 3 1 / 65535 7 4 0 1 / "},
                         Row{SettingsItem::Loops, false, "1 0 0 0 0 / 300 2 2 3 0 / 65535 7 4 0 1 / "},
                         Row{SettingsItem::All, false, "1 0 0 0 0 / 50 1 5 6 1 / 65535 7 4 0 1 / "}}) {
    clsGIF gif = before.clone();
    SettingsOrder order = orderOf(gif, 2, row.all, row.item);
    EXPECT_FALSE(applySettings(gif, order).changed && !row.all) << "the frame's own values change nothing";
    gif = before.clone();
    order.values = {50, 1, 5, 6, true, true, false, 9, "  two words \n"};
    EXPECT_EQ(settingsRefusal(gif, order), std::nullopt);
    EXPECT_TRUE(applySettings(gif, order).changed);
    EXPECT_EQ(told(gif), row.told);
    EXPECT_EQ(gif.NetscapeLoops(), row.item == SettingsItem::Loops || row.item == SettingsItem::All ? 9 : 3);
    EXPECT_EQ(gif.CommentText(), row.item == SettingsItem::All ? "two words" : "");
  }
}

TEST(FrameSettings, RefusesWhatOneFrameCanNotHave) {
  const clsGIF gif = animation();
  SettingsOrder order = orderOf(gif, 1, false, SettingsItem::LeftTop);
  order.values.top = 1;
  EXPECT_EQ(settingsRefusal(gif, order), "For first frame, the [left, top] must be [0, 0]");
  order.item = SettingsItem::Delay;
  EXPECT_EQ(settingsRefusal(gif, order), std::nullopt);
  order.values.sorted = true;
  order.item = SettingsItem::PaletteSorted;
  EXPECT_EQ(settingsRefusal(gif, order),
            "You have selected to change setting of a single frame only;\n"
            "since current frame is using global palette, you cannot change\n"
            "the \"palette sorted\" status.\n"
            "Please change \"palette sorted\" back to original status first.");
  order.allFrames = true;
  EXPECT_EQ(settingsRefusal(gif, order), std::nullopt);
  order.item = SettingsItem::Comment;
  order.values.comment = std::string(256, 'x');
  EXPECT_NE(settingsRefusal(gif, order), std::nullopt) << "a file could not hold it";
  order.item = SettingsItem::Loops;
  order.values.loops = 65536;
  EXPECT_NE(settingsRefusal(gif, order), std::nullopt);
}

TEST(FrameSettings, SortedTablesAreMarked) {
  clsGIF gif = animation();
  SettingsOrder order = orderOf(gif, 3, false, SettingsItem::PaletteSorted);
  order.values.sorted = true;
  EXPECT_TRUE(applySettings(gif, order).changed);
  EXPECT_TRUE(gif.LocalPaletteSorted(3) && !gif.LocalPaletteSorted(2) && !gif.GlobalPaletteSorted());
  order.allFrames = true;
  EXPECT_TRUE(applySettings(gif, order).changed);
  EXPECT_TRUE(gif.LocalPaletteSorted(2) && gif.GlobalPaletteSorted());
}

TEST(FrameSettings, AsksByTheChangeOfPalettes) {
  clsGIF gif = animation();
  const auto question = [&](int frame, bool all, bool local) {
    SettingsOrder order = orderOf(gif, frame, all, SettingsItem::PaletteScope);
    order.values.localPalette = local;
    return settingsQuestion(gif, order);
  };
  const std::string all =
      "(Processes will remove any unused/duplicate palette entries)\n"
      "Proceed to change settings of all frames?";
  const std::string one =
      "(Processes will remove any unused/duplicate palette entries)\n"
      "Proceed to change setting of current frame?";
  EXPECT_EQ(question(2, true, true), "Sure to change all frames to use local palette only?");
  EXPECT_EQ(question(1, false, true), "Sure to change current frame to use local palette only?");
  EXPECT_EQ(question(2, false, true), "Proceed to change setting of current frame?");
  EXPECT_EQ(question(2, true, false),
            "You have selected to change from local to global palette.  Frames\n"
            "to change will be subject to the resultant color count not exceeding 256.\n" +
                all);
  EXPECT_EQ(question(2, false, false),
            "You have selected to change from local to global palette.   It will\n"
            "be subject to the resultant color count not exceeding 256.\n" +
                one);
  gif.FrameDelete(1);
  gif.setGlobalPaletteExists(false);
  EXPECT_EQ(question(1, true, true), "Proceed to change settings of all frames?");
  EXPECT_EQ(question(1, true, false),
            "No global palette in existence currently; will create one.   Frames to\n"
            "change will be subject to the resultant color count not exceeding 256.\n" +
                all);
  EXPECT_EQ(question(1, false, false), "No global palette in existence currently; will create one.\n" + one);
}

Colour colourAt(const clsGIF& gif, int frame, int x) {
  return gif.LocalPaletteColor(frame, gif.PaletteIndex_In_DIB_XY(frame, x, 0));
}

TEST(FrameSettings, FramesChangeTheirPaletteAndKeepTheirColours) {
  clsGIF gif = animation();
  SettingsOrder order = orderOf(gif, 2, false, SettingsItem::PaletteScope);
  order.values.localPalette = false;
  EXPECT_EQ(applySettings(gif, order).message, "");
  EXPECT_TRUE(!gif.LocalPaletteUsed(2) && gif.LocalPaletteUsed(3));
  EXPECT_EQ(gif.GlobalPaletteEntries(), 3) << "unused entries are gone, and one of the two was there";
  EXPECT_EQ(colourAt(gif, 2, 1), rgb(255, 0, 0));
  order.allFrames = true;
  order.values.localPalette = true;
  EXPECT_TRUE(applySettings(gif, order).changed);
  EXPECT_TRUE(gif.LocalPaletteUsed(1) && gif.LocalPaletteUsed(2) && !gif.GlobalPaletteExists());
  EXPECT_EQ(gif.GlobalPaletteEntries(), 0);
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
  SettingsOrder order = orderOf(gif, 2, true, SettingsItem::PaletteScope);
  order.values.localPalette = false;
  SettingsResult result = applySettings(gif, order);
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.message, "1 changed to use global palette; 1 not changed.");
  EXPECT_TRUE(!gif.LocalPaletteUsed(1) && gif.LocalPaletteUsed(2));
  result = applySettings(gif, order);
  EXPECT_EQ(result.message, "Failed to change any frame to global palette");
  order.allFrames = false;
  result = applySettings(gif, order);
  EXPECT_FALSE(result.changed);
  EXPECT_EQ(result.message, "Failed to change current frame to global palette");
  EXPECT_EQ(colourAt(gif, 2, 7), rgb(7, 2, 0));
}

}  // namespace
}  // namespace ruvo
