// What the drawn effects share: colours laid over pixels by a cover, the ordered grain that hides the steps of slow
// ramps, and the walk over the rows.
#pragma once

#include <array>
#include <cstdint>
#include <type_traits>

#include "base/colour.h"
#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

// A cover is a share from 0 to kFullCover.
inline constexpr int kFullCover = 256;

constexpr int coverOf(double share) {
  return share <= 0 ? 0 : share >= 1 ? kFullCover : static_cast<int>(share * kFullCover + 0.5);
}

// From `from` at cover 0 to `to` at full cover.
constexpr std::uint8_t coverByte(int from, int to, int cover) {
  return static_cast<std::uint8_t>((from * kFullCover + (to - from) * cover + kFullCover / 2) / kFullCover);
}

// The colour of `paint` laid over `under`. Byte 3 stays as it is unless it `isAlpha`; then it becomes more opaque, and
// a see-through pixel takes the paint's colour and not a mix with the colour that nobody sees.
inline Pixel32 laidOver(Pixel32 under, Pixel32 paint, int cover, bool isAlpha) {
  if (!isAlpha || under.alpha == 255) {
    return {coverByte(under.blue, paint.blue, cover), coverByte(under.green, paint.green, cover),
            coverByte(under.red, paint.red, cover), under.alpha};
  }
  if (cover == 0) return under;
  const int mine = cover * 255, below = (kFullCover - cover) * under.alpha;  // together the alpha x kFullCover
  const int both = mine + below;
  const auto channel = [&](int u, int p) {
    return static_cast<std::uint8_t>((p * mine + u * below + both / 2) / both);
  };
  return {channel(under.blue, paint.blue), channel(under.green, paint.green), channel(under.red, paint.red),
          static_cast<std::uint8_t>((both + kFullCover / 2) / kFullCover)};
}

// Thresholds from 0 to 252, each once in 8 x 8 pixels and far from its neighbours in value: added to a channel in
// 256ths they round it up in just so many pixels as its fraction asks for. Whole values stay as they are.
inline constexpr auto kGrain = [] {
  std::array<std::array<std::uint8_t, 8>, 8> grain{};
  for (unsigned y = 0; y < 8; ++y) {
    for (unsigned x = 0; x < 8; ++x) {
      unsigned value = 0;
      for (unsigned bit = 0; bit < 3; ++bit) {
        const unsigned across = x >> bit & 1, down = y >> bit & 1;
        value |= ((across ^ down) << 1 | down) << (4 - 2 * bit);
      }
      grain[y][x] = static_cast<std::uint8_t>(value * 4);
    }
  }
  return grain;
}();

// Calls act(y) for the rows 0 to height - 1 and reports after each. False when the work was stopped. An act that
// answers a bool stops the walk by false, as without memory.
template <typename Act>
bool forEachRow(int height, const Progress& progress, const Act& act) {
  bool whole = true;
  for (int y = 0; y < height && whole; ++y) {
    if constexpr (std::is_same_v<std::invoke_result_t<Act, int>, bool>) {
      whole = act(y);
    } else {
      act(y);
    }
    progress.report(static_cast<int>(100LL * (y + 1) / height));
    whole = whole && !progress.stopped();
  }
  progress.finish();
  return whole;
}

inline Pixel32* pixelRow(raster::Surface& surface, int pictureRow) {
  return reinterpret_cast<Pixel32*>(surface.pictureRow(pictureRow));
}
inline const Pixel32* pixelRow(const raster::Surface& surface, int pictureRow) {
  return reinterpret_cast<const Pixel32*>(surface.pictureRow(pictureRow));
}

}  // namespace ruvo
