// The menus of the animation window as a table of rows, and the commands of its buttons `cmdGIFaniMain`.
#pragma once

#include <array>
#include <span>

#include "document/menu_table.h"

namespace ruvo {

std::span<const MenuRow> sessionMenuTable();

// Indices of `cmdGIFaniMain`.
enum SessionCommand {
  kSelectBack = 0,
  kExportFrame = 1,
  kExportAll = 2,
  kSuperimpose = 3,
  kEditSeries = 4,
  kEditImage = 5,
  kResizeSeries = 6,
  kMinimise = 7,
  kChangeBpp = 8,
  kChangeSettings = 9,
  kEditPalette = 10,
  kSaveFile = 11,
  kCopyFrame = 12,
  kBrowserView = 13,
  kAnimate = 14,
  kStopAnimation = 15,
  kExitSession = 16,
};
inline constexpr int kSessionCommandCount = 17;

struct SessionCommandRow {
  const char* picture;
  const char* tip;
  const char* shortcut;  // "Ctrl+E" or ""
  bool built;            // one that is not built yet keeps its button disabled
  bool beginsGroup;
};
const std::array<SessionCommandRow, kSessionCommandCount>& sessionCommands();

}  // namespace ruvo
