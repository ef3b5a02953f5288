// Random numbers that are always the same one, and how often a fresh seed was asked for.
#pragma once

#include "base/random_source.h"

namespace ruvo::test {

struct SteadyRandom : RandomSource {
  explicit SteadyRandom(double v) : value(v) {}
  void reseed() override { ++seeds; }
  double next() override { return value; }
  double value;
  int seeds = 0;
};

}  // namespace ruvo::test
