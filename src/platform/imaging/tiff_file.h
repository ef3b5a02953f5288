// A TIFF opened through libtiff on a ByteSource, silent and with its allocations bounded.
#pragma once

#include <tiffio.h>

#include <memory>

#include "base/limits.h"
#include "platform/imaging/byte_source.h"

namespace ruvo::imaging {

// No single block of a file needs more than the largest picture at four 32-bit samples.
inline constexpr std::int64_t kMaxTiffAllocation = kMaxPicturePixels * 16 + (1 << 20);

struct TiffCloser {
  void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffHandle = std::unique_ptr<TIFF, TiffCloser>;

// What the library reads from. Must outlive the handle.
struct TiffInput {
  ByteSource& source;
  std::uint64_t position = 0;
};

// Reads the first directory; null when that fails.
TiffHandle openTiff(TiffInput& input);

// What the library writes to: the growing bytes of a file. Must outlive the handle.
struct TiffOutput {
  std::vector<std::uint8_t> bytes;
  std::uint64_t position = 0;
};
TiffHandle createTiff(TiffOutput& output);

}  // namespace ruvo::imaging
