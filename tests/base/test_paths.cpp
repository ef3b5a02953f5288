#include "base/paths.h"

#include <sys/stat.h>

#include "base/file_io.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

TEST(Paths, PartsOfAPath) {
  struct Row {
    std::string path;
    std::vector<std::string> parts;  // 0 to 6
  };
  const Row rows[] = {
      {"/home/ann/rose.png", {"/home/ann/", "/home/ann/rose", "", "/home/ann/", "rose.png", "rose", ".png"}},
      {"rose.tar.gz", {"", "rose.tar", "", "", "rose.tar.gz", "rose.tar", ".gz"}},
      {"/v1.2/rose", {"/v1.2/", "/v1.2/rose", "", "/v1.2/", "rose", "rose", ""}},
      {"/a/rose.", {"/a/", "/a/rose.", "", "/a/", "rose.", "rose.", ""}},
      {"C:/a/b.bmp", {"C:/a/", "C:/a/b", "C:", "/a/", "b.bmp", "b", ".bmp"}},
      {"/a/", {"/a/", "/a/", "", "/a/", "", "", ""}},
  };
  for (const Row& row : rows) {
    for (int part = 0; part <= 6; ++part)
      EXPECT_EQ(parsePath(row.path, part), row.parts[part]) << row.path << ' ' << part;
  }
  for (const char* refused : {"$a/b.png", " a/b.png", ""}) EXPECT_EQ(parsePath(refused, kPartFile), "") << refused;
  EXPECT_EQ(parsePath("/a/b.png", 7), "");
  EXPECT_EQ(parsePath("/a/b.png", -1), "");
}

TEST(Paths, TheLengthLimitCountsCharactersAndBindsParsePathAlone) {
  std::string name = "/";
  for (int i = 0; i < 250; ++i) name += "\u00E9";
  EXPECT_EQ(parsePath(name + ".png", kPartExtension), ".png");
  EXPECT_EQ(parsePath(name + "x.png", kPartExtension), "");
  EXPECT_EQ(extensionOf(name + "x.png"), ".png");
  EXPECT_EQ(fileNameOf(name + "x.png").size(), 505u);
}

TEST(Paths, ShorteningKeepsStartAndName) {
  EXPECT_EQ(shortenPath("/a/b/c.png"), "/a/b/c.png");
  EXPECT_EQ(shortenPath("/home/ann/pictures/rose.png"), "/home/...../rose.png");
  EXPECT_EQ(shortenPath("C:/one/two/three/rose.png"), "C:/one/...../rose.png");
  std::string wide(90, 'x');
  wide.insert(0, "/").append("\u00E9\u00E8");
  const std::string shown = shortenPath(wide);
  EXPECT_EQ(utf8Length(shown), kShownPathLength);
  EXPECT_EQ(shown, std::string("/xx......").append(69, 'x').append("\u00E9\u00E8"));
  // Whole characters only, and bytes that are no text survive.
  EXPECT_EQ(shortenPath("\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9", 10),
            "\u00E9\u00E9\u00E9......\u00E9");
  EXPECT_EQ(utf8Length("\xFF\xC3"), 2u);
}

TEST(Paths, WhatIsAFileAndWhatMayBeWritten) {
  const test::TempFolder folder;
  const auto file = folder.path() / ".hidden name.bmp";
  EXPECT_FALSE(fileExists(file));
  EXPECT_FALSE(isReadOnlyHiddenOrSystem(file));
  EXPECT_TRUE(deleteIfPossible(file));
  ASSERT_TRUE(replaceFile(file, {}));
  EXPECT_TRUE(fileExists(file));
  EXPECT_FALSE(fileExists(folder.path()));
  EXPECT_TRUE(folderExists(folder.path()));
  EXPECT_FALSE(folderExists(file));
  EXPECT_FALSE(deleteIfPossible(folder.path()));
  EXPECT_FALSE(isReadOnlyHiddenOrSystem(file));
  // Without any write permission it is read-only even for a user who may write everywhere.
  ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
  EXPECT_TRUE(isReadOnlyHiddenOrSystem(file));
  EXPECT_FALSE(deleteIfPossible(file));
  EXPECT_TRUE(clearAttributes(file));
  EXPECT_TRUE(deleteIfPossible(file));
  EXPECT_FALSE(fileExists(file));
}

TEST(Paths, FitSizeScalesByTheTighterSideAndNeverToNothing) {
  EXPECT_EQ(fitSize({50, 40}, {100, 100}, false), (Size{50, 40}));
  EXPECT_EQ(fitSize({50, 40}, {100, 100}, true), (Size{100, 80}));
  EXPECT_EQ(fitSize({300, 200}, {100, 100}, false), (Size{100, 67}));
  EXPECT_EQ(fitSize({200, 300}, {90, 60}, false), (Size{40, 60}));
  EXPECT_EQ(fitSize({1000, 1}, {100, 100}, false), (Size{100, 1}));
  EXPECT_EQ(fitSize({1, 1000}, {100, 100}, false), (Size{1, 100}));
  EXPECT_FALSE(fitSize({0, 5}, {100, 100}, true));
  EXPECT_FALSE(fitSize({5, -1}, {100, 100}, false));
}

TEST(Paths, ColoursAsText) {
  EXPECT_EQ(hexColour({1, 171, 255}), "01ABFF");
  EXPECT_EQ(hexColour({-4, 16, 999}), "0010FF");
  EXPECT_EQ(clampRgb({-4, 16, 999}), (RgbValues{0, 16, 255}));
}

}  // namespace
}  // namespace ruvo
