// The band that is drawn out over the picture while a shape is made: where its ends come to lie, and what the keys do to
// them. All in display pixels; `magnify` is 1 or more.
//
// The grid of image pixels need not begin at display pixel 0 in a scrolled view. Where the view is given, the snaps follow
// it, and a constrained end keeps whole image pixels away from its anchor; so an anchor on the grid gives an end on it.
#pragma once

#include "base/geometry.h"
#include "canvas/engine/view_geometry.h"

namespace ruvo::shape {

// The middle of an image pixel as the view shows it.
Point middleOf(const ViewGeometry& view, Point image);

// The end that makes both sides from `anchor` equal: the smaller extent counts, each axis keeps its direction, and both
// sides give up what would pass the limits of the display. Sides are whole multiples of `magnify`.
Point constrainedBox(Point anchor, Point end, Size display, int magnify);
// For lines: along the axis of the larger extent when the other is less than half of it, otherwise as constrainedBox.
Point constrainedLine(Point anchor, Point end, Size display, int magnify);

}  // namespace ruvo::shape
