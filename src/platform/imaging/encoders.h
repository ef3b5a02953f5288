// The encoders: a surface of any depth to a file, which is replaced whole. False, with an existing file as it was, when
// the surface is empty, can not be held by the format, or the file can not be written. None throws but std::bad_alloc.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "platform/raster/surface.h"

namespace ruvo::imaging {

// JPEG: three components, chroma halved both ways (4:2:0). Quality is clamped to 1 to 100.
bool saveJpeg(const raster::Surface& surface, const std::filesystem::path& path, int quality);

// PNG: 32 bits with straight alpha for a 32-bit surface with alpha, else 24; a surface with a table keeps depth and
// table.
bool savePng(const raster::Surface& surface, const std::filesystem::path& path, bool hasAlpha);
// The bytes of such a file, for formats that hold one; none for an empty surface.
std::vector<std::uint8_t> pngBytes(const raster::Surface& surface, bool hasAlpha);

// TIFF, LZW. Depth 1 (black and white), 4, 8 (with a table), 24 or 32 (straight alpha; opaque when the surface has
// none). With a table: the picture's own colours when the depth holds them all, else a fixed table with error
// diffusion.
bool saveTiff(const raster::Surface& surface, const std::filesystem::path& path, int depth, bool hasAlpha);

// GIF: surfaces of 8 bits or fewer with their table, deeper ones reduced to 8 bits as for TIFF; none while no encoder is
// set.
bool saveGif(const raster::Surface& surface, const std::filesystem::path& path);

// What does the writing: it gets a surface of 8 bits or fewer and keeps the promises above. Set once, before the
// encoders are used; null for none.
using GifEncoder = bool (*)(const raster::Surface& surface, const std::filesystem::path& path);
void setGifEncoder(GifEncoder encoder);
bool hasGifEncoder();

}  // namespace ruvo::imaging
