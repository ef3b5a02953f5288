// The marquee of a region: how it looks, and where its edges can be caught. Rectangles are half-open; "display" ones may
// reach outside the view.
#pragma once

#include "canvas/engine/edge_drag.h"
#include "canvas/engine/overlay.h"

namespace ruvo {

inline constexpr int kAntLength = 4;
// How far from an edge's line of pixels the pointer may be to catch it: to smaller and to larger coordinates.
inline constexpr int kEdgeReachBefore = 4, kEdgeReachAfter = 7;
// Opposite edges stay more than this apart on the display.
inline constexpr int kLeastEdgeDistance = 15;
// A marquee whose width or height is smaller in image pixels does not come into being.
inline constexpr int kSmallestRegion = 2;

struct MarqueeStyle {
  bool oval = false;
  bool suspended = false;    // a whole line that stands still
  bool alternative = false;  // two greys instead of inverted pixels
  int phase = 0;             // MarqueePhase, counted by the ticks
};

// A closed chain of dashes around the box, in turns of two colours.
OverlayFigure DrawAnts(OverlayFigure::Kind kind, const Rect& box, Colour colour1, Colour colour2, int phase);
OverlayFigure DrawRegionMarquee(const Rect& display, const MarqueeStyle& style);

// The edge at a display point: top first, then right, bottom, left. Of an oval only the middle half of each side can be
// caught, where it runs near its box. Edges that are too near to each other to be moved are left alone. `scale` makes
// the reach larger on dense screens.
CanvasEdge edgeAt(const Rect& display, Point at, bool oval, int scale);
// The box with one edge moved by whole image pixels: held within `allowed` (image pixels), and as it was when the edges
// would come too near at `magnify`.
Rect withEdgeMoved(const Rect& box, CanvasEdge edge, Point travel, const Rect& allowed, int magnify);

}  // namespace ruvo
