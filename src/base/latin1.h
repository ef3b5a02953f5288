// Texts of file formats that know no other characters than those of ISO 8859-1, a byte each.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace ruvo {

inline std::string utf8FromLatin1(std::span<const std::uint8_t> bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const std::uint8_t b : bytes) {
    if (b < 0x80) {
      text += static_cast<char>(b);
    } else {
      text += static_cast<char>(0xC0 | b >> 6);
      text += static_cast<char>(0x80 | (b & 0x3F));
    }
  }
  return text;
}

// Characters beyond it, and bytes that are no UTF-8, become '?', one for each character.
inline std::string latin1FromUtf8(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size();) {
    const auto first = static_cast<std::uint8_t>(text[i++]);
    const bool plain = first < 0x80;
    const bool known = (first == 0xC2 || first == 0xC3) && i < text.size() && (text[i] & 0xC0) == 0x80;
    bytes += plain ? text[i - 1] : known ? static_cast<char>((first & 3) << 6 | (text[i] & 0x3F)) : '?';
    while (!plain && i < text.size() && (text[i] & 0xC0) == 0x80) ++i;
  }
  return bytes;
}

}  // namespace ruvo
