#include "tool/value_words.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <sstream>

namespace ruvo::tool {
namespace {
constexpr std::size_t kColourDigits = 6;
}  // namespace

std::optional<double> parseReal(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<Colour> parseColour(std::string_view text) {
  if (text.starts_with('#')) text.remove_prefix(1);
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (error != std::errc() || end != text.data() + text.size() || text.size() != kColourDigits) return std::nullopt;
  return rgb(static_cast<int>(value >> 16), static_cast<int>(value >> 8 & 0xFF), static_cast<int>(value & 0xFF));
}

std::string colourText(Colour colour) {
  char text[kColourDigits + 1];
  std::snprintf(text, sizeof text, "%02X%02X%02X", redOf(colour), greenOf(colour), blueOf(colour));
  return text;
}

std::string numberText(double number) {
  std::ostringstream text;
  text << number;
  return text.str();
}

}  // namespace ruvo::tool
