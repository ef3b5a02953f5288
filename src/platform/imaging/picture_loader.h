// The platform's picture loading: one call per family, sizes checked before pixels are allocated, no exceptions.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "platform/imaging/picture.h"

namespace ruvo::imaging {

enum class LoadError { None, Missing, NotThisFormat, TooLarge, Broken, NoMemory };

struct LoadResult {
  Picture picture;
  LoadError error = LoadError::None;
  // The size the file states, also when it was refused for its size.
  int width = 0;
  int height = 0;
  int fileDepth = 0;  // bits a pixel as stored in the file

  explicit operator bool() const { return static_cast<bool>(picture); }
};

// The classic picture loader: BMP, JPEG (by content, whatever the extension), a GIF's first frame, WMF and EMF.
// BMP keeps the file's depth and table (16 bits become 24); the others give 32-bit surfaces, byte 3 zero, but for
// metafiles, which stay what they are.
LoadResult LoadPicture(const std::filesystem::path& path);

// The imaging service's loader: PNG and TIFF (and whatever LoadPicture takes), 32-bit surfaces with straight alpha in
// byte 3 where the file has alpha. Without imagingUsable() everything is NotThisFormat.
LoadResult LoadImageThroughGDIPlus(const std::filesystem::path& path);

// A whole picture in memory, as another program hands it over: any of the kinds above, or a device-independent bitmap
// without a file header. Which one is told by its first bytes. A picture of more than `maxPixels` pixels is TooLarge,
// and nothing of it is decoded.
LoadResult LoadPictureFromBytes(std::vector<std::uint8_t> bytes, std::int64_t maxPixels);

}  // namespace ruvo::imaging
