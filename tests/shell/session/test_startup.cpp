#include <fstream>

#include "shell/session/outside_open.h"
#include "shell/session/session_texts.h"
#include "shell/session/startup_rules.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

TEST(StartUp, WhatASecondStartDoes) {
  EXPECT_EQ(decideSecondStart(false, false, "/a.bmp"), SecondStart::Proceed);
  EXPECT_TRUE(isAnimationTitle("  Animated GIF main screen "));
  EXPECT_TRUE(isAnimationTitle("New animated GIF screen"));
  EXPECT_FALSE(isAnimationTitle("Animated GIF main screen 2"));
  EXPECT_FALSE(isAnimationTitle("   "));
}

TEST(StartUp, WhereTheImagingLibraryCounts) {
  ImagingEvidence system;
  system.inSystem = true;
  system.versionCode = kVersionCodeXp;
  EXPECT_TRUE(decideGdiPlusUsable(system));
  EXPECT_FALSE(decideGdiPlusUsable({}));
  ImagingEvidence beside{
      .inProgramFolder = true, .currentFolder = "/Opt/Ruvo", .programFolder = "/opt/ruvo", .versionCode = 6};
  EXPECT_TRUE(decideGdiPlusUsable(beside));
  beside.versionCode = kVersionCodeXp;
  EXPECT_FALSE(decideGdiPlusUsable(beside));
  beside.versionCode = 6;
  beside.currentFolder = "/home";
  EXPECT_FALSE(decideGdiPlusUsable(beside));
}

TEST(StartUp, ReminderOfDisplayAndMemory) {
  EXPECT_TRUE(needsDepthReminder(16, true));
  EXPECT_FALSE(needsDepthReminder(16, false));
  EXPECT_FALSE(needsDepthReminder(32, true));
  EXPECT_TRUE(ramReminderText(1, 9999));
  EXPECT_FALSE(ramReminderText(1, 10000));
  EXPECT_TRUE(ramReminderText(4, 39999));
  EXPECT_FALSE(ramReminderText(0, 0));
  EXPECT_FALSE(ramReminderText(7, 0));
}

TEST(StartUp, ImagingMessagesByCause) {
  EXPECT_EQ(gdiPlusMissingText({true, 7}, "a.png"), "a.png\nFailed to load gdiplus.dll");
  EXPECT_THAT(gdiPlusMissingText({true, 0}), testing::StartsWith("GDIplus.dll not found"));
  EXPECT_THAT(gdiPlusMissingText({false, 7}), testing::HasSubstr("XP users"));
  EXPECT_THAT(gdiPlusMissingText({false, 3}), testing::HasSubstr("Win 95 users"));
  EXPECT_THAT(gdiPlusMissingText({false, 0}), testing::HasSubstr("download one"));
}

TEST(OutsideOpen, WhichTextsNameAFileToOpen) {
  const test::TempFolder folder;
  for (const char* name : {"rose.PNG", "rose.jpe", "rose.t", "rose.doc", "rose", ".gif"})
    std::ofstream(folder.path() / name);
  const std::string base = folder.path().string() + '/';
  EXPECT_EQ(fileFromOutside('"' + base + "ro\"se.PNG\""), folder.path() / "rose.PNG");
  EXPECT_TRUE(fileFromOutside(base + "rose.jpe")) << "part of an extension";
  EXPECT_TRUE(fileFromOutside(base + "rose.t"));
  EXPECT_FALSE(fileFromOutside(base + "rose.doc"));
  EXPECT_FALSE(fileFromOutside(base + "rose"));
  EXPECT_FALSE(fileFromOutside(base + "none.png"));
  EXPECT_FALSE(fileFromOutside(base));
  EXPECT_FALSE(fileFromOutside("a.t"));

  EXPECT_EQ(outsidePathFromArgument("\"./x y.png\"", "/here"), "/here/x y.png");
  EXPECT_EQ(outsidePathFromArgument("/abs/x.png", "/here"), "/abs/x.png");
  EXPECT_EQ(outsidePathFromArgument("link/../x.png", "/here"), "/here/link/../x.png");
  EXPECT_EQ(outsidePathFromArgument("a.t", "/here"), "a.t");
  EXPECT_EQ(outsidePathFromArgument("", "/here"), "");
}

TEST(OutsideOpen, WaitsWhileBusyAndActsOnEveryText) {
  const test::TempFolder folder;
  const auto file = folder.path() / "rose.png";
  std::ofstream{file};
  bool busy = true, sdi = false, document = false;
  std::vector<std::string> log;
  OutsideOpener* self = nullptr;
  OutsideOpener opener({[&] { return busy; }, [&] { log.push_back("unload"); }, [&] { return document; },
                        [&] { return sdi; },
                        [&](const auto&, PendingOpen) {
                          log.push_back("new");
                          document = true;
                          self->run();  // an opening that lets events in must not start the next one inside
                        },
                        [&](const auto&, PendingOpen) { log.push_back("here"); },
                        [&](const auto& path) { log.push_back("animation " + path.string()); }});
  self = &opener;
  opener.push(file.string(), PendingOpen::CommandLine);
  opener.push(file.string(), PendingOpen::CommandLine);
  opener.push("", PendingOpen::CommandLine);
  opener.run();
  EXPECT_TRUE(log.empty());
  EXPECT_TRUE(opener.waiting());
  busy = false;
  opener.run();
  EXPECT_EQ(log, (std::vector<std::string>{"unload", "new", "unload", "new"}));
  EXPECT_FALSE(opener.waiting());
  log.clear();
  sdi = true;
  opener.push(file.string(), PendingOpen::CommandLine);
  opener.push("/none/such.png", PendingOpen::CommandLine);
  opener.run();
  EXPECT_EQ(log, (std::vector<std::string>{"unload", "here", "unload"}));
  log.clear();
  document = false;
  opener.push(file.string(), PendingOpen::CommandLine);
  opener.run();
  EXPECT_EQ(log.back(), "new");
  // What is wrong with a dropped file is for the opening to say.
  log.clear();
  opener.push("/none/such.png", PendingOpen::FileOpen);
  opener.run();
  EXPECT_EQ(log, (std::vector<std::string>{"unload", "here"}));
  // An animation goes to its own window in either mode.
  log.clear();
  opener.push("animated-gif:/a/b.gif", PendingOpen::CommandLine);
  opener.run();
  EXPECT_EQ(log.back(), "animation /a/b.gif");
}

}  // namespace
}  // namespace ruvo
