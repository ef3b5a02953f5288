#include "canvas/engine/stroke_start.h"

#include <algorithm>

namespace ruvo::brush {

Rect StrokeStart::boundsOf(int tileX, int tileY) const {
  return Rect::fromSize(tileX * kTileSide, tileY * kTileSide, kTileSide, kTileSide).intersected(picture_.bounds());
}

void StrokeStart::keep(const Rect& area) {
  if (area.empty()) return;
  for (int tileY = area.top / kTileSide; tileY <= (area.bottom - 1) / kTileSide; ++tileY) {
    for (int tileX = area.left / kTileSide; tileX <= (area.right - 1) / kTileSide; ++tileX) {
      const auto [entry, isNew] = tiles_.try_emplace(keyOf(tileX, tileY));
      if (!isNew) continue;
      const Rect bounds = boundsOf(tileX, tileY);
      Tile& tile = entry->second;
      tile.reserve(static_cast<std::size_t>(bounds.width()) * bounds.height());
      for (int y = bounds.top; y < bounds.bottom; ++y) {
        const auto* row = reinterpret_cast<const Pixel32*>(picture_.pictureRow(y));
        tile.insert(tile.end(), row + bounds.left, row + bounds.right);
      }
    }
  }
}

void StrokeStart::read(const Rect& area, std::vector<Pixel32>& pixels) const {
  pixels.resize(area.empty() ? 0 : static_cast<std::size_t>(area.width()) * area.height());
  if (area.empty()) return;
  for (int tileY = area.top / kTileSide; tileY <= (area.bottom - 1) / kTileSide; ++tileY) {
    for (int tileX = area.left / kTileSide; tileX <= (area.right - 1) / kTileSide; ++tileX) {
      const Tile& tile = tiles_.at(keyOf(tileX, tileY));
      const Rect bounds = boundsOf(tileX, tileY);
      const Rect part = bounds.intersected(area);
      for (int y = part.top; y < part.bottom; ++y) {
        const Pixel32* from = tile.data() + (y - bounds.top) * bounds.width() + (part.left - bounds.left);
        std::copy_n(from, part.width(), pixels.data() + (y - area.top) * area.width() + (part.left - area.left));
      }
    }
  }
}

std::size_t StrokeStart::keptPixels() const {
  std::size_t count = 0;
  for (const auto& [key, tile] : tiles_) count += tile.size();
  return count;
}

}  // namespace ruvo::brush
