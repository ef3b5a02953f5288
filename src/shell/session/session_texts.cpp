#include "shell/session/session_texts.h"

#include "shell/session/startup_rules.h"

namespace ruvo {
namespace {

constexpr std::string_view kBlankLine = "\n\n";
constexpr std::string_view kNotFound = "GDIplus.dll not found, hence cannot load/save PNG/TIF.";
constexpr std::string_view kRunFromFolder =
    "If you have gdiplus.dll in the same folder of this program, then run the program\n"
    "directly from within the folder.\n\nPlease refer Help.";
constexpr std::string_view kDownloadAddress = "https://www.microsoft.com/download";

std::string joined(std::initializer_list<std::string_view> parts) {
  std::string all;
  for (const std::string_view part : parts) all += part;
  return all;
}

}  // namespace

std::string historyFileMissingText(std::string_view path) {
  return joined({path, "\nFile not found."});
}

std::optional<std::string> ramReminderText(int monitorLevel, std::int64_t freeKb) {
  if (freeKb >= ramThresholdKb(monitorLevel)) return std::nullopt;
  return joined({"Reminder: Your current RAM memory at ", std::to_string(freeKb),
                 " KB is running low.\nYou may wish to try to reboot.\n\n"
                 "(Note: You can change Option to remove RAM monitoring)"});
}

std::string gdiPlusMissingText(const ImagingState& state, std::string_view prefix) {
  const std::string head = prefix.empty() ? std::string() : joined({prefix, "\n"});
  const bool xp = state.versionCode >= kVersionCodeXp;
  if (state.failedToStart) {
    return xp ? head + "Failed to load gdiplus.dll" : joined({head, kNotFound, kBlankLine, kRunFromFolder});
  }
  if (xp) {
    return joined({head, kNotFound, kBlankLine,
                   "XP users should have system-supplied gdiplus.dll in Windows system folder (or in disk)."});
  }
  if (state.versionCode == kVersionCodeWin95) {
    return head + "Sorry that Win 95 users cannot run Microsoft gdiplus.dll, hence cannot load PNG/TIFF.";
  }
  return joined({head, kNotFound, kBlankLine, "If you don't have gdiplus.dll, you can download one from Microsoft.",
                 kBlankLine, kRunFromFolder});
}

std::string softerGdiPlusText(int versionCode) {
  if (versionCode == kVersionCodeWin95) return {};
  const std::string head = joined({"Using gdiplus.dll would ensure a better resize quality.", kBlankLine});
  if (versionCode >= kVersionCodeXp) {
    return head + "XP users should have system-supplied gdiplus.dll in Windows system folder,\nbut it is not found.";
  }
  return joined({head, "If you don't have gdiplus.dll, please try to get one from\n", kDownloadAddress,
                 "\n(Please refer Help)."});
}

}  // namespace ruvo
