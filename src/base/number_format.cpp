#include "base/number_format.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace ruvo {
namespace {

std::string grouped(const std::string& digits) {
  std::string text;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) text += ',';
    text += digits[i];
  }
  return text;
}

}  // namespace

std::string formatNumber(double value, std::string_view pattern) {
  if (!std::isfinite(value)) return "0";
  const std::string_view whole = pattern.substr(0, pattern.find('.'));
  const std::string_view fraction = pattern.substr(std::min(pattern.size(), whole.size() + 1));
  const auto decimals = static_cast<int>(std::min<std::size_t>(fraction.size(), 9));
  const double scale = std::pow(10.0, decimals);
  // Beyond this a double has no decimals left, and the scaled value would not fit the integer.
  const double limited = std::min(std::fabs(value), 9e17 / scale);
  const auto scaled = static_cast<std::uint64_t>(std::llround(limited * scale));
  const auto unit = static_cast<std::uint64_t>(scale);

  std::string integer = scaled / unit > 0 ? std::to_string(scaled / unit) : std::string();
  const auto atLeast = static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '0'));
  if (integer.size() < atLeast) integer.insert(0, atLeast - integer.size(), '0');
  std::string text = whole.find(',') == std::string_view::npos ? integer : grouped(integer);

  std::string digits = std::to_string(scaled % unit);
  digits.insert(0, static_cast<std::size_t>(decimals) - std::min<std::size_t>(decimals, digits.size()), '0');
  std::size_t keep = static_cast<std::size_t>(decimals);
  while (keep > 0 && fraction[keep - 1] == '#' && digits[keep - 1] == '0') --keep;
  if (decimals > 0) text += '.' + digits.substr(0, keep);
  return value < 0 && scaled > 0 ? '-' + text : text;
}

}  // namespace ruvo
