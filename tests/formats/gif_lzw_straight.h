// The GIF coders once more, one bit and one pixel at a time, to compare the fast ones against.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "support/pictures.h"

namespace ruvo::test {

using Bytes = std::vector<std::uint8_t>;

// Codes as bits, low ones first. Widths are given by the caller.
struct BitString {
  std::vector<bool> bits;
  void put(unsigned code, int width) {
    for (int i = 0; i < width; ++i) bits.push_back(code >> i & 1);
  }
  Bytes bytes() const {
    Bytes all((bits.size() + 7) / 8);
    for (std::size_t i = 0; i < bits.size(); ++i) all[i / 8] |= static_cast<std::uint8_t>(bits[i] << (i % 8));
    return all;
  }
};

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

inline void straightDecode(clsDIB& dib, bool interlaced, int minCodeSize, const Bytes& data) {
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

inline Bytes straightEncode(const clsDIB& dib, int initBits, bool interlaced) {
  Bytes pixels;
  for (const int y : straightLines(dib.DIBHeight(), interlaced)) {
    const std::uint8_t* row = dib.surface().pictureRow(y);
    pixels.insert(pixels.end(), row, row + dib.DIBWidth());
  }
  constexpr int kSlots = 5003;
  std::vector<int> key(kSlots, -1), codeOf(kSlots);
  const int clear = 1 << (initBits - 1);
  int next = clear + 2, width = initBits;
  bool cleared = false;
  BitString codes;
  const auto put = [&](int code) {
    codes.put(static_cast<unsigned>(code), width);
    if (cleared) {
      width = initBits;
      cleared = false;
    } else if (width < 12 && next > (1 << width) - 1) {
      ++width;
    }
  };
  put(clear);
  int string = pixels[0];
  for (std::size_t p = 1; p < pixels.size(); ++p) {
    const int pixel = pixels[p], wanted = pixel * 4096 + string;
    int at = (pixel * 16) ^ string;
    if (key[at] != wanted && key[at] >= 0) {
      const int step = at == 0 ? 1 : kSlots - at;
      do at = (at - step + kSlots) % kSlots;
      while (key[at] != wanted && key[at] > 0);
    }
    if (key[at] == wanted) {
      string = codeOf[at];
      continue;
    }
    put(string);
    string = pixel;
    if (next < 4096) {
      key[at] = wanted;
      codeOf[at] = next++;
    } else {
      key.assign(kSlots, -1);
      next = clear + 2;
      cleared = true;
      put(clear);
    }
  }
  put(string);
  put(clear + 1);
  Bytes blocks;
  const Bytes data = codes.bytes();
  for (std::size_t at = 0; at < data.size(); at += 254) {
    const std::size_t part = std::min<std::size_t>(254, data.size() - at);
    blocks.push_back(static_cast<std::uint8_t>(part));
    blocks.insert(blocks.end(), data.begin() + static_cast<std::ptrdiff_t>(at),
                  data.begin() + static_cast<std::ptrdiff_t>(at + part));
  }
  return blocks;
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
