// A rectangle of pixels in memory: 1, 4, 8, 24 or 32 bits a pixel, rows padded to four bytes, a colour table at 8 bits or
// fewer. All drawing of the program lands on a Surface; clsDIB owns one.
//
// Two ways to name a row. A *picture row* counts from the picture's top line. A *memory row* counts from the first byte
// of the bits: with RowOrder::BottomUp (the usual one) memory row = height - 1 - picture row. The raster calls (blits,
// pens, brushes) take picture coordinates; pixel algorithms that walk the bits say which one they mean.
#pragma once

#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

#include "base/colour.h"
#include "base/geometry.h"

namespace ruvo::raster {

#ifdef RUVO_CHECK_BOUNDS
#define RUVO_BOUNDS(condition) assert(condition)
#else
#define RUVO_BOUNDS(condition) static_cast<void>(0)
#endif

enum class RowOrder { BottomUp, TopDown };

// One entry of a colour table, as it lies in a BMP file.
struct TableEntry {
  std::uint8_t blue = 0;
  std::uint8_t green = 0;
  std::uint8_t red = 0;
  std::uint8_t spare = 0;

  static constexpr TableEntry of(Colour c) { return {blueOf(c), greenOf(c), redOf(c), 0}; }
  constexpr Colour colour() const { return rgb(red, green, blue); }
  friend constexpr bool operator==(const TableEntry&, const TableEntry&) = default;
};

// Rows and columns over the bits of a surface, in memory order. Costs nothing in release builds; knows its bounds in
// debug and sanitizer builds. Must not outlive the surface or a call that remakes it.
template <typename T>
class View {
 public:
  View() = default;
  View(std::uint8_t* bits, int width, int height, int stride)
      : bits_(bits), width_(width), height_(height), stride_(stride) {}

  int width() const { return width_; }
  int height() const { return height_; }
  T* row(int memoryRow) const {
    RUVO_BOUNDS(memoryRow >= 0 && memoryRow < height_);
    return reinterpret_cast<T*>(bits_ + static_cast<std::ptrdiff_t>(memoryRow) * stride_);
  }
  T& at(int column, int memoryRow) const {
    RUVO_BOUNDS(column >= 0 && column < width_);
    return row(memoryRow)[column];
  }

 private:
  std::uint8_t* bits_ = nullptr;
  int width_ = 0;
  int height_ = 0;
  int stride_ = 0;
};
using View32 = View<Pixel32>;
using View8 = View<std::uint8_t>;

class Surface {
 public:
  Surface() = default;
  Surface(Surface&& other) noexcept { *this = std::move(other); }
  Surface& operator=(Surface&& other) noexcept;

  // Makes a zeroed surface. Depth is 1, 4, 8, 24 or 32. The colour table of 8 bits or fewer has 2^depth black entries.
  // False, leaving an empty surface, for a size below 1, another depth, more than 2^31-1 bytes, or no memory.
  bool create(int width, int height, int depth, RowOrder order = RowOrder::BottomUp);
  void clear();

  bool empty() const { return !bits_; }
  int width() const { return width_; }
  int height() const { return height_; }
  Size size() const { return {width_, height_}; }
  Rect bounds() const { return {0, 0, width_, height_}; }
  int depth() const { return depth_; }
  int stride() const { return stride_; }
  std::size_t byteCount() const { return static_cast<std::size_t>(stride_) * static_cast<std::size_t>(height_); }
  RowOrder order() const { return order_; }

  std::uint8_t* bits() { return bits_.get(); }
  const std::uint8_t* bits() const { return bits_.get(); }
  std::span<std::uint8_t> bytes() { return {bits_.get(), byteCount()}; }
  std::span<const std::uint8_t> bytes() const { return {bits_.get(), byteCount()}; }
  int memoryRowOf(int pictureRow) const { return order_ == RowOrder::BottomUp ? height_ - 1 - pictureRow : pictureRow; }
  std::uint8_t* memoryRow(int row) {
    RUVO_BOUNDS(row >= 0 && row < height_);
    return bits_.get() + static_cast<std::ptrdiff_t>(row) * stride_;
  }
  const std::uint8_t* memoryRow(int row) const {
    RUVO_BOUNDS(row >= 0 && row < height_);
    return bits_.get() + static_cast<std::ptrdiff_t>(row) * stride_;
  }
  std::uint8_t* pictureRow(int y) { return memoryRow(memoryRowOf(y)); }
  const std::uint8_t* pictureRow(int y) const { return memoryRow(memoryRowOf(y)); }

  // Memory-order views. The depth must fit (32 and 8 bits).
  View32 view32() {
    RUVO_BOUNDS(depth_ == 32);
    return {bits_.get(), width_, height_, stride_};
  }
  View<const Pixel32> view32() const {
    RUVO_BOUNDS(depth_ == 32);
    return {const_cast<std::uint8_t*>(bits_.get()), width_, height_, stride_};
  }
  View8 view8() {
    RUVO_BOUNDS(depth_ == 8);
    return {bits_.get(), width_, height_, stride_};
  }
  View<const std::uint8_t> view8() const {
    RUVO_BOUNDS(depth_ == 8);
    return {const_cast<std::uint8_t*>(bits_.get()), width_, height_, stride_};
  }

  std::span<TableEntry> table() { return table_; }
  std::span<const TableEntry> table() const { return table_; }

 private:
  // calloc gives large surfaces their zero pages for nothing and only when they are touched.
  struct Free {
    void operator()(std::uint8_t* p) const { std::free(p); }
  };
  std::unique_ptr<std::uint8_t, Free> bits_;
  int width_ = 0;
  int height_ = 0;
  int depth_ = 0;
  int stride_ = 0;
  RowOrder order_ = RowOrder::BottomUp;
  std::vector<TableEntry> table_;
};

// Bytes of one row: ((width x depth + 31) \ 32) x 4.
constexpr std::int64_t strideFor(std::int64_t width, int depth) {
  return (width * depth + 31) / 32 * 4;
}

}  // namespace ruvo::raster
