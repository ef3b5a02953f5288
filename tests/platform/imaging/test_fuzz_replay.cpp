// Every fuzz entry as an ordinary test: its seeds as they are, cut short, and with single bytes changed. A fault shows
// as a crash, under the sanitizers as a report.
#include <gtest/gtest.h>

#include "base/file_io.h"
#include "base/limits.h"
#include "fuzz_entry.h"

namespace ruvo::fuzz {
namespace {

// About this many variants of each kind a seed, so that large seeds cost no more than small ones.
constexpr std::size_t kVariants = 60;

void replay(Entry entry, const std::vector<std::uint8_t>& seed) {
  entry(seed);
  const std::size_t step = std::max<std::size_t>(1, seed.size() / kVariants);
  for (std::size_t length = 0; length < seed.size(); length += step) entry(std::span(seed).first(length));
  for (std::size_t at = 0; at < seed.size(); at += step) {
    for (const std::uint8_t change : {0x01, 0x80, 0xFF}) {
      std::vector<std::uint8_t> changed = seed;
      changed[at] ^= change;
      entry(changed);
    }
  }
}

TEST(FuzzReplay, EveryEntrySurvivesItsSeedsAndTheirVariants) {
  for (const auto& [name, entry] : entries()) {
    SCOPED_TRACE(name);
    const std::filesystem::path folder = std::filesystem::path(RUVO_FUZZ_SEEDS) / name;
    int seeds = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
      SCOPED_TRACE(file.path().filename().string());
      const auto seed = readWholeFile(file.path(), kMaxFileBytes);
      ASSERT_TRUE(seed);
      replay(entry, *seed);
      ++seeds;
    }
    EXPECT_GT(seeds, 0);
  }
}

}  // namespace
}  // namespace ruvo::fuzz
