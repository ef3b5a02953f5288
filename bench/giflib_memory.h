// giflib's reading and writing functions on memory instead of files.
#pragma once

#include <gif_lib.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace ruvo::bench {

struct GiflibMemory {
  std::vector<std::uint8_t> bytes;
  std::size_t at = 0;

  static int read(GifFileType* gif, GifByteType* target, int count) {
    auto& self = *static_cast<GiflibMemory*>(gif->UserData);
    const std::size_t part = std::min(static_cast<std::size_t>(count), self.bytes.size() - self.at);
    std::copy_n(self.bytes.begin() + static_cast<std::ptrdiff_t>(self.at), part, target);
    self.at += part;
    return static_cast<int>(part);
  }
  static int write(GifFileType* gif, const GifByteType* source, int count) {
    auto& self = *static_cast<GiflibMemory*>(gif->UserData);
    self.bytes.insert(self.bytes.end(), source, source + count);
    return count;
  }
};

}  // namespace ruvo::bench
