// Where a verb writes: its text, and its errors in the one form that scripts look for.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace ruvo::tool {

inline constexpr std::string_view kToolName = "ruvotool";

class Console {
 public:
  Console(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

  std::ostream& out() { return out_; }
  // "ruvotool: FILE: words" in one line. Answers the exit status of a failure.
  int refuse(std::string_view file, std::string_view words);
  // The same without a file.
  int refuse(std::string_view words);

 private:
  std::ostream& out_;
  std::ostream& err_;
};

// Bytes of a file as text that stays in its line and does nothing to a terminal: control characters as "\n", "\r",
// "\t" or "\x1B", and a backslash doubled.
std::string printable(std::string_view text);

}  // namespace ruvo::tool
