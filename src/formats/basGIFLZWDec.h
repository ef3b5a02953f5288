// The LZW decoder of GIF images (GIF89a, appendix F): a code stream, freed of its sub-block lengths, straight into the
// pixel indices of an 8-bit surface, row interlace included.
#pragma once

#include <cstdint>
#include <span>

#include "image/clsDIB.h"

namespace ruvo::basGIFLZWDec {

// Writes picture lines top first. The first code of the stream is thrown away, whatever it is. A damaged stream ends
// the decoding quietly: pixels decoded so far stay, the others keep their value. Does nothing unless `Dib` has 8 bits
// and MinCodeSize is 1 to 11. Interlaced is ignored below a height of 5.
void Decode(clsDIB& Dib, bool Interlaced, int MinCodeSize, std::span<const std::uint8_t> Data);

}  // namespace ruvo::basGIFLZWDec
