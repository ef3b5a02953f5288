#include "base/file_io.h"

#include <sys/stat.h>
#include <unistd.h>

#include "support/temp_folder.h"

namespace ruvo {
namespace {

std::vector<std::uint8_t> bytesOf(std::string_view text) {
  return {text.begin(), text.end()};
}

TEST(FileIo, ReplacingKeepsTheOldFileUntilTheNewOneIsWhole) {
  const test::TempFolder folder;
  const auto target = folder.path() / "picture.bmp";
  ASSERT_TRUE(replaceFile(target, bytesOf("old")));
  {
    FileReplacement unfinished(target);
    ASSERT_TRUE(unfinished.write(bytesOf("half of the new")));
  }
  EXPECT_EQ(readWholeFile(target, 100), bytesOf("old"));
  ASSERT_TRUE(replaceFile(target, bytesOf("new")));
  EXPECT_EQ(readWholeFile(target, 100), bytesOf("new"));
  EXPECT_EQ(folder.names(), std::vector<std::string>{"picture.bmp"});
}

TEST(FileIo, ReplacingKeepsPermissionsAndFollowsLinks) {
  const test::TempFolder folder;
  const auto real = folder.path() / "real.bmp";
  const auto link = folder.path() / "link.bmp";
  ASSERT_TRUE(replaceFile(real, bytesOf("1")));
  ASSERT_EQ(::chmod(real.c_str(), 0640), 0);
  std::filesystem::create_symlink(real, link);
  ASSERT_TRUE(replaceFile(link, bytesOf("2")));
  struct stat info {};
  ASSERT_EQ(::lstat(link.c_str(), &info), 0);
  EXPECT_TRUE(S_ISLNK(info.st_mode));
  ASSERT_EQ(::stat(real.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
  EXPECT_EQ(readWholeFile(real, 10), bytesOf("2"));
}

TEST(FileIo, RefusesFoldersPipesMissingAndOversizedFiles) {
  const test::TempFolder folder;
  EXPECT_FALSE(readWholeFile(folder.path(), 100));
  EXPECT_FALSE(readWholeFile(folder.path() / "none", 100));
  const auto pipe = folder.path() / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(readWholeFile(pipe, 100));
  ASSERT_TRUE(replaceFile(folder.path() / "four", bytesOf("four")));
  EXPECT_TRUE(readWholeFile(folder.path() / "four", 4));
  EXPECT_FALSE(readWholeFile(folder.path() / "four", 3));
  std::string reason;
  EXPECT_FALSE(replaceFile(folder.path() / "no" / "such", bytesOf("x"), &reason));
  EXPECT_THAT(reason, testing::StartsWith("create: "));
}

TEST(FileIo, WritingLeavesAloneWhatIsNoFileOrReadOnly) {
  const test::TempFolder folder;
  const auto place = [&](const char* name) { return folder.path() / name; };
  ASSERT_TRUE(replaceFile(place("kept"), bytesOf("old")));
  ASSERT_EQ(::chmod(place("kept").c_str(), 0444), 0);
  ASSERT_EQ(::mkfifo(place("pipe").c_str(), 0600), 0);
  std::filesystem::create_directory(place("folder"));
  std::filesystem::create_symlink("loop", place("loop"));
  std::filesystem::create_symlink("later", place("dangling"));
  const auto before = folder.names();
  EXPECT_FALSE(replaceFile(place("pipe"), bytesOf("x")));
  EXPECT_FALSE(replaceFile(place("folder"), bytesOf("x")));
  EXPECT_FALSE(replaceFile(place("loop"), bytesOf("x")));
  EXPECT_FALSE(replaceFile(place("kept"), bytesOf("x")));
  EXPECT_EQ(readWholeFile(place("kept"), 9), bytesOf("old"));
  EXPECT_EQ(folder.names(), before);
  EXPECT_TRUE(std::filesystem::is_fifo(place("pipe")));
  EXPECT_TRUE(std::filesystem::is_symlink(place("loop")));
  EXPECT_TRUE(replaceFile(place("dangling"), bytesOf("x")));
  EXPECT_EQ(readWholeFile(place("later"), 9), bytesOf("x"));
}

}  // namespace
}  // namespace ruvo
