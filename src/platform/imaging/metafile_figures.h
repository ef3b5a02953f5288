// The drawing records as figures. Places are logical; boxes may have their corners in any order and leave out their
// right and bottom edges, as the records' own drawing calls do.
#pragma once

#include <span>

#include "platform/imaging/metafile_device.h"

namespace ruvo::imaging::meta {

struct Box {
  PointF from;
  PointF to;
};
using Places = std::vector<PointF>;

void moveTo(Device& device, PointF to);
void lineTo(Device& device, PointF to);
void polyline(Device& device, std::span<const PointF> points);
void polylineTo(Device& device, std::span<const PointF> points);
void polyBezier(Device& device, std::span<const PointF> points);
void polyBezierTo(Device& device, std::span<const PointF> points);
// Types as in [MS-EMF] 2.1.26: 2 a line, 4 one of three Bezier points, 6 a new figure, plus 1 to close it.
void polyDraw(Device& device, std::span<const PointF> points, std::span<const std::uint8_t> types);

void polygons(Device& device, std::span<const Places> rings);
void polylines(Device& device, std::span<const Places> lines);

void rectangle(Device& device, const Box& box);
void roundRectangle(Device& device, const Box& box, PointF corner);
void ellipse(Device& device, const Box& box);

enum class ArcKind { Arc, ArcTo, Chord, Pie };
// From the ray through `start` to the ray through `end`.
void arc(Device& device, const Box& box, PointF start, PointF end, ArcKind kind);
// A line to the start of the arc, then the arc; degrees, counter-clockwise.
void angleArc(Device& device, PointF centre, double radius, double startAngle, double sweep);

void setPixel(Device& device, PointF at, Colour colour);
void extFloodFill(Device& device, PointF at, Colour colour, bool surface);

// --- Paths
void fillPath(Device& device);
void strokePath(Device& device);
void strokeAndFillPath(Device& device);
void selectClipPath(Device& device, std::optional<raster::RegionOp> op);

// --- Regions, by boxes in logical units
raster::Region regionOf(Device& device, std::span<const Rect> boxes, const Affine& toPixels);
void frameRegion(Device& device, const raster::Region& region, const BrushSpec& brush, PointF thickness);
void invertRegion(Device& device, const raster::Region& region);

// --- Clipping by a logical box
void intersectClipRect(Device& device, const Box& box);
void excludeClipRect(Device& device, const Box& box);

// A box as an outline, in pixels.
Outline boxOutline(const Device& device, const Box& box);

}  // namespace ruvo::imaging::meta
