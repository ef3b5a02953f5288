#include "platform/raster/flood_fill.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

#include "platform/raster/painter.h"

namespace ruvo::raster {
namespace {

constexpr int kWordBits = 64;

// Rows of bits, one a pixel of an area.
class BitRows {
 public:
  BitRows(int width, int height)
      : words_((width + kWordBits - 1) / kWordBits),
        width_(width),
        bits_(static_cast<std::size_t>(words_) * static_cast<std::size_t>(height)) {}

  std::uint64_t* row(int y) { return bits_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(words_); }
  bool at(int x, int y) { return row(y)[x / kWordBits] >> (x % kWordBits) & 1; }
  // The first set (or clear) bit at or after x; the width when there is none.
  int nextSet(int x, int y) { return scan(x, y, 0); }
  int nextClear(int x, int y) { return scan(x, y, ~std::uint64_t{0}); }
  // The first bit of the run of set bits that holds x.
  int runStart(int x, int y) {
    const std::uint64_t* words = row(y);
    int word = x / kWordBits;
    std::uint64_t clear = ~words[word] << (kWordBits - 1 - x % kWordBits);
    if (clear) return x - std::countl_zero(clear) + 1;
    while (--word >= 0) {
      if (~words[word]) return (word + 1) * kWordBits - std::countl_zero(~words[word]);
    }
    return 0;
  }
  void fill(int left, int right, int y, bool value) {
    std::uint64_t* words = row(y);
    for (int x = left; x < right;) {
      const int stop = std::min(right, (x / kWordBits + 1) * kWordBits);
      std::uint64_t mask = ~std::uint64_t{0} << (x % kWordBits);
      if (stop % kWordBits != 0) mask &= ~std::uint64_t{0} >> (kWordBits - stop % kWordBits);
      if (value) {
        words[x / kWordBits] |= mask;
      } else {
        words[x / kWordBits] &= ~mask;
      }
      x = stop;
    }
  }

 private:
  int scan(int x, int y, std::uint64_t flip) {
    if (x >= width_) return width_;
    const std::uint64_t* words = row(y);
    int word = x / kWordBits;
    std::uint64_t wanted = (words[word] ^ flip) & (~std::uint64_t{0} << (x % kWordBits));
    while (!wanted) {
      if (++word == words_) return width_;
      wanted = words[word] ^ flip;
    }
    return std::min(width_, word * kWordBits + std::countr_zero(wanted));
  }

  int words_;
  int width_;
  std::vector<std::uint64_t> bits_;
};

// Which pixels of a row can be filled: told for whole rows, when the search first comes to them.
class Matcher {
 public:
  Matcher(const Surface& surface, Colour colour, FloodMode mode, AlphaMatch alpha)
      : surface_(surface), bytes_(looseBytes(surface.depth())), unequal_(mode == FloodMode::Border) {
    const auto pixel = loosePixel(surface, colour);
    std::memcpy(&wanted_, pixel.data(), 4);
    if (bytes_ == 4 && alpha == AlphaMatch::Ignore) mask_ = 0xFFFFFF;
    unpacked_.resize(static_cast<std::size_t>(surface.width()));
  }

  void match(int left, int count, int y, std::uint64_t* bits) {
    const std::uint8_t* row = looseRow(surface_, y, left, count, unpacked_.data());
    if (bytes_ == 4) {
      matchWith<4>(row, count, bits);
    } else if (bytes_ == 3) {
      matchWith<3>(row, count, bits);
    } else {
      matchWith<1>(row, count, bits);
    }
  }

 private:
  template <int Bytes>
  void matchWith(const std::uint8_t* row, int count, std::uint64_t* bits) const {
    const std::uint32_t wanted = wanted_, mask = mask_;
    for (int x = 0; x < count; x += kWordBits) {
      const int stop = std::min(kWordBits, count - x);
      // A byte a pixel first: the compiler compares several pixels at a time then.
      std::uint8_t matches[kWordBits] = {};
      const auto compare = [&](int pixels) {
        for (int k = 0; k < pixels; ++k) {
          std::uint32_t pixel = 0;
          std::memcpy(&pixel, row + static_cast<std::ptrdiff_t>(k) * Bytes, Bytes);
          matches[k] = ((pixel & mask) == wanted) != unequal_;
        }
      };
      if (stop == kWordBits) {
        compare(kWordBits);
      } else {
        compare(stop);
      }
      row += static_cast<std::ptrdiff_t>(stop) * Bytes;
      *bits++ = packed(matches);
    }
  }
  // The lowest bits of 64 bytes. The multiplication moves those of eight bytes side by side into the top byte.
  static std::uint64_t packed(const std::uint8_t* bytes) {
    std::uint64_t word = 0;
    for (int k = 0; k < kWordBits; k += 8) {
      std::uint64_t eight;
      std::memcpy(&eight, bytes + k, 8);
      word |= eight * 0x0102040810204080 >> 56 << k;
    }
    return word;
  }

  const Surface& surface_;
  int bytes_;
  bool unequal_;
  std::uint32_t wanted_ = 0;
  std::uint32_t mask_ = 0xFFFFFFFF;
  std::vector<std::uint8_t> unpacked_;
};

class FloodSearch {
 public:
  FloodSearch(const Rect& area, Matcher matcher)
      : area_(area),
        matcher_(std::move(matcher)),
        open_(area.width(), area.height()),
        found_(area.width(), area.height()),
        known_(static_cast<std::size_t>(area.height())) {}

  bool startsAt(int x, int y) {
    prepare(y - area_.top);
    return open_.at(x - area_.left, y - area_.top);
  }
  void run(int x, int y) {
    take(x - area_.left, y - area_.top);
    while (!waiting_.empty()) {
      const Span span = waiting_.back();
      waiting_.pop_back();
      look(span, span.y - 1);
      look(span, span.y + 1);
    }
  }
  void paint(Painter& painter) {
    for (int y = 0; y < area_.height(); ++y) {
      if (!known_[static_cast<std::size_t>(y)]) continue;
      for (int x = found_.nextSet(0, y); x < area_.width();) {
        const int end = found_.nextClear(x, y);
        painter.run(area_.top + y, area_.left + x, area_.left + end);
        x = found_.nextSet(end, y);
      }
    }
  }

  Rect bounds() const {
    return {area_.left + bounds_.left, area_.top + bounds_.top, area_.left + bounds_.right, area_.top + bounds_.bottom};
  }

 private:
  void prepare(int y) {
    if (known_[static_cast<std::size_t>(y)]) return;
    known_[static_cast<std::size_t>(y)] = 1;
    matcher_.match(area_.left, area_.width(), area_.top + y, open_.row(y));
  }
  // Moves the whole run of open pixels that holds (x, y) to the found ones; answers its end.
  int take(int x, int y) {
    const int left = open_.runStart(x, y);
    const int right = open_.nextClear(x, y);
    open_.fill(left, right, y, false);
    found_.fill(left, right, y, true);
    bounds_ = bounds_.united({left, y, right, y + 1});
    waiting_.push_back({y, left, right});
    return right;
  }
  void look(const Span& span, int y) {
    if (y < 0 || y >= area_.height()) return;
    prepare(y);
    for (int x = open_.nextSet(span.left, y); x < span.right; x = open_.nextSet(x, y)) x = take(x, y);
  }

  Rect area_;
  Rect bounds_;  // of the found ones, from the area's corner
  Matcher matcher_;
  BitRows open_;  // pixels that match and were not found yet
  BitRows found_;
  std::vector<std::uint8_t> known_;
  std::vector<Span> waiting_;
};

}  // namespace

bool floodFill(const DrawContext& context, int x, int y, Colour colour, FloodMode mode, AlphaMatch alpha,
               Rect* filled) {
  const Rect area = context.area();
  if (area.empty() || !area.contains(x, y)) return false;
  FloodSearch search(area, Matcher(context.surface, colour & 0xFFFFFF, mode, alpha));
  if (!search.startsAt(x, y)) return false;
  if (!context.brush.draws()) return true;
  search.run(x, y);
  Painter painter(context, context.brush);
  search.paint(painter);
  if (filled) *filled = search.bounds();
  return true;
}

}  // namespace ruvo::raster
