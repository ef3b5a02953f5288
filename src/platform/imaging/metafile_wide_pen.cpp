#include "platform/imaging/metafile_wide_pen.h"

#include "platform/raster/shape_rows.h"

namespace ruvo::imaging::meta {
namespace {

constexpr std::size_t kBatch = 1000000;

PointF operator+(PointF a, PointF b) {
  return {a.x + b.x, a.y + b.y};
}
PointF operator-(PointF a, PointF b) {
  return {a.x - b.x, a.y - b.y};
}
PointF operator*(PointF a, double k) {
  return {a.x * k, a.y * k};
}
double cross(PointF a, PointF b) {
  return a.x * b.y - a.y * b.x;
}
double dot(PointF a, PointF b) {
  return a.x * b.x + a.y * b.y;
}

// The union of the convex pieces that a stroke is made of.
class Pieces {
 public:
  Pieces(const Rect& area, int width, const std::function<void(std::span<const raster::Span>)>& sink)
      : area_(area), disc_(raster::wholeEllipseRows(width, width)), sink_(sink) {}
  ~Pieces() { flush(); }
  Pieces(const Pieces&) = delete;
  Pieces& operator=(const Pieces&) = delete;

  void polygon(std::initializer_list<PointF> corners) {
    std::vector<Point> points;
    for (const PointF& p : corners) points.push_back(toPixel(p));
    add(raster::polygonSpans(points, raster::FillMode::Winding, area_.top, area_.bottom));
  }
  // Of the pen's width. Only rows inside the area are looked at: the disc may be far larger.
  void disc(PointF centre) {
    const int size = static_cast<int>(disc_.size());
    const Point corner = toPixel(centre - PointF{size / 2.0, size / 2.0});
    const int top = std::max(corner.y, area_.top), bottom = std::min(corner.y + size, area_.bottom);
    for (int y = top; y < bottom; ++y) {
      const int inset = disc_[static_cast<std::size_t>(y - corner.y)];
      spans_.push_back({y, corner.x + inset, corner.x + size - inset});
    }
    if (spans_.size() > kBatch) flush();
  }

 private:
  void add(const std::vector<raster::Span>& spans) {
    spans_.insert(spans_.end(), spans.begin(), spans.end());
    if (spans_.size() > kBatch) flush();
  }
  void flush() {
    raster::normalise(spans_);
    sink_(spans_);
    spans_.clear();
  }

  Rect area_;
  std::vector<int> disc_;  // the left column of each row
  const std::function<void(std::span<const raster::Span>)>& sink_;
  std::vector<raster::Span> spans_;
};

class Stroker {
 public:
  Stroker(Pieces& pieces, const WidePen& pen) : pieces_(pieces), pen_(pen), half_(pen.width / 2) {}

  void line(const Subpath& path) {
    std::vector<PointF> points;
    for (const Point& p : path.points) {
      const PointF place{static_cast<double>(p.x), static_cast<double>(p.y)};
      if (points.empty() || points.back().x != place.x || points.back().y != place.y) points.push_back(place);
    }
    bool closed = path.closed;
    if (closed && points.size() > 1 && dot(points.front() - points.back(), points.front() - points.back()) == 0) {
      points.pop_back();
    }
    if (points.size() < 2) return dotAt(points.front());
    const std::size_t n = points.size(), segments = closed ? n : n - 1;
    for (std::size_t i = 0; i < segments; ++i) {
      const bool starts = !closed && i == 0, ends = !closed && i + 1 == segments;
      segment(points[i], points[(i + 1) % n], starts, ends);
      if (!ends) corner(points[i], points[(i + 1) % n], points[(i + 2) % n]);
    }
  }

 private:
  static PointF direction(PointF a, PointF b) {
    const PointF d = b - a;
    return d * (1 / std::sqrt(dot(d, d)));
  }

  void dotAt(PointF p) {
    if (pen_.cap == Cap::Round) pieces_.disc(p);
    if (pen_.cap == Cap::Square) {
      pieces_.polygon(
          {p + PointF{-half_, -half_}, p + PointF{half_, -half_}, p + PointF{half_, half_}, p + PointF{-half_, half_}});
    }
  }

  void segment(PointF a, PointF b, bool starts, bool ends) {
    const PointF along = direction(a, b), across{-along.y * half_, along.x * half_};
    if (pen_.cap == Cap::Round) {
      if (starts) pieces_.disc(a);
      if (ends) pieces_.disc(b);
    } else if (pen_.cap == Cap::Square) {
      if (starts) a = a - along * half_;
      if (ends) b = b + along * half_;
    }
    pieces_.polygon({a + across, b + across, b - across, a - across});
  }

  void corner(PointF a, PointF b, PointF c) {
    if (pen_.join == Join::Round) return pieces_.disc(b);
    const PointF in = direction(a, b), out = direction(b, c);
    const double turn = cross(in, out), cosine = dot(in, out);
    if (std::abs(turn) < 1e-6 && cosine > 0) return;
    const double side = turn > 0 ? -half_ : half_;
    const PointF p = b + PointF{-in.y, in.x} * side, q = b + PointF{-out.y, out.x} * side;
    // The miter is 1 / sin(angle / 2) widths long, and the angle between the sides is what the turn leaves of a half
    // circle.
    const double halfSine = std::sqrt(std::max(0.0, (1 + cosine) / 2));
    if (pen_.join == Join::Miter && halfSine > 1e-6 && 1 / halfSine <= pen_.miterLimit) {
      const PointF middle = (p - b) + (q - b);
      const PointF tip = b + middle * (half_ / halfSine / std::sqrt(dot(middle, middle)));
      pieces_.polygon({b, p, tip, q});
    } else {
      pieces_.polygon({b, p, q});
    }
  }

  Pieces& pieces_;
  const WidePen& pen_;
  double half_;
};

}  // namespace

void widePenSpans(const Subpath& line, const WidePen& pen, const Rect& area,
                  const std::function<void(std::span<const raster::Span>)>& sink) {
  Pieces pieces(area, static_cast<int>(pen.width), sink);
  if (!line.points.empty()) Stroker(pieces, pen).line(line);
}

Outline dashed(const Outline& outline, std::span<const double> lengths) {
  Outline pieces;
  for (const Subpath& part : outline) {
    const std::size_t n = part.points.size();
    if (n < 2) continue;
    std::size_t run = 0;
    double left = lengths[0];
    pieces.push_back({{part.points[0]}, false});
    for (std::size_t i = 0; i + 1 < n + (part.closed ? 1 : 0); ++i) {
      const Point a = part.points[i], b = part.points[(i + 1) % n];
      const double length = std::hypot(static_cast<double>(b.x) - a.x, static_cast<double>(b.y) - a.y);
      double done = 0;
      while (length - done > left) {
        done += left;
        const double at = done / length;
        const Point p =
            toPixel(PointF{a.x + at * (static_cast<double>(b.x) - a.x), a.y + at * (static_cast<double>(b.y) - a.y)});
        if (run % 2 == 0) {
          pieces.back().points.push_back(p);
        } else {
          pieces.push_back({{p}, false});
        }
        run = (run + 1) % lengths.size();
        left = lengths[run];
      }
      left -= length - done;
      if (run % 2 == 0) pieces.back().points.push_back(b);
    }
  }
  return pieces;
}

}  // namespace ruvo::imaging::meta
