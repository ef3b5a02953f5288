// Turning by any angle: for each point of the target, the point of the source that it shows.
#include <algorithm>
#include <cmath>
#include <vector>

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/pixel_walk.h"
#include "platform/raster/blit.h"

namespace ruvo {

using namespace filter;

namespace {

constexpr double kPi = 3.14159265359;

struct Spot {
  double x, y;
};

// Where the points of the target lie in the source. The products of a column are made once, those of a row once a row:
// the sums are the same doubles as if each point made its own.
class TurnedGrid {
 public:
  TurnedGrid(Size source, Size target, double angle)
      : c_(std::cos(angle * kPi / 180)),
        s_(std::sin(angle * kPi / 180)),
        middle_{static_cast<double>((source.width + 1) / 2), static_cast<double>((source.height + 1) / 2)},
        middleRow_((target.height + 1) / 2) {
    const int middleColumn = (target.width + 1) / 2;
    columns_.reserve(static_cast<std::size_t>(target.width));
    for (int x = 0; x < target.width; ++x) columns_.push_back({c_ * (x - middleColumn), s_ * (x - middleColumn)});
  }
  void beginRow(int y) { row_ = {s_ * (y - middleRow_), c_ * (y - middleRow_)}; }
  Spot at(int x) const {
    const Spot& column = columns_[static_cast<std::size_t>(x)];
    return {column.x - row_.x + middle_.x, column.y + row_.y + middle_.y};
  }

 private:
  double c_, s_;
  Spot middle_;
  int middleRow_;
  Spot row_{};
  std::vector<Spot> columns_;
};

// The source by points, and what it gives.
class Sampler {
 public:
  // `alpha`: byte 3 says how far a pixel is seen.
  Sampler(const raster::Surface& source, bool alpha, std::int64_t transparent, Colour fill)
      : top_(words(source, source.memoryRowOf(0))),
        step_((source.order() == raster::RowOrder::BottomUp ? -source.stride() : source.stride()) / 4),
        right_(source.width() - 1),
        bottom_(source.height() - 1),
        alpha_(alpha),
        transparent_(transparent),
        fill_(filter::wordOf(fill)) {
    for (std::size_t c = 0; c < 256; ++c) byte_[c] = static_cast<double>(c);
  }

  std::uint32_t nearest(Spot at) const {
    const int x = quickRound(at.x), y = quickRound(at.y);
    if (outside(x, right_) || outside(y, bottom_)) return fill_;
    const std::uint32_t p = *pixel(x, y);
    return transparent_.covers(p) ? fill_ : p;
  }

  std::uint32_t mixed(Spot at) const {
    const int nearX = quickRound(at.x), nearY = quickRound(at.y);
    if (outside(nearX, right_) || outside(nearY, bottom_)) return fill_;
    const std::uint32_t near = *pixel(nearX, nearY);
    if (transparent_.covers(near)) return fill_;
    const int x = nearX - (nearX > at.x), y = nearY - (nearY > at.y);  // the floors
    const int x0 = std::max(x, 0), x1 = std::min(x + 1, right_), y0 = std::max(y, 0), y1 = std::min(y + 1, bottom_);
    std::uint32_t corners[4] = {*pixel(x0, y0), *pixel(x1, y0), *pixel(x0, y1), *pixel(x1, y1)};
    if (corners[0] == corners[1] && corners[0] == corners[2] && corners[0] == corners[3]) return near;
    if (!transparent_.none()) {
      for (std::uint32_t& corner : corners) corner = transparent_.covers(corner) ? near : corner;
    }
    if (alpha_ && differInByte3(corners)) return mixSeen(corners, at.x - x, at.y - y);
    return mix(corners, at.x - x, at.y - y);
  }

 private:
  static bool outside(int at, int last) { return static_cast<unsigned>(at) > static_cast<unsigned>(last); }
  const std::uint32_t* pixel(int x, int y) const { return top_ + static_cast<std::ptrdiff_t>(y) * step_ + x; }
  static bool differInByte3(const std::uint32_t (&c)[4]) {
    return ((c[0] ^ c[1]) | (c[0] ^ c[2]) | (c[0] ^ c[3])) > kColourBytes;
  }
  std::uint32_t mix(const std::uint32_t (&corners)[4], double fx, double fy) const {
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
      const auto channel = [&](int i) { return byte_[corners[i] >> shift & 0xFF]; };
      const double upper = channel(0) + (channel(1) - channel(0)) * fx;
      const double lower = channel(2) + (channel(3) - channel(2)) * fx;
      result |= static_cast<std::uint32_t>(quickRound(upper + (lower - upper) * fy)) << shift;
    }
    return result;
  }
  // Colours that nobody sees have no part in the mix.
  std::uint32_t mixSeen(const std::uint32_t (&corners)[4], double fx, double fy) const {
    double parts[4] = {(1 - fx) * (1 - fy), fx * (1 - fy), (1 - fx) * fy, fx * fy};
    double seen = 0;
    for (int i = 0; i < 4; ++i) seen += parts[i] *= byte_[corners[i] >> 24];
    const auto alpha = static_cast<std::uint32_t>(quickRound(seen));
    if (alpha == 0) return 0;
    std::uint32_t result = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
      double sum = 0;
      for (int i = 0; i < 4; ++i) sum += parts[i] * byte_[corners[i] >> shift & 0xFF];
      result |= static_cast<std::uint32_t>(quickRound(sum / seen)) << shift;
    }
    return result;
  }

  const std::uint32_t* top_;
  std::ptrdiff_t step_;  // pixels from a line to the one below it
  int right_, bottom_;
  bool alpha_;
  Exclusion transparent_;
  std::uint32_t fill_;
  std::array<double, 256> byte_;  // a conversion costs more than a look into a table
};

}  // namespace

bool clsDIBFilter::turn(const raster::Surface& Source, bool HasAlpha, raster::Surface& Target, double Angle,
                        bool Antialias, std::int64_t TransparentColor, Colour FillColor) {
  if (Source.empty() || !workable(Target) || &Source == &Target) return true;
  if (Source.depth() != 32) {
    raster::Surface deep;
    if (!deep.create(Source.width(), Source.height(), 32)) return false;
    raster::blit(deep, 0, 0, Source);
    return turn(deep, false, Target, Angle, Antialias, TransparentColor, FillColor);
  }
  TurnedGrid grid(Source.size(), Target.size(), Angle);
  const Sampler sampler(Source, HasAlpha, TransparentColor, FillColor & kWhite);
  const int width = Target.width();
  return forRows(Target.height(), [&](int y) {
    std::uint32_t* row = words(Target, Target.memoryRowOf(y));
    grid.beginRow(y);
    if (Antialias) {
      for (int x = 0; x < width; ++x) row[x] = sampler.mixed(grid.at(x));
    } else {
      for (int x = 0; x < width; ++x) row[x] = sampler.nearest(grid.at(x));
    }
  });
}

bool clsDIBFilter::RotatePic_To_Pic(const raster::Surface& Source, raster::Surface& Target, double Angle,
                                    bool Antialias, std::int64_t TransparentColor, Colour FillColor) {
  return turn(Source, false, Target, Angle, Antialias, TransparentColor, FillColor);
}

bool clsDIBFilter::RotatePic_To_DIB(const raster::Surface& Source, clsDIB& Target, double Angle, bool Antialias,
                                    std::int64_t TransparentColor, Colour FillColor) {
  return RotatePic_To_Pic(Source, Target.surface(), Angle, Antialias, TransparentColor, FillColor);
}

bool clsDIBFilter::RotateDIB_To_DIB(const clsDIB& Source, clsDIB& Target, double Angle, bool Antialias,
                                    std::int64_t TransparentColor, Colour FillColor) {
  Target.setDIBhasAlpha(Source.DIBhasAlpha());
  return turn(Source.surface(), Source.DIBhasAlpha(), Target.surface(), Angle, Antialias, TransparentColor, FillColor);
}

}  // namespace ruvo
