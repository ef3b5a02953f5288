// Icon and cursor files built field by field, whole or broken on purpose.
#pragma once

#include <cstdint>
#include <vector>

#include "base/byte_writer.h"

namespace ruvo::test {

using Data = std::vector<std::uint8_t>;

// What stands behind a directory entry: an info header (its height is written doubled), and bytes.
struct IcoData {
  int width = 0;
  int height = 0;
  int bits = 24;
  std::uint32_t coloursUsed = 0;
  Data rest = {};  // table, picture rows, mask rows

  Data bytes() const {
    ByteWriter out;
    for (const std::int64_t v : {40, width, height * 2, 1 | bits << 16, 0, 0, 0, 0, static_cast<int>(coloursUsed), 0}) {
      out.u32(static_cast<std::uint32_t>(v));
    }
    out.append(rest);
    return out.take();
  }
};

struct IcoEntry {
  int width = 0;
  int height = 0;
  Data data = {};
  int firstWord = 1;
  int secondWord = 0;
  std::int64_t statedBytes = -1;   // the true number
  std::int64_t statedOffset = -1;  // the true one
};

inline Data icoFile(const std::vector<IcoEntry>& entries, int type = 1, int statedCount = -1) {
  ByteWriter out;
  const auto words = [&](std::initializer_list<std::int64_t> values) {
    for (const std::int64_t v : values) out.u16(static_cast<std::uint16_t>(v));
  };
  words({0, type, statedCount < 0 ? static_cast<int>(entries.size()) : statedCount});
  std::size_t offset = 6 + 16 * entries.size();
  for (const IcoEntry& entry : entries) {
    words({entry.width | entry.height << 8, 0, entry.firstWord, entry.secondWord});
    out.u32(static_cast<std::uint32_t>(entry.statedBytes < 0 ? entry.data.size() : entry.statedBytes));
    out.u32(static_cast<std::uint32_t>(entry.statedOffset < 0 ? offset : entry.statedOffset));
    offset += entry.data.size();
  }
  for (const IcoEntry& entry : entries) out.append(entry.data);
  return out.take();
}

}  // namespace ruvo::test
