#include "effects/model/room.h"

#include <algorithm>
#include <utility>

#include "base/limits.h"
#include "effects/model/pixel_cover.h"

namespace ruvo {

bool makeRoom(clsDIB& picture, const Room& room, Pixel32 fill) {
  const std::int64_t width = std::int64_t{picture.DIBWidth()} + room.left + room.right;
  const std::int64_t height = std::int64_t{picture.DIBHeight()} + room.top + room.bottom;
  if (!pictureSizeAllowed(width, height)) return true;
  if (width == picture.DIBWidth() && height == picture.DIBHeight()) return true;
  clsDIB larger;
  if (!larger.CreateBlankDIB(static_cast<int>(width), static_cast<int>(height), 32, fill.colour(),
                             picture.BottomUp())) {
    return false;
  }
  larger.setDIBhasAlpha(picture.DIBhasAlpha());
  for (int y = 0; y < larger.DIBHeight(); ++y) {
    Pixel32* row = pixelRow(larger.surface(), y);
    const int from = y - room.top;
    if (fill.alpha != 0) std::fill(row, row + width, fill);
    if (from >= 0 && from < picture.DIBHeight())
      std::copy_n(pixelRow(std::as_const(picture).surface(), from), picture.DIBWidth(), row + room.left);
  }
  picture = std::move(larger);
  return true;
}

Rect shownPart(const clsDIB& picture) {
  Rect part;
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    const Pixel32* row = pixelRow(picture.surface(), y);
    const Pixel32* end = row + picture.DIBWidth();
    const auto shown = [](Pixel32 p) { return p.alpha != 0; };
    const Pixel32* first = std::find_if(row, end, shown);
    if (first == end) continue;
    const Pixel32* last = end;
    while (!shown(*(last - 1))) --last;
    part = part.united({static_cast<int>(first - row), y, static_cast<int>(last - row), y + 1});
  }
  return part;
}

}  // namespace ruvo
