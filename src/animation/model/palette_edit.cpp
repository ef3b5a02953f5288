#include "animation/model/palette_edit.h"

#include <algorithm>

namespace ruvo {
namespace {

// What was written to the global table reaches the copies in the frames only here.
void followGlobal(clsGIF& gif) {
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (!gif.LocalPaletteUsed(frame)) gif.UpdateLocalPalettePerGlobal(frame);
  }
}

void follow(clsGIF& gif, int frame) {
  if (frameUsesGlobalPalette(gif, frame)) {
    followGlobal(gif);
  } else {
    gif.UpdateLocalPalettePerLocal(frame);
  }
}

int entriesOf(const clsGIF& gif, int frame) {
  return frameUsesGlobalPalette(gif, frame) ? gif.GlobalPaletteEntries() : gif.LocalPaletteEntries(frame);
}

Colour colorOf(const clsGIF& gif, int frame, int index) {
  return frameUsesGlobalPalette(gif, frame) ? gif.GlobalPaletteColor(index) : gif.LocalPaletteColor(frame, index);
}

void writeColor(clsGIF& gif, int frame, int index, Colour color) {
  const int red = redOf(color), green = greenOf(color), blue = blueOf(color);
  if (frameUsesGlobalPalette(gif, frame)) {
    gif.GlobalPaletteR_G_B_Change(index, red, green, blue);
  } else {
    gif.LocalPaletteR_G_B_Change(frame, index, red, green, blue);
  }
}

}  // namespace

void SavedPalettes::save(const clsGIF& Gif) {
  global_ = Gif.getGlobalPalette();
  local_.clear();
  for (int frame = 1; frame <= Gif.FramesCount(); ++frame) local_.push_back(Gif.getLocalPalette(frame));
}

void SavedPalettes::drop() {
  local_.clear();
}

void SavedPalettes::putBack(clsGIF& Gif) const {
  if (!saved()) return;
  Gif.CopyToGlobalPalette(global_);
  const int frames = std::min(Gif.FramesCount(), static_cast<int>(local_.size()));
  for (int frame = 1; frame <= frames; ++frame) {
    if (frameUsesGlobalPalette(Gif, frame)) continue;
    const GifTable& table = local_[static_cast<std::size_t>(frame) - 1];
    std::copy(table.begin(), table.end(), Gif.LocalPalettePtr(frame));
    Gif.UpdateLocalPalettePerLocal(frame);
  }
  if (Gif.GlobalPaletteExists()) followGlobal(Gif);
}

bool frameUsesGlobalPalette(const clsGIF& Gif, int Frame) {
  return Frame >= 1 && Frame <= Gif.FramesCount() && Gif.GlobalPaletteExists() && !Gif.LocalPaletteUsed(Frame);
}

void scalePalette(clsGIF& Gif, int Frame, int Percent) {
  for (int i = 0; i < entriesOf(Gif, Frame); ++i) {
    const Colour color = colorOf(Gif, Frame, i);
    const auto scaled = [Percent](int channel) { return std::clamp(channel * Percent / 100, 0, 255); };
    writeColor(Gif, Frame, i, rgb(scaled(redOf(color)), scaled(greenOf(color)), scaled(blueOf(color))));
  }
  follow(Gif, Frame);
}

bool changePaletteColor(clsGIF& Gif, int Frame, int Index, Colour Color) {
  if (Index < 0 || Index >= entriesOf(Gif, Frame)) return false;
  writeColor(Gif, Frame, Index, Color);
  follow(Gif, Frame);
  return true;
}

bool inPaletteScope(const clsGIF& Gif, int Frame, int Current, PaletteScope Scope) {
  switch (Scope) {
    case PaletteScope::AllFrames:
      return true;
    case PaletteScope::GlobalOnly:
      return !Gif.LocalPaletteUsed(Frame);
    case PaletteScope::AllLocal:
      return Gif.LocalPaletteUsed(Frame);
    case PaletteScope::CurrentLocalOnly:
      return Frame == Current && Gif.LocalPaletteUsed(Frame);
  }
  return false;
}

int setTransparentIndex(clsGIF& Gif, int Frame, PaletteScope Scope, int Index) {
  int count = 0;
  for (int frame = 1; frame <= Gif.FramesCount(); ++frame) {
    if (!inPaletteScope(Gif, frame, Frame, Scope) || Index >= entriesOf(Gif, frame)) continue;
    const int index = std::max(Index, 0);
    Gif.setFrameUseTransparentColor(frame, Index >= 0);
    Gif.setFrameTransparentColorIndex(frame, index);
    Gif.FrameMask(frame, index);
    ++count;
  }
  return count;
}

}  // namespace ruvo
