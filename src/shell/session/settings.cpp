#include "shell/session/settings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "base/paths.h"

namespace ruvo {
namespace {

constexpr const char* kLastFolderSection = "Last Folder";
// How much of the colour chart window must stay on the screen, in twips.
constexpr int kChartWidth = 2790;
constexpr int kChartHeight = 7110;
constexpr const char* kTrue = "-1";
constexpr const char* kFalse = "0";
constexpr int kMonitorLevels = 4;

// The number that a text begins with.
std::optional<double> leadingNumber(std::string_view text) {
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || !std::isfinite(number)) return std::nullopt;
  return number;
}

int toInt(double number) {
  return static_cast<int>(std::clamp(std::nearbyint(number), -2147483648.0, 2147483647.0));
}

bool allDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

enum class Rule {
  FlagOnlyMinusOne,  // "-1" is true, all else false
  FlagAllButZero,    // "0" is false, all else true
  MonitorLevel,      // 0 to 4; any other text is no level, which is written as 0
  BrushIndex,        // outside the list: the default
  Twips,             // a whole number, 0 when there is none
  SlideNumber,       // a text without digits is 0
  SlideStyle,        // as SlideNumber, but of two characters or more all must be digits
  Folder,            // must exist
};

struct Row {
  const char* section;
  const char* key;
  const char* missing;  // the text that stands for a missing key
  Rule rule;
  // Where the value lives; one of the three, by the rule.
  bool& (*flag)(StoredSettings&);
  int& (*number)(StoredSettings&);
  std::filesystem::path& (*folder)(StoredSettings&);
};

using S = StoredSettings;
constexpr Row flagRow(const char* section, const char* key, const char* missing, Rule rule, bool& (*flag)(S&)) {
  return {section, key, missing, rule, flag, nullptr, nullptr};
}
constexpr Row numberRow(const char* section, const char* key, const char* missing, Rule rule, int& (*number)(S&)) {
  return {section, key, missing, rule, nullptr, number, nullptr};
}
constexpr Row folderRow(const char* key, std::filesystem::path& (*folder)(S&)) {
  return {kLastFolderSection, key, "", Rule::Folder, nullptr, nullptr, folder};
}

// In the order of writing.
const Row kRows[] = {
    numberRow("ColorChart Pos", "Left", "0", Rule::Twips, [](S& s) -> int& { return s.colorChartPosition.x; }),
    numberRow("ColorChart Pos", "Top", "0", Rule::Twips, [](S& s) -> int& { return s.colorChartPosition.y; }),
    flagRow("DialogShowPreview", "ShowPreview", kTrue, Rule::FlagOnlyMinusOne,
            [](S& s) -> bool& { return s.dialogShowPreview; }),
    folderRow(kFolderPal, [](S& s) -> std::filesystem::path& { return s.palFolder; }),
    flagRow("Options", "SDIOnly", kFalse, Rule::FlagOnlyMinusOne, [](S& s) -> bool& { return s.options.sdiOnly; }),
    numberRow("Options", "WatchRAM", "", Rule::MonitorLevel, [](S& s) -> int& { return s.options.watchRam; }),
    flagRow("Options", "RemindColorSetting", kTrue, Rule::FlagAllButZero,
            [](S& s) -> bool& { return s.options.remindColorSetting; }),
    flagRow("Options", "FitInEvenIfSmaller", kFalse, Rule::FlagOnlyMinusOne,
            [](S& s) -> bool& { return s.options.fitInEvenIfSmaller; }),
    flagRow("Options", "JPGAddBackEXIF", kTrue, Rule::FlagAllButZero,
            [](S& s) -> bool& { return s.options.jpgAddBackExif; }),
    flagRow("Options", "ShowPixelRGB", kFalse, Rule::FlagOnlyMinusOne,
            [](S& s) -> bool& { return s.options.showPixelRgb; }),
    numberRow("Settings", "BrushSizeIndex", "2", Rule::BrushIndex, [](S& s) -> int& { return s.brushSizeIndex; }),
    folderRow(kFolderFileBrowse, [](S& s) -> std::filesystem::path& { return s.fileBrowseFolder; }),
    numberRow("SlideShow", "SlideSize", "0", Rule::SlideNumber, [](S& s) -> int& { return s.slideSize; }),
    numberRow("SlideShow", "SlideStyle", "0", Rule::SlideStyle, [](S& s) -> int& { return s.slideStyle; }),
    numberRow("SlideShow", "SlidePace", "0", Rule::SlideNumber, [](S& s) -> int& { return s.slidePace; }),
};

int numberFor(Rule rule, const std::string& text) {
  const std::optional<double> number = leadingNumber(text);
  switch (rule) {
    case Rule::MonitorLevel:
      for (int level = 0; level <= kMonitorLevels; ++level) {
        if (number == level) return level;
      }
      return kNoMonitorLevel;
    case Rule::BrushIndex: {
      const int index = number ? toInt(*number) : kDefaultBrushSizeIndex;
      return index >= 0 && index < kBrushSizeCount ? index : kDefaultBrushSizeIndex;
    }
    case Rule::SlideStyle:
      if (text.size() >= 2 && !allDigits(text)) return 0;
      break;
    default:
      break;
  }
  return number ? toInt(*number) : 0;
}

std::filesystem::path existingFolder(const std::string& text) {
  const std::filesystem::path folder = pathOf(text);
  return !text.empty() && folderExists(folder) ? folder : std::filesystem::path();
}

void readRow(const Row& row, const std::string& text, StoredSettings& settings) {
  if (row.flag) row.flag(settings) = row.rule == Rule::FlagAllButZero ? text != kFalse : text == kTrue;
  if (row.number) row.number(settings) = numberFor(row.rule, text);
  if (row.folder) row.folder(settings) = existingFolder(text);
}

std::string textOf(const Row& row, StoredSettings& settings) {
  if (row.flag) return row.flag(settings) ? kTrue : kFalse;
  if (row.rule == Rule::MonitorLevel) return std::to_string(std::max(0, row.number(settings)));
  if (row.number) return std::to_string(row.number(settings));
  return utf8Of(row.folder(settings));
}

}  // namespace

Point clampColorChart(Point position, Size screen) {
  return {std::max(0, std::min(position.x, screen.width - kChartWidth)),
          std::max(0, std::min(position.y, screen.height - kChartHeight))};
}

StoredSettings readSettings(const SettingsFile& file, const SettingsContext& context) {
  const IniDocument ini = file.load();
  StoredSettings settings;
  for (const Row& row : kRows) {
    const std::string text = ini.value(row.section, row.key).value_or("");
    readRow(row, text.empty() ? row.missing : text, settings);
  }
  if (settings.palFolder.empty()) settings.palFolder = context.programFolder;
  settings.colorChartPosition = clampColorChart(settings.colorChartPosition, context.screen);
  return settings;
}

void writeSettings(const SettingsFile& file, StoredSettings settings, const SettingsContext& context) {
  settings.colorChartPosition = clampColorChart(settings.colorChartPosition, context.screen);
  file.update([&](IniDocument& ini) {
    for (const Row& row : kRows) {
      const std::string text = textOf(row, settings);
      if (ini.value(row.section, row.key) != text) ini.setValue(row.section, row.key, text);
    }
  });
}

std::filesystem::path lastFolder(const SettingsFile& file, std::string_view key,
                                 const std::filesystem::path& programFolder) {
  std::filesystem::path folder = existingFolder(file.read(kLastFolderSection, key));
  return folder.empty() && key == kFolderPal ? programFolder : folder;
}

void rememberLastFolder(const SettingsFile& file, std::string_view key, const std::filesystem::path& folder) {
  file.write(kLastFolderSection, key, utf8Of(folder));
}

// --- Places of windows

namespace {

constexpr const char* kWindowStateKey = "WinState";

struct PlacementKey {
  const char* key;
  std::optional<int> WindowPlacement::*length;
};
constexpr PlacementKey kPlacementKeys[] = {{"Left", &WindowPlacement::left},
                                           {"Top", &WindowPlacement::top},
                                           {"Width", &WindowPlacement::width},
                                           {"Height", &WindowPlacement::height}};

}  // namespace

WindowPlacement readPlacement(const SettingsFile& file, std::string_view section) {
  const IniDocument ini = file.load();
  const auto number = [&](const char* key) { return leadingNumber(ini.value(section, key).value_or("")); };
  WindowPlacement placement;
  for (const PlacementKey& row : kPlacementKeys)
    if (const auto twips = number(row.key)) placement.*row.length = toInt(*twips / kTwipsPerPixel);
  if (const auto state = number(kWindowStateKey); state && *state >= 0 && *state <= 2)
    placement.state = static_cast<WindowState>(toInt(*state));
  return placement;
}

void writePlacement(const SettingsFile& file, std::string_view section, const WindowPlacement& placement) {
  file.update([&](IniDocument& ini) {
    for (const PlacementKey& row : kPlacementKeys)
      if (const auto length = placement.*row.length)
        ini.setValue(section, row.key, std::to_string(static_cast<std::int64_t>(*length) * kTwipsPerPixel));
    ini.setValue(section, kWindowStateKey, std::to_string(static_cast<int>(placement.state)));
  });
}

}  // namespace ruvo
