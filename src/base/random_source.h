// Uniform random numbers behind a seam, so that tests can script them.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <span>

namespace ruvo {

// A small generator (xorshift64*); quality suits spray dots, not cryptography.
class RandomSource {
 public:
  virtual ~RandomSource() = default;
  // Starts a fresh, unpredictable run; called once a dab or burst.
  virtual void reseed() {
    state_ ^=
        static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) * 0x9E3779B97F4A7C15u;
    if (state_ == 0) state_ = 1;
  }
  // Uniform in [0, 1).
  virtual double next() {
    state_ ^= state_ >> 12;
    state_ ^= state_ << 25;
    state_ ^= state_ >> 27;
    return static_cast<double>((state_ * 0x2545F4914F6CDD1Du) >> 11) * 0x1.0p-53;
  }
  // As many as a row of pixels needs.
  void fill(std::span<double> numbers) {
    for (double& number : numbers) number = next();
  }

 private:
  std::uint64_t state_ = 0x9E3779B97F4A7C15u;
};

}  // namespace ruvo
