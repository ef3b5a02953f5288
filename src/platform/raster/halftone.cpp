#include "platform/raster/halftone.h"

#include <algorithm>
#include <cstring>

#include "platform/raster/pixel_rows.h"

namespace ruvo::raster {
namespace {

bool sideBySide(const AreaMap& map) {
  if (map.shrinks) return false;
  for (int i = 0; i < map.count(); ++i) {
    const AreaMap::Part& part = map.parts[static_cast<std::size_t>(i)];
    if (part.weight != 0 || part.begin != map.parts.front().begin + i) return false;
  }
  return true;
}

// Four channels a pixel throughout. Sums are exact: a side of a surface times its weights times 255 stays below 2^24
// for all but absurd extents, so a float holds it.
class Halftone {
 public:
  Halftone(Surface& dst, const Surface& src, const AreaMap& columns, const AreaMap& rows, RasterOp op)
      : src_(src),
        columns_(columns),
        rows_(rows),
        toColour_(src.depth(), src.table(), 32, {}),
        toTarget_(32, {}, dst.depth(), dst.table()),
        store_(dst, rop2Of(op)),
        unscaled_(sideBySide(columns)),
        direct_(dst.depth() == 32 && store_.copies()),
        left_(columns.sourceBegin()),
        width_(columns.sourceEnd() - left_),
        unpacked_(static_cast<std::size_t>(width_)),
        colours_(static_cast<std::size_t>(width_) * 4),
        output_(static_cast<std::size_t>(columns.count()) * 4),
        converted_(output_.size()) {
    if (columns.shrinks || unscaled_) return;
    neighbours_.reserve(columns.parts.size());
    for (const AreaMap::Part& part : columns.parts) {
      neighbours_.push_back(
          {(part.begin - left_) * 4, (part.end - left_) * 4, static_cast<std::uint32_t>(part.weight)});
    }
  }

  void run() {
    if (rows_.shrinks) {
      shrinkRows();
    } else {
      growRows();
    }
  }

 private:
  const std::uint8_t* colourRow(int sourceRow) {
    const std::uint8_t* loose = looseRow(src_, sourceRow, left_, width_, unpacked_.data());
    if (src_.depth() == 32) return loose;
    toColour_.convert(loose, colours_.data(), width_);
    return colours_.data();
  }
  void shrinkRows();
  void averageRows(const AreaMap::Part& part);
  void growRows();
  // The row at destination width, from bytes or from averages.
  void fitColumns(const std::uint8_t* from, std::uint8_t* to);
  void shrinkColumns(const float* from, std::uint8_t* to) const;
  void growColumns(const std::uint8_t* from, std::uint8_t* to) const;
  // Where a row of the result is put together, and what is then left to do with it.
  std::uint8_t* target(int row);
  void emit(int row);

  // Where a column that grows comes from: two places in a row of bytes. Small, so that all of them stay in the cache.
  struct Neighbours {
    std::int32_t first;
    std::int32_t second;
    std::uint32_t weight;
  };

  const Surface& src_;
  const AreaMap& columns_;
  const AreaMap& rows_;
  RowConverter toColour_;
  RowConverter toTarget_;
  RowStore store_;
  bool unscaled_;  // columns keep their size and order
  bool direct_;    // rows of the result can be made in the destination itself
  int left_;       // first source column that is needed, and how many
  int width_;
  std::vector<std::uint8_t> unpacked_;
  std::vector<std::uint8_t> colours_;
  std::vector<std::uint8_t> output_;
  std::vector<std::uint8_t> converted_;
  std::vector<std::uint16_t> sums_;
  std::vector<float> averages_;
  std::vector<std::uint8_t> rounded_;
  std::vector<Neighbours> neighbours_;
};

void addBytes(const std::uint8_t* from, std::uint16_t* sums, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) sums[i] = static_cast<std::uint16_t>(sums[i] + from[i]);
}
void addWeighted(const std::uint8_t* from, float weight, float* sums, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) sums[i] += weight * static_cast<float>(from[i]);
}
void addWeighted(const std::uint16_t* from, float weight, float* sums, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) sums[i] += weight * static_cast<float>(from[i]);
}
void roundRow(const float* from, std::uint8_t* to, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) to[i] = static_cast<std::uint8_t>(static_cast<int>(from[i] + 0.5f));
}

// Whole rows are summed as 16-bit numbers, up to as many as fit; only the two cut rows of a part need multiplications.
void Halftone::averageRows(const AreaMap::Part& part) {
  constexpr int kRowsPerSum = 257;
  const std::size_t n = averages_.size();
  const float scale = 1.0f / static_cast<float>(part.total);
  std::fill(averages_.begin(), averages_.end(), 0.0f);
  addWeighted(colourRow(part.begin), static_cast<float>(part.firstWeight) * scale, averages_.data(), n);
  if (part.end - part.begin > 1) {
    addWeighted(colourRow(part.end - 1), static_cast<float>(part.lastWeight) * scale, averages_.data(), n);
  }
  for (int row = part.begin + 1; row < part.end - 1;) {
    const int stop = std::min(row + kRowsPerSum, part.end - 1);
    std::fill(sums_.begin(), sums_.end(), std::uint16_t{0});
    for (; row < stop; ++row) addBytes(colourRow(row), sums_.data(), n);
    addWeighted(sums_.data(), static_cast<float>(rows_.fullWeight) * scale, averages_.data(), n);
  }
}

void Halftone::shrinkRows() {
  const std::size_t n = static_cast<std::size_t>(width_) * 4;
  averages_.resize(n);
  sums_.resize(n);
  rounded_.resize(n);
  for (int i = 0; i < rows_.count(); ++i) {
    averageRows(rows_.parts[static_cast<std::size_t>(i)]);
    if (columns_.shrinks) {
      shrinkColumns(averages_.data(), target(i));
    } else {
      roundRow(averages_.data(), rounded_.data(), n);
      growColumns(rounded_.data(), target(i));
    }
    emit(i);
  }
}

void mixRows(const std::uint8_t* a, const std::uint8_t* b, int weight, std::uint8_t* to, std::size_t n) {
  const auto near = static_cast<std::uint16_t>(256 - weight);
  const auto far = static_cast<std::uint16_t>(weight);
  for (std::size_t i = 0; i < n; ++i) {
    to[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(a[i] * near + b[i] * far + 128) >> 8);
  }
}

void Halftone::growRows() {
  averages_.resize(static_cast<std::size_t>(width_) * 4);
  // The two neighbours of the current place, already at destination width.
  std::vector<std::uint8_t> fitted[2] = {std::vector<std::uint8_t>(output_.size()),
                                         std::vector<std::uint8_t>(output_.size())};
  int holds[2] = {-1, -1};
  const auto fit = [&](int sourceRow, int keep) {
    for (int k = 0; k < 2; ++k) {
      if (holds[k] == sourceRow) return k;
    }
    const int k = holds[0] == keep ? 1 : 0;
    fitColumns(colourRow(sourceRow), fitted[k].data());
    holds[k] = sourceRow;
    return k;
  };
  for (int i = 0; i < rows_.count(); ++i) {
    const AreaMap::Part& part = rows_.parts[static_cast<std::size_t>(i)];
    if (unscaled_ && part.weight == 0) {
      growColumns(colourRow(part.begin), target(i));
      emit(i);
      continue;
    }
    const int a = fit(part.begin, part.end);
    if (part.weight == 0) {
      std::copy(fitted[a].begin(), fitted[a].end(), target(i));
    } else {
      const int b = fit(part.end, part.begin);
      mixRows(fitted[a].data(), fitted[b].data(), part.weight, target(i), output_.size());
    }
    emit(i);
  }
}

void Halftone::fitColumns(const std::uint8_t* from, std::uint8_t* to) {
  if (!columns_.shrinks) return growColumns(from, to);
  std::fill(averages_.begin(), averages_.end(), 0.0f);
  addWeighted(from, 1.0f, averages_.data(), averages_.size());
  shrinkColumns(averages_.data(), to);
}

void Halftone::shrinkColumns(const float* from, std::uint8_t* to) const {
  const auto full = static_cast<float>(columns_.fullWeight);
  for (const AreaMap::Part& part : columns_.parts) {
    const float* pixel = from + static_cast<std::ptrdiff_t>(part.begin - left_) * 4;
    const float* last = from + static_cast<std::ptrdiff_t>(part.end - 1 - left_) * 4;
    float sum[4] = {};
    for (const float* p = pixel + 4; p < last; p += 4) {
      for (int c = 0; c < 4; ++c) sum[c] += p[c];
    }
    const float first = static_cast<float>(part.firstWeight);
    const float end = last == pixel ? 0.0f : static_cast<float>(part.lastWeight);
    const float scale = 1.0f / static_cast<float>(part.total);
    for (int c = 0; c < 4; ++c) {
      const float value = (sum[c] * full + pixel[c] * first + last[c] * end) * scale;
      to[c] = static_cast<std::uint8_t>(static_cast<int>(value + 0.5f));
    }
    to[3] = 0;
    to += 4;
  }
}

void copyWithoutAlpha(const std::uint8_t* from, std::uint8_t* to, int count) {
  for (int i = 0; i < count; ++i) {
    std::uint32_t pixel;
    std::memcpy(&pixel, from + static_cast<std::ptrdiff_t>(i) * 4, 4);
    pixel &= 0xFFFFFF;
    std::memcpy(to + static_cast<std::ptrdiff_t>(i) * 4, &pixel, 4);
  }
}

// Two channels at a time in one word: 8 bits of colour, 8 bits for the weight's product.
void Halftone::growColumns(const std::uint8_t* from, std::uint8_t* to) const {
  if (unscaled_) {
    return copyWithoutAlpha(from + static_cast<std::ptrdiff_t>(columns_.parts.front().begin - left_) * 4, to,
                            columns_.count());
  }
  constexpr std::uint32_t kPairs = 0x00FF00FF;
  for (const Neighbours& pair : neighbours_) {
    std::uint32_t a, b;
    std::memcpy(&a, from + pair.first, 4);
    std::memcpy(&b, from + pair.second, 4);
    const std::uint32_t far = pair.weight;
    const std::uint32_t near = 256 - far;
    const std::uint32_t even = (((a & kPairs) * near + (b & kPairs) * far + 0x00800080) >> 8) & kPairs;
    const std::uint32_t odd = ((a >> 8 & kPairs) * near + (b >> 8 & kPairs) * far + 0x00800080) & ~kPairs;
    const std::uint32_t mixed = (even | odd) & 0xFFFFFF;
    std::memcpy(to, &mixed, 4);
    to += 4;
  }
}

std::uint8_t* Halftone::target(int row) {
  return direct_ ? store_.direct(columns_.first, rows_.first + row) : output_.data();
}

void Halftone::emit(int row) {
  if (direct_) return;
  const int count = columns_.count();
  toTarget_.convert(output_.data(), converted_.data(), count);
  store_.put(columns_.first, rows_.first + row, count, converted_.data());
}

}  // namespace

void stretchHalftone(Surface& dst, const Surface& src, const AreaMap& columns, const AreaMap& rows, RasterOp op) {
  if (columns.parts.empty() || rows.parts.empty()) return;
  Halftone(dst, src, columns, rows, op).run();
}

}  // namespace ruvo::raster
