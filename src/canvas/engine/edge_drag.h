// Dragging an edge of the canvas to give the picture another size: where the handles and guides are, and what size the
// pointer's travel means. Control pixels; one of them is one image pixel, since edges move at magnify 1 only.
#pragma once

#include <array>

#include "base/geometry.h"

namespace ruvo {

enum class CanvasEdge { None = 0, Top = 1, Right = 2, Bottom = 3, Left = 4 };

inline constexpr int kEdgeHandleSide = 8;
inline constexpr int kEdgeGap = 2;            // between the picture and a handle
inline constexpr int kMinDraggedExtent = 16;  // a drag does not go below this
inline constexpr int kMinEdgeHandleSide = 6;  // handles show when the picture has this size in one dimension at least

class EdgeDrag {
 public:
  // Places the handles (top, right, bottom, left) at the middle of each edge of the picture, just outside it but within
  // the control. They are `scale` times as large on dense screens.
  void place(const Rect& picDisp, Size client, int scale);
  const std::array<Rect, 4>& handles() const { return handles_; }

  bool active() const { return edge_ != CanvasEdge::None; }
  CanvasEdge edge() const { return edge_; }
  void begin(CanvasEdge edge, Point pointer);
  // True when the new size is allowed and taken; otherwise the last one holds.
  bool move(Point pointer);
  // The size that the picture would get, and where its old top left corner goes in it.
  Size size() const { return size_; }
  Point oldPictureAt() const;
  // The new canvas as it lies in the control, and the guide line along the moved edge.
  Rect outline() const;
  Rect guide() const;
  void end();

 private:
  Rect outside(CanvasEdge edge, const Rect& picture) const;

  Rect picDisp_;
  Size client_;
  int scale_ = 1;
  std::array<Rect, 4> handles_;
  CanvasEdge edge_ = CanvasEdge::None;
  Point start_;
  Size size_;
};

}  // namespace ruvo
