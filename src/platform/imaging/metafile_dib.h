// Bitmaps inside metafile records.
#pragma once

#include "base/limits.h"
#include "platform/imaging/metafile_objects.h"
#include "platform/raster/surface.h"

namespace ruvo::imaging::meta {

class Device;

inline constexpr std::int64_t kMostPatternPixels = 1 << 18;

// The whole bitmap at its own depth (16 bits become 24). With `keepAlpha` byte 3 of 32 bits is as stored, else zero.
// Empty when it is damaged or has more pixels than allowed.
raster::Surface decodeDib(Device& device, const DibRef& dib, std::int64_t maxPixels, bool keepAlpha = false);

// The rows are stored from the top.
bool isTopDown(const DibRef& dib);

// The same from the old device bitmaps of WMF records (type, width, height, stride, planes, depth, then rows from the
// top): one bit a pixel only.
raster::Surface decodeBitmap16(std::span<const std::uint8_t> bitmap);

}  // namespace ruvo::imaging::meta
