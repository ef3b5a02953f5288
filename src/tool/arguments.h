// The words of a command line, sorted into options and operands by what a verb takes.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/geometry.h"

namespace ruvo::tool {

enum class OptionKind { Switch, Choice, Number, Size, Text };

struct OptionRow {
  std::string_view name;  // "--bpp"
  OptionKind kind;
  std::string_view value;  // as help shows it; of a Choice all values: "1|4|8"
  int low;                 // of a Number
  int high;
  std::string_view help;
};

class Arguments {
 public:
  // True when the option was given.
  bool has(std::string_view name) const { return values_.contains(name); }
  std::optional<std::string_view> text(std::string_view name) const;
  std::optional<int> number(std::string_view name) const;  // of a Number, or of a Choice of numbers
  std::optional<Size> size(std::string_view name) const;
  const std::vector<std::string>& operands() const { return operands_; }
  const std::string& operand(std::size_t index) const { return operands_.at(index); }

  // Fills `arguments` from the words; an option's value stands in the next word or behind "=", "--" ends the options.
  // The answer is empty, or says which word is wrong; then the arguments are not to be used.
  static std::string parse(std::span<const std::string> words, std::span<const OptionRow> options,
                           Arguments& arguments);

 private:
  std::map<std::string, std::string, std::less<>> values_;
  std::vector<std::string> operands_;
};

// "640x480" as a size that a picture may have.
std::optional<Size> parseSize(std::string_view text);

}  // namespace ruvo::tool
