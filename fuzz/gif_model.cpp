// Reads a GIF into frames; what could be read is played, written and read again, and has to stay what it is. Large
// pictures are only read, to keep the runs many.
#include <cstdlib>

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
  const std::vector<std::uint8_t> saved = gif.saveBytes(0, gif.CommentText());
  std::vector<std::uint8_t> again = saved;
  if (gif.LoadStream(again) != kGifOk || gif.saveBytes(0, gif.CommentText()) != saved) std::abort();
}
