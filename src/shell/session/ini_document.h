// The text of a settings file: sections, "key=value" lines, and everything else that somebody may have put there, which
// stays where it is. Sections and keys match in any letter case; of equal ones the first counts.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

class IniDocument {
 public:
  IniDocument() = default;
  // Any bytes will do; lines that are neither section nor key are kept and ignored.
  explicit IniDocument(std::string_view text);
  std::string text() const;

  // The value without outer blanks and without one pair of quotes around it, cut at kMaxValueLength characters. Nothing
  // when the key is missing.
  std::optional<std::string> value(std::string_view section, std::string_view key) const;
  // Replaces, or adds at the end of the section (made at the end of the file when missing). False, and nothing done,
  // when a text can not stand in such a file: a control character anywhere, "]" in a section, "=" in a key, an empty
  // name.
  bool setValue(std::string_view section, std::string_view key, std::string_view value);
  void removeKey(std::string_view section, std::string_view key);

  static constexpr std::size_t kMaxValueLength = 2047;

 private:
  std::size_t sectionStart(std::string_view section) const;  // index after its header line; npos when missing
  std::size_t sectionEnd(std::size_t start) const;
  std::size_t keyLine(std::string_view section, std::string_view key) const;

  std::vector<std::string> lines_;  // each with its own line ending
  std::string newline_ = "\n";
};

}  // namespace ruvo
