// Check sums of chunked files.
#pragma once

#include <cstdint>
#include <span>

namespace ruvo {

class clsCRC {
 public:
  // 1 is CRC-32 (ISO 3309); no other is known.
  int Algorithm = 1;

  // Continues from `Sum` (0 to begin).
  std::uint32_t Calculate(std::span<const std::uint8_t> bytes, std::uint32_t Sum = 0) const;
};

}  // namespace ruvo
