// What a state of the undo history costs: pushing a picture of 20 megapixels against a plain write of the same bytes to
// the same folder.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include "base/file_io.h"
#include "document/model/picture_loading.h"
#include "document/model/undo_history.h"
#include "support/temp_folder.h"

namespace {

using namespace ruvo;

constexpr Size kPicture{5000, 4000};

clsDIB noisyPicture() {
  clsDIB picture;
  picture.CreateBlankDIB(kPicture.width, kPicture.height, 32, kWhite);
  std::uint32_t seed = 1;
  for (std::uint8_t& byte : picture.surface().bytes())
    byte = static_cast<std::uint8_t>((seed = seed * 1664525 + 1013904223) >> 24);
  return picture;
}

void plainWrite(benchmark::State& state) {
  const test::TempFolder folder;
  const clsDIB picture = noisyPicture();
  const auto file = folder / "plain.bmp";
  picture.Save_DIB_To_File(file, picture);
  const auto bytes = readWholeFile(file, std::int64_t{1} << 30);
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(file);
    state.ResumeTiming();
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    if (::write(descriptor, bytes->data(), bytes->size()) != static_cast<ssize_t>(bytes->size()))
      state.SkipWithError("write");
    ::close(descriptor);
  }
}
BENCHMARK(plainWrite)->Unit(benchmark::kMillisecond)->UseRealTime();

void undoPush(benchmark::State& state) {
  const test::TempFolder folder;
  const clsDIB picture = noisyPicture();
  UndoHistory history(
      folder.path(), "0", [&](const std::filesystem::path& file) { return picture.Save_DIB_To_File(file, picture); },
      [](const std::filesystem::path&) { return false; });
  // As on the other side, the system's cache has held a file of this size before.
  history.push();
  history.reset();
  for (auto _ : state) {
    if (!history.push()) state.SkipWithError("push");
    state.PauseTiming();
    history.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(undoPush)->Unit(benchmark::kMillisecond)->UseRealTime();

// The way back, for comparison: reading the state into a picture of 32 bits.
void undoStep(benchmark::State& state) {
  const test::TempFolder folder;
  const clsDIB picture = noisyPicture();
  const auto file = folder / "state.bmp";
  picture.Save_DIB_To_File(file, picture);
  for (auto _ : state) benchmark::DoNotOptimize(loadUndoState(file));
}
BENCHMARK(undoStep)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
