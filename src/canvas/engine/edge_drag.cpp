#include "canvas/engine/edge_drag.h"

#include "base/limits.h"

namespace ruvo {

void EdgeDrag::place(const Rect& picDisp, Size client, int scale) {
  picDisp_ = picDisp;
  client_ = client;
  scale_ = scale;
  for (std::size_t i = 0; i < handles_.size(); ++i) {
    Rect handle = outside(static_cast<CanvasEdge>(i + 1), picDisp);
    // A picture that fills the view leaves no room beside it: the handle then lies on its rim.
    const int dx = std::max(0, -handle.left) - std::max(0, handle.right - client.width);
    const int dy = std::max(0, -handle.top) - std::max(0, handle.bottom - client.height);
    handles_[i] = {handle.left + dx, handle.top + dy, handle.right + dx, handle.bottom + dy};
  }
}

// The handle of an edge beside the middle of that edge of `picture`.
Rect EdgeDrag::outside(CanvasEdge edge, const Rect& picture) const {
  const int side = kEdgeHandleSide * scale_;
  const int midX = (picture.left + picture.right - side) / 2;
  const int midY = (picture.top + picture.bottom - side) / 2;
  switch (edge) {
    case CanvasEdge::Top:
      return Rect::fromSize(midX, picture.top - kEdgeGap - side, side, side);
    case CanvasEdge::Right:
      return Rect::fromSize(picture.right + kEdgeGap, midY, side, side);
    case CanvasEdge::Bottom:
      return Rect::fromSize(midX, picture.bottom + kEdgeGap, side, side);
    case CanvasEdge::Left:
      return Rect::fromSize(picture.left - kEdgeGap - side, midY, side, side);
    case CanvasEdge::None:
      break;
  }
  return {};
}

void EdgeDrag::begin(CanvasEdge edge, Point pointer) {
  edge_ = edge;
  start_ = pointer;
  size_ = {picDisp_.width(), picDisp_.height()};
}

bool EdgeDrag::move(Point pointer) {
  const int dx = pointer.x - start_.x;
  const int dy = pointer.y - start_.y;
  Size next{picDisp_.width(), picDisp_.height()};
  switch (edge_) {
    case CanvasEdge::Top:
      next.height -= dy;
      break;
    case CanvasEdge::Right:
      next.width += dx;
      break;
    case CanvasEdge::Bottom:
      next.height += dy;
      break;
    case CanvasEdge::Left:
      next.width -= dx;
      break;
    case CanvasEdge::None:
      return false;
  }
  const bool across = edge_ == CanvasEdge::Left || edge_ == CanvasEdge::Right;
  if ((across ? next.width : next.height) < kMinDraggedExtent) return false;
  if (!pictureSizeAllowed(next.width, next.height)) return false;
  size_ = next;
  handles_[static_cast<std::size_t>(edge_) - 1] = outside(edge_, outline());
  return true;
}

Point EdgeDrag::oldPictureAt() const {
  return {edge_ == CanvasEdge::Left ? size_.width - picDisp_.width() : 0,
          edge_ == CanvasEdge::Top ? size_.height - picDisp_.height() : 0};
}

Rect EdgeDrag::outline() const {
  const Point shift = oldPictureAt();
  return Rect::fromSize(picDisp_.left - shift.x, picDisp_.top - shift.y, size_.width, size_.height);
}

Rect EdgeDrag::guide() const {
  const Rect to = outline();
  switch (edge_) {
    case CanvasEdge::Top:
      return {0, to.top - 1, client_.width, to.top};
    case CanvasEdge::Right:
      return {to.right, 0, to.right + 1, client_.height};
    case CanvasEdge::Bottom:
      return {0, to.bottom, client_.width, to.bottom + 1};
    case CanvasEdge::Left:
      return {to.left - 1, 0, to.left, client_.height};
    case CanvasEdge::None:
      break;
  }
  return {};
}

void EdgeDrag::end() {
  edge_ = CanvasEdge::None;
  place(picDisp_, client_, scale_);
}

}  // namespace ruvo
