// Single entries of a colour table: moved, removed, added. The global table and a frame's own one go the same ways.
#include "animation/model/basGIFaniChangePal.h"

#include <algorithm>

#include "animation/model/basGIFaniChangePal_Private.h"
#include "animation/model/palette_maps.h"

namespace ruvo {

FrameNumbers framesOfTable(const clsGIF& gif, int frame) {
  FrameNumbers frames;
  if (frame != kGlobalTable) {
    if (gif.LocalPaletteUsed(frame)) frames.push_back(frame);
    return frames;
  }
  for (int i = 1; gif.GlobalPaletteExists() && i <= gif.FramesCount(); ++i) {
    if (!gif.LocalPaletteUsed(i)) frames.push_back(i);
  }
  return frames;
}

bool ownPictures(clsGIF& gif, const FrameNumbers& frames) {
  return std::ranges::all_of(frames, [&gif](int frame) { return gif.ownFrameDIBXOR(frame) != nullptr; });
}

void remask(clsGIF& gif, const FrameNumbers& frames) {
  for (const int frame : frames) gif.FrameMask(frame, gif.FrameTransparentColorIndex(frame));
}

namespace {

std::size_t at(int index) {
  return static_cast<std::size_t>(index);
}

// One table with all that refers to it by index.
class IndexedTable {
 public:
  IndexedTable(clsGIF& gif, int frame) : gif_(gif), frame_(frame), frames_(framesOfTable(gif, frame)) {}

  bool exists() const { return isGlobal() ? gif_.GlobalPaletteExists() : !frames_.empty(); }
  int entries() const { return isGlobal() ? gif_.GlobalPaletteEntries() : gif_.LocalPaletteEntries(frame_); }
  const GifTable& colours() const { return isGlobal() ? gif_.getGlobalPalette() : gif_.getLocalPalette(frame_); }
  // The index that all its transparent frames share; -1 when there is none or they disagree.
  int transparentIndex() const;
  // The first index behind the entries that neither pixels nor transparency use; 256 when there is none.
  int freePlace() const;

  void write(const GifTable& colours, int entries);
  // The same with pixels, transparent and background index sent through the map. False when there is no memory.
  bool write(const GifTable& colours, int entries, const IndexMap& map);
  // Frames whose transparent index it is are not transparent any more.
  void dropTransparency(int index);
  void finish() { remask(gif_, frames_); }

 private:
  bool isGlobal() const { return frame_ == kGlobalTable; }

  clsGIF& gif_;
  int frame_;
  FrameNumbers frames_;
};

int IndexedTable::transparentIndex() const {
  if (isGlobal()) return gif_.GlobalTransparentColorIndex();
  return gif_.FrameUseTransparentColor(frame_) ? gif_.FrameTransparentColorIndex(frame_) : -1;
}

int IndexedTable::freePlace() const {
  std::array<bool, 256> used{};
  for (const int frame : frames_) {
    markUsed(gif_, frame, used);
    if (gif_.FrameUseTransparentColor(frame)) used[at(gif_.FrameTransparentColorIndex(frame))] = true;
  }
  return static_cast<int>(std::find(used.begin() + entries(), used.end(), false) - used.begin());
}

void IndexedTable::write(const GifTable& colours, int entries) {
  if (isGlobal()) {
    setGlobalTable(gif_, colours, entries);
  } else {
    setFrameTable(gif_, frame_, colours, entries);
  }
}

bool IndexedTable::write(const GifTable& colours, int entries, const IndexMap& map) {
  if (!ownPictures(gif_, frames_)) return false;
  for (const int frame : frames_) {
    mapFramePixels(gif_, frame, map);
    if (gif_.FrameUseTransparentColor(frame)) {
      gif_.setFrameTransparentColorIndex(frame, map[at(gif_.FrameTransparentColorIndex(frame))]);
    }
  }
  if (isGlobal()) gif_.setBgdColorIndex(map[at(gif_.BgdColorIndex())]);
  write(colours, entries);
  return true;
}

void IndexedTable::dropTransparency(int index) {
  for (const int frame : frames_) {
    if (!gif_.FrameUseTransparentColor(frame) || gif_.FrameTransparentColorIndex(frame) != index) continue;
    gif_.setFrameUseTransparentColor(frame, false);
    gif_.setFrameTransparentColorIndex(frame, 0);
  }
}

bool moveTransparentIndex(clsGIF& gif, int frame, int target) {
  IndexedTable table(gif, frame);
  const int source = table.transparentIndex();
  if (!table.exists() || source < 0 || source >= table.entries() || target < 0) return false;
  target = std::min(target, table.entries() - 1);
  if (target == source) return false;
  GifTable colours = table.colours();
  IndexMap map = identityMap();
  const int step = source < target ? 1 : -1;
  for (int i = source; i != target; i += step) {
    colours[at(i)] = colours[at(i + step)];
    map[at(i + step)] = static_cast<std::uint8_t>(i);
  }
  colours[at(target)] = table.colours()[at(source)];
  map[at(source)] = static_cast<std::uint8_t>(target);
  if (!table.write(colours, table.entries(), map)) return false;
  table.finish();
  return true;
}

bool deleteEntry(clsGIF& gif, int frame, int index, int replacement) {
  IndexedTable table(gif, frame);
  const int entries = table.entries();
  const auto inside = [entries](int i) { return i >= 0 && i < entries; };
  if (!table.exists() || !inside(index) || !inside(replacement) || index == replacement) return false;
  GifTable colours = table.colours();
  std::copy(colours.begin() + index + 1, colours.end(), colours.begin() + index);
  colours.back() = {};
  IndexMap map = identityMap();
  for (std::size_t i = at(index) + 1; i < map.size(); ++i) map[i] = static_cast<std::uint8_t>(i - 1);
  map[at(index)] = map[at(replacement)];
  if (!ownPictures(gif, framesOfTable(gif, frame))) return false;
  table.dropTransparency(index);
  table.write(colours, entries - 1, map);
  table.finish();
  return true;
}

bool addEntry(clsGIF& gif, int frame, Colour color) {
  IndexedTable table(gif, frame);
  if (!table.exists()) return false;
  const int place = table.freePlace();
  GifTable colours = table.colours();
  if (place >= static_cast<int>(colours.size())) return false;
  colours[at(place)] = raster::TableEntry::of(color);
  table.write(colours, place + 1);
  table.finish();
  return true;
}

}  // namespace

bool MoveGlobalTransparentIndex(clsGIF& Gif, int Target) {
  return whileMemoryLasts([&] { return moveTransparentIndex(Gif, kGlobalTable, Target); });
}
bool MoveLocalTransparentIndex(clsGIF& Gif, int Frame, int Target) {
  return Frame > 0 && whileMemoryLasts([&] { return moveTransparentIndex(Gif, Frame, Target); });
}

bool DeleteGlobalEntry(clsGIF& Gif, int Index, int Replacement) {
  return whileMemoryLasts([&] { return deleteEntry(Gif, kGlobalTable, Index, Replacement); });
}
bool DeleteLocalEntry(clsGIF& Gif, int Frame, int Index, int Replacement) {
  return Frame > 0 && whileMemoryLasts([&] { return deleteEntry(Gif, Frame, Index, Replacement); });
}

bool AddGlobalEntry(clsGIF& Gif, Colour Color) {
  return whileMemoryLasts([&] { return addEntry(Gif, kGlobalTable, Color); });
}
bool AddLocalEntry(clsGIF& Gif, int Frame, Colour Color) {
  return Frame > 0 && whileMemoryLasts([&] { return addEntry(Gif, Frame, Color); });
}

}  // namespace ruvo
