// Time that never goes backwards, behind a seam so that tests do not wait.
#pragma once

#include <chrono>

namespace ruvo {

class Clock {
 public:
  virtual ~Clock() = default;
  // Since a moment of no meaning.
  virtual std::chrono::milliseconds now() const = 0;
};

class MonotonicClock : public Clock {
 public:
  std::chrono::milliseconds now() const override {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
  }
};

}  // namespace ruvo
