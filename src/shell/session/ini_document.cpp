#include "shell/session/ini_document.h"

#include <algorithm>

#include "base/paths.h"

namespace ruvo {
namespace {

constexpr auto kNone = std::string::npos;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n";

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == kNone) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The name between the brackets, or nothing when the line is no section header.
std::optional<std::string_view> sectionOf(std::string_view line) {
  line = trimmed(line);
  if (line.empty() || line[0] != '[') return std::nullopt;
  const std::size_t close = line.find(']');
  return trimmed(line.substr(1, close == kNone ? kNone : close - 1));
}

std::optional<std::string_view> keyOf(std::string_view line) {
  const std::string_view text = trimmed(line);
  if (text.empty() || text[0] == ';' || text[0] == '#' || text[0] == '[') return std::nullopt;
  const std::size_t equals = text.find('=');
  if (equals == kNone) return std::nullopt;
  return trimmed(text.substr(0, equals));
}

bool hasControlCharacter(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; });
}

bool isQuoted(std::string_view text) {
  return text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front();
}

}  // namespace

IniDocument::IniDocument(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::size_t length = end == kNone ? text.size() : end + 1;
    lines_.emplace_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  if (!lines_.empty() && lines_.front().ends_with("\r\n")) newline_ = "\r\n";
}

std::string IniDocument::text() const {
  std::string all;
  for (const std::string& line : lines_) all += line;
  return all;
}

std::size_t IniDocument::sectionStart(std::string_view section) const {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    std::string_view line = lines_[i];
    if (i == 0 && line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
    const auto name = sectionOf(line);
    if (name && sameName(*name, section)) return i + 1;
  }
  return kNone;
}

std::size_t IniDocument::sectionEnd(std::size_t start) const {
  while (start < lines_.size() && !sectionOf(lines_[start])) ++start;
  return start;
}

std::size_t IniDocument::keyLine(std::string_view section, std::string_view key) const {
  const std::size_t start = sectionStart(section);
  if (start == kNone) return kNone;
  const std::size_t end = sectionEnd(start);
  for (std::size_t i = start; i < end; ++i) {
    const auto name = keyOf(lines_[i]);
    if (name && sameName(*name, key)) return i;
  }
  return kNone;
}

std::optional<std::string> IniDocument::value(std::string_view section, std::string_view key) const {
  const std::size_t at = keyLine(section, key);
  if (at == kNone) return std::nullopt;
  const std::string_view line = lines_[at];
  std::string_view text = trimmed(line.substr(line.find('=') + 1));
  if (isQuoted(text)) text = text.substr(1, text.size() - 2);
  return std::string(utf8Left(text, kMaxValueLength));
}

bool IniDocument::setValue(std::string_view section, std::string_view key, std::string_view value) {
  if (section.empty() || section.find(']') != kNone || hasControlCharacter(section)) return false;
  if (key.empty() || key.find('=') != kNone || hasControlCharacter(key) || hasControlCharacter(value)) return false;
  // Quotes keep what reading would take off: outer blanks, and quotes that belong to the value.
  const bool quote = trimmed(value).size() != value.size() || isQuoted(value);
  const std::string text = quote ? '"' + std::string(value) + '"' : std::string(value);
  const std::string line = std::string(key) + '=' + text + newline_;

  const std::size_t old = keyLine(section, key);
  if (old != kNone) {
    lines_[old] = line;
    return true;
  }
  if (!lines_.empty() && !lines_.back().ends_with('\n')) lines_.back() += newline_;
  std::size_t start = sectionStart(section);
  if (start == kNone) {
    if (!lines_.empty()) lines_.push_back(newline_);
    lines_.push_back('[' + std::string(section) + ']' + newline_);
    start = lines_.size();
  }
  std::size_t at = sectionEnd(start);
  while (at > start && trimmed(lines_[at - 1]).empty()) --at;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), line);
  return true;
}

void IniDocument::removeKey(std::string_view section, std::string_view key) {
  const std::size_t at = keyLine(section, key);
  if (at != kNone) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(at));
}

}  // namespace ruvo
