// Fewer entries: the entries of several frames are pooled, an optimised palette is made of them, and every frame is
// moved over to it.
#include <algorithm>

#include "animation/model/basGIFaniChangePal.h"
#include "animation/model/basGIFaniChangePal_Private.h"
#include "animation/model/palette_maps.h"
#include "platform/raster/palette_match.h"

namespace ruvo {
namespace {

using raster::TableEntry;

constexpr int kTreeDepth = 8;

std::size_t at(int index) {
  return static_cast<std::size_t>(index);
}

bool isTransparentIndex(const clsGIF& gif, int frame, int index) {
  return gif.FrameUseTransparentColor(frame) && gif.FrameTransparentColorIndex(frame) == index;
}

bool anyTransparent(const clsGIF& gif, const FrameNumbers& frames) {
  return std::ranges::any_of(frames, [&gif](int frame) { return gif.FrameUseTransparentColor(frame); });
}

// The opaque entries of the frames as a picture of one line. A colour stands there as often as frames have it, which
// gives often used palettes their weight. Empty when there is none.
clsDIB pooled(const clsGIF& gif, const FrameNumbers& frames) {
  std::vector<Pixel32> colours;
  for (const int frame : frames) {
    for (int i = 0; i < gif.LocalPaletteEntries(frame); ++i) {
      if (!isTransparentIndex(gif, frame, i)) colours.push_back(Pixel32::plain(gif.LocalPaletteColor(frame, i)));
    }
  }
  clsDIB pool;
  if (colours.empty()) return pool;
  if (!pool.CreateBlankDIB(static_cast<int>(colours.size()), 1, 32, kBlack)) throw std::bad_alloc();
  std::ranges::copy(colours, pool.surface().view32().row(0));
  return pool;
}

// At most `entries` colours for the pool.
void choose(clsPal& palette, const clsDIB& pool, int entries) {
  palette.CreateOptimal(pool, entries, kTreeDepth);
  // The tree joins neighbours even where there is room for both.
  clsPal exact;
  if (palette.MaxCount() < entries && exact.CreatePalette256(pool) && exact.MaxCount() > palette.MaxCount() &&
      exact.MaxCount() <= entries) {
    palette = exact;
  }
  mergeEntries(palette, pool, entries);
}

void buildPalette(const clsGIF& gif, const FrameNumbers& frames, int entries, clsPal& palette) {
  palette.ClearUp();
  const clsDIB pool = pooled(gif, frames);
  if (pool.empty()) return;
  const int place = anyTransparent(gif, frames) ? 1 : 0;
  choose(palette, pool, std::clamp(entries, 2, clsPal::kMostEntries) - place);
  palette.setMaxCount(palette.MaxCount() + place);
}

GifTable tableOf(const clsPal& palette) {
  GifTable table{};
  std::ranges::copy(palette.entriesInUse(), table.begin());
  return table;
}

// Moves all frames of a list over to one palette.
class Reduction {
 public:
  Reduction(clsGIF& gif, FrameNumbers frames, clsPal& palette)
      : gif_(gif), frames_(std::move(frames)), palette_(palette), transparent_(anyTransparent(gif, frames_)) {
    opaque_ = palette.MaxCount() - (transparent_ ? 1 : 0);
  }
  bool toOwnTables();
  bool toGlobalTable();

 private:
  bool prepare();
  std::uint8_t nearest(Colour colour) const;
  IndexMap mapOf(int frame) const;
  int foundPlace() const;
  bool isNeeded(int place) const;
  void settlePalette();
  void apply();

  clsGIF& gif_;
  FrameNumbers frames_;
  clsPal& palette_;
  bool transparent_;
  int opaque_;      // the first entries of the palette are for opaque colours
  int place_ = -1;  // the new transparent index
  std::vector<IndexMap> maps_;
};

std::uint8_t Reduction::nearest(Colour colour) const {
  return static_cast<std::uint8_t>(raster::nearestPaletteIndex(palette_.entriesInUse().first(at(opaque_)), colour));
}

// Indices past the entries have colours too, and a damaged file's pixels may use them.
IndexMap Reduction::mapOf(int frame) const {
  IndexMap map;
  std::ranges::transform(gif_.getLocalPalette(frame), map.begin(),
                         [this](const TableEntry& entry) { return nearest(entry.colour()); });
  return map;
}

// What can fail. The maps still send the transparent indices to opaque entries.
bool Reduction::prepare() {
  if (frames_.empty() || opaque_ < 1 || !ownPictures(gif_, frames_)) return false;
  for (const int frame : frames_) maps_.push_back(mapOf(frame));
  if (transparent_) {
    const int found = foundPlace();
    place_ = found >= 0 && !isNeeded(found) ? found : opaque_;
  }
  return true;
}

// The first entry of the transparent colour; -1 when it is not there or frames have different ones.
int Reduction::foundPlace() const {
  int place = -1;
  for (const int frame : frames_) {
    if (!gif_.FrameUseTransparentColor(frame)) continue;
    const auto opaque = palette_.entriesInUse().first(at(opaque_));
    const auto found = std::ranges::find(opaque, gif_.FrameTransparentColor(frame), &TableEntry::colour);
    const int index = found == opaque.end() ? -1 : static_cast<int>(found - opaque.begin());
    if (index < 0 || (place >= 0 && place != index)) return -1;
    place = index;
  }
  return place;
}

// True when something opaque of any frame goes there.
bool Reduction::isNeeded(int place) const {
  for (std::size_t k = 0; k < frames_.size(); ++k) {
    std::array<bool, 256> opaque{};
    markUsed(gif_, frames_[k], opaque);
    std::fill_n(opaque.begin(), gif_.LocalPaletteEntries(frames_[k]), true);
    for (int i = 0; i < 256; ++i) {
      if (opaque[at(i)] && maps_[k][at(i)] == place && !isTransparentIndex(gif_, frames_[k], i)) return true;
    }
  }
  return false;
}

void Reduction::settlePalette() {
  if (!transparent_) return;
  if (place_ < opaque_) {
    palette_.setMaxCount(opaque_);
    return;
  }
  for (const int frame : frames_) {
    if (!gif_.FrameUseTransparentColor(frame)) continue;
    const Colour colour = gif_.FrameTransparentColor(frame);
    palette_.setRgbR(place_, redOf(colour));
    palette_.setRgbG(place_, greenOf(colour));
    palette_.setRgbB(place_, blueOf(colour));
  }
}

// Tables and pixels of the frames, without masks.
void Reduction::apply() {
  settlePalette();
  const GifTable table = tableOf(palette_);
  for (std::size_t k = 0; k < frames_.size(); ++k) {
    const int frame = frames_[k];
    if (gif_.FrameUseTransparentColor(frame)) {
      maps_[k][at(gif_.FrameTransparentColorIndex(frame))] = static_cast<std::uint8_t>(place_);
      gif_.setFrameTransparentColorIndex(frame, place_);
    }
    mapFramePixels(gif_, frame, maps_[k]);
    setFrameTable(gif_, frame, table, palette_.MaxCount());
  }
}

bool Reduction::toOwnTables() {
  if (!prepare()) return false;
  apply();
  remask(gif_, frames_);
  return true;
}

bool Reduction::toGlobalTable() {
  if (!prepare()) return false;
  // The background index follows its colour or the transparent entry, which the frames are about to leave.
  int background = gif_.BgdColorIndex();
  if (gif_.GlobalPaletteExists()) {
    const bool seeThrough = background == gif_.GlobalTransparentColorIndex();
    background = seeThrough ? place_ : nearest(gif_.GlobalPaletteColor(background));
  }
  apply();
  for (const int frame : frames_) gif_.setLocalPaletteUsed(frame, false);
  gif_.setGlobalPaletteExists(true);
  setGlobalTable(gif_, tableOf(palette_), palette_.MaxCount());
  gif_.setBgdColorIndex(background);
  remask(gif_, frames_);
  return true;
}

FrameNumbers allFrames(const clsGIF& gif) {
  FrameNumbers frames;
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) frames.push_back(frame);
  return frames;
}

}  // namespace

bool ReduceGlobalPalette(clsGIF& Gif, int Entries) {
  return whileMemoryLasts([&] {
    const FrameNumbers frames = framesOfTable(Gif, kGlobalTable);
    if (frames.empty()) return false;
    clsPal palette;
    buildPalette(Gif, frames, Entries, palette);
    return palette.MaxCount() == 0 || ApplyReducedGlobal(Gif, palette);
  });
}

bool ApplyReducedGlobal(clsGIF& Gif, clsPal& Palette) {
  return whileMemoryLasts([&] { return Reduction(Gif, framesOfTable(Gif, kGlobalTable), Palette).toGlobalTable(); });
}

bool ReduceLocalPalette(clsGIF& Gif, int Frame, int Entries) {
  return whileMemoryLasts([&] {
    if (!Gif.LocalPaletteUsed(Frame)) return false;
    clsPal palette;
    buildPalette(Gif, {Frame}, Entries, palette);
    return palette.MaxCount() == 0 || ApplyReducedLocal(Gif, Frame, palette);
  });
}

bool ApplyReducedLocal(clsGIF& Gif, int Frame, clsPal& Palette) {
  return Frame > 0 &&
         whileMemoryLasts([&] { return Reduction(Gif, framesOfTable(Gif, Frame), Palette).toOwnTables(); });
}

bool BuildCommonPalette(const clsGIF& Gif, clsPal& Palette, int Entries) {
  return whileMemoryLasts([&] {
    buildPalette(Gif, allFrames(Gif), Entries, Palette);
    return Gif.FramesCount() > 0;
  });
}

bool ApplyCommonPalette(clsGIF& Gif, clsPal& Palette) {
  return whileMemoryLasts([&] { return Reduction(Gif, allFrames(Gif), Palette).toGlobalTable(); });
}

}  // namespace ruvo
