#include <bit>
#include <cstring>

#include "canvas/engine/brush_mix.h"
#include "canvas/engine/fill.h"

namespace ruvo::brush {

namespace {

static_assert(std::endian::native == std::endian::little, "pixels are compared as whole words");
constexpr std::uint32_t kColourBits = 0x00FFFFFF;

std::uint32_t wordOf(Pixel32 pixel) {
  return std::bit_cast<std::uint32_t>(pixel);
}

// True when something was replaced. No branch a pixel, so that the compiler takes several at once.
bool replaceInRow(std::uint8_t* row, int width, std::uint32_t from, std::uint32_t to) {
  std::uint32_t any = 0;
  for (int x = 0; x < width; ++x) {
    std::uint32_t word;
    std::memcpy(&word, row + 4 * x, 4);
    const std::uint32_t hit = (word & kColourBits) == from ? ~0u : 0u;
    word = (word & ~hit) | (to & hit);
    any |= hit;
    std::memcpy(row + 4 * x, &word, 4);
  }
  return any != 0;
}

}  // namespace

Rect ReplaceColor(clsDIB& picture, Colour from, Colour to) {
  if (picture.empty() || from == to) return {};
  raster::Surface& surface = picture.surface();
  const int width = surface.width();
  const std::uint32_t oldWord = wordOf(Pixel32::plain(from));
  const std::uint32_t newWord = wordOf({blueOf(to), greenOf(to), redOf(to), writtenAlpha(picture)});
  // The columns are found by looking for the old colour beyond the bounds known so far, before it goes.
  Rect changed{width, surface.height(), 0, 0};
  for (int y = 0; y < surface.height(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(surface.pictureRow(y));
    const auto isOld = [&](int x) { return (wordOf(row[x]) & kColourBits) == oldWord; };
    for (int x = 0; x < changed.left; ++x) {
      if (isOld(x)) changed.left = x;
    }
    for (int x = width - 1; x >= changed.right; --x) {
      if (isOld(x)) changed.right = x + 1;
    }
    if (!replaceInRow(surface.pictureRow(y), width, oldWord, newWord)) continue;
    changed.top = std::min(changed.top, y);
    changed.bottom = y + 1;
  }
  return changed.empty() ? Rect{} : changed;
}

}  // namespace ruvo::brush
