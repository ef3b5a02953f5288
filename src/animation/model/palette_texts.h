// What the windows write about a palette and its entries.
#pragma once

#include <string>

#include "formats/clsGIF.h"

namespace ruvo {

// The palette that a frame takes its colours from.
struct FramePalette {
  GifTable table{};
  int entries = 0;
  int transparentIndex = -1;  // -1 without transparency
  bool global = false;
};
FramePalette framePalette(const clsGIF& gif, int frame);
// The table of all frames that have none of their own, with the transparent index that they share.
FramePalette globalPalette(const clsGIF& gif);

// "Index  10    0Ah     RGB(1, 2, 3)", the digits in hexadecimal on demand; other words past the entries.
std::string paletteHoverText(const GifTable& table, int entries, int index, bool hexDigits);
std::string paletteTypeText(const FramePalette& palette, int frame);  // lblPaletteType, two lines
std::string paletteEntriesText(const FramePalette& palette);          // lblEntries
std::string transparentColorText(const FramePalette& palette);        // lblTranspColor

}  // namespace ruvo
