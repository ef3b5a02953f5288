#include "animation/model/palette_maps.h"

#include <algorithm>
#include <numeric>

namespace ruvo {

IndexMap identityMap() {
  IndexMap map;
  std::iota(map.begin(), map.end(), std::uint8_t{0});
  return map;
}

bool mapFramePixels(clsGIF& gif, int frame, const IndexMap& map) {
  // A picture that would stay as it is may go on being shared.
  if (map == identityMap()) return true;
  clsDIB* dib = gif.ownFrameDIBXOR(frame);
  if (!dib || dib->surface().depth() != 8) return false;
  const raster::View8 view = dib->surface().view8();
  for (int y = 0; y < view.height(); ++y) {
    std::uint8_t* row = view.row(y);
    std::transform(row, row + view.width(), row, [&map](std::uint8_t index) { return map[index]; });
  }
  return true;
}

bool mapGlobalPixels(clsGIF& gif, const IndexMap& map) {
  if (map == identityMap()) return true;
  const auto eachGlobal = [&gif](auto&& act) {
    for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
      if (!gif.LocalPaletteUsed(frame) && !act(frame)) return false;
    }
    return true;
  };
  // Once the pictures are the frames' own, nothing can fail any more.
  return eachGlobal([&](int frame) {
           const clsDIB* dib = gif.ownFrameDIBXOR(frame);
           return dib && dib->surface().depth() == 8;
         }) &&
         eachGlobal([&](int frame) { return mapFramePixels(gif, frame, map); });
}

void setFrameTable(clsGIF& gif, int frame, const GifTable& table, int entries) {
  raster::TableEntry* own = gif.LocalPalettePtr(frame);
  if (!own) return;
  std::copy(table.begin(), table.end(), own);
  gif.setLocalPaletteEntries(frame, entries);
  if (clsDIB* dib = gif.ownFrameDIBXOR(frame)) {
    dib->SetPaletteToDIB8BPP({reinterpret_cast<const std::uint8_t*>(table.data()), sizeof(table)});
  }
}

void setGlobalTable(clsGIF& gif, const GifTable& table, int entries) {
  const GifTable copy = table;  // it may be a table of the model
  gif.CopyToGlobalPalette(copy);
  gif.setGlobalPaletteEntries(entries);
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (!gif.LocalPaletteUsed(frame)) setFrameTable(gif, frame, copy, entries);
  }
}

void markUsed(const clsGIF& gif, int frame, IndexSet& used) {
  const raster::Surface& picture = gif.FrameDIBXOR(frame).surface();
  if (picture.depth() != 8) return;
  const auto view = picture.view8();
  for (int y = 0; y < view.height(); ++y) {
    for (const std::uint8_t index : std::span(view.row(y), static_cast<std::size_t>(view.width()))) used[index] = true;
  }
}

int entriesNeeded(const clsGIF& gif, int frame) {
  IndexSet used{};
  markUsed(gif, frame, used);
  if (gif.FrameUseTransparentColor(frame)) used[static_cast<std::size_t>(gif.FrameTransparentColorIndex(frame))] = true;
  const auto last = std::find(used.rbegin(), used.rend(), true);
  return std::max(gif.LocalPaletteEntries(frame), static_cast<int>(used.rend() - last));
}

namespace {

bool anyFrame(const clsGIF& gif, bool local) {
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (gif.LocalPaletteUsed(frame) == local) return true;
  }
  return false;
}

}  // namespace

bool anyFrameUsesGlobal(const clsGIF& gif) {
  return anyFrame(gif, false);
}

bool anyFrameUsesLocal(const clsGIF& gif) {
  return anyFrame(gif, true);
}

bool sameColour(const raster::TableEntry& a, const raster::TableEntry& b) {
  return a.colour() == b.colour();
}

}  // namespace ruvo
