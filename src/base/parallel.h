// One act for each of many numbers, on as many threads as the machine has cores.
#pragma once

#include <algorithm>
#include <atomic>
#include <exception>
#include <thread>
#include <vector>

namespace ruvo {

// Calls act(0) to act(count - 1), in any order and several at a time, and comes back when all are done. The calling
// thread takes part; without memory for others it does everything. `act` must not throw.
template <typename Act>
void forEachParallel(int count, const Act& act) {
  std::atomic<int> next = 0;
  const auto work = [&]() noexcept {
    for (int i = next++; i < count; i = next++) act(i);
  };
  std::vector<std::jthread> helpers;
  const int cores = static_cast<int>(std::thread::hardware_concurrency());
  try {
    for (int i = 1; i < std::min(count, cores); ++i) helpers.emplace_back(work);
  } catch (const std::exception&) {
    // Those that were started suffice.
  }
  work();
}

}  // namespace ruvo
