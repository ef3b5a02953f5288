// The verbs of the command line. A new one is a row in verbs.cpp and a function here.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tool/arguments.h"
#include "tool/console.h"

namespace ruvo::tool {

struct VerbRow {
  std::string_view name;      // one word, or two: "gif frames"
  std::string_view operands;  // as help shows them: "IN OUT"
  std::size_t fewest;         // operands
  std::size_t most;
  std::string_view summary;  // one line
  std::string_view help;     // more lines, each ended
  std::span<const OptionRow> options;
  // The operands' number and the options' values have been checked. Answers the exit status.
  int (*run)(const Arguments& arguments, Console& console);
  std::string (*moreHelp)() = nullptr;  // lines that are worked out, shown after `help`
};
std::span<const VerbRow> verbTable();

int info(const Arguments& arguments, Console& console);
int convert(const Arguments& arguments, Console& console);
int decode(const Arguments& arguments, Console& console);
int colours(const Arguments& arguments, Console& console);
int palette(const Arguments& arguments, Console& console);
int exifList(const Arguments& arguments, Console& console);
int exifErase(const Arguments& arguments, Console& console);
int exifRestore(const Arguments& arguments, Console& console);
int gifFrames(const Arguments& arguments, Console& console);
int gifComposed(const Arguments& arguments, Console& console);
int gifRewrite(const Arguments& arguments, Console& console);
int gifMinimise(const Arguments& arguments, Console& console);
int gifSet(const Arguments& arguments, Console& console);
int gifResize(const Arguments& arguments, Console& console);
int gifCheck(const Arguments& arguments, Console& console);
int gifReduce(const Arguments& arguments, Console& console);
int filter(const Arguments& arguments, Console& console);
std::string filterNames();  // a line for each, with its arguments
int rotate(const Arguments& arguments, Console& console);

}  // namespace ruvo::tool
