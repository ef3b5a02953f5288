// Entries that no pixel uses.
#include <algorithm>

#include "animation/model/basGIFaniMinimize.h"

namespace ruvo {
namespace {

struct Compacted {
  IndexMap map{};  // of an entry that is not used: 0
  GifTable table{};
  int entries = 0;
};

Compacted compact(const GifTable& table, const IndexSet& used) {
  Compacted result;
  for (std::size_t i = 0; i < used.size(); ++i) {
    if (!used[i]) continue;
    result.map[i] = static_cast<std::uint8_t>(result.entries);
    result.table[static_cast<std::size_t>(result.entries++)] = table[i];
  }
  // A table has an entry at least, also when nothing is drawn with it.
  if (result.entries == 0) result.table[result.entries++] = table[0];
  return result;
}

// An index that no pixel has would become that of an opaque entry, so such a frame is no longer transparent.
void followTransparent(clsGIF& gif, int frame, const IndexSet& used, const IndexMap& map) {
  const auto index = static_cast<std::size_t>(gif.FrameTransparentColorIndex(frame));
  if (!used[index]) gif.setFrameUseTransparentColor(frame, false);
  gif.setFrameTransparentColorIndex(frame, map[index]);
}

void dropGlobalTable(clsGIF& gif) {
  gif.setGlobalPaletteExists(false);
  gif.setGlobalPaletteEntries(0);
  gif.setGlobalPaletteSorted(false);
  gif.CopyToGlobalPalette({});
  gif.setBgdColorIndex(0);
}

}  // namespace

bool RemoveUnusedGlobal(clsGIF& Gif) {
  if (!Gif.GlobalPaletteExists()) return false;
  if (!anyFrameUsesGlobal(Gif)) {
    dropGlobalTable(Gif);
    return true;
  }
  IndexSet used{};
  for (int frame = 1; frame <= Gif.FramesCount(); ++frame) {
    if (!Gif.LocalPaletteUsed(frame)) markUsed(Gif, frame, used);
  }
  if (std::ranges::count(used, true) == Gif.GlobalPaletteEntries()) return true;
  const Compacted fewer = compact(Gif.getGlobalPalette(), used);
  if (!mapGlobalPixels(Gif, fewer.map)) return false;
  setGlobalTable(Gif, fewer.table, fewer.entries);
  Gif.setBgdColorIndex(fewer.map[static_cast<std::size_t>(Gif.BgdColorIndex())]);
  for (int frame = 1; frame <= Gif.FramesCount(); ++frame) {
    if (!Gif.LocalPaletteUsed(frame)) followTransparent(Gif, frame, used, fewer.map);
  }
  return true;
}

bool RemoveUnusedLocal(clsGIF& Gif, int Frame) {
  if (!Gif.LocalPaletteUsed(Frame)) return false;
  IndexSet used{};
  markUsed(Gif, Frame, used);
  if (std::ranges::count(used, true) == Gif.LocalPaletteEntries(Frame)) return true;
  const Compacted fewer = compact(Gif.getLocalPalette(Frame), used);
  if (!mapFramePixels(Gif, Frame, fewer.map)) return false;
  setFrameTable(Gif, Frame, fewer.table, fewer.entries);
  followTransparent(Gif, Frame, used, fewer.map);
  return true;
}

}  // namespace ruvo
