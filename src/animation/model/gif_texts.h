// What the windows write about an animation and its frames.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "formats/clsGIF.h"

namespace ruvo {

// Of the methods 0 to 3.
inline constexpr std::array<const char*, 4> kDisposalNames = {"Unspecified", "Don't dispose", "To background",
                                                              "To previous"};
std::string disposalName(int method);  // "Disposal ?" for others

// The pieces of a frame's line in `cboFrameData`, in order; none when there is no such frame.
std::vector<std::string> frameLinePieces(const clsGIF& gif, int frame);
// The lines of all frames, for a font of one width: each column is as wide as the widest piece in it.
std::vector<std::string> frameLines(const clsGIF& gif);
// A line with tabs between the pieces.
std::string frameLineTabbed(const clsGIF& gif, int frame);

// The summary labels.
std::string originalFileText(const clsGIF& gif, std::int64_t fileSize);  // lblInfoOrigFile
std::string currentTotalText(const clsGIF& gif);                         // lblCurrentFrameCount
std::string backgroundText(const clsGIF& gif);                           // lblBgdInfo
std::string fileSizeText(std::int64_t bytes);                            // of a file that was opened or saved
std::string measuredSizeText(std::int64_t bytes);                        // of what a save would write

// Of one round in milliseconds, as the player steps; each frame's time is tickMilliseconds().
std::int64_t runningTime(const clsGIF& gif);
// "Running time:  3.50 s", and for a frame of it its own time and share: "   Frame 2:  0.70 s (20 %)".
std::string runningTimeText(const clsGIF& gif, int frame);

// A file's path as an address: "file://", then the path with every byte percent-encoded that has a meaning in one.
std::string fileAddress(const std::filesystem::path& file);
// The page that shows an animation in a browser, its lines ended by "\n".
std::string browserPage(const std::filesystem::path& gifFile);

}  // namespace ruvo
