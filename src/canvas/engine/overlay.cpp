#include "canvas/engine/overlay.h"

#include <algorithm>
#include <cstring>
#include <unordered_set>

#include "platform/raster/shape_rows.h"
#include "platform/raster/stroke.h"
#include "platform/raster/surface.h"

namespace ruvo {
namespace {

using Kind = OverlayFigure::Kind;

// Calls plot(x, y, step) for the pixels of a polyline in `area`, joints once; step counts along the whole figure.
template <typename Plot>
void walkPolyline(const std::vector<Point>& points, const Rect& area, Plot plot) {
  if (points.empty()) return;
  std::int64_t before = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const raster::ThinLine line(points[i - 1], points[i]);
    line.walk(area, [&](int x, int y, std::int64_t step) { plot(x, y, before + step); });
    before += line.length();
  }
  const Point last = points.back();
  const bool closed = points.size() > 2 && last == points.front();
  if (!closed && area.contains(last.x, last.y)) plot(last.x, last.y, before);
}

std::vector<Point> cornersOf(const Rect& box) {
  const int right = box.right - 1, bottom = box.bottom - 1;
  if (box.width() == 1 || box.height() == 1) return {{box.left, box.top}, {right, bottom}};
  return {{box.left, box.top}, {right, box.top}, {right, bottom}, {box.left, bottom}, {box.left, box.top}};
}

template <typename Plot>
void walkOutline(const OverlayFigure& figure, const Rect& area, Plot plot) {
  const Rect& box = figure.box;
  if (figure.kind == Kind::Polyline) return walkPolyline(figure.points, area, plot);
  if (box.empty()) return;
  if (figure.kind != Kind::Ellipse || box.width() <= 2 || box.height() <= 2)
    return walkPolyline(cornersOf(box), area, plot);
  std::int64_t step = 0;
  for (const Point& p : raster::outlineRing(box.width(), box.height(), box.width(), box.height())) {
    const int x = box.left + p.x, y = box.top + p.y;
    if (area.contains(x, y)) plot(x, y, step);
    ++step;
  }
}

class Canvas {
 public:
  Canvas(const Rect& area, RenderTarget target) : area_(area), target_(target) {}

  const Rect& area() const { return area_; }
  std::uint8_t* at(int x, int y) const {
    return target_.pixels + (y - area_.top) * target_.stride + static_cast<std::ptrdiff_t>(x - area_.left) * 4;
  }
  void put(int x, int y, Colour colour) const {
    const std::uint8_t pixel[4] = {blueOf(colour), greenOf(colour), redOf(colour), 255};
    std::memcpy(at(x, y), pixel, sizeof pixel);
  }
  void fill(const raster::Span& span, Colour colour) const {
    if (span.y < area_.top || span.y >= area_.bottom) return;
    const int right = std::min(span.right, area_.right);
    for (int x = std::max(span.left, area_.left); x < right; ++x) put(x, span.y, colour);
  }
  void invert(int x, int y) const {
    std::uint8_t* pixel = at(x, y);
    for (int i = 0; i < 3; ++i) pixel[i] = static_cast<std::uint8_t>(~pixel[i]);
  }

 private:
  Rect area_;
  RenderTarget target_;
};

void paintOutline(const OverlayFigure& figure, const Canvas& canvas) {
  const OverlayPen& pen = figure.pen;
  walkOutline(figure, canvas.area(), [&](int x, int y, std::int64_t step) {
    const bool on = pen.dash <= 0 || ((step + pen.phase) / pen.dash) % 2 == 0;
    if (!pen.invert) {
      canvas.put(x, y, on ? pen.on : pen.off);
    } else if (on) {
      canvas.invert(x, y);
    }
  });
}

void paintPicture(const OverlayFigure& figure, const Canvas& canvas) {
  const raster::Surface& picture = *figure.picture;
  const Point corner{figure.box.left, figure.box.top};
  const Rect whole = Rect::fromSize(corner.x, corner.y, picture.width(), picture.height());
  const Rect part = whole.intersected(figure.box).intersected(canvas.area());
  for (int y = part.top; y < part.bottom; ++y) {
    const auto* from = reinterpret_cast<const Pixel32*>(picture.pictureRow(y - corner.y));
    const auto* mask =
        figure.mask ? reinterpret_cast<const Pixel32*>(figure.mask->pictureRow(y - corner.y)) : nullptr;
    for (int x = part.left; x < part.right; ++x) {
      const int column = x - corner.x;
      if (!mask || mask[column].colour() != kWhite) canvas.put(x, y, from[column].colour());
    }
  }
}

void paintFigure(const OverlayFigure& figure, const Canvas& canvas) {
  const Rect& box = figure.box;
  switch (figure.kind) {
    case Kind::Disc:
      for (const raster::Span& span : raster::ellipseSpans(box.left, box.top, box.width(), box.height()))
        canvas.fill(span, figure.pen.on);
      return;
    case Kind::Box:
      for (int y = box.top; y < box.bottom; ++y) canvas.fill({y, box.left, box.right}, figure.pen.on);
      walkOutline(figure, canvas.area(), [&](int x, int y, std::int64_t) { canvas.put(x, y, figure.pen.off); });
      return;
    case Kind::Picture:
      if (figure.picture) paintPicture(figure, canvas);
      return;
    default:
      paintOutline(figure, canvas);
  }
}

}  // namespace

void paintOverlay(const OverlayFigures& figures, const Rect& area, RenderTarget target) {
  if (area.empty()) return;
  const Canvas canvas(area, target);
  for (const OverlayFigure& figure : figures) paintFigure(figure, canvas);
}

void forTouchedParts(const OverlayFigure& figure, const Rect& view, const std::function<void(const Rect&)>& touched) {
  const auto tell = [&](const Rect& part) {
    const Rect seen = part.intersected(view);
    if (!seen.empty()) touched(seen);
  };
  const Rect& box = figure.box;
  if (figure.kind == Kind::Rectangle) {
    if (box.empty()) return;
    tell({box.left, box.top, box.right, box.top + 1});
    tell({box.left, box.bottom - 1, box.right, box.bottom});
    tell({box.left, box.top, box.left + 1, box.bottom});
    tell({box.right - 1, box.top, box.right, box.bottom});
    return;
  }
  if (figure.kind != Kind::Polyline && figure.kind != Kind::Ellipse) return tell(box);
  // Curves and slanting lines: the tiles that they pass.
  constexpr int kTile = 32;
  std::unordered_set<std::int64_t> tiles;
  walkOutline(figure, view, [&](int x, int y, std::int64_t) {
    const int column = x / kTile, row = y / kTile;
    if (tiles.insert((std::int64_t{row} << 32) | column).second)
      tell(Rect::fromSize(column * kTile, row * kTile, kTile, kTile));
  });
}

}  // namespace ruvo
