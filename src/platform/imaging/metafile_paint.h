// Filling and stroking of outlines with the selected brush and pen.
#pragma once

#include "platform/imaging/metafile_device.h"

namespace ruvo::imaging::meta {

// Into the path while a bracket is open, else onto the surface. Open figures count as closed for the fill.
void drawOutline(Device& device, const Outline& outline, bool fill, bool stroke);

// The same whether a bracket is open or not.
void fillOutline(Device& device, const Outline& outline);
void strokeOutline(Device& device, const Outline& outline);

// The pixels of a filled outline, or of a stroke with the selected pen; cut at the clip's box. Empty when the work is
// more than is left.
raster::Region filledRegion(Device& device, const Outline& outline, raster::FillMode mode);
raster::Region strokedRegion(Device& device, const Outline& outline);

// With a brush, by the ROP2.
void paintRegion(Device& device, const raster::Region& region, const BrushSpec& brush);

}  // namespace ruvo::imaging::meta
