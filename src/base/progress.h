// How long work tells how far it is, and hears that it is to stop. Core code calls it and never pumps events itself.
#pragma once

#include <functional>

namespace ruvo {

struct Progress {
  std::function<void(int percent)> step;  // 0 to 100
  std::function<void()> end;
  std::function<bool()> stop;  // true: nobody wants the result any more; asked after a step

  void report(int percent) const {
    if (step) step(percent);
  }
  bool stopped() const { return stop && stop(); }
  void finish() const {
    if (end) end();
  }
};

}  // namespace ruvo
