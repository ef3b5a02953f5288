// An animation as programs that film a screen leave it, always the same: balls roll over a photograph. Every frame has
// a table of its own, in another order each time; each second one is whole, and the others are see-through where nothing
// has changed.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "formats/clsGIF.h"
#include "image/clsPal.h"
#include "image/clsPalDither.h"
#include "photograph.h"

namespace ruvo::bench {

inline constexpr int kMovingWidth = 480;
inline constexpr int kMovingHeight = 360;
inline constexpr int kGroundColours = 150;
inline constexpr int kBallShades = 24;
inline constexpr int kBalls = 3;
inline constexpr int kMovingColours = kGroundColours + kBalls * kBallShades;

using Indices = std::vector<std::uint8_t>;  // 0 is see-through, the colours begin at 1

inline Indices ground(GifTable& table) {
  clsDIB dib = photograph(kMovingWidth, kMovingHeight);
  clsPal pal;
  pal.CreateOptimal(dib, kGroundColours);
  clsPalDither dither;
  dither.DitherToPalette256(dib, pal);
  for (std::size_t i = 0; i < kGroundColours; ++i) table[i + 1] = pal.PalettePtr()[i];
  Indices indices;
  for (int y = 0; y < kMovingHeight; ++y) {
    for (const std::uint8_t index : dither.row(kMovingHeight - 1 - y))
      indices.push_back(static_cast<std::uint8_t>(index + 1));
  }
  return indices;
}

// A ball is lit from its upper left.
inline void drawBall(Indices& indices, int ball, int frame) {
  const double radius = 30 + 14 * ball;
  const double cx = kMovingWidth / 2.0 + 180 * std::sin(0.05 * frame + 2 * ball);
  const double cy = kMovingHeight / 2.0 + 110 * std::cos(0.07 * frame + ball);
  for (int y = 0; y < kMovingHeight; ++y) {
    for (int x = 0; x < kMovingWidth; ++x) {
      const double dx = (x - cx) / radius, dy = (y - cy) / radius;
      if (dx * dx + dy * dy >= 1) continue;
      const int shade = static_cast<int>((kBallShades - 1) * std::min(1.0, std::hypot(dx + 0.4, dy + 0.4) / 1.4));
      indices[static_cast<std::size_t>(y * kMovingWidth + x)] =
          static_cast<std::uint8_t>(1 + kGroundColours + ball * kBallShades + shade);
    }
  }
}

// The colours of a frame change places among themselves.
inline clsDIB movingFrame(const Indices& now, const Indices* before, const GifTable& table, int frame) {
  const auto place = [frame](int index) { return index == 0 ? 0 : 1 + (index - 1 + 7 * frame) % kMovingColours; };
  GifTable own{};
  for (int i = 0; i <= kMovingColours; ++i)
    own[static_cast<std::size_t>(place(i))] = table[static_cast<std::size_t>(i)];
  clsDIB dib;
  dib.CreateBlankDIB(kMovingWidth, kMovingHeight, 8, kWhite, true);
  dib.SetPaletteToDIB8BPP({reinterpret_cast<const std::uint8_t*>(own.data()), sizeof(own)});
  for (std::size_t i = 0; i < now.size(); ++i) {
    const int index = before && (*before)[i] == now[i] ? 0 : now[i];
    dib.DIBBitsPtr()[i] = static_cast<std::uint8_t>(place(index));  // the width is a multiple of four
  }
  return dib;
}

inline std::vector<std::uint8_t> movingPicture(int frames) {
  GifTable table{};
  const Indices empty = ground(table);
  for (int i = 0; i < kBalls * kBallShades; ++i) {
    const int light = 255 - 9 * (i % kBallShades);
    table[static_cast<std::size_t>(1 + kGroundColours + i)] =
        raster::TableEntry::of(rgb(light, light * (i / kBallShades) / kBalls, light / (1 + i / kBallShades)));
  }
  clsGIF gif;
  Indices before;
  for (int frame = 1; frame <= frames; ++frame) {
    Indices now = empty;
    for (int ball = 0; ball < kBalls; ++ball) drawBall(now, ball, frame);
    const bool partial = frame % 2 == 0;
    GifFrameSettings settings;
    settings.Delay = 4;
    settings.DisposalMethod = 1;
    settings.UseTransparentColor = partial;
    settings.TransparentColorIndex = 0;
    gif.FrameInsertImage(movingFrame(now, partial ? &before : nullptr, table, frame), frame, settings);
    before = std::move(now);
  }
  return gif.saveBytes(0, "made by the benchmarks");
}

}  // namespace ruvo::bench
