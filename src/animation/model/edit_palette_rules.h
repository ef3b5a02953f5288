// What the two palette windows ("Edit Palette" and "Optimize &/or change BPP") refuse, ask and do.
#pragma once

#include <optional>
#include <string>

#include "animation/model/palette_edit.h"
#include "formats/clsGIF.h"

namespace ruvo {

// --- One entry's colour. Each refusal is why it can not be done, nothing when it can. An index of -1 is none.

std::optional<std::string> changeColorRefusal(const clsGIF& gif, int frame, int index);

// --- Deletion

enum class PaletteWindow { EditPalette, ChangeBpp };  // their words differ

struct DeleteEntryOrder {
  bool global = true;  // the table of all frames that use the global one; else the frame's own
  int frame = 1;       // the current one
  int index = -1;
  int replacement = -1;
};
std::optional<std::string> deleteEntryRefusal(const clsGIF& gif, const DeleteEntryOrder& order);
// For an order that was not refused.
std::string deleteEntryQuestion(const clsGIF& gif, const DeleteEntryOrder& order, PaletteWindow window);
// Deletes it, masks included; the words when that fails.
std::optional<std::string> deleteEntry(clsGIF& gif, const DeleteEntryOrder& order, PaletteWindow window);

// --- Adding to the palette that the frame uses

std::optional<std::string> addEntryRefusal(const clsGIF& gif, int frame);
// Only when the table is as large as its depth allows.
std::optional<std::string> addEntryQuestion(const clsGIF& gif, int frame);
// Adds it; the words when that fails.
std::optional<std::string> addEntry(clsGIF& gif, int frame, Colour colour);

// --- Transparency

struct TransparencyOrder {
  bool use = true;  // else off
  PaletteScope scope = PaletteScope::AllFrames;
  int frame = 1;   // the current one
  int index = -1;  // the selected one; not looked at when off
};
// Some frame of the scope must have the index in its table; the others stay as they are.
std::optional<std::string> transparencyRefusal(const clsGIF& gif, const TransparencyOrder& order);

// The transparent entry takes another colour.
std::optional<std::string> transparentColorRefusal(const clsGIF& gif, int frame);
std::string transparentColorQuestion(const clsGIF& gif, int frame);
// Another index becomes the transparent one: of the frame and, in the global table, of every frame that had the same
// transparent index there.
std::optional<std::string> transparentIndexRefusal(const clsGIF& gif, int frame, int index);
std::string transparentIndexQuestion(const clsGIF& gif, int frame);
void moveTransparencyTo(clsGIF& gif, int frame, int index);

// --- Other words

inline constexpr const char* kTextClearUnused = "Proceed to clear unused/duplicate palette entries, if any?";
std::string changeBppQuestion(std::size_t item);
std::string changeBppSizeText(std::int64_t original, std::int64_t now);  // lblNewFileSize

}  // namespace ruvo
