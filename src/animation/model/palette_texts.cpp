#include "animation/model/palette_texts.h"

#include <cstdio>

#include "animation/model/basGIFaniMinimize.h"
#include "animation/model/palette_edit.h"

namespace ruvo {
namespace {

std::string rgbText(const raster::TableEntry& entry) {
  return "RGB(" + std::to_string(entry.red) + ", " + std::to_string(entry.green) + ", " + std::to_string(entry.blue) +
         ")";
}

}  // namespace

FramePalette framePalette(const clsGIF& gif, int frame) {
  const int transparent = gif.FrameUseTransparentColor(frame) ? gif.FrameTransparentColorIndex(frame) : -1;
  if (frameUsesGlobalPalette(gif, frame))
    return {gif.getGlobalPalette(), gif.GlobalPaletteEntries(), transparent, true};
  return {gif.getLocalPalette(frame), gif.LocalPaletteEntries(frame), transparent, false};
}

FramePalette globalPalette(const clsGIF& gif) {
  return {gif.getGlobalPalette(), gif.GlobalPaletteEntries(), gif.GlobalTransparentColorIndex(), true};
}

std::string paletteHoverText(const GifTable& table, int entries, int index, bool hexDigits) {
  if (index < 0 || index >= static_cast<int>(table.size())) return {};
  const std::string start = "Index  " + std::to_string(index);
  if (index >= entries) return start + "     (Outside applicable palette entries) ";
  char digits[16] = "";
  if (hexDigits) std::snprintf(digits, sizeof digits, "    %02Xh", static_cast<unsigned>(index));
  return start + digits + "     " + rgbText(table[static_cast<std::size_t>(index)]);
}

std::string paletteTypeText(const FramePalette& palette, int frame) {
  const int size = PaletteSizeForEntries(palette.entries);
  int bits = 2;  // two entries are told as 2 bits too
  while ((1 << bits) < size) ++bits;
  return std::string(palette.global ? "Global" : "Local") + " palette - Frame " + std::to_string(frame) + "\n(As " +
         std::to_string(bits) + "-BPP  " + std::to_string(size) + " entries)";
}

std::string paletteEntriesText(const FramePalette& palette) {
  return std::to_string(palette.entries) + " entries.   ";
}

std::string transparentColorText(const FramePalette& palette) {
  if (palette.transparentIndex < 0) return "  (No transparent color)";
  return "Transparent color:  " + rgbText(palette.table[static_cast<std::size_t>(palette.transparentIndex)]) +
         "    At index  " + std::to_string(palette.transparentIndex);
}

}  // namespace ruvo
