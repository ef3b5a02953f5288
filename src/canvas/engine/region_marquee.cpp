#include "canvas/engine/region_marquee.h"

#include <algorithm>

namespace ruvo {
namespace {

constexpr Colour kLightGrey = rgb(192, 192, 192), kDarkGrey = rgb(96, 96, 96), kMiddleGrey = rgb(128, 128, 128);

bool near(int edge, int at, int scale) {
  return at >= edge - kEdgeReachBefore * scale && at <= edge + kEdgeReachAfter * scale;
}

}  // namespace

OverlayFigure DrawAnts(OverlayFigure::Kind kind, const Rect& box, Colour colour1, Colour colour2, int phase) {
  OverlayPen pen;
  pen.invert = false;
  pen.on = colour1;
  pen.off = colour2;
  pen.dash = kAntLength;
  pen.phase = phase;
  return OverlayFigure::shape(kind, box, pen);
}

OverlayFigure DrawRegionMarquee(const Rect& display, const MarqueeStyle& style) {
  const auto kind = style.oval ? OverlayFigure::Kind::Ellipse : OverlayFigure::Kind::Rectangle;
  if (style.suspended) return OverlayFigure::shape(kind, display, OverlayPen::inverted());
  // A phase further, each dash lies where a gap was.
  const int turn = style.phase % 2 * kAntLength;
  if (style.alternative) return DrawAnts(kind, display, kLightGrey, kDarkGrey, turn);
  if (style.oval) return DrawAnts(kind, display, kMiddleGrey, style.phase % 2 ? kWhite : kBlack, style.phase % 8);
  OverlayPen pen = OverlayPen::dotted();
  pen.dash = kAntLength;
  pen.phase = turn;
  return OverlayFigure::shape(kind, display, pen);
}

CanvasEdge edgeAt(const Rect& display, Point at, bool oval, int scale) {
  // Inclusive, as the pixels of the marquee lie.
  const int right = display.right - 1, bottom = display.bottom - 1;
  const int slackX = oval ? display.width() / 4 : 0, slackY = oval ? display.height() / 4 : 0;
  const bool alongX = at.x >= display.left + slackX && at.x <= right - slackX;
  const bool alongY = at.y >= display.top + slackY && at.y <= bottom - slackY;
  const bool movableX = display.width() > kLeastEdgeDistance, movableY = display.height() > kLeastEdgeDistance;
  if (movableY && alongX && near(display.top, at.y, scale)) return CanvasEdge::Top;
  if (movableX && alongY && near(right, at.x, scale)) return CanvasEdge::Right;
  if (movableY && alongX && near(bottom, at.y, scale)) return CanvasEdge::Bottom;
  if (movableX && alongY && near(display.left, at.x, scale)) return CanvasEdge::Left;
  return CanvasEdge::None;
}

Rect withEdgeMoved(const Rect& box, CanvasEdge edge, Point travel, const Rect& allowed, int magnify) {
  Rect moved = box;
  if (edge == CanvasEdge::Top) moved.top = std::clamp(box.top + travel.y, allowed.top, allowed.bottom - 1);
  if (edge == CanvasEdge::Bottom) moved.bottom = std::clamp(box.bottom + travel.y, allowed.top + 1, allowed.bottom);
  if (edge == CanvasEdge::Left) moved.left = std::clamp(box.left + travel.x, allowed.left, allowed.right - 1);
  if (edge == CanvasEdge::Right) moved.right = std::clamp(box.right + travel.x, allowed.left + 1, allowed.right);
  const bool across = edge == CanvasEdge::Left || edge == CanvasEdge::Right;
  const int extent = across ? moved.width() : moved.height();
  return extent < kSmallestRegion || extent * magnify <= kLeastEdgeDistance ? box : moved;
}

}  // namespace ruvo
