#include "effects/model/text_choices.h"

#include <algorithm>
#include <charconv>

#include "base/limits.h"
#include "base/number_format.h"

namespace ruvo {
namespace {

// The first byte of a character; the others of it are 10xxxxxx.
bool beginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

// Blanks beyond the plain one, as UTF-8: what people paste holds them, and nothing of them is seen.
constexpr std::string_view kWideBlanks[] = {"\u00A0", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004",
                                            "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A",
                                            "\u200B", "\u202F", "\u205F", "\u3000", "\uFEFF"};

std::size_t blankBytes(std::string_view text) {
  if (text[0] == ' ' || text[0] == '\t' || text[0] == '\n') return 1;
  const auto* wide = std::find_if(std::begin(kWideBlanks), std::end(kWideBlanks),
                                  [&](std::string_view blank) { return text.starts_with(blank); });
  return wide == std::end(kWideBlanks) ? 0 : wide->size();
}

}  // namespace

std::optional<int> textSizeOf(std::string_view typed) {
  int size = 0;
  const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), size);
  if (error != std::errc() || end != typed.data() + typed.size()) return std::nullopt;
  if (size < kSmallestText || size > kLargestText) return std::nullopt;
  return size;
}

std::string writableText(std::string_view typed) {
  std::string text;
  text.reserve(typed.size());
  for (std::size_t i = 0; i < typed.size(); ++i) {
    const char c = typed[i];
    if (c == '\r') {
      if (i + 1 == typed.size() || typed[i + 1] != '\n') text += '\n';
    } else if (c == '\n' || c == '\t' || (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F)) {
      text += c;
    }
  }
  return text;
}

int textLength(std::string_view text) {
  return static_cast<int>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

bool hasLetters(std::string_view text) {
  while (!text.empty()) {
    const std::size_t blank = blankBytes(text);
    if (blank == 0) return true;
    text.remove_prefix(blank);
  }
  return false;
}

std::optional<std::string> textRefusal(std::string_view typedSize, std::string_view text) {
  if (!textSizeOf(typedSize)) {
    return "Font size should be a whole number from " + std::to_string(kSmallestText) + " to " +
           std::to_string(kLargestText) + ".";
  }
  if (textLength(text) <= kMaxTextCharacters) return std::nullopt;
  return "Text should have at most " + formatNumber(kMaxTextCharacters, kFormatFileSize) + " characters.";
}

std::optional<std::string> textPictureRefusal(std::int64_t width, std::int64_t height) {
  if (pictureSizeAllowed(width, height)) return std::nullopt;
  return "Text at this size would be " + std::to_string(width) + " x " + std::to_string(height) +
         " pixels, larger than a picture may be.";
}

}  // namespace ruvo
