// Frames' own tables into the global one.
#include <algorithm>

#include "animation/model/basGIFaniMinimize.h"

namespace ruvo {
namespace {

constexpr int kMostEntries = 256;

// The global table as it grows.
class WorkingTable {
 public:
  explicit WorkingTable(const clsGIF& gif) {
    if (gif.GlobalPaletteExists()) {
      table_ = gif.getGlobalPalette();
      count_ = gif.GlobalPaletteEntries();
    }
    // New entries must not land where pixels past the table already stand, or those of frames that have no table at all
    // and are shown black.
    for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
      if (!gif.LocalPaletteUsed(frame)) count_ = std::max(count_, entriesNeeded(gif, frame));
    }
  }

  const GifTable& table() const { return table_; }
  int count() const { return count_; }

  // Takes the frame in. False, with nothing changed, when its colours have no room here, or without memory.
  bool take(clsGIF& gif, int frame) {
    const int entries = entriesNeeded(gif, frame);
    WorkingTable grown = *this;
    IndexMap map{};
    if (!grown.add(gif.getLocalPalette(frame), entries, map) || !mapFramePixels(gif, frame, map)) return false;
    *this = grown;
    gif.setFrameTransparentColorIndex(frame, map[static_cast<std::size_t>(gif.FrameTransparentColorIndex(frame))]);
    gif.setLocalPaletteUsed(frame, false);
    return true;
  }

 private:
  // Each entry finds one of its own, so that a see-through one never falls together with an opaque one of its colour.
  bool add(const GifTable& table, int entries, IndexMap& map) {
    IndexSet taken{};
    IndexSet matched{};
    const int before = count_;
    for (std::size_t i = 0; i < static_cast<std::size_t>(entries); ++i) {
      for (std::size_t j = 0; j < static_cast<std::size_t>(before); ++j) {
        if (taken[j] || !sameColour(table[i], table_[j])) continue;
        taken[j] = matched[i] = true;
        map[i] = static_cast<std::uint8_t>(j);
        break;
      }
    }
    if (entries - std::ranges::count(matched, true) > kMostEntries - before) return false;
    for (std::size_t i = 0; i < static_cast<std::size_t>(entries); ++i) {
      if (matched[i]) continue;
      table_[static_cast<std::size_t>(count_)] = table[i];
      map[i] = static_cast<std::uint8_t>(count_++);
    }
    return true;
  }

  GifTable table_{};
  int count_ = 0;
};

int localToGlobal(clsGIF& gif, int first, int last) {
  WorkingTable working(gif);
  int moved = 0;
  for (int frame = first; frame <= last; ++frame) {
    if (gif.LocalPaletteUsed(frame) && working.take(gif, frame)) ++moved;
  }
  if (moved > 0) {
    gif.setGlobalPaletteExists(true);
    setGlobalTable(gif, working.table(), working.count());
  }
  return moved;
}

}  // namespace

bool LocalToGlobalOneFrame(clsGIF& Gif, int Frame) {
  return localToGlobal(Gif, Frame, Frame) == 1;
}

int LocalToGlobalAllFrames(clsGIF& Gif) {
  return localToGlobal(Gif, 1, Gif.FramesCount());
}

}  // namespace ruvo
