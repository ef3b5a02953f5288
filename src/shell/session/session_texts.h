// What the session says to its user, word for word.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ruvo {

inline constexpr const char* kTextStartFailed = "Error encountered in main, cannot proceed";
inline constexpr const char* kTextAlreadyRunning = "\n\nProgram is already running.";
inline constexpr const char* kTextDepthReminder =
    "Your current display setting in Windows is below 32-bit True Color.\n\nProceed still?\n\n"
    "(To stop this reminder, uncheck Options submenu)";
inline constexpr const char* kTextUnsavedChanges =
    "Changes to one or more files have not been saved yet.\nProceed to close all windows?";

// A history item whose file is gone.
std::string historyFileMissingText(std::string_view path);

// What a monitor level says at `freeKb` of free memory; nothing when there is enough or the level does not watch.
std::optional<std::string> ramReminderText(int monitorLevel, std::int64_t freeKb);

struct ImagingState {
  bool failedToStart = false;  // else it was not found
  int versionCode = 0;
};
// Said by an operation that needs the imaging service. `prefix` is a first line of the caller's, or empty.
std::string gdiPlusMissingText(const ImagingState& state, std::string_view prefix = "");
// Said by a resize that would do better with it; empty where nothing is said.
std::string softerGdiPlusText(int versionCode);

}  // namespace ruvo
