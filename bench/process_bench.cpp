// Figures of the whole program as a process: start to shown window against an empty Qt MDI window, in turn and as a
// ratio of medians, and the memory that stays resident with a 24-megapixel picture open. Prints rows of the table that
// bench/run begins.
//
//   process_bench BIN_FOLDER
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "image/clsDIB.h"
#include "processes.h"

namespace {
using ruvo::bench::Clock;
using ruvo::bench::median;
using ruvo::bench::start;

// From the start to the first byte that the command prints, which it does when its window has been painted.
double secondsToShown(const std::vector<std::string>& command) {
  int pipe[2];
  if (::pipe(pipe) != 0) std::exit(1);
  const auto begin = Clock::now();
  const pid_t child = start(command, pipe[1]);
  ::close(pipe[1]);
  char first = 0;
  const bool shown = ::read(pipe[0], &first, 1) == 1;
  const double seconds = ruvo::bench::secondsSince(begin);
  ::close(pipe[0]);
  ::waitpid(child, nullptr, 0);
  if (!shown) {
    std::fprintf(stderr, "%s showed no window\n", command[0].c_str());
    std::exit(1);
  }
  return seconds;
}

void startRow(const char* peer, double ours, double theirs, const char* atMost) {
  ruvo::bench::timesRow(std::string("Start to shown window against ") + peer, ours, theirs, atMost);
}

double residentMegabytes(pid_t process) {
  std::ifstream statm("/proc/" + std::to_string(process) + "/statm");
  long total = 0, resident = 0;
  statm >> total >> resident;
  return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1e6;
}

// Resident size once it has stayed the same for a second.
double settledMegabytes(const std::vector<std::string>& command) {
  const pid_t child = start(command);
  double last = -1;
  int same = 0;
  for (int i = 0; i < 300 && same < 10; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const double now = residentMegabytes(child);
    same = i > 20 && now == last ? same + 1 : 0;
    last = now;
  }
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  return last;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: process_bench BIN_FOLDER\n");
    return 2;
  }
  const std::string folder = argv[1];
  std::string pattern = (std::filesystem::temp_directory_path() / "ruvo-bench-XXXXXX").string();
  const std::filesystem::path scratch = ::mkdtemp(pattern.data());
  ::setenv("RUVO_PROGRAM_FOLDER", scratch.c_str(), 1);
  ::setenv("HOME", scratch.c_str(), 1);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);

  std::vector<double> ours, empty, withMenu;
  for (int i = 0; i < 22; ++i) {
    const double a = secondsToShown({folder + "/ruvopaint", "--exit-when-shown"});
    const double b = secondsToShown({folder + "/empty_mdi"});
    const double c = secondsToShown({folder + "/empty_mdi", "menu"});
    if (i == 0) continue;  // warms the caches
    ours.push_back(a);
    empty.push_back(b);
    withMenu.push_back(c);
  }
  startRow("an empty Qt MDI window", median(ours), median(empty), "1.5");
  startRow("the same with one menu (loads a font)", median(ours), median(withMenu), "");

  ruvo::clsDIB picture;
  picture.CreateBlankDIB(6000, 4000, 32, ruvo::rgb(90, 140, 200));
  const auto file = scratch / "24-megapixels.bmp";
  picture.Save_DIB_To_File(file, picture);
  picture.ClearUp();
  const double pixels = 6000.0 * 4000 * 4 / 1e6;
  const double resident = settledMegabytes({folder + "/ruvopaint", "--no-splash", file.string()});
  std::printf(
      "| Resident memory with 24 megapixels open against their 32-bit pixels | %.0f MB | %.0f MB | %.2f | 2.5 |\n",
      resident, pixels, resident / pixels);
  std::filesystem::remove_all(scratch);
  return 0;
}
