// Reads a GIF into frames; what could be read is played, shown, written and read again, and has to stay what it is. Large
// pictures are only read, to keep the runs many.
#include <cstdlib>

#include "animation/model/gif_texts.h"
#include "animation/model/gif_view.h"
#include "formats/gif_player.h"
#include "fuzz_entry.h"

RUVO_FUZZ_ENTRY(gif_model, data) {
  using namespace ruvo;
  std::vector<std::uint8_t> bytes(data.begin(), data.end());
  clsGIF gif;
  if (gif.LoadStream(bytes) != kGifOk) return;
  std::int64_t pixels = static_cast<std::int64_t>(gif.BgdWidth()) * gif.BgdHeight();
  for (int i = 1; i <= gif.FramesCount(); ++i) pixels += std::int64_t{gif.FrameWidth(i)} * gif.FrameHeight(i);
  if (pixels > 1 << 14) return;

  GifPlayer player(gif);
  while (player.next() != 0) {
  }
  GifView view;
  if (!view.create(gif, kWhite)) return;
  for (const BgdPattern pattern : {kPatternOriginal, kPatternTransparentColor, kPatternTile, kPatternFrameSize}) {
    view.start();
    for (int i = 1; i <= gif.FramesCount(); ++i) {
      view.composeStill(gif, i, pattern);
      view.tick(gif, pattern);
      if (frameLinePieces(gif, i).size() != 10) std::abort();
    }
  }
  const std::vector<std::uint8_t> saved = gif.saveBytes(0, gif.CommentText());
  std::vector<std::uint8_t> again = saved;
  if (gif.LoadStream(again) != kGifOk || gif.saveBytes(0, gif.CommentText()) != saved) std::abort();
}
