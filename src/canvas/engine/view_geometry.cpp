#include "canvas/engine/view_geometry.h"

#include <cstdint>

namespace ruvo {
namespace {

// One pixel is free on each side of the control, and one more between the picture and what lies beside it.
constexpr int kMargin = 2;

int shownLength(int room) {
  return std::max(0, room - kMargin);
}
bool fits(int gross, int room) {
  return gross <= room - kMargin;
}

int floorDiv(std::int64_t value, std::int64_t by) {
  const std::int64_t quotient = value / by;
  return static_cast<int>(value % by < 0 ? quotient - 1 : quotient);
}
int ceilDiv(std::int64_t value, std::int64_t by) {
  return -floorDiv(-value, by);
}

// Place and length of the display in one axis when nothing is fitted.
struct Span {
  int start;
  int length;
};
Span place(int gross, int room) {
  if (!fits(gross, room)) return {1, shownLength(room)};
  return {(room - gross) / 2, gross};
}

int maximum(bool bar, int gross, int room) {
  return bar ? std::min(gross - shownLength(room), kScrollBarLimit) : 0;
}

struct PaintSpan {
  int visStart, dst, dstLength, src, srcLength;
};
PaintSpan paintSpan(int scroll, int max, int magnify, int display, int image, bool fitted) {
  const int visStart = scroll / magnify;
  if (fitted || max <= 0) return {visStart, 0, display, 0, image};
  const int whole = display / magnify;
  return {visStart, -scroll % magnify, whole * magnify, visStart, whole};
}

}  // namespace

void ViewGeometry::layout(const ViewLayout& in) {
  client = in.client;
  image = in.image;
  Magnify = std::max(1, in.magnify);
  FitInView = in.fitInView;
  horizontalBar = verticalBar = false;
  horizontalBarRect = verticalBarRect = junctionRect = {};
  const Size room{client.width - kMargin, client.height - kMargin};
  Size left = room;
  const Size whole{image.width * Magnify, image.height * Magnify};
  if (!blank() && !FitInView) {
    // Either bar may force the other, so the vertical one is asked twice.
    verticalBar = !fits(whole.height, left.height);
    if (verticalBar) left.width = room.width - in.bars.width;
    horizontalBar = !fits(whole.width, left.width);
    if (horizontalBar) left.height = room.height - in.bars.height;
    verticalBar = !fits(whole.height, left.height);
    if (verticalBar) left.width = room.width - in.bars.width;
  }
  ScrollMaxX = maximum(horizontalBar, whole.width, left.width);
  ScrollMaxY = maximum(verticalBar, whole.height, left.height);
  if (ScrollX > ScrollMaxX) ScrollX = 0;
  if (ScrollY > ScrollMaxY) ScrollY = 0;

  if (blank()) {
    picDisp = {-5, -5, -5, -5};  // out of the way
  } else if (FitInView) {
    picDisp =
        Rect::fromSize(std::max(1, in.fitted.left), std::max(1, in.fitted.top), in.fitted.width(), in.fitted.height());
  } else {
    const Span x = place(whole.width, left.width);
    const Span y = place(whole.height, left.height);
    picDisp = Rect::fromSize(x.start, y.start, x.length, y.length);
  }
  const int barX = client.width - (verticalBar ? in.bars.width : 0);
  const int barY = client.height - (horizontalBar ? in.bars.height : 0);
  if (horizontalBar) horizontalBarRect = {0, barY, barX, client.height};
  if (verticalBar) verticalBarRect = {barX, 0, client.width, barY};
  if (horizontalBar && verticalBar) junctionRect = {barX, barY, client.width, client.height};
  updatePaintRects();
}

bool ViewGeometry::setScroll(int x, int y) {
  x = std::clamp(x, 0, ScrollMaxX);
  y = std::clamp(y, 0, ScrollMaxY);
  if (x == ScrollX && y == ScrollY) return false;
  ScrollX = x;
  ScrollY = y;
  updatePaintRects();
  return true;
}

void ViewGeometry::updatePaintRects() {
  const PaintSpan x = paintSpan(ScrollX, ScrollMaxX, Magnify, picDisp.width(), image.width, FitInView);
  const PaintSpan y = paintSpan(ScrollY, ScrollMaxY, Magnify, picDisp.height(), image.height, FitInView);
  VisStartX = x.visStart, DstX = x.dst, DstW = x.dstLength, SrcX = x.src, SrcW = x.srcLength;
  VisStartY = y.visStart, DstY = y.dst, DstH = y.dstLength, SrcY = y.src, SrcH = y.srcLength;
}

Size ViewGeometry::gross() const {
  if (FitInView) return displaySize();
  return {image.width * Magnify, image.height * Magnify};
}

Point ViewGeometry::toImage(Point display) const {
  if (FitInView) {
    const Size shown = displaySize();
    if (shown.empty()) return {-1, -1};
    return {floorDiv(std::int64_t{display.x} * image.width, shown.width),
            floorDiv(std::int64_t{display.y} * image.height, shown.height)};
  }
  return {VisStartX + floorDiv(display.x - DstX, Magnify), VisStartY + floorDiv(display.y - DstY, Magnify)};
}

Point ViewGeometry::toDisplay(Point imagePoint) const {
  if (FitInView) {
    if (image.empty()) return {};
    return {floorDiv(std::int64_t{imagePoint.x} * picDisp.width(), image.width),
            floorDiv(std::int64_t{imagePoint.y} * picDisp.height(), image.height)};
  }
  return {(imagePoint.x - VisStartX) * Magnify + DstX, (imagePoint.y - VisStartY) * Magnify + DstY};
}

Rect ViewGeometry::toDisplay(const Rect& imageRect) const {
  const Rect view{0, 0, picDisp.width(), picDisp.height()};
  if (imageRect.empty() || blank()) return {};
  const Point topLeft = toDisplay(Point{imageRect.left, imageRect.top});
  if (!FitInView) {
    const Point bottomRight = toDisplay(Point{imageRect.right, imageRect.bottom});
    return view.intersected({topLeft.x, topLeft.y, bottomRight.x, bottomRight.y});
  }
  const int right = ceilDiv(std::int64_t{imageRect.right} * picDisp.width(), image.width);
  const int bottom = ceilDiv(std::int64_t{imageRect.bottom} * picDisp.height(), image.height);
  return view.intersected({topLeft.x - 1, topLeft.y - 1, right + 1, bottom + 1});
}

Rect ViewGeometry::visibleImage() const {
  const Rect whole{0, 0, image.width, image.height};
  const Size shown = displaySize();
  if (FitInView || shown.empty()) return shown.empty() ? Rect{} : whole;
  const Point last = toImage({shown.width - 1, shown.height - 1});
  return whole.intersected({VisStartX, VisStartY, last.x + 1, last.y + 1});
}

void ViewGeometry::visibleInfo(int& x1, int& y1, int& x2, int& y2) const {
  x1 = VisStartX;
  y1 = VisStartY;
  x2 = FitInView ? image.width - 1 : picDisp.width() / Magnify + x1 - 1;
  y2 = FitInView ? image.height - 1 : picDisp.height() / Magnify + y1 - 1;
}

}  // namespace ruvo
