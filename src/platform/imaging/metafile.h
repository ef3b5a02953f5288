// WMF and EMF files: records are parsed and kept, and played onto a surface of any size.
#pragma once

#include <cstdint>
#include <span>

#include "base/geometry.h"
#include "platform/imaging/picture_loader.h"

namespace ruvo::imaging {

// By the first bytes of a file: a placeable or plain WMF, or an EMF.
bool isMetafile(std::span<const std::uint8_t> firstBytes);

// A Picture of Kind::Metafile with its size in pixels at 96 an inch, or the reason why not.
LoadResult readMetafile(std::span<const std::uint8_t> file);

// Draws the picture so that its frame fills `dest` of the target (24 or 32 bits); what it leaves open keeps the
// target's pixels. Records that are damaged or unknown are left out. False when `picture` is no metafile.
bool playMetafile(const Picture& picture, raster::Surface& target, const Rect& dest);

}  // namespace ruvo::imaging
