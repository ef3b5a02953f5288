// The headers of a BMP file, parsed and checked: what its pixels are and where they lie.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "platform/imaging/picture_loader.h"

namespace ruvo::imaging {

enum class BmpCoding { Plain, Rle, Fields, Unsupported };

struct BmpHeader {
  int width = 0;
  int height = 0;
  int bits = 0;
  bool topDown = false;
  BmpCoding coding = BmpCoding::Plain;
  std::array<std::uint32_t, 4> masks{};  // red, green, blue, alpha; for Fields
  std::uint32_t tableOffset = 0;
  int tableEntries = 0;
  int tableEntryBytes = 4;
  std::uint32_t dataOffset = 0;
};

// As many bytes from the start of a file as any header takes.
inline constexpr std::size_t kBmpHeadBytes = 14 + 14 + 124 + 16;

// `head` holds the first kBmpHeadBytes of the file, or all of it when it is shorter. Width, height and bits are filled
// in as far as they could be read even when the answer is an error.
LoadError parseBmpHeader(std::span<const std::uint8_t> head, BmpHeader& header);
bool looksLikeBmpHead(std::span<const std::uint8_t> head);

}  // namespace ruvo::imaging
