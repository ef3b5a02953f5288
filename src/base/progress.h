// How long work tells how far it is. Core code calls it and never pumps events itself.
#pragma once

#include <functional>

namespace ruvo {

struct Progress {
  std::function<void(int percent)> step;  // 0 to 100
  std::function<void()> end;

  void report(int percent) const {
    if (step) step(percent);
  }
  void finish() const {
    if (end) end();
  }
};

}  // namespace ruvo
