// The repair of inconsistent data, and the questions that it asks.
#include <algorithm>
#include <cstring>

#include "animation/model/basGIFaniMinimize.h"
#include "animation/model/gif_repairs.h"

namespace ruvo {
namespace {

bool usesGlobal(const clsGIF& gif, int frame) {
  return gif.GlobalPaletteExists() && !gif.LocalPaletteUsed(frame);
}

}  // namespace

bool backgroundWithoutTable(const clsGIF& gif) {
  return gif.BgdColorIndex() != 0 && !gif.GlobalPaletteExists();
}

bool backgroundPastTable(const clsGIF& gif) {
  return gif.BgdColorIndex() != 0 && gif.GlobalPaletteExists() && gif.BgdColorIndex() >= gif.GlobalPaletteEntries();
}

bool transparentPastGlobal(const clsGIF& gif, int frame) {
  return usesGlobal(gif, frame) && gif.FrameTransparentColorIndex(frame) >= gif.GlobalPaletteEntries();
}

bool transparentPastLocal(const clsGIF& gif, int frame) {
  return gif.LocalPaletteUsed(frame) && gif.FrameUseTransparentColor(frame) &&
         gif.FrameTransparentColorIndex(frame) >= gif.LocalPaletteEntries(frame);
}

bool copyHasOtherCount(const clsGIF& gif, int frame) {
  return usesGlobal(gif, frame) && gif.LocalPaletteEntries(frame) != gif.GlobalPaletteEntries();
}

bool copyHasOtherColours(const clsGIF& gif, int frame) {
  if (!usesGlobal(gif, frame)) return false;
  const auto global = std::span(gif.getGlobalPalette()).first(static_cast<std::size_t>(gif.GlobalPaletteEntries()));
  return !std::equal(global.begin(), global.end(), gif.getLocalPalette(frame).begin(), sameColour);
}

bool nothingSeeThrough(const clsGIF& gif, int frame) {
  if (!gif.FrameUseTransparentColor(frame)) return false;
  const raster::Surface& picture = gif.FrameDIBXOR(frame).surface();
  if (picture.depth() != 8) return true;
  const auto view = picture.view8();
  const int index = gif.FrameTransparentColorIndex(frame);
  for (int y = 0; y < view.height(); ++y) {
    if (std::memchr(view.row(y), index, static_cast<std::size_t>(view.width()))) return false;
  }
  return true;
}

bool RectifyGIFData(clsGIF& Gif) {
  bool changed = false;
  const auto extendGlobal = [&](int index) {
    Gif.setGlobalPaletteEntries(index + 1);
    changed = true;
  };
  if (backgroundWithoutTable(Gif)) {
    Gif.setBgdColorIndex(0);
    changed = true;
  }
  if (backgroundPastTable(Gif)) extendGlobal(Gif.BgdColorIndex());
  for (int frame = 1; frame <= Gif.FramesCount(); ++frame) {
    if (transparentPastGlobal(Gif, frame)) extendGlobal(Gif.FrameTransparentColorIndex(frame));
  }
  // The copies follow when the global table has reached its size.
  for (int frame = 1; frame <= Gif.FramesCount(); ++frame) {
    if (transparentPastLocal(Gif, frame)) {
      Gif.setLocalPaletteEntries(frame, Gif.FrameTransparentColorIndex(frame) + 1);
      changed = true;
    }
    if (copyHasOtherCount(Gif, frame)) {
      Gif.setLocalPaletteEntries(frame, Gif.GlobalPaletteEntries());
      changed = true;
    }
    const bool idleIndex = !Gif.FrameUseTransparentColor(frame) && Gif.FrameTransparentColorIndex(frame) != 0;
    if (idleIndex || nothingSeeThrough(Gif, frame)) {
      Gif.setFrameUseTransparentColor(frame, false);
      Gif.setFrameTransparentColorIndex(frame, 0);
      changed = true;
    }
    if (copyHasOtherColours(Gif, frame)) {
      Gif.UpdateLocalPalettePerGlobal(frame);
      changed = true;
    }
  }
  return changed;
}

}  // namespace ruvo
