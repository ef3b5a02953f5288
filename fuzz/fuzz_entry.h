// One fuzz target a file. Under libFuzzer the entry is LLVMFuzzerTestOneInput; in the test program every entry
// registers itself and is replayed over its seeds, their truncations and single-byte changes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace ruvo::fuzz {
using Entry = void (*)(std::span<const std::uint8_t>);

inline std::vector<std::pair<std::string, Entry>>& entries() {
  static std::vector<std::pair<std::string, Entry>> all;
  return all;
}

struct Registration {
  Registration(const char* name, Entry entry) { entries().emplace_back(name, entry); }
};
}  // namespace ruvo::fuzz

#ifdef RUVO_LIBFUZZER
#define RUVO_FUZZ_ENTRY(name, data)                                                      \
  static void fuzz_##name(std::span<const std::uint8_t> data);                           \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) { \
    fuzz_##name({bytes, length});                                                        \
    return 0;                                                                            \
  }                                                                                      \
  static void fuzz_##name(std::span<const std::uint8_t> data)
#else
#define RUVO_FUZZ_ENTRY(name, data)                                               \
  static void fuzz_##name(std::span<const std::uint8_t> data);                    \
  static const ruvo::fuzz::Registration registration_##name{#name, &fuzz_##name}; \
  static void fuzz_##name(std::span<const std::uint8_t> data)
#endif
