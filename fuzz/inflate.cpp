#include "formats/inflate.h"

#include "fuzz_entry.h"

// The first byte says in how large parts the rest lies.
RUVO_FUZZ_ENTRY(inflate, data) {
  if (data.empty()) return;
  const std::size_t step = data[0] == 0 ? data.size() : data[0];
  std::vector<std::vector<std::uint8_t>> own;  // so that a read past a part's end is seen
  for (std::size_t at = 1; at < data.size(); at += step) {
    const auto part = data.subspan(at, std::min(step, data.size() - at));
    own.emplace_back(part.begin(), part.end());
  }
  const std::vector<std::span<const std::uint8_t>> parts(own.begin(), own.end());
  std::size_t count = 0;
  constexpr std::int64_t kLimit = 1 << 18;
  ruvo::inflateTo(parts, kLimit, [&](std::span<const std::uint8_t> piece) {
    count += piece.size();
    return true;
  });
  if (count > static_cast<std::size_t>(kLimit)) __builtin_trap();
}
