#include "platform/raster/painter.h"

#include <algorithm>
#include <cstring>

namespace ruvo::raster {
namespace {

bool hatchOn(HatchStyle style, int x, int y) {
  switch (style) {
    case HatchStyle::Horizontal:
      return y == 3;
    case HatchStyle::Vertical:
      return x == 4;
    case HatchStyle::ForwardDiagonal:
      return x == y;
    case HatchStyle::BackwardDiagonal:
      return x + y == 7;
    case HatchStyle::Cross:
      return y == 3 || x == 4;
    case HatchStyle::DiagonalCross:
      return x == y || x + y == 7;
  }
  return false;
}

int modulo(int value, int size) {
  const int rest = value % size;
  return rest < 0 ? rest + size : rest;
}

}  // namespace

Painter::Painter(const DrawContext& context, const Brush& brush, Rop2 op)
    : brush_(brush),
      area_(brush.draws() ? context.area() : Rect{}),
      region_(context.clipRegion),
      origin_(context.brushOrigin),
      store_(context.surface, op, context.alphaFill),
      bytes_(looseBytes(context.surface.depth())),
      opaqueGaps_(context.backMode == BackMode::Opaque) {
  if (brush.kind == Brush::Kind::Pattern && brush.draws()) {
    const Surface& tile = *brush.tile;
    tileConverter_ = std::make_unique<RowConverter>(tile, context.surface, MatchRule::Exact);
    tileLoose_.resize(static_cast<std::size_t>(tile.width()) * 4);
    tileRow_.resize(static_cast<std::size_t>(tile.width()) * 4);
  } else {
    ink_ = loosePixel(context.surface, brush.colour);
    if (brush.kind == Brush::Kind::Hatch) gap_ = loosePixel(context.surface, context.backColour);
  }
}

std::uint8_t* Painter::buffer(int count) {
  const std::size_t needed = static_cast<std::size_t>(count) * bytes_;
  if (row_.size() < needed) row_.resize(needed);
  return row_.data();
}

void Painter::run(int y, int left, int right) {
  if (y < area_.top || y >= area_.bottom) return;
  left = std::max(left, area_.left);
  right = std::min(right, area_.right);
  if (left >= right) return;
  if (!region_) return paint(y, left, right);
  for (const Span& s : region_->row(y)) {
    if (s.right > left && s.left < right) paint(y, std::max(left, s.left), std::min(right, s.right));
  }
}

void Painter::paint(int y, int left, int right) {
  const int count = right - left;
  if (brush_.kind == Brush::Kind::Hatch) return hatchRun(y, left, right);
  if (brush_.kind == Brush::Kind::Pattern) return patternRun(y, left, right);
  std::uint8_t* row = buffer(count);
  if (inked_ < count) {
    fillLoose(row, count, ink_, bytes_);
    inked_ = count;
  }
  store_.put(left, y, count, row);
}

void Painter::hatchRun(int y, int left, int right) {
  const int tileY = modulo(y - origin_.y, 8);
  std::uint8_t* row = buffer(right - left);
  for (int x = left; x < right; ++x) {
    const bool on = hatchOn(brush_.hatchStyle, modulo(x - origin_.x, 8), tileY);
    if (opaqueGaps_) {
      std::memcpy(row + static_cast<std::ptrdiff_t>(x - left) * bytes_, on ? ink_.data() : gap_.data(),
                  static_cast<std::size_t>(bytes_));
    } else if (on) {
      store_.put(x, y, 1, ink_.data());
    }
  }
  if (opaqueGaps_) store_.put(left, y, right - left, row);
}

void Painter::patternRun(int y, int left, int right) {
  const Surface& tile = *brush_.tile;
  const int tileY = modulo(y - origin_.y, tile.height());
  if (tileY != tileRowHeld_) {
    tileRowHeld_ = tileY;
    tileConverter_->convert(looseRow(tile, tileY, 0, tile.width(), tileLoose_.data()), tileRow_.data(), tile.width());
    // Brushes write no byte 3 of their own.
    for (std::size_t i = 3; bytes_ == 4 && i < tileRow_.size(); i += 4) tileRow_[i] = 0;
  }
  std::uint8_t* row = buffer(right - left);
  int x = left;
  int tileX = modulo(left - origin_.x, tile.width());
  while (x < right) {
    const int piece = std::min(tile.width() - tileX, right - x);
    std::memcpy(row + static_cast<std::ptrdiff_t>(x - left) * bytes_,
                tileRow_.data() + static_cast<std::ptrdiff_t>(tileX) * bytes_,
                static_cast<std::size_t>(piece) * bytes_);
    x += piece;
    tileX = 0;
  }
  store_.put(left, y, right - left, row);
}

}  // namespace ruvo::raster
