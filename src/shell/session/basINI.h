// `basINI`: reads and writes the settings file. Each call reads the file afresh, since other programs (or the user's
// editor) may have changed it, and writes it whole or not at all. Failures are silent: a lost setting stops nobody's
// work.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "shell/session/ini_document.h"

namespace ruvo {

inline constexpr const char* kSettingsFileName = "RuvoPaint.ini";

namespace basINI {
// `fallback` when the file, the key or its value is missing.
std::string read(std::string_view section, std::string_view key, std::string_view fallback,
                 const std::filesystem::path& file);
// False when the value was not stored: it holds a control character, or the file can not be written.
bool write(std::string_view section, std::string_view key, std::string_view value, const std::filesystem::path& file);
bool deleteKey(std::string_view section, std::string_view key, const std::filesystem::path& file);
// Several changes in one writing of the file, which is left alone when `change` changed nothing.
bool update(const std::filesystem::path& file, const std::function<void(IniDocument&)>& change);
}  // namespace basINI

// The program's settings file. One that was opened read-only (for a run that only takes a picture of the window) never
// writes.
class SettingsFile {
 public:
  enum class Mode { ReadWrite, ReadOnly };
  explicit SettingsFile(std::filesystem::path file, Mode mode = Mode::ReadWrite)
      : file_(std::move(file)), mode_(mode) {}

  const std::filesystem::path& path() const { return file_; }
  bool exists() const;
  IniDocument load() const;  // empty when there is none that can be read
  bool update(const std::function<void(IniDocument&)>& change) const;
  std::string read(std::string_view section, std::string_view key, std::string_view fallback = "") const;
  bool write(std::string_view section, std::string_view key, std::string_view value) const;
  bool deleteKey(std::string_view section, std::string_view key) const;

 private:
  std::filesystem::path file_;
  Mode mode_;
};

}  // namespace ruvo
