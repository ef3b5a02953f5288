// What tools draw over the picture on the display only: rubber bands, marquees, handles, the lens. A tool lists figures;
// the canvas paints them after the picture and repaints just the pixels of those that came or went.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "base/colour.h"
#include "base/geometry.h"
#include "canvas/engine/view_render.h"

namespace ruvo {

// How the lines of a figure look. Lines are one device pixel thin.
struct OverlayPen {
  bool invert = true;      // inverts what lies below, once a pixel of a figure; otherwise the colours are painted
  Colour on = kBlack;      // dashes, or the whole line
  Colour off = kWhite;     // gaps of a line that is not inverted
  int dash = 0;            // length of dashes and of gaps in pixels along the figure; 0 for a whole line
  int phase = 0;           // pixels by which the dashes are moved along the figure
  friend bool operator==(const OverlayPen&, const OverlayPen&) = default;

  static OverlayPen inverted() { return {}; }
  static OverlayPen dotted() {
    OverlayPen pen;
    pen.dash = 1;
    return pen;
  }
};

// A figure in display pixels.
struct OverlayFigure {
  enum class Kind {
    Polyline,   // the points joined in order, both ends included
    Rectangle,  // the frame inside the box
    Ellipse,    // the thin outline that touches all four sides of the box
    Disc,       // the same ellipse filled with pen.on
    Box,        // filled with pen.on, framed with pen.off
    Picture,    // `picture` at the box's corner, but for the pixels where `mask` is white
  };

  Kind kind = Kind::Polyline;
  OverlayPen pen;
  std::vector<Point> points;  // of a polyline
  Rect box;                   // of all others: [left, right) x [top, bottom)
  // 32 bits each and of one size; both live until the tool lists its figures anew. The mask may be missing.
  const raster::Surface* picture = nullptr;
  const raster::Surface* mask = nullptr;
  std::uint64_t revision = 0;  // another number when the pixels of `picture` changed

  static OverlayFigure line(Point from, Point to, OverlayPen pen = {}) { return polyline({from, to}, pen); }
  static OverlayFigure polyline(std::vector<Point> points, OverlayPen pen = {}) {
    OverlayFigure figure;
    figure.pen = pen;
    figure.points = std::move(points);
    return figure;
  }
  static OverlayFigure shape(Kind kind, Rect box, OverlayPen pen = {}) {
    OverlayFigure figure;
    figure.kind = kind;
    figure.pen = pen;
    figure.box = box;
    return figure;
  }

  friend bool operator==(const OverlayFigure&, const OverlayFigure&) = default;
};

using OverlayFigures = std::vector<OverlayFigure>;

// Paints the part of the figures that lies in `area` (display pixels) on pixels that show that area.
void paintOverlay(const OverlayFigures& figures, const Rect& area, RenderTarget target);

// Calls `touched` with rectangles that together hold every pixel of the figure inside `view`, and few others.
void forTouchedParts(const OverlayFigure& figure, const Rect& view, const std::function<void(const Rect&)>& touched);

}  // namespace ruvo
