// The system's polite requests to end: SIGTERM, SIGINT and SIGHUP.
#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace ruvo {

// While it lives, the first of these signals calls `asked` from the event loop instead of ending the process; the same
// signal a second time ends it at once, in case the loop does not turn any more. A signal that was ignored when the
// process began (as under nohup) stays ignored. One at a time.
class TerminationSignals : public QObject {
 public:
  explicit TerminationSignals(std::function<void()> asked);
  ~TerminationSignals() override;

 private:
  QSocketNotifier* notifier_ = nullptr;
};

}  // namespace ruvo
