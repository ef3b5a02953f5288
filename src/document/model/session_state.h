// The run-time globals that the main window, the documents and their openers share, and the tool state that a document
// reads when it becomes active. Plain data: one instance lives with the program's session.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/colour.h"
#include "base/geometry.h"
#include "base/program_title.h"
#include "effects/model/text_choices.h"

namespace ruvo {

// What the opener of a document window left for its first activation.
enum class PendingOpen {
  None = 0,
  Paste = 1,
  CommandLine = 2,
  FileOpen = 3,  // File Open and the file history
  New = 4,
  FirstFrame = 5,
  Browser = 6,
  DigiPhoto = 7,
};

// No level of memory watching was ever chosen: no item of the menu is checked, and nothing is watched.
inline constexpr int kNoMonitorLevel = -1;

// The options that the settings file keeps ("Options"), and those of this session only.
struct OptionFlags {
  bool sdiOnly = false;
  int watchRam = kNoMonitorLevel;  // 0 off, 1 to 4: below 10, 20, 30, 40 MB; other values act as 0
  bool remindColorSetting = true;
  bool fitInEvenIfSmaller = false;
  bool jpgAddBackExif = true;
  bool showPixelRgb = false;
  // Never saved:
  bool alternativeMarquee = false;
  bool suspendCanvasResize = false;
  bool suspendRegionResize = false;
  bool axisLines = false;
};

struct DocumentFlags {
  bool changed = false;  // since the last save
  bool free = false;     // the slot has no window
};

// The files used last, newest first; empty behind the last.
using HistoryPaths = std::array<std::filesystem::path, 8>;

struct SessionState {
  // Folders end without a separator; join with operator/.
  std::filesystem::path programFolder;
  std::filesystem::path tempFolder;
  int pixelsPerInchX = 96;
  int pixelsPerInchY = 96;
  bool imagingFound = false;
  bool gdiPlusUsable = false;
  bool gdiPlusFailedToStart = false;
  int versionCode = 0;  // of the desktop platform; 0 is "anything else"

  bool splashShowing = false;
  bool settingsLoading = false;
  bool dialogCancelled = false;
  bool closingConfirmed = false;

  PendingOpen pendingOpen = PendingOpen::None;
  std::filesystem::path pendingFile;
  int newImageWidth = 640;
  int newImageHeight = 480;

  std::vector<DocumentFlags> documents;  // parallel to the document windows, index = slot
  HistoryPaths fileHistory;
  HistoryPaths fileHistoryGifAni;
  std::filesystem::path fileToDeleteAtExit;

  OptionFlags options;
  TextChoices text;                         // as last written; never saved
  std::optional<Point> panoramicPosition;  // of the navigator, logical pixels of the desktop; never saved
};

// What the main window's controls hold. Values are those of the canvas properties of the same name.
struct ToolboxState {
  int tool = 18;  // index of the selected tool image, 0 to 18
  Colour firstColor = kBlack;
  Colour secondColor = kWhite;
  Colour bezierFillColor = kWhite;
  int brushSize = 3;
  int brushStyle = 0;
  int paintBrushTranslucencyPercent = 100;
  int customBrushShape = 0;
  int customBrushApplyManner = 0;
  int fillPattern = 0;
  int polygonDrawMethod = 0;
  int polygonOperationType = 0;
  int polygonNumPoints = 6;
  int polygonRadius = 50;
  float polygonConcaveFactor = 1.0f;
  int polygonAngle = 0;
  int lineType = 0;
  bool lineAntialias = true;
  int rectangleCornerShape = 0;
  int ovalEnhancement = 0;
  int stampStyle = 0;
  float stampTextureWeight = 1.0f;
  int sprayDensity = 1;
  int sprayTranslucencyPercent = 100;
  int magnify = 1;
  int glassFactor = 2;
  bool convexGlass = false;
  bool viewMode = false;
  bool fitIn = false;  // the box's check; it works in View mode only
  int zoomScale = 1;
};

// The `CanvasOp` that each tool image selects, by index.
inline constexpr std::array<int, 19> kToolCanvasOp = {0, 1, 2, 3, 4, 5, 6, 6, 7, 8, 9, 10, 13, 14, 11, 12, 15, 16, 18};
// The option frame that each tool image shows, -1 for none.
inline constexpr std::array<int, 19> kToolOptionFrame = {0, 0, 1, 2, 3, -1, -1, 4, 5, 5, 6, 6, 7, 8, 9, 9, -1, -1, -1};

}  // namespace ruvo
