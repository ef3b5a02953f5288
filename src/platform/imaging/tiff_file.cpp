#include "platform/imaging/tiff_file.h"

#include <cstring>

namespace ruvo::imaging {
namespace {

int saysNothing(TIFF*, void*, const char*, const char*, va_list) {
  return 1;
}

bool movePosition(std::uint64_t& position, std::uint64_t size, toff_t offset, int whence) {
  const std::uint64_t base = whence == SEEK_CUR ? position : whence == SEEK_END ? size : 0;
  const std::uint64_t target = base + offset;
  if (target > static_cast<std::uint64_t>(INT64_MAX)) return false;
  position = target;
  return true;
}

tmsize_t readInput(thandle_t handle, void* target, tmsize_t count) {
  auto& input = *static_cast<TiffInput*>(handle);
  if (count <= 0) return 0;
  const std::size_t got =
      input.source.readAt(input.position, {static_cast<std::uint8_t*>(target), static_cast<std::size_t>(count)});
  input.position += got;
  return static_cast<tmsize_t>(got);
}
tmsize_t refuseWrite(thandle_t, void*, tmsize_t) {
  return -1;
}
toff_t seekInput(thandle_t handle, toff_t offset, int whence) {
  auto& input = *static_cast<TiffInput*>(handle);
  return movePosition(input.position, input.source.size(), offset, whence) ? input.position : static_cast<toff_t>(-1);
}
toff_t inputSize(thandle_t handle) {
  return static_cast<TiffInput*>(handle)->source.size();
}

tmsize_t readOutput(thandle_t handle, void* target, tmsize_t count) {
  auto& output = *static_cast<TiffOutput*>(handle);
  MemorySource written(output.bytes);
  if (count <= 0) return 0;
  const std::size_t got =
      written.readAt(output.position, {static_cast<std::uint8_t*>(target), static_cast<std::size_t>(count)});
  output.position += got;
  return static_cast<tmsize_t>(got);
}
tmsize_t writeOutput(thandle_t handle, void* data, tmsize_t count) {
  auto& output = *static_cast<TiffOutput*>(handle);
  if (count <= 0) return 0;
  const std::size_t end = static_cast<std::size_t>(output.position) + static_cast<std::size_t>(count);
  if (end > output.bytes.size()) output.bytes.resize(end);
  std::memcpy(output.bytes.data() + output.position, data, static_cast<std::size_t>(count));
  output.position = end;
  return count;
}
toff_t seekOutput(thandle_t handle, toff_t offset, int whence) {
  auto& output = *static_cast<TiffOutput*>(handle);
  return movePosition(output.position, output.bytes.size(), offset, whence) ? output.position : static_cast<toff_t>(-1);
}
toff_t outputSize(thandle_t handle) {
  return static_cast<TiffOutput*>(handle)->bytes.size();
}

int keepOpen(thandle_t) {
  return 0;
}
int noMap(thandle_t, void**, toff_t*) {
  return 0;
}
void noUnmap(thandle_t, void*, toff_t) {}

TiffHandle openWith(const char* mode, thandle_t handle, TIFFReadWriteProc read, TIFFReadWriteProc write,
                    TIFFSeekProc seek, TIFFSizeProc size) {
  TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
  if (!options) return nullptr;
  TIFFOpenOptionsSetMaxSingleMemAlloc(options, kMaxTiffAllocation);
  TIFFOpenOptionsSetErrorHandlerExtR(options, saysNothing, nullptr);
  TIFFOpenOptionsSetWarningHandlerExtR(options, saysNothing, nullptr);
  TiffHandle tiff(TIFFClientOpenExt("", mode, handle, read, write, seek, keepOpen, size, noMap, noUnmap, options));
  TIFFOpenOptionsFree(options);
  return tiff;
}

}  // namespace

TiffHandle openTiff(TiffInput& input) {
  return openWith("rm", &input, readInput, refuseWrite, seekInput, inputSize);
}
TiffHandle createTiff(TiffOutput& output) {
  return openWith("wm", &output, readOutput, writeOutput, seekOutput, outputSize);
}

}  // namespace ruvo::imaging
