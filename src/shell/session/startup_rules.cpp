#include "shell/session/startup_rules.h"

#include "base/letter_case.h"

namespace ruvo {

SecondStart decideSecondStart(bool otherRuns, bool otherShowsAnimation, std::string_view commandLine) {
  if (!otherRuns) return SecondStart::Proceed;
  if (otherShowsAnimation) return SecondStart::EndSilently;
  return commandLine.empty() ? SecondStart::SayAlreadyRunning : SecondStart::HandOver;
}

bool isAnimationTitle(std::string_view title) {
  const std::size_t first = title.find_first_not_of(' ');
  if (first == std::string_view::npos) return false;
  const std::string upper = upperCase(title.substr(first, title.find_last_not_of(' ') - first + 1));
  return upper == "NEW ANIMATED GIF SCREEN" || upper == "ANIMATED GIF MAIN SCREEN";
}

bool decideGdiPlusUsable(const ImagingEvidence& evidence) {
  if (evidence.inSystem) return true;
  return evidence.versionCode < kVersionCodeXp && evidence.inProgramFolder &&
         upperCase(evidence.currentFolder) == upperCase(evidence.programFolder);
}

bool needsDepthReminder(int screenBitsPerPixel, bool remindOption) {
  return remindOption && screenBitsPerPixel < 32;
}

long ramThresholdKb(int monitorLevel) {
  return monitorLevel >= 1 && monitorLevel <= 4 ? monitorLevel * 10000L : 0;
}

}  // namespace ruvo
