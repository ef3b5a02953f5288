#include "animation/model/palette_texts.h"

#include <cstdio>

namespace ruvo {
namespace {

std::string rgbText(const raster::TableEntry& entry) {
  return "RGB(" + std::to_string(entry.red) + ", " + std::to_string(entry.green) + ", " + std::to_string(entry.blue) +
         ")";
}

}  // namespace

FramePalette framePalette(const clsGIF& gif, int frame) {
  if (frame < 1 || frame > gif.FramesCount()) return {};
  return {gif.getLocalPalette(frame), gif.LocalPaletteEntries(frame),
          gif.FrameUseTransparentColor(frame) ? gif.FrameTransparentColorIndex(frame) : -1,
          !gif.LocalPaletteUsed(frame)};
}

std::string paletteHoverText(const GifTable& table, int entries, int index, bool hexDigits) {
  if (index < 0 || index >= static_cast<int>(table.size())) return {};
  const std::string start = "Index  " + std::to_string(index);
  if (index >= entries) return start + "     (Outside applicable palette entries) ";
  char digits[16] = "";
  if (hexDigits) std::snprintf(digits, sizeof digits, "    %02Xh", static_cast<unsigned>(index));
  return start + digits + "     " + rgbText(table[static_cast<std::size_t>(index)]);
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
