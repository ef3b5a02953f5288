// What the settings file keeps between sessions, as plain values. One table declares each setting's section, key,
// default and rule; reading and writing walk it. Windows copy between these values and their controls and do nothing
// else.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/geometry.h"
#include "document/model/session_state.h"
#include "document/model/window_placement.h"
#include "shell/session/basINI.h"

namespace ruvo {

// Lengths in the settings file are twips, 15 to a logical pixel at any display scale.
inline constexpr int kTwipsPerPixel = 15;
inline constexpr int kBrushSizeCount = 20;
inline constexpr int kDefaultBrushSizeIndex = 2;

struct StoredSettings {
  OptionFlags options;                          // the session-only ones are neither read nor written
  int brushSizeIndex = kDefaultBrushSizeIndex;  // 0 to 19
  Point colorChartPosition;                     // twips, on the screen
  bool dialogShowPreview = true;
  int slideSize = 0;
  int slideStyle = 0;
  int slidePace = 0;
  std::filesystem::path palFolder;         // exists, or the program folder
  std::filesystem::path fileBrowseFolder;  // exists, or empty
};

// Keys of the section "Last Folder".
inline constexpr const char* kFolderPal = "PAL";
inline constexpr const char* kFolderFileBrowse = "FileBrowse";
inline constexpr const char* kFolderCustomBrush = "CustomBrush";
inline constexpr const char* kFolderCustomPattern = "CustomPattern";
inline constexpr const char* kFolderStamp = "Stamp";
inline constexpr const char* kFolderBatchConvert = "BatchConvert";
inline constexpr const char* kFolderGifAniBuild = "GIFaniBuildLactFolder";  // spelled so in every file there is
inline constexpr const char* kFolderPalGifAni = "PAL_GIFani";
inline constexpr const char* kFolderGifAniExtract = "GIFaniExtractFolder";

struct SettingsContext {
  Size screen;  // twips; the colour chart is kept on it
  std::filesystem::path programFolder;
};

// Never fails: what is missing or makes no sense gives the default.
StoredSettings readSettings(const SettingsFile& file, const SettingsContext& context);
// Clamps the chart's position first. One writing of the file, and none when every text is what the file holds.
void writeSettings(const SettingsFile& file, StoredSettings settings, const SettingsContext& context);

// Keeps the colour chart on the screen.
Point clampColorChart(Point position, Size screen);

// The folder remembered under a key of "Last Folder" if it still exists; else empty (the program folder for "PAL").
std::filesystem::path lastFolder(const SettingsFile& file, std::string_view key,
                                 const std::filesystem::path& programFolder);
void rememberLastFolder(const SettingsFile& file, std::string_view key, const std::filesystem::path& folder);

// The place of a window in a section of its own: "Left", "Top", "Width", "Height" in twips and "WinState". A text that is
// empty or no number is a value that is absent.
WindowPlacement readPlacement(const SettingsFile& file, std::string_view section);
void writePlacement(const SettingsFile& file, std::string_view section, const WindowPlacement& placement);

}  // namespace ruvo
