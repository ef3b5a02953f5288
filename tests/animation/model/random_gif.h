// Small animations of chance for tests that hold for every GIF: few colours, so that entries repeat and transparent
// colours stand among opaque ones; several tables; shared pictures; transparent indices past the entries.
#pragma once

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "animation/model/palette_maps.h"
#include "formats/clsGIF.h"
#include "formats/gif_player.h"
#include "support/pictures.h"

namespace ruvo::test {

class RandomGif {
 public:
  explicit RandomGif(unsigned seed) : random_(seed) {}

  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  bool chance(int percent) { return below(100) < percent; }
  Colour colour() {
    const auto channel = [this] { return std::array{0, 1, 128, 254, 255}[static_cast<std::size_t>(below(5))]; };
    return rgb(channel(), channel(), channel());
  }

  // 1 to 6 frames on a screen of 8 x 8. Without odd indices every index stands within its table.
  clsGIF make(bool oddIndices = false) {
    clsGIF gif;
    GifTable global{};
    const int globalEntries = fill(global);
    const int frames = 1 + below(5);
    for (int frame = 1; frame <= frames; ++frame) {
      addFrame(gif, frame, chance(50) ? globalEntries : 0, oddIndices);
    }
    gif.setGlobalPaletteExists(true);
    setGlobalTable(gif, global, globalEntries);
    gif.setBgdColorIndex(below(globalEntries));
    if (chance(50) && gif.FrameInsertImage(gif.FrameDIBXOR(1), frames + 1))
      gif.FrameCopy(1 + below(frames), frames + 1);
    gif.setBgdWidth(8);
    gif.setBgdHeight(8);
    gif.Remask_All_Frames();
    return gif;
  }

 private:
  int fill(GifTable& table) {
    const int entries = 2 + below(12);
    for (int i = 0; i < entries; ++i) table[static_cast<std::size_t>(i)] = raster::TableEntry::of(colour());
    return entries;
  }

  void addFrame(clsGIF& gif, int frame, int globalEntries, bool oddIndices) {
    GifTable table{};
    const int entries = globalEntries > 0 ? globalEntries : fill(table);
    const int transparent = below(oddIndices && chance(30) ? 256 : entries);
    clsDIB picture = plainDib(1 + below(6), 1 + below(6), kBlack, 8, true);
    for (std::uint8_t& index : picture.surface().bytes()) {
      index = static_cast<std::uint8_t>(chance(30) ? transparent : below(entries));
    }
    ASSERT_TRUE(gif.FrameInsertImage(picture, frame));
    gif.setLocalPaletteUsed(frame, globalEntries == 0);
    setFrameTable(gif, frame, table, entries);
    gif.setFrameUseTransparentColor(frame, chance(60) || transparent >= entries);
    gif.setFrameTransparentColorIndex(frame, gif.FrameUseTransparentColor(frame) ? transparent : 0);
    gif.setFrameLeft(frame, below(6));
    gif.setFrameTop(frame, below(6));
    gif.setFrameDisposalMethod(frame, below(4));
  }

  std::mt19937 random_;
};

inline int indexAt(const clsGIF& gif, int frame, int x, int y) {
  return gif.FrameDIBXOR(frame).surface().pictureRow(y)[x];
}
inline bool isSeeThrough(const clsGIF& gif, int frame, int x, int y) {
  return gif.FrameUseTransparentColor(frame) && indexAt(gif, frame, x, y) == gif.FrameTransparentColorIndex(frame);
}

// Every screen that is shown, as 0xAABBGGRR.
inline std::vector<std::vector<std::uint32_t>> shown(const clsGIF& gif) {
  std::vector<std::vector<std::uint32_t>> screens;
  for (GifPlayer player(gif); player.next() != 0;) {
    screens.emplace_back();
    const auto pixels = player.screen().view32();
    for (int i = 0; i < pixels.width() * pixels.height(); ++i) {
      const Pixel32 pixel = pixels.at(i % pixels.width(), i / pixels.width());
      screens.back().push_back(pixel.alpha == 0 ? 0 : pixel.colour() | 0xFF000000u);
    }
  }
  return screens;
}

// Copies of the global table and both surfaces of every frame agree with the tables and the transparency.
inline void expectInStep(const clsGIF& gif) {
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (!gif.LocalPaletteUsed(frame)) {
      EXPECT_EQ(gif.LocalPaletteEntries(frame), gif.GlobalPaletteEntries()) << frame;
      EXPECT_EQ(gif.getLocalPalette(frame), gif.getGlobalPalette()) << frame;
    }
    GifTable table = gif.getLocalPalette(frame);
    if (gif.FrameUseTransparentColor(frame))
      table[static_cast<std::size_t>(gif.FrameTransparentColorIndex(frame))] = {};
    EXPECT_TRUE(std::ranges::equal(gif.FrameDIBXOR(frame).surface().table(), table)) << frame;
    raster::Surface mask = surfaceOf(rowsOf(gif.FrameDIBAND(frame)));
    for (int i = 0; i < mask.width() * mask.height(); ++i) {
      const int x = i % mask.width(), y = i / mask.width();
      ASSERT_EQ(pixelAt(mask, x, y).colour() == kWhite, isSeeThrough(gif, frame, x, y))
          << frame << ": " << x << ' ' << y;
    }
  }
}

}  // namespace ruvo::test
