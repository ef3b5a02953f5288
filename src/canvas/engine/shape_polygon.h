// Polygons: the corners of the automatic figure, the pixels of a figure, painting it and cutting it out. All points are
// picture coordinates.
#pragma once

#include <span>
#include <vector>

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"
#include "platform/raster/region.h"

namespace ruvo::shape {

// More corners than this no polygon has.
inline constexpr int kMaxPolygonVertices = 1000;

// A regular figure, or a star.
struct AutomaticPolygon {
  int points = 3;      // vertices; a star has as many again between them
  double radius = 50;  // pixels from the centre to a vertex
  // 1 for straight sides. Otherwise the corners between the vertices lie at radius x factor; factors below 1 with fewer
  // than 9 points count as factor x points / 10.
  double concaveFactor = 1;
  int angle = 0;  // degrees by which the figure is turned anticlockwise; at 0 a vertex points upwards
};

// A corner as its distance from the centre, y downwards.
struct PolygonCorner {
  double x = 0;
  double y = 0;
};

// The corners in order, anticlockwise; none for a radius or a number of points below 1, or too many corners.
std::vector<PolygonCorner> polygonCorners(const AutomaticPolygon& polygon);

enum class PolygonInk { Outline, Filled, Clear };

// What an operation does to a picture. Empty pixels mean that there is nothing to draw.
struct PolygonFigure {
  raster::Region pixels;  // what is painted
  raster::Region shape;   // what the cut-out keeps; pixels lie in it
  Rect cutOut;            // the part of the picture that is cut out; may reach outside
};

// The figure around a pixel. Its outline goes inwards from the corners, as thick as the brush, but 2 for a brush of 1; a
// brush as thick as the radius gives a solid figure. The cut-out is a square that leaves four pixels around the radius.
PolygonFigure automaticFigure(Point centre, const AutomaticPolygon& polygon, PolygonInk ink, int brushSize);

// The figure with these vertices, closed. It may cross itself: what it winds round is inside. Its outline is drawn by a
// round pen of the brush's size along the middle of the edges; a single point gives the mark of the pen. The cut-out is
// the smallest rectangle with all vertices; the outline is cut there.
PolygonFigure figureByHand(std::span<const Point> vertices, PolygonInk ink, int brushSize);

// Paints the figure's pixels and returns the rectangle of the picture that holds them, empty when all lie outside.
Rect paintPolygon(clsDIB& picture, const PolygonFigure& figure, Colour colour);

// The figure's cut-out of the picture at 32 bits, with the figure painted in it: `outside` around the figure's shape and
// where there is no picture. Empty when that would be larger than pictures may be, or without memory.
clsDIB cutOutPolygon(const clsDIB& picture, const PolygonFigure& figure, Colour colour, Colour outside);

}  // namespace ruvo::shape
