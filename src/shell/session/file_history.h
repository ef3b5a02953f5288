// The files used last, newest first, in a section of the settings file under the keys "1." to "8.".
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "shell/session/basINI.h"

namespace ruvo {

inline constexpr const char* kPaintHistorySection = "File History";
inline constexpr const char* kGifAniHistorySection = "File History GIFani";
inline constexpr std::size_t kHistoryLength = 8;

class FileHistory {
 public:
  FileHistory(const SettingsFile& settings, std::string section) : settings_(settings), section_(std::move(section)) {}

  // Puts a path first; an equal one further down goes (letter case counts), the ninth drops out. A path with a control
  // character is not taken. Rebuild the menus afterwards in any case.
  void add(const std::filesystem::path& path) const;
  // The paths in order without gaps, at most 8. Nothing when there is no settings file: the menu is then left as it is.
  std::optional<std::vector<std::filesystem::path>> list() const;

 private:
  const SettingsFile& settings_;
  std::string section_;
};

// The caption of menu item `number` (1 to 8): "&1 " and the shortened path, each "&" of it doubled so that it shows.
std::string historyCaption(std::size_t number, const std::filesystem::path& path);

}  // namespace ruvo
