#include <fstream>

#include "shell/session/outside_open.h"
#include "shell/session/session_texts.h"
#include "shell/session/startup_rules.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

TEST(StartUp, WhatASecondStartDoes) {
  EXPECT_EQ(decideSecondStart(false, false, "/a.bmp"), SecondStart::Proceed);
  EXPECT_EQ(decideSecondStart(true, true, "/a.bmp"), SecondStart::EndSilently);
  EXPECT_EQ(decideSecondStart(true, true, ""), SecondStart::EndSilently);
  EXPECT_EQ(decideSecondStart(true, false, "/a.bmp"), SecondStart::HandOver);
  EXPECT_EQ(decideSecondStart(true, false, ""), SecondStart::SayAlreadyRunning);
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
  EXPECT_EQ(ramReminderText(1, 9999),
            "Reminder: Your current RAM memory at 9999 KB is running low.\nYou may wish to try to reboot.\n\n"
            "(Note: You can change Option to remove RAM monitoring)");
  EXPECT_FALSE(ramReminderText(1, 10000));
  EXPECT_TRUE(ramReminderText(4, 39999));
  EXPECT_FALSE(ramReminderText(0, 0));
  EXPECT_FALSE(ramReminderText(7, 0));
}

TEST(StartUp, ImagingMessagesByCause) {
  const std::string folderHint =
      "If you have gdiplus.dll in the same folder of this program, then run the program\ndirectly from within the "
      "folder.\n\nPlease refer Help.";
  const std::string notFound = "GDIplus.dll not found, hence cannot load/save PNG/TIF.\n\n";
  EXPECT_EQ(gdiPlusMissingText({true, 0}), notFound + folderHint);
  EXPECT_EQ(gdiPlusMissingText({true, 7}, "a.png"), "a.png\nFailed to load gdiplus.dll");
  EXPECT_EQ(
      gdiPlusMissingText({false, 7}, "a.png"),
      "a.png\n" + notFound + "XP users should have system-supplied gdiplus.dll in Windows system folder (or in disk).");
  EXPECT_EQ(gdiPlusMissingText({false, 3}),
            "Sorry that Win 95 users cannot run Microsoft gdiplus.dll, hence cannot load PNG/TIFF.");
  EXPECT_EQ(gdiPlusMissingText({false, 0}),
            notFound + "If you don't have gdiplus.dll, you can download one from Microsoft.\n\n" + folderHint);
  EXPECT_EQ(softerGdiPlusText(3), "");
  EXPECT_THAT(softerGdiPlusText(8), testing::EndsWith("system folder,\nbut it is not found."));
  EXPECT_THAT(softerGdiPlusText(0), testing::EndsWith("\n(Please refer Help)."));
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
