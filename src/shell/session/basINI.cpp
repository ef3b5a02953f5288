#include "shell/session/basINI.h"

#include "base/file_io.h"
#include "base/paths.h"

namespace ruvo {
namespace {

// Far above what the program writes; what is larger is no settings file.
constexpr std::int64_t kMaxSettingsBytes = 1 << 20;

std::optional<IniDocument> loadDocument(const std::filesystem::path& file) {
  const auto bytes = readWholeFile(file, kMaxSettingsBytes);
  if (!bytes) return std::nullopt;
  return IniDocument(std::string_view(reinterpret_cast<const char*>(bytes->data()), bytes->size()));
}

std::string valueOr(const IniDocument& document, std::string_view section, std::string_view key,
                    std::string_view fallback) {
  const auto value = document.value(section, key);
  return value && !value->empty() ? *value : std::string(fallback);
}

}  // namespace

namespace basINI {

std::string read(std::string_view section, std::string_view key, std::string_view fallback,
                 const std::filesystem::path& file) {
  return valueOr(loadDocument(file).value_or(IniDocument()), section, key, fallback);
}

bool update(const std::filesystem::path& file, const std::function<void(IniDocument&)>& change) {
  std::optional<IniDocument> document = loadDocument(file);
  if (!document) {
    // Something is there that is not ours to replace: a folder, a huge or an unreadable file.
    std::error_code error;
    if (std::filesystem::exists(std::filesystem::symlink_status(file, error))) return false;
    document.emplace();
  }
  const std::string before = document->text();
  change(*document);
  const std::string after = document->text();
  if (after == before) return true;
  return replaceFile(file, {reinterpret_cast<const std::uint8_t*>(after.data()), after.size()});
}

bool write(std::string_view section, std::string_view key, std::string_view value, const std::filesystem::path& file) {
  bool taken = false;
  const bool written = update(file, [&](IniDocument& ini) { taken = ini.setValue(section, key, value); });
  return taken && written;
}

bool deleteKey(std::string_view section, std::string_view key, const std::filesystem::path& file) {
  return update(file, [&](IniDocument& ini) { ini.removeKey(section, key); });
}

}  // namespace basINI

bool SettingsFile::exists() const {
  return fileExists(file_);
}
IniDocument SettingsFile::load() const {
  return loadDocument(file_).value_or(IniDocument());
}

bool SettingsFile::update(const std::function<void(IniDocument&)>& change) const {
  return mode_ == Mode::ReadWrite && basINI::update(file_, change);
}
std::string SettingsFile::read(std::string_view section, std::string_view key, std::string_view fallback) const {
  return basINI::read(section, key, fallback, file_);
}
bool SettingsFile::write(std::string_view section, std::string_view key, std::string_view value) const {
  return mode_ == Mode::ReadWrite && basINI::write(section, key, value, file_);
}
bool SettingsFile::deleteKey(std::string_view section, std::string_view key) const {
  return mode_ == Mode::ReadWrite && basINI::deleteKey(section, key, file_);
}

}  // namespace ruvo
