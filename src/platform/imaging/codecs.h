// The decoders behind the picture loading, one file each, and the test of a file's first bytes that chooses among them.
//
// Every decoder checks the stated size before it allocates pixels: a picture that is not allowed (base/limits.h) or has
// more than `maxPixels` pixels gives LoadError::TooLarge with the size filled in, so a limit of 0 reads the header
// alone. None throws but for std::bad_alloc, and none writes to a stream of the program.
#pragma once

#include <cstdint>
#include <span>

#include "base/limits.h"
#include "platform/imaging/byte_source.h"
#include "platform/imaging/picture_loader.h"

namespace ruvo::imaging {

enum class FileKind { Unknown, Bmp, Jpeg, Gif, Png, Tiff };

// Decides by the first bytes of a file (eight are enough).
FileKind kindOf(std::span<const std::uint8_t> firstBytes);

// JPEG (ISO 10918-1): grey, YCbCr, RGB, CMYK and YCCK; sequential, progressive, arithmetic. 32-bit surface, byte 3
// zero. A file that ends before its last row, or with a progressive picture unfinished, is Broken; one that only lacks
// its end marker opens, and damaged data cost no more than their place.
LoadResult readJpeg(ByteSource& source, std::int64_t maxPixels = kMaxPicturePixels);
// PNG of every colour type: 32-bit surface, straight alpha when the file has an alpha channel or a tRNS chunk.
LoadResult readPng(ByteSource& source, std::int64_t maxPixels = kMaxPicturePixels);
// The first page of a TIFF as it is stored, whatever its Orientation (no loader here turns a picture by that): 32-bit
// surface, straight alpha when ExtraSamples says so.
LoadResult readTiff(ByteSource& source, std::int64_t maxPixels = kMaxPicturePixels);
// A GIF's first frame on its logical screen: 32-bit surface, byte 3 zero.
LoadResult readGif(ByteSource& source, std::int64_t maxPixels = kMaxPicturePixels);
// The one of the above that the kind names.
LoadResult readAny(ByteSource& source, FileKind kind, std::int64_t maxPixels = kMaxPicturePixels);

constexpr bool sizeAllowed(std::int64_t width, std::int64_t height, std::int64_t maxPixels) {
  return pictureSizeAllowed(width, height) && width * height <= maxPixels;
}

inline LoadResult refused(LoadError error) {
  LoadResult result;
  result.error = error;
  return result;
}

}  // namespace ruvo::imaging
