// WMF and EMF files: records are parsed and kept, and played onto a surface of any size.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/geometry.h"
#include "platform/imaging/picture_loader.h"

namespace ruvo::imaging {

// By the first bytes of a file: a placeable or plain WMF, or an EMF.
bool isMetafile(std::span<const std::uint8_t> firstBytes);

// A Picture of Kind::Metafile with its size in pixels at 96 an inch, or the reason why not.
//
// A placeable WMF states its box and units an inch; a plain one takes its first window extent as pixels (as
// twentieths of a point when that were too large); an EMF takes
// its frame. Sizes that are not allowed give LoadError::TooLarge with the size filled in. A file that ends inside a
// record is Broken; one that only lacks its end record opens.
LoadResult readMetafile(std::span<const std::uint8_t> file);
// The same without a copy.
LoadResult adoptMetafile(std::vector<std::uint8_t> file);

// Draws the picture so that its frame fills `dest` of the target (24 or 32 bits) and nothing outside `dest` changes;
// what it leaves open keeps the target's pixels. Records that are damaged or unknown are left out, and the drawing stops
// when a file asks for unreasonably much work (some seconds). False when `picture` is no metafile or there is no
// memory.
bool playMetafile(const Picture& picture, raster::Surface& target, const Rect& dest);

}  // namespace ruvo::imaging
