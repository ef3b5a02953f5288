// Commands as processes, and their times.
#pragma once

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace ruvo::bench {

using Clock = std::chrono::steady_clock;

inline double secondsSince(Clock::time_point begin) {
  return std::chrono::duration<double>(Clock::now() - begin).count();
}

// Starts a command, which is looked for as a shell does; what it prints goes to `out` (or nowhere, below 0), its
// complaints nowhere.
inline pid_t start(const std::vector<std::string>& command, int out = -1) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  const int sink = ::open("/dev/null", O_WRONLY);
  ::dup2(out >= 0 ? out : sink, 1);
  ::dup2(sink, 2);
  std::vector<char*> arguments;
  for (const auto& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  ::execvp(arguments[0], arguments.data());
  ::_exit(127);
}

inline double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// A row of the table that bench/run begins.
inline void timesRow(const std::string& figure, double ours, double theirs, const char* atMost) {
  std::printf("| %s | %.3g ms | %.3g ms | %.2f | %s |\n", figure.c_str(), ours * 1e3, theirs * 1e3, ours / theirs,
              atMost);
}

}  // namespace ruvo::bench
