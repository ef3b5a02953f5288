// The Bezier curve of the canvas: four nodes in image pixels, two of them the ends.
#pragma once

#include <array>

#include "base/colour.h"
#include "base/geometry.h"
#include "canvas/engine/view_geometry.h"
#include "image/clsDIB.h"

namespace ruvo::shape {

using BezierNodes = std::array<Point, 4>;

// Shorter ones are no curves: their nodes would lie on each other.
inline constexpr int kShortestBezier = 20;

bool longEnough(Point start, Point end);

// Puts the two middle nodes at one and two thirds of the way between the ends; a third is rounded to whole pixels.
void NodesOnThirds(BezierNodes& nodes);

struct BezierLook {
  int type = 0;  // 0 an open curve, 1 a closed and filled one
  Colour ink = kBlack;
  Colour fill = kWhite;
  int width = 1;  // below 1 counts as 1
};

// Draws the curve on a picture; the closed one is filled, and outlined with its closing line. A pen of one pixel leaves
// out the end of an open curve. Returns the changed rectangle.
Rect drawBezier(clsDIB& picture, const BezierNodes& nodes, const BezierLook& look);

// Where the squares that stand for the nodes (imgNode) lie on the display: the node's place less half the side.
std::array<Rect, 4> updateBezierNodePositions(const BezierNodes& nodes, const ViewGeometry& view, int side);

}  // namespace ruvo::shape
