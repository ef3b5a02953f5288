#include "shell/session/session_temp.h"

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "support/temp_folder.h"

namespace ruvo {
namespace {

namespace fs = std::filesystem;

unsigned modeOf(const fs::path& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
}
fs::path userFolder(const test::TempFolder& system) {
  return system / ("ruvopaint-" + std::to_string(::getuid()));
}

TEST(SessionTemp, TheInstanceHasTheUsersFolderAndKeepsItsFiles) {
  const test::TempFolder system;
  {
    const SessionTemp temp(system.path(), SessionTemp::Use::Instance, "/fallback");
    EXPECT_EQ(temp.path(), userFolder(system));
    EXPECT_EQ(modeOf(temp.path()), 0700u);
    std::ofstream(temp.path() / "0001.m_Temp") << "state";
  }
  EXPECT_TRUE(fs::exists(userFolder(system) / "0001.m_Temp"));
  ::chmod(userFolder(system).c_str(), 0777);
  const SessionTemp again(system.path(), SessionTemp::Use::Instance, "/fallback");
  EXPECT_EQ(again.path(), userFolder(system));
  EXPECT_EQ(modeOf(again.path()), 0700u);
}

TEST(SessionTemp, OthersWorkBesideItAndCleanUp) {
  const test::TempFolder system;
  const SessionTemp instance(system.path(), SessionTemp::Use::Instance, "/fallback");
  fs::path own;
  {
    const SessionTemp alone(system.path(), SessionTemp::Use::Alone, "/fallback");
    const SessionTemp late(system.path(), SessionTemp::Use::Instance, "/fallback");
    own = alone.path();
    EXPECT_EQ(own.parent_path(), instance.path());
    EXPECT_EQ(modeOf(own), 0700u);
    EXPECT_NE(late.path(), instance.path()) << "the folder is taken";
    EXPECT_NE(late.path(), own);
    std::ofstream(own / "0001.m_Temp") << "state";
  }
  EXPECT_FALSE(fs::exists(own));
  EXPECT_TRUE(fs::exists(instance.path()));
}

TEST(SessionTemp, AnInstanceRemovesWhatCrashedRunsLeftAndNothingElse) {
  const test::TempFolder system;
  const SessionTemp alive(system.path(), SessionTemp::Use::Alone, "/fallback");
  const fs::path left = userFolder(system) / "run-left00";
  const fs::path foreign = userFolder(system) / "run-by-hand";
  for (const auto& folder : {left, foreign}) fs::create_directory(folder);
  std::ofstream(left / ".lock");
  std::ofstream(left / "0001.m_Temp") << "state";
  const SessionTemp instance(system.path(), SessionTemp::Use::Instance, "/fallback");
  EXPECT_FALSE(fs::exists(left));
  EXPECT_TRUE(fs::exists(foreign)) << "never locked by this program";
  EXPECT_TRUE(fs::exists(alive.path()));
}

TEST(SessionTemp, WhatIsPlantedInItsPlaceIsNotFollowed) {
  const test::TempFolder system;
  const test::TempFolder victim;
  fs::create_directory_symlink(victim.path(), userFolder(system));
  fs::path own;
  {
    const SessionTemp temp(system.path(), SessionTemp::Use::Instance, "/fallback");
    own = temp.path();
    EXPECT_NE(own, userFolder(system));
    EXPECT_EQ(own.parent_path(), system.path());
    EXPECT_EQ(modeOf(own), 0700u);
  }
  EXPECT_FALSE(fs::exists(own));
  EXPECT_TRUE(victim.names().empty());
  const SessionTemp nowhere("/none/such/folder", SessionTemp::Use::Instance, "/fallback");
  EXPECT_EQ(nowhere.path(), "/fallback");
}

}  // namespace
}  // namespace ruvo
