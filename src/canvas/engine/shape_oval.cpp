#include "canvas/engine/shape_oval.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "canvas/engine/soft_pixels.h"
#include "platform/raster/draw.h"
#include "platform/raster/shape_rows.h"

namespace ruvo::shape {
namespace {

Rect fill(clsDIB& picture, std::vector<raster::Span> spans, const Rect& box, Colour colour) {
  raster::DrawContext context(picture.surface());
  context.brush = raster::Brush::solid(colour);
  context.alphaFill = picture.DIBhasAlpha();
  raster::fillRegion(context, raster::Region::ofSpans(std::move(spans)));
  const Rect changed = box.intersected(context.area());
  return changed.empty() ? Rect{} : changed;
}

// The column at which the inside of a thin ring begins in each row; `width` where the ring closes it. Empty when there
// is no inside.
std::vector<int> insideOfRing(int width, int height) {
  if (width <= 2 || height <= 2) return {};
  std::vector<int> first(static_cast<std::size_t>(height), width);
  const std::vector<int> rows = raster::ellipseRows(width, height);
  for (int row = 1; row < height - 1; ++row) {
    const int fromEdge = std::min(row, height - 1 - row);
    const int left = rows[static_cast<std::size_t>(fromEdge)], above = rows[static_cast<std::size_t>(fromEdge - 1)];
    if (left == raster::kRowNotReached || above == raster::kRowNotReached) continue;
    // The ring goes on in a row up to where the row before it begins.
    first[static_cast<std::size_t>(row)] = std::max(left + 1, above);
  }
  return first;
}

// All between the outermost and the innermost ring: rings drawn one by one leave holes where they are slanting.
std::vector<raster::Span> ringSpans(const Rect& box, int size) {
  const std::vector<raster::Span> outer = raster::ellipseSpans(box.left, box.top, box.width(), box.height());
  const int inset = std::min(size - 1, std::max(box.width(), box.height()));
  const std::vector<int> inside = insideOfRing(box.width() - 2 * inset, box.height() - 2 * inset);
  std::vector<raster::Span> spans;
  spans.reserve(2 * outer.size());
  for (const raster::Span& row : outer) {
    const int inner = row.y - box.top - inset;
    const bool hollow = inner >= 0 && inner < static_cast<int>(inside.size());
    const int left = hollow ? box.left + inset + inside[static_cast<std::size_t>(inner)] : box.right;
    const int right = box.left + box.right - left;
    if (left < right) {
      spans.push_back({row.y, row.left, left});
      spans.push_back({row.y, right, row.right});
    } else {
      spans.push_back(row);
    }
  }
  return spans;
}

// The band between an ellipse and the one that lies `size` pixels further in, cut into thin lines; a pixel is covered
// by as much of the lines as lies in it.
class SoftBand {
 public:
  SoftBand(const Rect& box, int size)
      : box_(box), size_(size), middle_((static_cast<double>(box.left) + box.right) / 2) {}

  void enterRow(int y) {
    const double a = box_.width() / 2.0, b = box_.height() / 2.0;
    const double middle = (static_cast<double>(box_.top) + box_.bottom) / 2;
    farthest_ = 0;
    nearest_ = a;
    for (std::size_t i = 0; i < kLines; ++i) {
      const double down = y + (static_cast<double>(i) + 0.5) / kLines - middle;
      outer_[i] = halfWidth(a, b, down);
      inner_[i] = halfWidth(a - size_, b - size_, down);
      farthest_ = std::max(farthest_, outer_[i]);
      nearest_ = std::min(nearest_, inner_[i]);
    }
  }
  // Columns of the left half that the band can touch in this row.
  int first() const { return static_cast<int>(std::floor(middle_ - farthest_)); }
  int last() const { return static_cast<int>(std::floor(std::min(middle_ - nearest_, middle_ - 0.5))); }

  // 0 to 255, of a pixel in this row.
  int coverage(int x) const {
    double sum = 0;
    for (std::size_t i = 0; i < kLines; ++i) {
      sum += inside(x, middle_ - outer_[i], middle_ - inner_[i]) + inside(x, middle_ + inner_[i], middle_ + outer_[i]);
    }
    return static_cast<int>(std::lround(sum * 255 / kLines));
  }

 private:
  static constexpr std::size_t kLines = 16;

  static double halfWidth(double a, double b, double down) {
    if (a <= 0 || b <= 0 || std::abs(down) >= b) return 0;
    return a * std::sqrt(1 - down / b * (down / b));
  }
  static double inside(int x, double left, double right) {
    return std::max(0.0, std::min(x + 1.0, right) - std::max<double>(x, left));
  }

  Rect box_;
  int size_;
  double middle_;
  double farthest_ = 0, nearest_ = 0;
  std::array<double, kLines> outer_{}, inner_{};
};

// The ring routine with soft edges. `solid` (left columns of the box's rows) keeps it off what lies in them already.
Rect softRing(clsDIB& picture, const Rect& box, Colour colour, int size, const std::vector<raster::Span>* solid) {
  SoftPixels pixels(picture, colour);
  SoftBand band(box, size);
  const Rect rows = box.intersected(picture.surface().bounds());
  for (int y = rows.top; y < rows.bottom; ++y) {
    band.enterRow(y);
    int last = band.last();
    if (solid) last = std::min(last, (*solid)[static_cast<std::size_t>(y - box.top)].left - 1);
    for (int x = band.first(); x <= last; ++x) {
      const int coverage = band.coverage(x), mirrored = box.left + box.right - 1 - x;
      pixels.cover(x, y, coverage);
      if (mirrored != x) pixels.cover(mirrored, y, coverage);
    }
  }
  return pixels.changed();
}

}  // namespace

Rect drawOval(clsDIB& picture, const Rect& box, Colour colour, int size, int enhancement) {
  if (picture.empty() || box.empty() || raster::ellipseRows(box.width(), box.height()).empty()) return {};
  size = std::max(size, 1);
  if (enhancement != kNormalOval) return softRing(picture, box, colour, size, nullptr);
  return fill(picture, ringSpans(box, size), box, colour);
}

Rect fillOval(clsDIB& picture, const Rect& box, Colour colour, int enhancement) {
  if (picture.empty() || box.empty()) return {};
  std::vector<raster::Span> spans = raster::ellipseSpans(box.left, box.top, box.width(), box.height());
  if (spans.empty()) return {};
  if (enhancement == kNormalOval) return fill(picture, std::move(spans), box, colour);
  const Rect rim = softRing(picture, box, colour, 2, &spans);
  return fill(picture, std::move(spans), box, colour).united(rim);
}

}  // namespace ruvo::shape
