// What pasting decides without a window: how each menu item pastes, which sizes are refused or asked about, and in which
// words.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "canvas/engine/region_engine.h"
#include "platform/imaging/picture_loader.h"

namespace ruvo {

inline constexpr const char* kFitInQuestion = "Cannot paste in Fit-In screen.  Change to actual-size screen?";
inline constexpr const char* kFetchFailed = "Failed to fetch image from clipboard.";

// How a menu item pastes; nothing for an item that is none of the paste family.
std::optional<PasteManner> pasteMannerOf(std::string_view control, int index);

// Why the clipboard gave no picture, in words; empty when it gave one.
std::string fetchFaultText(const imaging::LoadResult& fetched);
// A fetched bitmap or metafile as pixels, 32 bits, what is see-through shown over white. False without memory.
bool takeFetched(const imaging::Picture& fetched, clsDIB& picture);

// The picture area that holds both, each from its top left.
Size enlargedSize(Size current, Size incoming);
std::string enlargeQuestion(Size incoming);

}  // namespace ruvo
