#include "shell/session/basINI.h"

#include "base/file_io.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

void put(const std::filesystem::path& file, std::string_view text) {
  ASSERT_TRUE(replaceFile(file, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}));
}
std::string content(const std::filesystem::path& file) {
  const auto bytes = readWholeFile(file, 1 << 22);
  return bytes ? std::string(bytes->begin(), bytes->end()) : "(none)";
}

TEST(BasIni, ReadsWhatPeopleWrite) {
  const IniDocument ini(
      "\xEF\xBB\xBF; mine\r\n[ Options ]\r\nSDIOnly = -1 \r\nsdionly=0\nPath=\"  a b \"\n"
      "Odd='x\n=nameless\nnoise\n[Options]\nSecond=1\n[open\nLast=\u00E9=\u00E8");
  EXPECT_EQ(ini.value("options", "SDIONLY"), "-1");
  EXPECT_EQ(ini.value("Options", "Path"), "  a b ");
  EXPECT_EQ(ini.value("Options", "Odd"), "'x");
  EXPECT_EQ(ini.value("Options", "Second"), std::nullopt) << "of two equal sections the first counts";
  EXPECT_EQ(ini.value("open", "Last"), "\u00E9=\u00E8");
  EXPECT_EQ(ini.value("Nowhere", "Last"), std::nullopt);
  EXPECT_EQ(IniDocument("[a]\nk=" + std::string(3000, 'x')).value("a", "k")->size(), IniDocument::kMaxValueLength);
}

TEST(BasIni, WritingKeepsEverythingElseInPlace) {
  const test::TempFolder folder;
  const auto file = folder.path() / kSettingsFileName;
  put(file, "; a comment\n[Mine]\nx=1\n\n[Options]\nSDIOnly=0\nforeign line\n\n[Last]\ny=2");
  EXPECT_TRUE(basINI::write("Options", "SDIOnly", "-1", file));
  EXPECT_TRUE(basINI::write("Options", "WatchRAM", "3", file));
  EXPECT_TRUE(basINI::write("New", "k", " \u00E9 ", file));
  EXPECT_TRUE(basINI::deleteKey("Mine", "X", file));
  EXPECT_EQ(content(file),
            "; a comment\n[Mine]\n\n[Options]\nSDIOnly=-1\nforeign line\nWatchRAM=3\n\n[Last]\ny=2\n\n"
            "[New]\nk=\" \u00E9 \"\n");
  EXPECT_EQ(basINI::read("New", "k", "", file), " \u00E9 ");
  EXPECT_EQ(basINI::read("New", "none", "fallback", file), "fallback");
  EXPECT_EQ(folder.names(), std::vector<std::string>{kSettingsFileName});
}

TEST(BasIni, ValuesComeBackAsTheyWereOrAreRefused) {
  const test::TempFolder folder;
  const auto file = folder.path() / "a.ini";
  for (const char* value : {"\"quoted\"", "'x'", "a=b;c", "[no section]", " ", "\"", "100%", "&"}) {
    ASSERT_TRUE(basINI::write("s", "k", value, file)) << value;
    EXPECT_EQ(basINI::read("s", "k", "", file), value);
  }
  const std::string before = content(file);
  EXPECT_FALSE(basINI::write("s", "k", "two\nlines", file));
  EXPECT_FALSE(basINI::write("s", "a=b", "x", file));
  EXPECT_FALSE(basINI::write("s]", "k", "x", file));
  EXPECT_FALSE(basINI::write("", "k", "x", file));
  EXPECT_EQ(content(file), before);
}

TEST(BasIni, CarriageReturnsStayWhereTheyAreUsed) {
  IniDocument ini("[a]\r\nx=1\r\n");
  ini.setValue("a", "y", "2");
  EXPECT_EQ(ini.text(), "[a]\r\nx=1\r\ny=2\r\n");
}

TEST(BasIni, GarbageIsNoSettingsAndForeignThingsAreNotReplaced) {
  const test::TempFolder folder;
  const auto file = folder.path() / "a.ini";
  std::string garbage;
  for (int i = 0; i < 4096; ++i) garbage += static_cast<char>(i * 37 + i / 256);
  put(file, garbage);
  EXPECT_EQ(basINI::read("Options", "SDIOnly", "d", file), "d");
  EXPECT_TRUE(basINI::write("Options", "SDIOnly", "-1", file));
  EXPECT_EQ(basINI::read("Options", "SDIOnly", "d", file), "-1");
  EXPECT_TRUE(content(file).starts_with(garbage));

  put(file, std::string((1 << 20) + 1, 'x'));
  EXPECT_FALSE(basINI::write("Options", "SDIOnly", "-1", file));
  EXPECT_EQ(content(file).size(), (1u << 20) + 1);
  EXPECT_FALSE(basINI::write("Options", "SDIOnly", "-1", folder.path()));
  EXPECT_FALSE(basINI::write("Options", "SDIOnly", "-1", folder.path() / "none" / "a.ini"));
}

TEST(BasIni, AReadOnlySettingsFileIsNeverWritten) {
  const test::TempFolder folder;
  const SettingsFile settings(folder.path() / "a.ini", SettingsFile::Mode::ReadOnly);
  EXPECT_FALSE(settings.write("s", "k", "v"));
  EXPECT_FALSE(settings.deleteKey("s", "k"));
  EXPECT_FALSE(settings.update([](IniDocument& ini) { ini.setValue("s", "k", "v"); }));
  EXPECT_FALSE(settings.exists());
}

}  // namespace
}  // namespace ruvo
