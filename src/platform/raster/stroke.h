// Lines as pixels: thin walks, broken patterns, and the union of spans that a wide pen covers.
#pragma once

#include <span>
#include <vector>

#include "base/geometry.h"
#include "platform/raster/draw_context.h"
#include "platform/raster/region.h"

namespace ruvo::raster {

// Steps of a thin line that can lie in the clip, and the way to walk them. Step i of 0 .. length - 1 lies i pixels
// along the major axis (x when |dx| >= |dy|); the minor coordinate is rounded to nearest, exact halves always down.
class ThinLine {
 public:
  ThinLine(Point from, Point to);

  std::int64_t length() const { return length_; }
  // Calls plot(x, y, step) for every step inside `area`.
  template <typename Plot>
  void walk(const Rect& area, Plot plot) const {
    std::int64_t first, end;
    stepsInside(area, first, end);
    if (first >= end) return;
    const std::int64_t whole = 2 * length_;
    const std::int64_t scaled = 2 * first * minorDelta_ + length_ - 1;
    std::int64_t offset = scaled / whole, rest = scaled % whole;
    if (rest < 0) {
      rest += whole;
      --offset;
    }
    for (std::int64_t i = first; i < end; ++i) {
      const int along = static_cast<int>(majorStart_ + (forward_ ? i : -i));
      const int across = static_cast<int>(minorStart_ + offset);
      const int x = xMajor_ ? along : across, y = xMajor_ ? across : along;
      if (area.contains(x, y)) plot(x, y, i);
      rest += 2 * minorDelta_;
      if (rest >= whole) {
        rest -= whole;
        ++offset;
      } else if (rest < 0) {
        rest += whole;
        --offset;
      }
    }
  }

 private:
  void stepsInside(const Rect& area, std::int64_t& first, std::int64_t& end) const;

  std::int64_t majorStart_;
  std::int64_t minorStart_;
  std::int64_t minorDelta_;
  std::int64_t length_;
  bool xMajor_;
  bool forward_;
};

// Draws the points joined in order with the context's pen. A thin solid or broken pen leaves out the very last point
// and touches a pixel as often as the line passes it, a wide pen touches each pixel once.
void strokePolyline(const DrawContext& context, std::span<const Point> points, bool closed);
// The same with each pixel touched once by a solid pen of any width.
std::vector<Span> strokeSpans(const Rect& area, std::span<const Point> points, bool closed, int width);

// On and off runs of a broken style.
bool penStyleOn(PenStyle style, std::int64_t step);

}  // namespace ruvo::raster
