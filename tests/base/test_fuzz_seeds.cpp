// Replays every fuzz entry over its seeds, all truncations of them and single-byte changes, so that a reader that reads
// past its input or believes a size shows in the ordinary and the sanitizer run.
#include <algorithm>
#include <filesystem>

#include "base/file_io.h"
#include "fuzz_entry.h"

namespace ruvo {
namespace {

constexpr std::size_t kPlaces = 600;  // more are thinned out evenly

void replay(fuzz::Entry entry, const std::vector<std::uint8_t>& seed) {
  entry(seed);
  const std::size_t step = seed.size() / kPlaces + 1;
  for (std::size_t length = 0; length < seed.size(); length += step) {
    // A copy of exactly this length, so that a read past its end is seen.
    entry(std::vector<std::uint8_t>(seed.begin(), seed.begin() + static_cast<std::ptrdiff_t>(length)));
  }
  std::vector<std::uint8_t> changed = seed;
  for (std::size_t at = 0; at < seed.size(); at += step) {
    for (const int value : {0x00, 0x01, 0x7F, 0x80, 0xFF, seed[at] ^ 0x10}) {
      changed[at] = static_cast<std::uint8_t>(value);
      entry(changed);
    }
    changed[at] = seed[at];
  }
}

TEST(FuzzSeeds, EveryEntryStandsItsSeedsCutAndChanged) {
  ASSERT_FALSE(fuzz::entries().empty());
  for (const auto& [name, entry] : fuzz::entries()) {
    const std::filesystem::path folder = std::filesystem::path(RUVO_FUZZ_SEEDS) / name;
    int seeds = 0;
    if (std::filesystem::is_directory(folder)) {
      for (const auto& file : std::filesystem::directory_iterator(folder)) {
        const auto seed = readWholeFile(file.path(), 1 << 20);
        ASSERT_TRUE(seed) << file.path();
        replay(entry, *seed);
        ++seeds;
      }
    }
    EXPECT_GT(seeds, 0) << "no seeds for " << name;
  }
}

}  // namespace
}  // namespace ruvo
