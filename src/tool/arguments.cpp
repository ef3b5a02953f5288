#include "tool/arguments.h"

#include <algorithm>
#include <charconv>

#include "base/limits.h"

namespace ruvo::tool {
namespace {

std::optional<int> parseNumber(std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

bool isChoice(std::string_view choices, std::string_view text) {
  while (true) {
    const std::size_t bar = choices.find('|');
    if (choices.substr(0, bar) == text) return true;
    if (bar == std::string_view::npos) return false;
    choices.remove_prefix(bar + 1);
  }
}

// Empty, or what the option takes instead.
std::string valueFault(const OptionRow& option, std::string_view text) {
  switch (option.kind) {
    case OptionKind::Choice:
      if (isChoice(option.value, text)) return {};
      return "takes " + std::string(option.value);
    case OptionKind::Number: {
      const std::optional<int> value = parseNumber(text);
      if (value && *value >= option.low && *value <= option.high) return {};
      return "takes a number from " + std::to_string(option.low) + " to " + std::to_string(option.high);
    }
    case OptionKind::Size:
      if (parseSize(text)) return {};
      return "takes WIDTHxHEIGHT: at most " + std::to_string(kMaxPictureSide) + " a side and " +
             std::to_string(kMaxPicturePixels) + " pixels";
    case OptionKind::Text:
      return {};
    case OptionKind::Switch:
      break;
  }
  return "takes no value";
}

// A negative number is no option.
bool isOption(std::string_view word) {
  return word.size() >= 2 && word[0] == '-' && word[1] != '.' && (word[1] < '0' || word[1] > '9');
}

}  // namespace

std::optional<std::string_view> Arguments::text(std::string_view name) const {
  const auto found = values_.find(name);
  if (found == values_.end()) return std::nullopt;
  return found->second;
}

std::optional<int> Arguments::number(std::string_view name) const {
  const auto value = text(name);
  return value ? parseNumber(*value) : std::nullopt;
}

std::optional<Size> Arguments::size(std::string_view name) const {
  const auto value = text(name);
  return value ? parseSize(*value) : std::nullopt;
}

std::string Arguments::parse(std::span<const std::string> words, std::span<const OptionRow> options,
                             Arguments& arguments) {
  bool optionsEnded = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (optionsEnded || !isOption(word)) {
      arguments.operands_.push_back(word);
      continue;
    }
    if (word == "--") {
      optionsEnded = true;
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string name = word.substr(0, equals);
    const auto option = std::find_if(options.begin(), options.end(), [&](const auto& row) { return row.name == name; });
    if (option == options.end()) return "unknown option " + name;
    std::string value;
    const bool valueGiven = equals != std::string::npos;
    if (valueGiven) {
      value = word.substr(equals + 1);
    } else if (option->kind != OptionKind::Switch) {
      if (++i == words.size()) return name + " needs a value";
      value = words[i];
    }
    if (option->kind != OptionKind::Switch || valueGiven) {
      const std::string fault = valueFault(*option, value);
      if (!fault.empty()) return name + ' ' + fault;
    }
    if (!arguments.values_.emplace(name, value).second) return name + " is given twice";
  }
  return {};
}

std::optional<Size> parseSize(std::string_view text) {
  const std::size_t cross = text.find('x');
  if (cross == std::string_view::npos) return std::nullopt;
  const std::optional<int> width = parseNumber(text.substr(0, cross));
  const std::optional<int> height = parseNumber(text.substr(cross + 1));
  if (!width || !height || !pictureSizeAllowed(*width, *height)) return std::nullopt;
  return Size{*width, *height};
}

}  // namespace ruvo::tool
