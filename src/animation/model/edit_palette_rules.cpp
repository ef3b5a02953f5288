#include "animation/model/edit_palette_rules.h"

#include <algorithm>

#include "animation/model/basGIFaniChangePal.h"
#include "animation/model/basGIFaniMinimize.h"
#include "animation/model/change_bpp.h"
#include "animation/model/palette_maps.h"
#include "animation/model/palette_texts.h"
#include "base/number_format.h"

namespace ruvo {
namespace {

constexpr int kMostEntries = 256;
constexpr const char* kNoGlobalFrame = "No frame using global palette.  Please select another scope.";
constexpr const char* kFrameNotLocal = "Current frame does not use local palette.  Please select another scope.";
constexpr const char* kOutsideEntries = "Current index outside palette entries.";
constexpr const char* kSelectedOutside = "Currently selected index is outside the palette entries.";
constexpr const char* kNoneSelected = "No currently selected index yet.";

bool hasEntry(const FramePalette& palette, int index) {
  return index >= 0 && index < palette.entries;
}

std::string usesText(const clsGIF& gif, int frame) {
  const std::string kind = frameUsesGlobalPalette(gif, frame) ? "global" : "local";
  return "Current frame uses " + kind + " palette.  Change transparent color of " + kind + " palette";
}

bool isTransparentSomewhere(const clsGIF& gif, const DeleteEntryOrder& order) {
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    const bool touched = order.global ? frameUsesGlobalPalette(gif, frame) : frame == order.frame;
    if (touched && framePalette(gif, frame).transparentIndex == order.index) return true;
  }
  return false;
}

}  // namespace

std::optional<std::string> changeColorRefusal(const clsGIF& gif, int frame, int index) {
  if (index < 0) return kNoneSelected;
  if (!hasEntry(framePalette(gif, frame), index)) return kOutsideEntries;
  return std::nullopt;
}

// --- Deletion

std::optional<std::string> deleteEntryRefusal(const clsGIF& gif, const DeleteEntryOrder& order) {
  if (order.index < 0) return "No palette index selected to delete yet.";
  if (order.replacement < 0) return "No palette index to be replaced with yet.";
  if (order.index == order.replacement) return "Index to delete and index to be replaced with cannot be the same";
  if (order.global && !anyFrameUsesGlobal(gif)) return kNoGlobalFrame;
  if (!order.global && !gif.LocalPaletteUsed(order.frame)) return kFrameNotLocal;
  const int entries = (order.global ? globalPalette(gif) : framePalette(gif, order.frame)).entries;
  if (std::max(order.index, order.replacement) >= entries) return kOutsideEntries;
  return std::nullopt;
}

std::string deleteEntryQuestion(const clsGIF& gif, const DeleteEntryOrder& order, PaletteWindow window) {
  const std::string index = std::to_string(order.index);
  if (!isTransparentSomewhere(gif, order)) return "Proceed to delete color at palette index " + index + "?";
  const std::string start = "Index " + index + " is the transparent index";
  const std::string way = "\n(To turn transparent color into non-transparent, ";
  if (window == PaletteWindow::EditPalette)
    return start + ". Sure to delete it?" + way + "go back to previous screen instead)";
  return start + (order.global ? " for one of more frames" : " for current frame") + ".   Sure to delete it?" + way +
         "run Palette function instead)";
}

std::optional<std::string> deleteEntry(clsGIF& gif, const DeleteEntryOrder& order, PaletteWindow window) {
  const bool done = order.global ? DeleteGlobalEntry(gif, order.index, order.replacement)
                                 : DeleteLocalEntry(gif, order.frame, order.index, order.replacement);
  if (done) return std::nullopt;
  if (order.global) return "Failed to delete color entry for frames using global palette.";
  return window == PaletteWindow::EditPalette ? "Failed to delete color for current frame."
                                              : "Failed to delete color for frames using local palette.";
}

// --- Adding

std::optional<std::string> addEntryRefusal(const clsGIF& gif, int frame) {
  if (framePalette(gif, frame).entries < kMostEntries) return std::nullopt;
  return "There are already 256 entries in current palette.\n(You may change colors of indices.)";
}

std::optional<std::string> addEntryQuestion(const clsGIF& gif, int frame) {
  const int entries = framePalette(gif, frame).entries;
  if (entries != PaletteSizeForEntries(entries)) return std::nullopt;
  return "Current palette has been defined to have a max of " + std::to_string(entries) +
         " entries.   Adding\nan extra entry would result in change in BPP.  (You may change colors\nwithin current "
         "bound of entries instead).   Proceed still?";
}

std::optional<std::string> addEntry(clsGIF& gif, int frame, Colour colour) {
  if (frameUsesGlobalPalette(gif, frame)) {
    if (AddGlobalEntry(gif, colour)) return std::nullopt;
    return "Failed to add color entry for frames using global palette.";
  }
  if (AddLocalEntry(gif, frame, colour)) return std::nullopt;
  return "Failed to add color to current palette.";
}

// --- Transparency

std::optional<std::string> transparencyRefusal(const clsGIF& gif, const TransparencyOrder& order) {
  bool anyFrame = false;
  bool anyEntry = false;
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (!inPaletteScope(gif, frame, order.frame, order.scope)) continue;
    anyFrame = true;
    anyEntry = anyEntry || hasEntry(framePalette(gif, frame), order.index);
  }
  if (!anyFrame) {
    if (order.scope == PaletteScope::AllLocal) return "No frame uses local palette.  Please select another scope.";
    return order.scope == PaletteScope::CurrentLocalOnly ? kFrameNotLocal : kNoGlobalFrame;
  }
  if (!order.use) return std::nullopt;
  if (order.index < 0) return kNoneSelected;
  if (!anyEntry) return kSelectedOutside;
  return std::nullopt;
}

std::optional<std::string> transparentColorRefusal(const clsGIF& gif, int frame) {
  const FramePalette palette = framePalette(gif, frame);
  if (palette.transparentIndex < 0) return "Current frame does not have transparent color";
  if (!hasEntry(palette, palette.transparentIndex)) return kOutsideEntries;
  return std::nullopt;
}

std::string transparentColorQuestion(const clsGIF& gif, int frame) {
  return usesText(gif, frame) + "?";
}

std::optional<std::string> transparentIndexRefusal(const clsGIF& gif, int frame, int index) {
  const FramePalette palette = framePalette(gif, frame);
  if (palette.transparentIndex < 0) return "Current frame does not have transparent color";
  if (index < 0) return kNoneSelected;
  if (!hasEntry(palette, index)) return kSelectedOutside;
  if (index == palette.transparentIndex) return "Current position is already the transparent color index";
  return std::nullopt;
}

std::string transparentIndexQuestion(const clsGIF& gif, int frame) {
  return usesText(gif, frame) + "\nto that of current index on palette.";
}

void moveTransparencyTo(clsGIF& gif, int frame, int index) {
  const FramePalette palette = framePalette(gif, frame);
  for (int other = 1; other <= gif.FramesCount(); ++other) {
    const FramePalette theirs = framePalette(gif, other);
    const bool shares = palette.global && theirs.global && theirs.transparentIndex == palette.transparentIndex;
    if (other != frame && !shares) continue;
    gif.setFrameTransparentColorIndex(other, index);
    gif.FrameMask(other, index);
  }
}

// --- Other words

std::string changeBppQuestion(std::size_t item) {
  return "Proceed to optimize/change BPP to " + bppItemText(item);
}

std::string changeBppSizeText(std::int64_t original, std::int64_t now) {
  const auto text = [](std::int64_t bytes) { return formatNumber(static_cast<double>(bytes), kFormatFileSize); };
  return "Orig file size:  " + text(original) + "     New:  " + text(now) + " bytes";
}

}  // namespace ruvo
