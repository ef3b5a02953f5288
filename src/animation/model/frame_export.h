// A frame as a GIF file of its own.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "formats/clsGIF.h"

namespace ruvo {

struct FrameExport {
  bool transparent = true;  // keep the frame's transparency
  bool uniform = false;     // at the size of the background instead of the frame's own
};
// Up to 256 colours are kept exactly, and none of them shares its index with the see-through one, which becomes 0; more
// (a frame with its surround) are reduced. Without a see-through pixel the file is not transparent. What nothing covers
// is see-through, else of the frame's transparent colour or, for a frame without one, white. False, with the old file
// as it was, when it can not be done.
bool exportFrame(const clsGIF& gif, int frame, const std::filesystem::path& target, const FrameExport& how);

inline constexpr const char* kTextSelectFailed = "Failed to select this frame.";
// File names: of one frame (title + "_3.gif"), and within "extract all" (title + "_03.gif"). An empty title is
// "Untitled".
std::string exportName(std::string_view title, int frame);
std::string extractName(std::string_view title, int frame);

}  // namespace ruvo
