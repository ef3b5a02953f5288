// From pixels to quantised coefficients, one block of 8 x 8 at a time, in integers.
#pragma once

#include <cstdint>

#include "base/colour.h"
#include "formats/clsJPG_Tables.h"

namespace ruvo::jpg {

// Samples and coefficients of a block; 65536 is one step of brightness.
struct alignas(16) Block {
  std::int32_t at[kBlockSize];
};
struct alignas(16) Levels {
  std::int16_t at[kBlockSize];
};

enum class Channel { Y, Cb, Cr };

// One component of 8 rows of 8 pixels, `stride` pixels apart, centred on zero.
void samplesOf(Channel channel, const Pixel32* pixels, std::ptrdiff_t stride, Block& block);
// Forward cosine transform by lifting steps; the gains that it leaves are part of the divisors. The result lies in the
// order of kPlaceOfZigzag's places.
void transform(Block& block);
// A negative level may come out one step nearer to zero than the nearest one: the last division truncates.
void quantise(const Block& block, const QuantTable& table, Levels& levels);
// Which zigzag places are not zero, place k as bit k.
std::uint64_t zigzagMask(const Levels& levels);

}  // namespace ruvo::jpg
