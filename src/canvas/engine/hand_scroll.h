// Dragging the view by the hand: the picture follows the pointer.
#pragma once

#include "canvas/engine/view_geometry.h"

namespace ruvo {

class HandScroll {
 public:
  void begin(const ViewGeometry& view, Point pointer) {
    start_ = pointer;
    startScroll_ = {view.ScrollX, view.ScrollY};
  }
  // The scroll position that belongs to where the pointer is now, within the view's limits.
  Point follow(const ViewGeometry& view, Point pointer) const {
    // The picture follows the hand, so the view goes the other way.
    return {std::clamp(startScroll_.x - (pointer.x - start_.x), 0, view.ScrollMaxX),
            std::clamp(startScroll_.y - (pointer.y - start_.y), 0, view.ScrollMaxY)};
  }

 private:
  Point start_;
  Point startScroll_;
};

}  // namespace ruvo
