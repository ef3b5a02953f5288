// The LZW encoder of GIF images: an 8-bit surface into the sub-blocks of an image, each of at most 254 bytes.
#pragma once

#include <cstdint>

#include "base/byte_writer.h"
#include "image/clsDIB.h"

namespace ruvo::basGIFLZWEnc {

// Appends the sub-blocks, without the code size byte before them and the empty block after them. Lines go out top
// first, or by the passes of the interlace when Interlaced is set and the height at least 5. InitBits is the minimum
// code size plus one (3 to 9); every pixel must be below 2^(InitBits - 1). Returns the bytes appended; 0, with nothing
// appended, unless `Dib` has 8 bits.
std::int64_t Encode(ByteWriter& out, const clsDIB& Dib, int InitBits, bool Interlaced);

}  // namespace ruvo::basGIFLZWEnc
