#include "shell/session/settings.h"

#include "shell/session/document_list.h"
#include "shell/session/file_history.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

class Settings : public testing::Test {
 protected:
  StoredSettings readWith(const std::string& section, const std::string& key, const std::string& value) {
    const SettingsFile one(folder_.path() / "one.ini");
    std::filesystem::remove(one.path());
    one.write(section, key, value);
    return readSettings(one, context_);
  }
  std::vector<std::string> history() const {
    std::vector<std::string> texts;
    const auto paths = FileHistory(file_, kPaintHistorySection).list();
    for (const auto& path : *paths) texts.push_back(path.string());
    return texts;
  }

  test::TempFolder folder_;
  SettingsFile file_{folder_.path() / kSettingsFileName};
  SettingsContext context_{{1280 * kTwipsPerPixel, 1024 * kTwipsPerPixel}, folder_.path()};
};

TEST_F(Settings, EachRuleOnOddTexts) {
  EXPECT_FALSE(readWith("Options", "SDIOnly", "1").options.sdiOnly);
  EXPECT_TRUE(readWith("Options", "SDIOnly", "-1").options.sdiOnly);
  EXPECT_TRUE(readWith("Options", "RemindColorSetting", "x").options.remindColorSetting);
  EXPECT_FALSE(readWith("Options", "RemindColorSetting", "0").options.remindColorSetting);
  EXPECT_FALSE(readWith("DialogShowPreview", "ShowPreview", "yes").dialogShowPreview);
  for (const auto& [text, level] : {std::pair{"3", 3},
                                    {"0", 0},
                                    {"7", kNoMonitorLevel},
                                    {"-1", kNoMonitorLevel},
                                    {"2.5", kNoMonitorLevel},
                                    {"abc", kNoMonitorLevel},
                                    {"4", 4}}) {
    EXPECT_EQ(readWith("Options", "WatchRAM", text).options.watchRam, level) << text;
  }
  for (const auto& [text, index] :
       {std::pair{"19", 19}, {"20", 2}, {"-1", 2}, {"0", 0}, {"junk", 2}, {"9999999999", 2}}) {
    EXPECT_EQ(readWith("Settings", "BrushSizeIndex", text).brushSizeIndex, index) << text;
  }
  EXPECT_EQ(readWith("SlideShow", "SlideSize", "big").slideSize, 0);
  EXPECT_EQ(readWith("SlideShow", "SlidePace", "5").slidePace, 5);
  EXPECT_EQ(readWith("SlideShow", "SlideStyle", "12").slideStyle, 12);
  EXPECT_EQ(readWith("SlideShow", "SlideStyle", "1x").slideStyle, 0);
  EXPECT_EQ(readWith("SlideShow", "SlideStyle", "-1").slideStyle, 0);
  EXPECT_EQ(readWith("Last Folder", "FileBrowse", folder_.path().string()).fileBrowseFolder, folder_.path());
  EXPECT_TRUE(readWith("Last Folder", "FileBrowse", (folder_ / "gone").string()).fileBrowseFolder.empty());
  EXPECT_EQ(readWith("Last Folder", "PAL", (folder_ / "gone").string()).palFolder, folder_.path());
}

TEST_F(Settings, AWindowComesUpWhereItStoodIfItCanBeSeenThere) {
  EXPECT_FALSE(readPlacement(file_, "Some Pos").left);
  writePlacement(file_, "Some Pos",
                 {.left = -3, .top = 40, .width = 900, .height = 700, .state = WindowState::Maximised});
  EXPECT_EQ(file_.read("Some Pos", "Width"), "13500");
  EXPECT_EQ(file_.read("Some Pos", "WinState"), "2");
  file_.write("Some Pos", "Top", "");
  const WindowPlacement stored = readPlacement(file_, "Some Pos");
  EXPECT_EQ(stored.left, -3);
  EXPECT_FALSE(stored.top);
  EXPECT_EQ(stored.state, WindowState::Maximised);

  const Rect screen = Rect::fromSize(0, 20, 1280, 1004);
  EXPECT_EQ(placeOnScreen(stored, screen, {1000, 800}, {800, 600}), Rect::fromSize(0, 172, 900, 700));
  EXPECT_EQ(placeOnScreen({}, screen, {1000, 800}, {800, 600}), Rect::fromSize(140, 122, 1000, 800));
  EXPECT_EQ(placeOnScreen({.left = 5000, .width = 30}, screen, {1000, 800}, {800, 600}),
            Rect::fromSize(480, 122, 800, 800));
  // On a small screen the stored size does not count.
  EXPECT_EQ(placeOnScreen(stored, Rect::fromSize(0, 0, 700, 500), {640, 480}, {600, 400}),
            Rect::fromSize(0, 10, 640, 480));
}

TEST_F(Settings, TheColourChartStaysOnTheScreen) {
  EXPECT_EQ(readWith("ColorChart Pos", "Left", "-5").colorChartPosition.x, 0);
  EXPECT_EQ(readWith("ColorChart Pos", "Left", "100000").colorChartPosition.x, 1280 * 15 - 2790);
  EXPECT_EQ(readWith("ColorChart Pos", "Top", "100000").colorChartPosition.y, 1024 * 15 - 7110);
  EXPECT_EQ(clampColorChart({50, 50}, {1000, 1000}), Point()) << "a screen smaller than the chart";
  StoredSettings s;
  s.colorChartPosition = {1 << 30, 77};
  writeSettings(file_, s, context_);
  EXPECT_EQ(file_.read("ColorChart Pos", "Left"), std::to_string(1280 * 15 - 2790));
}

TEST_F(Settings, WhatIsWrittenComesBackAndAnUnchangedSessionLeavesTheFileAlone) {
  StoredSettings s;
  s.options = {.sdiOnly = true,
               .watchRam = 4,
               .remindColorSetting = false,
               .fitInEvenIfSmaller = true,
               .jpgAddBackExif = false,
               .showPixelRgb = true,
               .axisLines = true};
  s.brushSizeIndex = 19;
  s.colorChartPosition = {30, 45};
  s.dialogShowPreview = false;
  s.slideStyle = 11;
  s.palFolder = s.fileBrowseFolder = folder_.path();
  file_.write("Foreign", "kept", "yes");
  writeSettings(file_, s, context_);
  const StoredSettings back = readSettings(file_, context_);
  EXPECT_TRUE(back.options.sdiOnly && back.options.fitInEvenIfSmaller && back.options.showPixelRgb);
  EXPECT_FALSE(back.options.remindColorSetting || back.options.jpgAddBackExif || back.dialogShowPreview);
  EXPECT_FALSE(back.options.axisLines) << "of this session only";
  EXPECT_EQ(back.options.watchRam, 4);
  EXPECT_EQ(back.brushSizeIndex, 19);
  EXPECT_EQ(back.colorChartPosition, (Point{30, 45}));
  EXPECT_EQ(back.slideStyle, 11);
  EXPECT_EQ(back.fileBrowseFolder, folder_.path());
  EXPECT_EQ(file_.read("Foreign", "kept"), "yes");
  EXPECT_EQ(file_.read("Options", "SDIOnly"), "-1");

  const auto long_ago = std::filesystem::file_time_type();
  std::filesystem::last_write_time(file_.path(), long_ago);
  writeSettings(file_, back, context_);
  EXPECT_EQ(std::filesystem::last_write_time(file_.path()), long_ago);
}

TEST_F(Settings, HistoryMovesUpClosesGapsAndForgetsTheNinth) {
  const FileHistory paint(file_, kPaintHistorySection);
  EXPECT_FALSE(paint.list()) << "no file: the menu stays as it is";
  for (int i = 1; i <= 9; ++i) paint.add("/p/" + std::to_string(i));
  EXPECT_EQ(history(), (std::vector<std::string>{"/p/9", "/p/8", "/p/7", "/p/6", "/p/5", "/p/4", "/p/3", "/p/2"}));
  paint.add("/p/7");
  EXPECT_EQ(history(), (std::vector<std::string>{"/p/7", "/p/9", "/p/8", "/p/6", "/p/5", "/p/4", "/p/3", "/p/2"}));
  paint.add("/P/7");
  EXPECT_EQ(history()[0], "/P/7") << "letter case tells paths apart";
  EXPECT_EQ(history()[1], "/p/7");
  EXPECT_TRUE(FileHistory(file_, kGifAniHistorySection).list()->empty());
}

TEST_F(Settings, HistoryEdges) {
  const FileHistory paint(file_, kPaintHistorySection);
  paint.add("/with\nnewline");
  EXPECT_FALSE(file_.exists());
  file_.write(kPaintHistorySection, "1.", "   ");
  file_.write(kPaintHistorySection, "3.", " /three ");
  EXPECT_EQ(history(), std::vector<std::string>{"/three"});
  paint.add("/one");
  EXPECT_EQ(history(), (std::vector<std::string>{"/one", "/three"}));
  EXPECT_EQ(file_.read(kPaintHistorySection, "2."), "");
  EXPECT_EQ(historyCaption(2, "/home/ann/a&b/c/R&D.png"), "&2 /home/...../R&&D.png");
}

TEST(DocumentList, SlotsAreUsedAgainAndCounted) {
  std::vector<DocumentFlags> slots;
  EXPECT_EQ(allocateSlot(slots), 0);
  EXPECT_EQ(allocateSlot(slots), 1);
  EXPECT_EQ(allocateSlot(slots), 2);
  slots[1] = {.changed = true, .free = true};
  EXPECT_FALSE(anyUnsavedDocument(slots)) << "a free slot's flag means nothing";
  EXPECT_EQ(countDocuments(slots, 3), 2);
  EXPECT_EQ(countDocuments(slots, 1), 0);
  EXPECT_FALSE(anyDocumentOpen(slots, 1));
  EXPECT_EQ(allocateSlot(slots), 1);
  EXPECT_FALSE(slots[1].changed);
  EXPECT_EQ(slots.size(), 3u);
  slots[2].changed = true;
  EXPECT_TRUE(anyUnsavedDocument(slots));
  EXPECT_TRUE(anyDocumentOpen(slots, 4));
}

}  // namespace
}  // namespace ruvo
