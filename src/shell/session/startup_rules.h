// The decisions of the program's start, apart from the windows and system calls that carry them out.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace ruvo {

// --- A second start
enum class SecondStart {
  Proceed,            // nobody else runs
  EndSilently,        // an animation window owns the first instance: the command is lost, without a word
  HandOver,           // the first instance opens the file
  SayAlreadyRunning,  // nothing to hand over
};
SecondStart decideSecondStart(bool otherRuns, bool otherShowsAnimation, std::string_view commandLine);

// Whether a window title, trimmed and in upper case, is that of an animation window.
bool isAnimationTitle(std::string_view title);

// --- Imaging service

// Version codes of the desktop platform; 0 is any that is not named here.
inline constexpr int kVersionCodeWin95 = 3;
inline constexpr int kVersionCodeXp = 7;

struct ImagingEvidence {
  bool inSystem = false;         // the system has the library
  bool inProgramFolder = false;  // it lies beside the program
  std::string currentFolder;
  std::string programFolder;
  int versionCode = 0;
};
// Found in the system; or, below code 7, beside the program while that folder is the current one.
bool decideGdiPlusUsable(const ImagingEvidence& evidence);

// --- Display
bool needsDepthReminder(int screenBitsPerPixel, bool remindOption);

// --- Memory
// The free memory in KB below which a monitor level reminds; 0 for a level that does not (all but 1 to 4).
long ramThresholdKb(int monitorLevel);

}  // namespace ruvo
