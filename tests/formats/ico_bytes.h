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
    out.u32(40);
    out.i32(width);
    out.i32(height * 2);
    out.u16(1);
    out.u16(static_cast<std::uint16_t>(bits));
    out.zeros(16);
    out.u32(coloursUsed);
    out.zeros(4);
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
  out.u16(0);
  out.u16(static_cast<std::uint16_t>(type));
  out.u16(static_cast<std::uint16_t>(statedCount < 0 ? entries.size() : statedCount));
  std::size_t offset = 6 + 16 * entries.size();
  for (const IcoEntry& entry : entries) {
    out.u8(static_cast<std::uint8_t>(entry.width));
    out.u8(static_cast<std::uint8_t>(entry.height));
    out.u16(0);
    out.u16(static_cast<std::uint16_t>(entry.firstWord));
    out.u16(static_cast<std::uint16_t>(entry.secondWord));
    out.u32(static_cast<std::uint32_t>(entry.statedBytes < 0 ? entry.data.size() : entry.statedBytes));
    out.u32(static_cast<std::uint32_t>(entry.statedOffset < 0 ? offset : entry.statedOffset));
    offset += entry.data.size();
  }
  for (const IcoEntry& entry : entries) out.append(entry.data);
  return out.take();
}

}  // namespace ruvo::test
