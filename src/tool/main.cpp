// The process around tool::run: its streams, and what the core needs to be started.
#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "formats/register_codecs.h"
#include "platform/imaging/imaging_service.h"
#include "tool/tool.h"

namespace {

// With a standard stream closed, the first file that is opened would become it and receive what was meant for the
// stream. Something that takes nothing stands there instead.
void holdStandardStreams() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) < 0) [[maybe_unused]]
      const int placed = ::open("/dev/null", O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  // A file that may not grow, or a reader that has gone, is a failed write where it happens.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  holdStandardStreams();
  std::ios::sync_with_stdio(false);
  ruvo::imaging::startImagingService();
  ruvo::registerFormatCodecs();
  const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
  return ruvo::tool::run(words, std::cout, std::cerr);
}
