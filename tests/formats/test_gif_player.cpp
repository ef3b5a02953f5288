#include "formats/gif_player.h"

#include "formats/gif_bytes.h"

namespace ruvo {
namespace {

using namespace test;

// '.' is see-through, else the index of the colour.
Rows shown(const raster::Surface& screen) {
  Rows rows;
  for (int y = 0; y < screen.height(); ++y) {
    rows.emplace_back();
    for (int x = 0; x < screen.width(); ++x) {
      const Pixel32& p = pixelAt(screen, x, y);
      const auto at = std::find(kFourColours.begin(), kFourColours.end(), p.colour());
      const bool named = p.alpha == 255 && at != kFourColours.end();
      rows.back() += p == Pixel32{} ? '.' : named ? static_cast<char>('0' + (at - kFourColours.begin())) : '?';
    }
  }
  return rows;
}

std::vector<Rows> playedFrames(const GifBytes& file) {
  clsGIF gif;
  EXPECT_EQ(load(gif, file.bytes()), kGifOk);
  GifPlayer player(gif);
  std::vector<Rows> all;
  while (player.next() != 0) all.push_back(shown(player.screen()));
  EXPECT_EQ(player.next(), 0);
  return all;
}

// A frame that covers part of a picture by that method, and a last one that shows what it left.
std::vector<Rows> afterMethod(int method) {
  return playedFrames(GifBytes(3, 2)
                          .control(0)
                          .image({"111", "111"})
                          .control(method << 2 | 1, 0, 0)
                          .image({"20", "22"}, 1, 0)
                          .control(1, 0, 0)
                          .image({"3"}, 0, 1));
}

TEST(GifPlayer, EachMethodLeavesTheScreenAsBrowsersDo) {
  const Rows drawn = {"121", "122"};
  for (const int method : {0, 1, 4, 5, 6, 7}) {
    EXPECT_EQ(afterMethod(method), (std::vector<Rows>{{"111", "111"}, drawn, {"121", "322"}})) << method;
  }
  EXPECT_EQ(afterMethod(2), (std::vector<Rows>{{"111", "111"}, drawn, {"1..", "3.."}}));
  EXPECT_EQ(afterMethod(3), (std::vector<Rows>{{"111", "111"}, drawn, {"111", "311"}}));
}

TEST(GifPlayer, FramesAreCutAtTheScreen) {
  const auto frames = playedFrames(GifBytes(3, 2)
                                       .control(2 << 2)
                                       .image({"123", "123"}, 2, 1)
                                       .control(3 << 2)
                                       .image({"1"}, 60000, 60000)
                                       .control(0)
                                       .image({"222", "222", "222"}));
  EXPECT_EQ(frames, (std::vector<Rows>{{"...", "..1"}, {"...", "..."}, {"222", "222"}}));
}

TEST(GifPlayer, AScreenSmallerThanTheFirstFrameTakesItsSizeAndIsGivenBack) {
  const auto frames =
      playedFrames(GifBytes(1, 1).control(3 << 2).image({"12", "21"}, 5, 5).control(0).image({"3"}, 1, 1));
  EXPECT_EQ(frames, (std::vector<Rows>{{"12", "21"}, {"..", ".3"}}));
}

}  // namespace
}  // namespace ruvo
