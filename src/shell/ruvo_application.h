// The application object, which knows whether an event is being handled inside the handling of another one.
#pragma once

#include <QApplication>

namespace ruvo {

class RuvoApplication : public QApplication {
 public:
  using QApplication::QApplication;

  // True while a command runs that lets events in: what is delivered then comes in the middle of the command.
  bool insideCommand() const { return depth_ > 1; }

  bool notify(QObject* receiver, QEvent* event) override {
    ++depth_;
    const bool taken = QApplication::notify(receiver, event);
    --depth_;
    return taken;
  }

 private:
  int depth_ = 0;
};

}  // namespace ruvo
