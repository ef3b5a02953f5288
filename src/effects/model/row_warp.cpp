#include "effects/model/row_warp.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <vector>

#include "effects/model/pixel_cover.h"

namespace ruvo {
namespace {

// A piece of one axis of at least one pixel's length around the same middle, moved and cut to lie inside. A piece of
// just one pixel's length mixes two neighbours in proportion.
struct Piece {
  double from;
  double to;
};
Piece pieceAround(double middle, double length, int pixels) {
  middle = std::clamp(middle, 0.5, pixels - 0.5);
  const double half = std::max(1.0, length) / 2;
  return {std::max(0.0, middle - half), std::min<double>(pixels, middle + half)};
}

// The mean of some rows of a picture, then means of pieces of it. Colours count by their alpha where there is one.
class RowMean {
 public:
  RowMean(const clsDIB& source, bool isAlpha)
      : source_(source.surface()), isAlpha_(isAlpha), width_(static_cast<std::size_t>(source.DIBWidth())) {
    mean_.resize(width_ * 4);
    sums_.resize(width_ + 2);
  }

  void takeRows(Piece rows) {
    std::ranges::fill(mean_, 0.0f);
    const double whole = rows.to - rows.from;
    for (int y = static_cast<int>(rows.from); y < rows.to && y < source_.height(); ++y) {
      const double share = (std::min(rows.to, y + 1.0) - std::max(rows.from, static_cast<double>(y))) / whole;
      if (share > 0) add(source_.pictureRow(y), static_cast<float>(share * 256));
    }
    // In 256ths, which keeps the sum of the longest row within 32 bits.
    std::array<std::uint32_t, 4> sum{};
    for (std::size_t x = 0; x < width_; ++x) {
      for (std::size_t c = 0; c < 4; ++c) sum[c] += static_cast<std::uint32_t>(mean_[x * 4 + c] + 0.5f);
      sums_[x + 1] = sum;
    }
    sums_[width_ + 1] = sum;
  }

  // Blue, green, red and alpha, 0 to 255.
  std::array<float, 4> mean(Piece columns) const {
    const std::size_t from = in256ths(columns.from), to = in256ths(columns.to);
    const float per = 1 / static_cast<float>(to - from);
    std::array<float, 4> result;
    for (std::size_t c = 0; c < 4; ++c) result[c] = static_cast<float>(sumTo(to, c) - sumTo(from, c)) * per;
    return result;
  }

  // Opaque pixels with the means of pieces of one length, each `step` further than the one before. All pieces lie inside.
  void means(double first, double length, double step, Pixel32* to, int count) const {
    constexpr double kUnit = 4294967296.0;  // of places, which are kept in 32.32 bits
    auto place = static_cast<std::int64_t>((first + 0.5 / 256) * kUnit);
    const auto each = static_cast<std::int64_t>(step * kUnit);
    const auto in256 = static_cast<std::size_t>(length * 256 + 0.5);
    const std::size_t most = width_ * 256 - in256;
    const float per = 1 / static_cast<float>(in256);
    for (int i = 0; i < count; ++i, place += each) {
      const std::size_t from = std::min(static_cast<std::size_t>(place >> 24), most);
      const auto channel = [&, upTo = from + in256](std::size_t c) {
        return static_cast<std::uint8_t>(static_cast<float>(sumTo(upTo, c) - sumTo(from, c)) * per + 0.5f);
      };
      to[i] = {channel(0), channel(1), channel(2), 0};
    }
  }

 private:
  static std::size_t in256ths(double place) { return static_cast<std::size_t>(place * 256 + 0.5); }
  std::uint32_t sumTo(std::size_t place, std::size_t c) const {
    const std::array<std::uint32_t, 4>* at = &sums_[place / 256];
    return at[0][c] + ((at[1][c] - at[0][c]) * static_cast<std::uint32_t>(place % 256) >> 8);
  }

  void add(const std::uint8_t* row, float weight) {
    if (isAlpha_) {
      const auto* pixels = reinterpret_cast<const Pixel32*>(row);
      for (std::size_t x = 0; x < width_; ++x) {
        const float alpha = weight * pixels[x].alpha / 255;
        mean_[x * 4] += alpha * pixels[x].blue;
        mean_[x * 4 + 1] += alpha * pixels[x].green;
        mean_[x * 4 + 2] += alpha * pixels[x].red;
        mean_[x * 4 + 3] += alpha * 255;
      }
    } else {
      for (std::size_t i = 0; i < mean_.size(); ++i) mean_[i] += weight * row[i];
    }
  }

  const raster::Surface& source_;
  bool isAlpha_;
  std::size_t width_;
  std::vector<float> mean_;
  // Of the pixels before each, in 256ths; the last one twice, so that a place at the end has one behind it.
  std::vector<std::array<std::uint32_t, 4>> sums_;
};

std::uint8_t byteOf(float value) {
  return static_cast<std::uint8_t>(std::clamp(value + 0.5f, 0.0f, 255.0f));
}

// The columns of a target row between which the source lies, and how far they are covered.
class Span {
 public:
  Span(const RowWarp::Row& row, int width) : row_(row), ramp_(std::max(1.0, row.slope)) {
    first_ = static_cast<int>(std::clamp(std::floor(row.left - ramp_ / 2), 0.0, static_cast<double>(width)));
    last_ = static_cast<int>(std::clamp(std::ceil(row.right + ramp_ / 2), 0.0, static_cast<double>(width)));
  }
  int first() const { return first_; }
  int last() const { return last_; }  // one past
  // The part of the span where pieces of the source around each pixel's middle, `reach` to either side, cover all of the
  // pixel and lie inside the source.
  int firstFull(double reach) const { return clamped(std::ceil(row_.left + std::max(ramp_ / 2, reach) - 0.5)); }
  int lastFull(double reach) const { return clamped(std::floor(row_.right - std::max(ramp_ / 2, reach) + 0.5)); }
  double cover(int x) const {
    const double middle = x + 0.5;
    const double left = std::clamp((middle - row_.left) / ramp_ + 0.5, 0.0, 1.0);
    const double right = std::clamp((row_.right - middle) / ramp_ + 0.5, 0.0, 1.0);
    return std::max(0.0, left + right - 1) * row_.cover;
  }

 private:
  int clamped(double x) const {
    return static_cast<int>(std::clamp(x, static_cast<double>(first_), static_cast<double>(last_)));
  }

  const RowWarp::Row& row_;
  double ramp_;
  int first_;
  int last_;
};

void smoothRow(RowMean& mean, const RowWarp::Row& from, const Span& span, const raster::Surface& source, Pixel32* to,
               Pixel32 fill, bool isAlpha) {
  const double middle = (from.sourceFrom + from.sourceTo) / 2;
  mean.takeRows(pieceAround(middle, std::abs(from.sourceTo - from.sourceFrom), source.height()));
  const double perPixel = source.width() / (from.right - from.left);
  const auto sourceAt = [&](int x) { return (x + 0.5 - from.left) * perPixel; };
  const double length = std::min<double>(std::max(1.0, perPixel), source.width());
  int firstFull = span.last(), lastFull = span.last();
  if (!isAlpha && from.cover >= 1) {
    firstFull = span.firstFull(length / 2 / perPixel);
    lastFull = std::max(firstFull, span.lastFull(length / 2 / perPixel));
    mean.means(sourceAt(firstFull) - length / 2, length, perPixel, to + firstFull, lastFull - firstFull);
  }
  for (int x = span.first(); x < span.last(); ++x) {
    if (x == firstFull) x = lastFull;
    if (x >= span.last()) break;
    const double cover = span.cover(x);
    if (cover <= 0) continue;
    const auto c = mean.mean(pieceAround(sourceAt(x), perPixel, source.width()));
    const auto mine = static_cast<float>(cover), rest = 1 - mine;
    if (!isAlpha) {
      to[x] = {byteOf(c[0] * mine + fill.blue * rest), byteOf(c[1] * mine + fill.green * rest),
               byteOf(c[2] * mine + fill.red * rest), byteOf(c[3])};
      continue;
    }
    const float alpha = c[3] * mine + 255 * rest;
    const float straight = alpha > 0 ? 255 / alpha : 0;
    to[x] = {byteOf((c[0] * mine + fill.blue * rest) * straight), byteOf((c[1] * mine + fill.green * rest) * straight),
             byteOf((c[2] * mine + fill.red * rest) * straight), byteOf(alpha)};
  }
}

void plainRow(const RowWarp::Row& from, const Span& span, const raster::Surface& source, Pixel32* to) {
  const double middle = (from.sourceFrom + from.sourceTo) / 2;
  const Pixel32* row = pixelRow(source, std::clamp(static_cast<int>(middle), 0, source.height() - 1));
  const double perPixel = source.width() / (from.right - from.left);
  for (int x = span.first(); x < span.last(); ++x) {
    const double at = (x + 0.5 - from.left) * perPixel;
    if (at >= 0 && at < source.width()) to[x] = row[static_cast<int>(at)];
  }
}

}  // namespace

bool warpRows(const clsDIB& source, clsDIB& target, const RowWarp& warp, const Progress& progress) try {
  const bool isAlpha = source.DIBhasAlpha();
  const Pixel32 fill = isAlpha ? Pixel32::opaque(warp.fill) : Pixel32::plain(warp.fill);
  RowMean mean(source, isAlpha);
  return forEachRow(target.DIBHeight(), progress, [&](int y) {
    Pixel32* to = pixelRow(target.surface(), y);
    std::fill(to, to + target.DIBWidth(), fill);
    const RowWarp::Row from = warp.rowAt(y);
    if (from.cover <= 0) return;
    const Span span(from, target.DIBWidth());
    if (warp.antialias) {
      smoothRow(mean, from, span, source.surface(), to, fill, isAlpha);
    } else if (from.cover >= 0.5) {
      plainRow(from, span, source.surface(), to);
    }
  });
} catch (const std::bad_alloc&) {
  return false;
}

}  // namespace ruvo
