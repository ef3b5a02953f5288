// Integer points, sizes and rectangles. Rectangles are half-open: right and bottom are the first column and row
// outside.
#pragma once

#include <algorithm>

namespace ruvo {

struct Point {
  int x = 0;
  int y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  int width = 0;
  int height = 0;
  bool empty() const { return width <= 0 || height <= 0; }
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  static Rect fromSize(int x, int y, int width, int height) { return {x, y, x + width, y + height}; }
  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool empty() const { return right <= left || bottom <= top; }
  bool contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
  Rect intersected(const Rect& other) const {
    return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
  }
  // The smallest rectangle that holds both; an empty one adds nothing.
  Rect united(const Rect& other) const {
    if (empty()) return other;
    if (other.empty()) return *this;
    return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
            std::max(bottom, other.bottom)};
  }
  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace ruvo
