#include "platform/imaging/metafile_path.h"

#include <utility>

namespace ruvo::imaging::meta {
namespace {

constexpr std::size_t kMostPoints = 2000000;

}  // namespace

Rect boundsOf(const Outline& outline) {
  Rect box;
  bool first = true;
  for (const Subpath& part : outline) {
    for (const Point& p : part.points) {
      if (first) box = {p.x, p.y, p.x + 1, p.y + 1};
      first = false;
      box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x + 1),
             std::max(box.bottom, p.y + 1)};
    }
  }
  return box;
}

void PathRecorder::begin() {
  abort();
  open_ = true;
}

void PathRecorder::abort() {
  *this = PathRecorder();
}

const Outline& PathRecorder::outline() const {
  static const Outline kEmpty;
  return open_ ? kEmpty : outline_;
}

Outline PathRecorder::take() {
  Outline taken = open_ ? Outline() : std::move(outline_);
  abort();
  return taken;
}

bool PathRecorder::room(std::size_t points) {
  if (!open_ || points > kMostPoints - points_) return false;
  points_ += points;
  return true;
}

void PathRecorder::lineThrough(Point from, std::span<const Point> points) {
  if (!room(points.size() + 1)) return;
  if (!joined_ || outline_.empty()) outline_.push_back({{from}, false});
  outline_.back().points.insert(outline_.back().points.end(), points.begin(), points.end());
  joined_ = true;
}

void PathRecorder::add(const Outline& figures) {
  for (const Subpath& figure : figures) {
    if (room(figure.points.size() + 1)) outline_.push_back(figure);
  }
  joined_ = false;
}

void PathRecorder::closeFigure() {
  if (open_ && !outline_.empty()) outline_.back().closed = true;
  joined_ = false;
}

}  // namespace ruvo::imaging::meta
