// What the windows write about an animation and its frames.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "formats/clsGIF.h"

namespace ruvo {

// "Unspecified", "Don't dispose", "To background", "To previous"
inline constexpr std::array<const char*, 4> kDisposalNames = {"Unspecified", "Don't dispose", "To background",
                                                              "To previous"};
std::string disposalName(int method);  // "Disposal ?" for others

// The pieces of a frame's line in `cboFrameData`, in order.
std::vector<std::string> frameLinePieces(const clsGIF& gif, int frame);
// The same with its columns padded, for a font of one width; for tabs between them give "\t".
std::string frameLine(const clsGIF& gif, int frame);
std::string frameLineTabbed(const clsGIF& gif, int frame);

// The summary labels.
std::string originalFileText(const clsGIF& gif, std::int64_t fileSize);  // lblInfoOrigFile
std::string currentTotalText(const clsGIF& gif);                         // lblCurrentFrameCount
std::string backgroundText(const clsGIF& gif);                           // lblBgdInfo
std::string fileSizeText(std::int64_t bytes);                            // "File size:   "

// Running time of one round in milliseconds, as the player steps; and "Running time:  3.50 s" with the frame's own time
// and share of it.
std::int64_t runningTime(const clsGIF& gif);
std::string runningTimeText(const clsGIF& gif, int frame);

// The page that shows an animation in a browser. The path is made an address (file://, percent-encoded).
std::string browserPage(const std::filesystem::path& gifFile);

}  // namespace ruvo
