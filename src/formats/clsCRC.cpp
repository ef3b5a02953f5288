#include "formats/clsCRC.h"

#include <zlib.h>

namespace ruvo {

std::uint32_t clsCRC::Calculate(std::span<const std::uint8_t> bytes, std::uint32_t Sum) const {
  if (Algorithm != 1) return 0;
  return static_cast<std::uint32_t>(crc32_z(Sum, bytes.data(), bytes.size()));
}

}  // namespace ruvo
