#include "canvas/engine/shape_rectangle.h"

#include <algorithm>

#include "canvas/engine/brush_bits_line.h"
#include "platform/raster/draw.h"

namespace ruvo::shape {
namespace {

using raster::Region;

int cornerDiameter(int cornerShape) {
  return cornerShape >= 1 && cornerShape <= 3 ? 10 * cornerShape : 0;
}

// Regions of round rectangles leave out one column and row more than others; this one fills the box.
Region roundBox(const Rect& box, int diameter) {
  return Region::roundRect({box.left, box.top, box.right + 1, box.bottom + 1}, diameter, diameter);
}

raster::DrawContext contextFor(clsDIB& picture, Colour colour) {
  raster::DrawContext context(picture.surface());
  context.brush = raster::Brush::solid(colour);
  context.alphaFill = picture.DIBhasAlpha();
  return context;
}

Rect inside(const clsDIB& picture, const Rect& box) {
  const Rect part = box.intersected(picture.surface().bounds());
  return part.empty() ? Rect{} : part;
}

Rect squareOutline(clsDIB& picture, const Rect& box, Colour colour, int size) {
  const int left = box.left, top = box.top, right = box.right - 1, bottom = box.bottom - 1;
  const auto side = [&](int x1, int y1, int x2, int y2) {
    return brush::BitsBrushLine(picture, x1, y1, x2, y2, colour, size, false);
  };
  const Rect upper = side(left, top, right, top), farther = side(right, top, right, bottom);
  const Rect lower = side(right, bottom, left, bottom), nearer = side(left, bottom, left, top);
  return upper.united(farther).united(lower).united(nearer);
}

}  // namespace

Rect outlineRectangle(clsDIB& picture, Rect box, Colour colour, int cornerShape, int brushSize) {
  if (picture.empty() || box.empty()) return {};
  brushSize = std::max(1, brushSize);
  const int diameter = cornerDiameter(cornerShape);
  if (diameter == 0) return squareOutline(picture, box, colour, brushSize);
  Region ring = roundBox(box, diameter);
  const Rect inner{box.left + brushSize, box.top + brushSize, box.right - brushSize, box.bottom - brushSize};
  // One pixel left within counts as nothing.
  if (inner.width() > 1 && inner.height() > 1)
    ring = Region::combined(ring, roundBox(inner, diameter), raster::RegionOp::Diff);
  raster::fillRegion(contextFor(picture, colour), ring);
  return inside(picture, box);
}

Rect fillRectangle(clsDIB& picture, Rect box, Colour colour, int cornerShape) {
  if (picture.empty() || box.empty()) return {};
  const raster::DrawContext context = contextFor(picture, colour);
  const int diameter = cornerDiameter(cornerShape);
  if (diameter == 0) {
    raster::fillRect(context, box);
  } else {
    raster::fillRegion(context, roundBox(box, diameter));
  }
  return inside(picture, box);
}

}  // namespace ruvo::shape
