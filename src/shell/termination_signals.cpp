#include "shell/termination_signals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>

namespace ruvo {
namespace {

constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};
// From the handler, which may call next to nothing, to the event loop.
int channel[2] = {-1, -1};

void noteSignal(int) {
  const char byte = 1;
  // A full pipe has told it already.
  [[maybe_unused]] const auto written = ::write(channel[1], &byte, 1);
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> asked) {
  if (::pipe2(channel, O_CLOEXEC | O_NONBLOCK) != 0) return;
  notifier_ = new QSocketNotifier(channel[0], QSocketNotifier::Read, this);
  connect(notifier_, &QSocketNotifier::activated, this, [asked = std::move(asked)] {
    char bytes[16];
    while (::read(channel[0], bytes, sizeof bytes) > 0) {
    }
    asked();
  });
  struct sigaction action {};
  action.sa_handler = noteSignal;
  action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  for (const int signal : kSignals) {
    struct sigaction before {};
    if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
      ::sigaction(signal, &action, nullptr);
  }
}

TerminationSignals::~TerminationSignals() {
  if (notifier_ == nullptr) return;
  for (const int signal : kSignals) {
    struct sigaction now {};
    if (::sigaction(signal, nullptr, &now) == 0 && now.sa_handler == noteSignal) ::signal(signal, SIG_DFL);
  }
  delete notifier_;
  for (int& end : channel) {
    ::close(end);
    end = -1;
  }
}

}  // namespace ruvo
