#include "platform/imaging/resample.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "platform/imaging/pixel_rows.h"
#include "platform/imaging/table_lookup.h"

namespace ruvo::imaging {
namespace {

using Row = std::vector<float>;  // four channels a pixel: blue, green, red, alpha

// Keys' cubic with a = -1/2: passes through the samples and keeps straight slopes straight.
double cubic(double t) {
  t = std::fabs(t);
  if (t < 1) return (1.5 * t - 2.5) * t * t + 1;
  if (t < 2) return ((-0.5 * t + 2.5) * t - 4) * t + 2;
  return 0;
}

// For each target pixel of one axis: the first source pixel and the weights from there on, summing to 1.
struct Taps {
  struct Span {
    int first = 0;
    int count = 0;
    std::size_t at = 0;  // in weights
  };
  std::vector<Span> spans;
  std::vector<float> weights;
};

Taps tapsFor(int source, int target) {
  Taps taps;
  taps.spans.reserve(static_cast<std::size_t>(target));
  const double ratio = static_cast<double>(source) / target;
  const double widening = std::max(1.0, ratio);
  std::vector<double> weights;
  for (int i = 0; i < target; ++i) {
    const double centre = (i + 0.5) * ratio - 0.5;
    const int first = std::max(0, static_cast<int>(std::ceil(centre - 2 * widening)));
    const int last = std::min(source - 1, static_cast<int>(std::floor(centre + 2 * widening)));
    weights.clear();
    double sum = 0;
    for (int j = first; j <= last; ++j) {
      weights.push_back(cubic((j - centre) / widening));
      sum += weights.back();
    }
    taps.spans.push_back({first, last - first + 1, taps.weights.size()});
    for (const double w : weights) taps.weights.push_back(static_cast<float>(w / sum));
  }
  return taps;
}

void toFloats(const Pixel32* pixels, int width, bool hasAlpha, Row& out) {
  float* f = out.data();
  for (int x = 0; x < width; ++x, f += 4) {
    const Pixel32& p = pixels[x];
    const float weight = hasAlpha ? static_cast<float>(p.alpha) * (1.0f / 255.0f) : 1.0f;
    f[0] = static_cast<float>(p.blue) * weight;
    f[1] = static_cast<float>(p.green) * weight;
    f[2] = static_cast<float>(p.red) * weight;
    f[3] = hasAlpha ? static_cast<float>(p.alpha) : 0.0f;
  }
}

void filterAcross(const Row& in, const Taps& taps, Row& out) {
  float* o = out.data();
  for (const Taps::Span& span : taps.spans) {
    const float* weight = taps.weights.data() + span.at;
    const float* p = in.data() + static_cast<std::size_t>(span.first) * 4;
    float sum[4] = {};
    for (int k = 0; k < span.count; ++k, p += 4) {
      for (int c = 0; c < 4; ++c) sum[c] += weight[k] * p[c];
    }
    for (int c = 0; c < 4; ++c) o[c] = sum[c];
    o += 4;
  }
}

void addWeighted(const Row& in, float weight, Row& sum) {
  const float* p = in.data();
  float* s = sum.data();
  const std::size_t count = sum.size();
  for (std::size_t i = 0; i < count; ++i) s[i] += weight * p[i];
}

// More pixels than this are not kept filtered across at a time.
constexpr std::size_t kMostKept = 2000000;

// The source rows that the current target row needs, filtered across already; each source row is filtered once.
class RowWindow {
 public:
  RowWindow(const raster::Surface& source, int targetWidth, bool hasAlpha, int most)
      : rows_(source),
        sourceWidth_(source.width()),
        hasAlpha_(hasAlpha),
        across_(tapsFor(source.width(), targetWidth)),
        wide_(static_cast<std::size_t>(source.width()) * 4),
        ring_(static_cast<std::size_t>(most), Row(static_cast<std::size_t>(targetWidth) * 4)) {}

  // Rows are asked for in rising order.
  const Row& row(int y) {
    for (; next_ <= y; ++next_) {
      toFloats(rows_.row(next_), sourceWidth_, hasAlpha_, wide_);
      filterAcross(wide_, across_, slot(next_));
    }
    return slot(y);
  }

 private:
  Row& slot(int y) { return ring_[static_cast<std::size_t>(y) % ring_.size()]; }

  RowExpander rows_;
  int sourceWidth_;
  bool hasAlpha_;
  Taps across_;
  Row wide_;
  std::vector<Row> ring_;
  int next_ = 0;
};

// For a target row that many source rows go into: they are summed up first, and the sum is filtered across. Source rows
// are read anew for each target row, but none is kept.
class RowSums {
 public:
  RowSums(const raster::Surface& source, int targetWidth, bool hasAlpha)
      : rows_(source),
        sourceWidth_(source.width()),
        hasAlpha_(hasAlpha),
        across_(tapsFor(source.width(), targetWidth)),
        wide_(static_cast<std::size_t>(source.width()) * 4),
        sum_(wide_.size()) {}

  void filter(const Taps& down, const Taps::Span& span, Row& out) {
    std::fill(sum_.begin(), sum_.end(), 0.0f);
    for (int k = 0; k < span.count; ++k) {
      toFloats(rows_.row(span.first + k), sourceWidth_, hasAlpha_, wide_);
      addWeighted(wide_, down.weights[span.at + static_cast<std::size_t>(k)], sum_);
    }
    filterAcross(sum_, across_, out);
  }

 private:
  RowExpander rows_;
  int sourceWidth_;
  bool hasAlpha_;
  Taps across_;
  Row wide_;
  Row sum_;
};

std::uint8_t roundedByte(float value) {
  return static_cast<std::uint8_t>(static_cast<int>(std::clamp(value, 0.0f, 255.0f) + 0.5f));
}

void toPixels(const Row& sum, bool hasAlpha, Pixel32* out, int width) {
  const float* s = sum.data();
  for (int x = 0; x < width; ++x, s += 4) {
    if (!hasAlpha) {
      out[x] = {roundedByte(s[0]), roundedByte(s[1]), roundedByte(s[2]), 0};
      continue;
    }
    const std::uint8_t alpha = roundedByte(s[3]);
    const float straight = alpha == 0 ? 0.0f : 255.0f / std::min(s[3], 255.0f);
    out[x] = {roundedByte(s[0] * straight), roundedByte(s[1] * straight), roundedByte(s[2] * straight), alpha};
  }
}

// Writes pixels as a row of a surface of any depth.
class RowStore {
 public:
  explicit RowStore(raster::Surface& target) : target_(target) {
    if (target.depth() <= 8) lookup_.emplace(target.table());
    if (target.depth() != 32) scratch_.resize(static_cast<std::size_t>(target.width()));
  }
  Pixel32* begin(int y) {
    return target_.depth() == 32 ? reinterpret_cast<Pixel32*>(target_.pictureRow(y)) : scratch_.data();
  }
  void end(int y) {
    if (target_.depth() == 32) return;
    std::uint8_t* row = target_.pictureRow(y);
    if (target_.depth() == 24) {
      for (const Pixel32& p : scratch_) {
        row[0] = p.blue;
        row[1] = p.green;
        row[2] = p.red;
        row += 3;
      }
      return;
    }
    std::fill_n(row, target_.stride(), std::uint8_t{0});
    for (int x = 0; x < target_.width(); ++x) placeIndex(row, x, target_.depth(), lookup_->nearest(scratch_[x]));
  }

 private:
  raster::Surface& target_;
  std::optional<TableLookup> lookup_;
  std::vector<Pixel32> scratch_;
};

void copyPicked(const std::uint8_t* from, std::uint8_t* to, int depth, const std::vector<int>& columns) {
  const int width = static_cast<int>(columns.size());
  if (depth == 32) {
    for (int x = 0; x < width; ++x)
      reinterpret_cast<Pixel32*>(to)[x] = reinterpret_cast<const Pixel32*>(from)[columns[x]];
  } else if (depth == 24) {
    for (int x = 0; x < width; ++x)
      std::copy_n(from + 3 * static_cast<std::ptrdiff_t>(columns[x]), 3, to + 3 * static_cast<std::ptrdiff_t>(x));
  } else {
    for (int x = 0; x < width; ++x) placeIndex(to, x, depth, indexAt(from, columns[x], depth));
  }
}

// floor((i + 0.5) x source / target) in whole numbers.
int pickedAt(int i, int source, int target) {
  return static_cast<int>((2LL * i + 1) * source / (2LL * target));
}

}  // namespace

void resampleNearest(const raster::Surface& source, raster::Surface& target) {
  std::vector<int> columns;
  for (int x = 0; x < target.width(); ++x) columns.push_back(pickedAt(x, source.width(), target.width()));
  for (int y = 0; y < target.height(); ++y) {
    std::uint8_t* to = target.pictureRow(y);
    if (target.depth() < 8) std::fill_n(to, target.stride(), std::uint8_t{0});
    copyPicked(source.pictureRow(pickedAt(y, source.height(), target.height())), to, target.depth(), columns);
  }
}

void resampleBicubic(const raster::Surface& source, raster::Surface& target, bool hasAlpha,
                     const Progress& progress) {
  const bool alpha = hasAlpha && source.depth() == 32;
  const Taps down = tapsFor(source.height(), target.height());
  int most = 1;
  for (const Taps::Span& span : down.spans) most = std::max(most, span.count);
  const bool keeps = static_cast<std::size_t>(most) * static_cast<std::size_t>(target.width()) <= kMostKept;
  std::optional<RowWindow> window;
  std::optional<RowSums> sums;
  if (keeps) {
    window.emplace(source, target.width(), alpha, most);
  } else {
    sums.emplace(source, target.width(), alpha);
  }
  RowStore store(target);
  Row sum(static_cast<std::size_t>(target.width()) * 4);
  for (int y = 0; y < target.height(); ++y) {
    const Taps::Span& span = down.spans[y];
    if (keeps) {
      std::fill(sum.begin(), sum.end(), 0.0f);
      // The last row first: the window is then filled as far as this target row needs and holds all of its rows.
      window->row(span.first + span.count - 1);
      for (int k = 0; k < span.count; ++k) addWeighted(window->row(span.first + k), down.weights[span.at + k], sum);
    } else {
      sums->filter(down, span, sum);
    }
    toPixels(sum, alpha, store.begin(y), target.width());
    store.end(y);
    progress.report(static_cast<int>((y + 1LL) * 100 / target.height()));
    if (progress.stopped()) return;
  }
}

}  // namespace ruvo::imaging
