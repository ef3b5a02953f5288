// Sets of pixels as rows of spans.
#pragma once

#include <span>
#include <vector>

#include "base/geometry.h"
#include "platform/raster/draw_context.h"

namespace ruvo::raster {

// The pixels left .. right - 1 of row y.
struct Span {
  int y = 0;
  int left = 0;
  int right = 0;
  friend bool operator==(const Span&, const Span&) = default;
};

enum class RegionOp { And = 1, Or = 2, Xor = 3, Diff = 4 };

// Corners may come in any order. Memory and time grow with the height.
class Region {
 public:
  Region() = default;
  // From spans in any order that may overlap.
  static Region ofSpans(std::vector<Span> spans);
  // [left, right) x [top, bottom).
  static Region rect(Rect corners);
  // The ellipse that fills (width - 1) x (height - 1) pixels of the box.
  static Region ellipse(Rect corners);
  // (width - 1) x (height - 1) pixels whose corners are quarters of an ellipse of that many pixels.
  static Region roundRect(Rect corners, int ellipseWidth, int ellipseHeight);
  // Left and top edges belong to it, right and bottom ones do not.
  static Region polygon(std::span<const Point> points, FillMode mode = FillMode::Alternate);
  static Region combined(const Region& a, const Region& b, RegionOp op);

  bool empty() const { return spans_.empty(); }
  bool contains(int x, int y) const;
  // The smallest rectangle that holds all of it.
  Rect bounds() const;
  void offset(int dx, int dy);
  // In rows from the top, from the left in a row; spans of one row neither overlap nor touch.
  std::span<const Span> spans() const { return spans_; }
  // Those of one row.
  std::span<const Span> row(int y) const;

 private:
  std::vector<Span> spans_;
};

}  // namespace ruvo::raster
