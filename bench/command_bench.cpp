// Commands of ruvotool beside those of other programs that do the same to the same file: whole processes, in turn, and
// the medians of their times. A new figure is a row of kPairs. Prints rows of the table that bench/run begins.
//
//   command_bench BIN_FOLDER
#include <stdlib.h>
#include <sys/wait.h>

#include <filesystem>

#include "base/file_io.h"
#include "moving_picture.h"
#include "processes.h"

namespace {
using namespace ruvo::bench;

// "IN" and "OUT" stand for files.
struct Pair {
  const char* figure;
  int frames;  // of the animation that is worked on
  std::vector<std::string> ours;
  std::vector<std::string> theirs;
  const char* atMost;
};

const Pair kPairs[] = {
    {"Minimising a GIF of 120 frames by all options against gifsicle -O2",
     120,
     {"ruvotool", "gif", "minimise", "IN", "OUT"},
     {"gifsicle", "-O2", "IN", "-o", "OUT"},
     "1.0"},
    {"Reducing a GIF of 60 frames to 64 colours, one table for all, against gifsicle --colors 64",
     60,
     {"ruvotool", "gif", "reduce", "--entries", "64", "--globalise", "IN", "OUT"},
     {"gifsicle", "--colors", "64", "IN", "-o", "OUT"},
     "2.0"},
};

constexpr int kRounds = 15;

double secondsToEnd(const std::vector<std::string>& command) {
  const auto begin = Clock::now();
  const pid_t child = start(command);
  int status = 0;
  ::waitpid(child, &status, 0);
  if (status != 0) {
    std::fprintf(stderr, "%s failed\n", command[0].c_str());
    std::exit(1);
  }
  return secondsSince(begin);
}

std::vector<std::string> withFiles(std::vector<std::string> command, const std::filesystem::path& folder) {
  for (std::string& word : command) {
    if (word == "IN") word = folder / "in.gif";
    if (word == "OUT") word = folder / "out.gif";
  }
  return command;
}

void measure(const Pair& pair, const std::string& binFolder, const std::filesystem::path& scratch) {
  ruvo::replaceFile(scratch / "in.gif", movingPicture(pair.frames));
  std::vector<std::string> ourCommand = withFiles(pair.ours, scratch);
  ourCommand[0] = binFolder + '/' + ourCommand[0];
  std::vector<double> ours, theirs;
  for (int i = 0; i <= kRounds; ++i) {
    const double a = secondsToEnd(ourCommand);
    const double b = secondsToEnd(withFiles(pair.theirs, scratch));
    if (i == 0) continue;  // warms the caches
    ours.push_back(a);
    theirs.push_back(b);
  }
  timesRow(pair.figure, median(ours), median(theirs), pair.atMost);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: command_bench BIN_FOLDER\n");
    return 2;
  }
  std::string pattern = (std::filesystem::temp_directory_path() / "ruvo-bench-XXXXXX").string();
  const std::filesystem::path scratch = ::mkdtemp(pattern.data());
  for (const Pair& pair : kPairs) measure(pair, argv[1], scratch);
  std::filesystem::remove_all(scratch);
  return 0;
}
