// Puts the 24-bit surfaces of an animation's views on the screen.
#pragma once

#include <QImage>
#include <QPainter>

#include "base/geometry.h"
#include "platform/raster/surface.h"

namespace ruvo {

// An image over the surface's own pixels: it must not outlive them. Empty unless the surface has 24 bits with the first
// row on top.
QImage imageOver(const raster::Surface& surface);

// Draws `area` of the surface where it lies when the whole surface takes `place`. What is shrunk is smoothed, what is
// enlarged (by a display scale) keeps its pixels.
void drawSurface(QPainter& painter, const QRect& place, const raster::Surface& surface, const Rect& area);

// The box of a picture within the room around the same centre: its own size when it fits, else in proportion.
QRect centredBox(Size picture, const QRect& room);

}  // namespace ruvo
