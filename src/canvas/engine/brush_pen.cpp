#include "canvas/engine/brush_pen.h"

#include <algorithm>

#include "canvas/engine/brush_styles.h"
#include "platform/raster/draw.h"

namespace ruvo::brush {

namespace {

raster::DrawContext penContext(clsDIB& picture, int size, Colour colour, const Rect& visible) {
  raster::DrawContext context(picture.surface());
  context.clip = visible;
  context.pen = raster::Pen::solid(colour, size);
  context.brush = raster::Brush::solid(colour);
  context.alphaFill = picture.DIBhasAlpha();
  return context;
}

// The square of the pen's width; its round end lies inside.
Rect squareAt(Point at, int size) {
  return Rect::fromSize(at.x - size / 2, at.y - size / 2, size, size);
}

Rect visiblePart(const raster::DrawContext& context, const Rect& reached) {
  const Rect part = reached.intersected(context.area());
  return part.empty() ? Rect{} : part;
}

}  // namespace

Rect paintPenMark(clsDIB& picture, Point at, int size, int style, Colour colour, const Rect& visible) {
  if (picture.empty()) return {};
  size = std::max(size, 1);
  const raster::DrawContext context = penContext(picture, size, colour, visible);
  const Rect square = squareAt(at, size);
  if (size == 1 || (style == kNormal && marksAtRelease(size))) {
    raster::fillRect(context, square);
  } else {
    raster::line(context, at, at);
  }
  return visiblePart(context, square);
}

Rect paintPenSegment(clsDIB& picture, Point from, Point to, int size, Colour colour, const Rect& visible) {
  if (picture.empty()) return {};
  size = std::max(size, 1);
  const raster::DrawContext context = penContext(picture, size, colour, visible);
  raster::line(context, from, to);
  // A thin pen leaves out the end point, where the next segment of a stroke would begin.
  if (size == 1) raster::setPixel(context, to.x, to.y, colour);
  // The body of a slanting line reaches a pixel past its round ends.
  const Rect ends = squareAt(from, size).united(squareAt(to, size));
  return visiblePart(context, {ends.left - 1, ends.top - 1, ends.right + 1, ends.bottom + 1});
}

}  // namespace ruvo::brush
