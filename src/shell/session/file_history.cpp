#include "shell/session/file_history.h"

#include "base/paths.h"

namespace ruvo {
namespace {

std::string keyOf(std::size_t number) {
  return std::to_string(number) + '.';
}

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

void putFirst(IniDocument& ini, const std::string& section, const std::string& path) {
  const std::string newest = ini.value(section, keyOf(1)).value_or("");
  if (newest == path) return;
  if (trimmed(newest).empty()) {
    ini.setValue(section, keyOf(1), path);
    return;
  }
  std::vector<std::string> paths = {path};
  for (std::size_t n = 1; n <= kHistoryLength; ++n) {
    const std::string old = ini.value(section, keyOf(n)).value_or("");
    if (!old.empty() && old != path && paths.size() < kHistoryLength) paths.push_back(old);
  }
  for (std::size_t n = 1; n <= kHistoryLength; ++n) ini.removeKey(section, keyOf(n));
  for (std::size_t n = 1; n <= paths.size(); ++n) ini.setValue(section, keyOf(n), paths[n - 1]);
}

bool hasControlCharacter(const std::string& text) {
  for (const char c : text) {
    if (static_cast<unsigned char>(c) < 32 || c == 127) return true;
  }
  return false;
}

}  // namespace

void FileHistory::add(const std::filesystem::path& path) const {
  const std::string text = utf8Of(path);
  if (text.empty() || hasControlCharacter(text)) return;
  settings_.update([&](IniDocument& ini) { putFirst(ini, section_, text); });
}

std::optional<std::vector<std::filesystem::path>> FileHistory::list() const {
  if (!settings_.exists()) return std::nullopt;
  const IniDocument ini = settings_.load();
  std::vector<std::filesystem::path> paths;
  for (std::size_t n = 1; n <= kHistoryLength; ++n) {
    const std::string text = trimmed(ini.value(section_, keyOf(n)).value_or(""));
    if (!text.empty()) paths.push_back(pathOf(text));
  }
  return paths;
}

std::string historyCaption(std::size_t number, const std::filesystem::path& path) {
  std::string caption = '&' + std::to_string(number) + ' ';
  for (const char c : shortenPath(utf8Of(path))) {
    if (c == '&') caption += '&';
    caption += c;
  }
  return caption;
}

}  // namespace ruvo
