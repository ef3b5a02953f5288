// BMP files built field by field, whole or broken on purpose.
#pragma once

#include <cstdint>
#include <vector>

#include "base/byte_writer.h"
#include "base/colour.h"

namespace ruvo::test {

struct BmpFile {
  int width = 0;
  int height = 0;  // below 0 for top-down
  int bits = 24;
  std::uint32_t compression = 0;
  std::uint32_t headerSize = 40;
  std::uint32_t coloursUsed = 0;
  std::vector<std::uint32_t> masks = {};  // inside the header when it is long enough, else behind it
  std::vector<Colour> table = {};
  std::vector<std::uint8_t> gap = {};  // between the table and the data
  std::vector<std::uint8_t> data = {};
  std::int64_t statedOffset = -1;  // the true one

  std::vector<std::uint8_t> bytes() const {
    ByteWriter body;
    body.u32(headerSize);
    if (headerSize == 12) {
      body.u16(static_cast<std::uint16_t>(width));
      body.u16(static_cast<std::uint16_t>(height));
    } else {
      body.i32(width);
      body.i32(height);
    }
    body.u16(1);
    body.u16(static_cast<std::uint16_t>(bits));
    if (headerSize >= 20) body.u32(compression);
    if (headerSize >= 40) {
      body.zeros(12);
      body.u32(coloursUsed);
      body.u32(0);
    }
    for (const std::uint32_t mask : masks) body.u32(mask);
    if (body.size() < headerSize) body.zeros(headerSize - body.size());
    for (const Colour c : table) {
      body.u8(blueOf(c));
      body.u8(greenOf(c));
      body.u8(redOf(c));
      if (headerSize != 12) body.u8(0);
    }
    body.append(gap);

    ByteWriter file;
    file.u16(0x4D42);
    file.u32(0);
    file.u32(0);
    file.u32(statedOffset >= 0 ? static_cast<std::uint32_t>(statedOffset)
                               : static_cast<std::uint32_t>(14 + body.size()));
    file.append(body.bytes());
    file.append(data);
    return file.take();
  }
};

}  // namespace ruvo::test
