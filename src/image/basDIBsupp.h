// Pictures made from rows of bytes as codecs hold them, and the way of such a picture onto a surface.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/geometry.h"
#include "platform/imaging/picture.h"

namespace ruvo {

// A bitmap of Bpp 1, 4, 8, 24 or 32 from rows padded to four bytes, bottom line first, with a colour table of four
// bytes an entry (B, G, R, 0) at 8 bits or fewer; entries that the table does not have are black. A null picture for a
// size that is not allowed, another depth, or too few bytes.
imaging::Picture CreatePictureFromBits(std::span<const std::uint8_t> Bits, int Width, int Height, int Bpp,
                                       std::span<const std::uint8_t> Table = {});

// Rows of 1, 2 or 4 bits a pixel, packed from the high bit down and each padded to a whole byte, as one byte a pixel
// with no padding. Empty for another depth or too few bytes.
std::vector<std::uint8_t> WidenToBytes(std::span<const std::uint8_t> Packed, int Width, int Height, int Bits);

// Copies a bitmap to the target at X, Y; W or H below 1 means the picture's own. Parts outside are left out.
void DrawPictureTo(const imaging::Picture& Picture, raster::Surface& Target, int X, int Y, int W = 0, int H = 0);

}  // namespace ruvo
