// The GIF decoder once more, one bit and one pixel at a time, to compare the fast coders against.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "formats/bit_writer.h"
#include "support/pictures.h"

namespace ruvo::test {

// Picture lines in the order in which they are stored.
inline std::vector<int> straightLines(int height, bool interlaced) {
  std::vector<int> lines;
  if (interlaced && height >= 5) {
    for (const auto& [first, step] : {std::pair{0, 8}, {4, 8}, {2, 4}, {1, 2}}) {
      for (int y = first; y < height; y += step) lines.push_back(y);
    }
  } else {
    for (int y = 0; y < height; ++y) lines.push_back(y);
  }
  return lines;
}

inline void straightDecode(clsDIB& dib, bool interlaced, int minCodeSize, std::span<const std::uint8_t> data) {
  const unsigned clear = 1U << minCodeSize;
  const std::vector<int> lines = straightLines(dib.DIBHeight(), interlaced);
  const std::size_t picture = lines.size() * static_cast<std::size_t>(dib.DIBWidth());
  const std::size_t most = interlaced && dib.DIBHeight() >= 5 ? picture : 4 * picture;
  std::array<unsigned, 4097> prefix{}, suffix{};
  Bytes stack(1);
  std::size_t written = 0, position = 0;
  int size = minCodeSize + 1;
  unsigned free = clear + 2, old = 0;
  std::uint8_t fin = 0;
  bool first = true, begun = false;
  const auto store = [&](std::uint8_t pixel) {
    if (written == most) return;
    const std::size_t place = written++ % picture;
    const auto width = static_cast<std::size_t>(dib.DIBWidth());
    dib.surface().pictureRow(lines[place / width])[place % width] = pixel;
  };
  for (;; begun = true) {
    if (position + static_cast<std::size_t>(size) > 8 * data.size() || written == most) return;
    unsigned code = 0;
    for (int i = 0; i < size; ++i, ++position) code |= (data[position / 8] >> position % 8 & 1U) << i;
    if (!begun) continue;
    if (code == clear + 1) return;
    if (code == clear) {
      first = true;
      size = minCodeSize + 1;
      free = clear + 2;
    } else if (first) {
      first = false;
      old = code;
      fin = static_cast<std::uint8_t>(code);
      store(fin);
    } else {
      if (code <= free) {
        stack.clear();
        if (code == free) stack.push_back(fin);
        unsigned walk = code == free ? old : code;
        for (; walk >= clear && stack.size() <= 5000; walk = prefix[walk]) {
          stack.push_back(static_cast<std::uint8_t>(suffix[walk]));
        }
        if (stack.size() > 5000) return;
        stack.push_back(static_cast<std::uint8_t>(walk));
      }
      fin = stack.back();
      for (auto pixel = stack.rbegin(); pixel != stack.rend(); ++pixel) store(*pixel);
      if (free < 4096) {
        prefix[free] = old;
        suffix[free++] = fin;
        if (free > (1U << size) - 1 && size < 12) ++size;
      }
      old = code;
    }
  }
}

inline Bytes joinBlocks(const Bytes& blocks) {
  Bytes data;
  for (std::size_t at = 0; at < blocks.size(); at += 1U + blocks[at]) {
    data.insert(data.end(), blocks.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                blocks.begin() + static_cast<std::ptrdiff_t>(at) + 1 + blocks[at]);
  }
  return data;
}

// An 8-bit picture with an index for each point.
template <typename Index>
clsDIB indexedDib(int width, int height, bool topDown, const Index& index) {
  clsDIB dib = plainDib(width, height, kWhite, 8, topDown);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) dib.surface().pictureRow(y)[x] = static_cast<std::uint8_t>(index(x, y));
  }
  return dib;
}

inline std::vector<Bytes> linesOf(const clsDIB& dib) {
  std::vector<Bytes> lines;
  for (int y = 0; y < dib.DIBHeight(); ++y) {
    const std::uint8_t* row = dib.surface().pictureRow(y);
    lines.emplace_back(row, row + dib.DIBWidth());
  }
  return lines;
}

}  // namespace ruvo::test
