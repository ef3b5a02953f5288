// Figures on a surface, in picture coordinates. Pens, brushes, clip and the way of combining come from the context; one
// integer model a figure gives the same pixels at every depth and row order. Boxes are [left, right) x [top, bottom)
// and may come with their corners in any order; a pen of width w reaches w \ 2 pixels beyond them. Coordinates of up to
// a million either way are followed exactly, and round figures with a side above half a million are not drawn. Time
// grows with a figure's own size, not with the surface.
#pragma once

#include <cstdint>
#include <span>

#include "base/colour.h"
#include "base/geometry.h"
#include "platform/raster/draw_context.h"
#include "platform/raster/region.h"

namespace ruvo::raster {

// What getPixel answers outside the surface.
inline constexpr Colour kNoColour = 0xFFFFFFFF;

Colour getPixel(const Surface& surface, int x, int y);
// Combines one pixel by the context's ROP2. False outside the clip.
bool setPixel(const DrawContext& context, int x, int y, Colour colour);

// A thin pen leaves out the end point; a line of no length draws nothing. A wide pen draws both round ends, and its
// round shape when the points are one.
void line(const DrawContext& context, Point from, Point to);
void polyline(const DrawContext& context, std::span<const Point> points);
// Control points as for bezierPoints().
void polyBezier(const DrawContext& context, std::span<const Point> control);

// Filled by the brush, then outlined by the pen. Rectangle touches every pixel once; the others touch the pixels under
// the outline twice, which shows with inverting codes.
void polygon(const DrawContext& context, std::span<const Point> points);
void rectangle(const DrawContext& context, Rect box);
void ellipse(const DrawContext& context, Rect box);
void roundRectangle(const DrawContext& context, Rect box, int ellipseWidth, int ellipseHeight);

// The part of the ellipse's outline from the ray through `start` counter-clockwise to the ray through `end`, both from
// the centre of the box; equal rays give the whole outline. The ends are right to a pixel or two.
void arc(const DrawContext& context, Rect box, Point start, Point end);

// Fills by the brush whatever the ROP2.
void fillRect(const DrawContext& context, Rect box);
void fillRegion(const DrawContext& context, const Region& region);
// One pixel wide, inside the box, by the brush.
void frameRect(const DrawContext& context, Rect box);

// Inverts every second pixel of the frame inside the box, the top right corner included. Twice restores. Pen, brush and
// ROP2 do not count.
void focusRect(const DrawContext& context, Rect box);

}  // namespace ruvo::raster
