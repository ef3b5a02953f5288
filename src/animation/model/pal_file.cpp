#include "animation/model/pal_file.h"

#include <charconv>
#include <cstdio>

#include "base/file_io.h"

namespace ruvo {
namespace {

constexpr std::string_view kSignature = "JASC-PAL";
constexpr std::string_view kVersion = "0100";
constexpr int kEntriesWritten = 256;
// Far more than 256 lines of any sensible spacing take.
constexpr std::int64_t kMostPalBytes = 1 << 16;

// The words between blanks, tabs and line ends, one after another; empty at the end.
class Words {
 public:
  explicit Words(std::string_view text) : rest_(text) {}

  std::string_view next() {
    constexpr std::string_view kGaps = " \t\r\n";
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kGaps), rest_.size()));
    const std::string_view word = rest_.substr(0, rest_.find_first_of(kGaps));
    rest_.remove_prefix(word.size());
    return word;
  }
  // Nothing when the word is no number in the range.
  std::optional<int> number(int low, int high) {
    const std::string_view word = next();
    int value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size() || value < low || value > high) return std::nullopt;
    return value;
  }
  std::optional<raster::TableEntry> entry() {
    const auto red = number(0, 255), green = number(0, 255), blue = number(0, 255);
    if (!red || !green || !blue) return std::nullopt;
    return raster::TableEntry::of(rgb(*red, *green, *blue));
  }

 private:
  std::string_view rest_;
};

}  // namespace

std::string palText(std::span<const raster::TableEntry> table, int entries) {
  std::string text;
  for (const std::string_view line : {kSignature, kVersion}) text.append(line).append("\r\n");
  text += std::to_string(kEntriesWritten) + "\r\n";
  for (int i = 0; i < kEntriesWritten; ++i) {
    const bool used = i < entries && i < static_cast<int>(table.size());
    const raster::TableEntry e = used ? table[static_cast<std::size_t>(i)] : raster::TableEntry{};
    char line[16];
    std::snprintf(line, sizeof line, "%03d %03d %03d\r\n", e.red, e.green, e.blue);
    text += line;
  }
  return text;
}

std::optional<PalFile> parsePal(std::string_view text) {
  Words words(text);
  if (words.next() != kSignature || words.next() != kVersion) return std::nullopt;
  const auto count = words.number(1, kEntriesWritten);
  if (!count) return std::nullopt;
  PalFile file;
  file.entries = *count;
  for (int i = 0; i < file.entries; ++i) {
    const auto entry = words.entry();
    if (!entry) return std::nullopt;
    file.table[static_cast<std::size_t>(i)] = *entry;
  }
  return file;
}

std::optional<PalFile> readPalFile(const std::filesystem::path& path) {
  const auto bytes = readWholeFile(path, kMostPalBytes);
  if (!bytes) return std::nullopt;
  return parsePal({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
}

}  // namespace ruvo
