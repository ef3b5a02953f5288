// Reads BMP files: 1, 2, 4, 8, 16, 24 and 32 bits, RLE4, RLE8 and RLE24, bit fields with any masks, bottom-up and
// top-down, Windows headers from version 3 to 5 and both OS/2 headers.
//
// The surface is always bottom-up. Its depth is the file's, with these exceptions: 2 bits become 4; 16 bits become 24,
// or 32 when the file has an alpha mask. Bytes of 32-bit pixels that no mask claims are zero, but for plain 32-bit
// files, whose fourth byte is kept (many programs put alpha there).
//
// What is refused: a size outside the limits (before anything is allocated), embedded JPEG and PNG, Huffman coding,
// depths that no writer uses, and files without a single whole row. Everything else that can be shown is shown: a wrong
// file size or plane count, a table of odd length, a data offset of zero or past a gap, indices outside the table
// (black), runs past the end of a row (cut there), a missing end mark.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include "base/limits.h"
#include "platform/imaging/picture_loader.h"
#include "platform/raster/surface.h"

namespace ruvo::imaging {

struct BmpResult {
  raster::Surface surface;
  LoadError error = LoadError::None;
  // Some alpha byte of a 32-bit surface is not zero.
  bool hasAlpha = false;
  // The pixel data ended early. The rows that are there were decoded (as image viewers do), the rest is zero.
  bool truncated = false;
  // As the file states them, also when it was refused.
  int width = 0;
  int height = 0;
  int fileDepth = 0;

  explicit operator bool() const { return error == LoadError::None; }
};

// The first bytes of a BMP or of an OS/2 bitmap array.
bool looksLikeBmp(std::span<const std::uint8_t> firstBytes);
// A bitmap of more than `maxPixels` pixels is too large as well.
BmpResult readBmp(std::span<const std::uint8_t> bytes, std::int64_t maxPixels = kMaxPicturePixels);
// Reads rows straight from the file, so that the whole of it never lies in memory beside the surface.
BmpResult readBmpFile(const std::filesystem::path& path);

}  // namespace ruvo::imaging
