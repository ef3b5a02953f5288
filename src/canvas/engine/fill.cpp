#include "canvas/engine/fill.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "canvas/engine/brush_mix.h"
#include "platform/raster/flood_fill.h"

namespace ruvo::brush {

namespace {

// Dots of two by two, far apart; and single dots in every second place of two rows.
constexpr std::array<std::array<const char*, 6>, 2> kTiles = {{
    {"......", ".##...", ".##...", "......", "......", "......"},
    {"#...", "....", "..#.", "...."},
}};

}  // namespace

raster::Surface patternTile(int index, Colour ink, Colour ground) {
  const auto& rows = kTiles[index == 0 ? 0 : 1];
  const auto height = std::find(rows.begin(), rows.end(), nullptr) - rows.begin();
  raster::Surface tile;
  tile.create(static_cast<int>(std::strlen(rows[0])), static_cast<int>(height), 32);
  for (int y = 0; y < tile.height(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(tile.pictureRow(y));
    for (int x = 0; x < tile.width(); ++x) row[x] = Pixel32::plain(rows[y][x] == '#' ? ink : ground);
  }
  return tile;
}

Rect floodFill(clsDIB& picture, int x, int y, int pattern, Colour colour, const clsDIB& custom) {
  if (!picture.surface().bounds().contains(x, y)) return {};
  const Pixel32 start = reinterpret_cast<const Pixel32*>(picture.surface().pictureRow(y))[x];
  const Colour clicked = seen(picture, start).colour();

  raster::DrawContext context(picture.surface());
  context.alphaFill = picture.DIBhasAlpha();
  context.backColour = clicked;
  raster::Surface tile;
  if (pattern == kSolid) {
    context.brush = raster::Brush::solid(colour);
  } else if (pattern == kDots1 || pattern == kDots2) {
    tile = patternTile(pattern - kDots1, colour, clicked);
    context.brush = raster::Brush::pattern(tile);
  } else if (pattern >= kFirstHatch && pattern <= kLastHatch) {
    context.brush = raster::Brush::hatch(static_cast<raster::HatchStyle>(pattern - kFirstHatch), colour);
  } else if (pattern == kCustomPattern && !custom.empty()) {
    context.brush = raster::Brush::pattern(custom.surface());
  } else {
    return {};
  }
  Rect filled;
  raster::floodFill(context, x, y, start.colour(), raster::FloodMode::Surface, raster::AlphaMatch::Ignore, &filled);
  return filled;
}

}  // namespace ruvo::brush
