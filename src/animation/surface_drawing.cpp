#include "animation/surface_drawing.h"

#include "animation/model/gif_view.h"

namespace ruvo {

QImage imageOver(const raster::Surface& surface) {
  if (surface.empty() || surface.depth() != 24 || surface.order() != raster::RowOrder::TopDown) return {};
  return QImage(surface.bits(), surface.width(), surface.height(), surface.stride(), QImage::Format_BGR888);
}

void drawSurface(QPainter& painter, const QRect& place, const raster::Surface& surface, const Rect& area) {
  const QImage image = imageOver(surface);
  const Rect seen = area.intersected(surface.bounds());
  if (image.isNull() || seen.empty()) return;
  const qreal across = place.width() / static_cast<qreal>(surface.width());
  const qreal down = place.height() / static_cast<qreal>(surface.height());
  const QRectF target(place.left() + seen.left * across, place.top() + seen.top * down, seen.width() * across,
                      seen.height() * down);
  const qreal scale = painter.device()->devicePixelRatio();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, across * scale < 1 || down * scale < 1);
  painter.drawImage(target, image, QRectF(seen.left, seen.top, seen.width(), seen.height()));
}

QRect centredBox(Size picture, const QRect& room) {
  if (picture.empty() || room.isEmpty()) return {};
  const Size shown = displaySize(picture, {room.width(), room.height()});
  QRect box(0, 0, shown.width, shown.height);
  box.moveCenter(room.center());
  return box;
}

}  // namespace ruvo
