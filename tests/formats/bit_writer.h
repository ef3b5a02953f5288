// Streams of bits for decoders: each byte is filled from its low end.
#pragma once

#include <cstdint>
#include <vector>

namespace ruvo::test {

using Bytes = std::vector<std::uint8_t>;

struct BitWriter {
  Bytes bytes;
  int used = 8;
  BitWriter& put(unsigned value, int bits) {
    for (int i = 0; i < bits; ++i, ++used) {
      if (used == 8) {
        bytes.push_back(0);
        used = 0;
      }
      bytes.back() = static_cast<std::uint8_t>(bytes.back() | (value >> i & 1) << used);
    }
    return *this;
  }
  // A Huffman code: highest bit first.
  BitWriter& code(unsigned value, int bits) {
    while (bits-- > 0) put(value >> bits & 1, 1);
    return *this;
  }
};

}  // namespace ruvo::test
