// Strokes with square and flat caps, bevelled and mitred joins, and broken lines of any pattern.
#pragma once

#include <functional>
#include <span>

#include "platform/imaging/metafile_geometry.h"
#include "platform/imaging/metafile_objects.h"
#include "platform/raster/region.h"

namespace ruvo::imaging::meta {

struct WidePen {
  double width;  // pixels
  Cap cap;
  Join join;
  double miterLimit;  // longest miter in widths; beyond it the join is bevelled
};

// Hands over the pixels inside `area`, sorted and merged, in several parts when they are very many.
void widePenSpans(const Subpath& line, const WidePen& pen, const Rect& area,
                  const std::function<void(std::span<const raster::Span>)>& sink);

// The on pieces of the figures, whose corners they go round. `lengths` holds on, off, on, off, ... in pixels, an even
// number of them.
Outline dashed(const Outline& outline, std::span<const double> lengths);

}  // namespace ruvo::imaging::meta
