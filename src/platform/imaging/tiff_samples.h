// From the samples of a TIFF (TIFF 6, sections 3 to 6, 16 to 18) to 32-bit pixels. No library here: plain rows.
#pragma once

#include <cstdint>
#include <vector>

#include "base/colour.h"

namespace ruvo::imaging {

enum class SampleKind { Unsigned, Signed, Float };
enum class TiffColours { WhiteIsZero, BlackIsZero, Rgb, Palette, Inks };
enum class TiffAlpha { None, Straight, Multiplied };

// How samples become pixels.
struct TiffPixelFormat {
  TiffColours colours = TiffColours::BlackIsZero;
  TiffAlpha alpha = TiffAlpha::None;
  SampleKind kind = SampleKind::Unsigned;
  int bits = 8;                // of a sample: 1 to 32, or 32 and 64 for Float
  int colourSamples = 1;       // 1, 3 or 4; the alpha sample follows them
  std::vector<Pixel32> table;  // of a palette: 256 entries

  int usedSamples() const { return colourSamples + (alpha == TiffAlpha::None ? 0 : 1); }
};

// Reads `count` samples of a row, packed from the high bit down (16, 24, 32 and 64 bits in the machine's byte order),
// into every `step`th byte of `out`: scaled to 0 to 255, or as they are for a palette.
void unpackSamples(const TiffPixelFormat& format, const std::uint8_t* row, int count, std::uint8_t* out, int step);

// One row of 8-bit samples, `step` bytes from pixel to pixel, to pixels. Alpha comes out straight, zero without alpha.
void samplesToPixels(const TiffPixelFormat& format, const std::uint8_t* samples, int step, Pixel32* out, int width);

}  // namespace ruvo::imaging
