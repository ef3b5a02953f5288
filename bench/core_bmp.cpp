// BMP writing and reading beside the plain transfer of the same bytes, on a picture of 20 megapixels.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <vector>

#include "image/clsDIB.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

constexpr int kWidth = 5472;
constexpr int kHeight = 3648;
constexpr char kFile[] = "picture.bmp";
constexpr std::int64_t kFileBytes = 54 + static_cast<std::int64_t>(kWidth) * 3 * kHeight;

const clsDIB& picture() {
  static const clsDIB dib = [] {
    clsDIB made;
    made.CreateBlankDIB(kWidth, kHeight, 32, kWhite);
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        made.surface().view32().at(x, y) = {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y),
                                            static_cast<std::uint8_t>(x * y >> 8), 0};
      }
    }
    return made;
  }();
  return dib;
}

// Each write goes to a new file beside the old one and takes its place, as a save does.
void PlainWrite20MP(benchmark::State& state) {
  const test::TempFolder folder;
  const std::vector<std::uint8_t> bytes(kFileBytes, 7);
  const auto neighbour = folder / "picture.new";
  for (auto _ : state) {
    const int fd = ::open(neighbour.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    std::int64_t done = 0;
    while (done < kFileBytes) done += ::write(fd, bytes.data() + done, static_cast<std::size_t>(kFileBytes - done));
    ::close(fd);
    std::filesystem::rename(neighbour, folder / kFile);
  }
  state.SetBytesProcessed(state.iterations() * kFileBytes);
}
BENCHMARK(PlainWrite20MP)->Unit(benchmark::kMillisecond)->UseRealTime();

void SaveBmp20MP(benchmark::State& state) {
  const test::TempFolder folder;
  const clsDIB& dib = picture();
  for (auto _ : state) {
    if (!dib.Save_DIB_To_File(folder / kFile, dib)) state.SkipWithError("not written");
  }
  state.SetBytesProcessed(state.iterations() * kFileBytes);
}
BENCHMARK(SaveBmp20MP)->Unit(benchmark::kMillisecond)->UseRealTime();

// Into fresh memory each time, as a reader that gives a new picture must.
void PlainRead20MP(benchmark::State& state) {
  const test::TempFolder folder;
  picture().Save_DIB_To_File(folder / kFile, picture());
  for (auto _ : state) {
    auto* bytes = static_cast<std::uint8_t*>(std::malloc(kFileBytes));
    const int fd = ::open((folder / kFile).c_str(), O_RDONLY);
    std::int64_t done = 0;
    while (done < kFileBytes) done += ::read(fd, bytes + done, static_cast<std::size_t>(kFileBytes - done));
    ::close(fd);
    benchmark::DoNotOptimize(bytes);
    std::free(bytes);
  }
  state.SetBytesProcessed(state.iterations() * kFileBytes);
}
BENCHMARK(PlainRead20MP)->Unit(benchmark::kMillisecond)->UseRealTime();

void ReadBmp20MP(benchmark::State& state) {
  const test::TempFolder folder;
  picture().Save_DIB_To_File(folder / kFile, picture());
  for (auto _ : state) {
    clsDIB dib;
    if (!dib.CreateDIBFromFile(folder / kFile)) state.SkipWithError("not read");
  }
  state.SetBytesProcessed(state.iterations() * kFileBytes);
}
BENCHMARK(ReadBmp20MP)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace ruvo
