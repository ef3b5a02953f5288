#include "animation/session_menus.h"

namespace ruvo {
namespace {

constexpr MenuRow row(const char* control, int index, const char* parent, const char* text, unsigned needs = 0,
                      const char* shortcut = "") {
  return {control, index, parent, text, shortcut, needs, kScopeBoth, false};
}

constexpr MenuRow kRows[] = {
    row("mnuFile", -1, "", "&File"),
    row("mnuAnimatedGIFNew", -1, "mnuFile", "&Assemble Frames From Files ....", kNotBuilt),
    row("mnuAnimatedGIFOpen", -1, "mnuFile", "&Open Animated GIF File ....", kNeedNothing, "Ctrl+O"),
    row("mnuAnimatedGIFSave", -1, "mnuFile", "&Save ....", kNeedPicture, "Ctrl+S"),
    row("mnuAnimatedGIFImport", 0, "mnuFile", "Convert Animated &Cursor (ANI) To Animated GIF ....", kNotBuilt),
    row("mnuAnimatedGIFImport", 1, "mnuFile", "Convert Animated &Windows AVI To Animated GIF ....", kNotBuilt),
    row("mnuFileHistoryGIFani", 0, "mnuFile", "-"),
    row("mnuFileHistoryGIFani", 1, "mnuFile", ""),
    row("mnuFileHistoryGIFani", 2, "mnuFile", ""),
    row("mnuFileHistoryGIFani", 3, "mnuFile", ""),
    row("mnuFileHistoryGIFani", 4, "mnuFile", ""),
    row("mnuFileHistoryGIFani", 5, "mnuFile", ""),
    row("mnuFileHistoryGIFani", 6, "mnuFile", ""),
    row("mnuFileHistoryGIFani", 7, "mnuFile", ""),
    row("mnuFileHistoryGIFani", 8, "mnuFile", ""),
    row("mnuFileSub", 0, "mnuFile", "-"),
    row("mnuAnimatedGIFExit", -1, "mnuFile", "E&xit", kNeedNothing, "Ctrl+W"),

    row("mnuInquiry", -1, "", "&Inquiry"),
    row("mnuInquirySub", 0, "mnuInquiry", "&Report If Any Discrepancy", kNeedPicture),
    row("mnuInquirySub", 1, "mnuInquiry", "&Version", kNeedPicture),
    row("mnuInquirySub", 2, "mnuInquiry", "&Pixel Aspect Ratio", kNeedPicture),

    row("mnuHelp", -1, "", "&Help"),
    row("mnuHelpSub", 0, "mnuHelp", "&Help ....", kNeedNothing, "F1"),
};

// In the order of SessionCommand. The texts are kept as they have always been.
constexpr std::array<SessionCommandRow, kSessionCommandCount> kCommands = {{
    {"gif_select", "Select current frame and exit animated GIF screen", "Ctrl+Return", true, false},
    {"gif_export", "Extract and save selected frame", "Ctrl+E", true, true},
    {"gif_export_all", "Extract and save all frames to individual files", "Ctrl+Shift+E", true, false},
    {"gif_superimpose", "Superimpose image (at fixed position on frames)", "", false, true},
    {"gif_series", "Edit/delete/add frame images", "Ctrl+F", true, false},
    {"gif_edit_image", "Edit image of current frame (if to avail Undo on return, run Edit Image Series instead)", "",
     false, false},
    {"gif_resize", "Resize all frame series and/or background screen sizes", "Ctrl+R", true, true},
    {"gif_minimise", "Reduce file size by chanigng from local to global palette  etc", "Ctrl+M", true, false},
    {"gif_bpp", "Optimize &/or change BPP to effect change in No. of palette entries", "Ctrl+B", true, false},
    {"gif_settings", "Change frame settings", "Ctrl+T", true, false},
    {"palette256", "Edit palette", "Ctrl+L", true, false},
    {"save", "Save to file", "Ctrl+S", true, true},
    {"copy", "Copy current frame to clipboard", "Ctrl+C", true, false},
    {"gif_browser", "Animate in Internet Exploer", "Ctrl+I", true, true},
    {"gif_play", "Animate in program window (preferrable as you have control over settings)", "F5", true, false},
    {"gif_stop", "Stop animation", "Shift+F5", true, false},
    {"gif_exit", "Exit (end animated GIF session)", "Ctrl+W", true, true},
}};

}  // namespace

std::span<const MenuRow> sessionMenuTable() {
  return kRows;
}

const std::array<SessionCommandRow, kSessionCommandCount>& sessionCommands() {
  return kCommands;
}

}  // namespace ruvo
