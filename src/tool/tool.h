// The command line program `ruvotool`: the formats and reductions of the core for scripts. Plain text goes to `out`,
// every error as "ruvotool: FILE: words" to `err`.
#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace ruvo::tool {

// `words` are those after the program's name. Answers the exit status: 0, or 1 when anything was refused, the words
// were not understood, or `out` could not take everything. The imaging service has to be started.
int run(std::span<const std::string> words, std::ostream& out, std::ostream& err);

}  // namespace ruvo::tool
