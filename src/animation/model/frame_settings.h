// The settings panel's rules: what it offers, what it refuses, what it asks, and what it writes.
#pragma once

#include <optional>
#include <string>

#include "formats/clsGIF.h"

namespace ruvo {

// Items of `cboScopeModifySettingsSpecificItem`.
enum class SettingsItem { All, Delay, Disposal, LeftTop, PaletteScope, Interlace, PaletteSorted, Loops, Comment };

struct FrameSettings {
  int delay = 0;
  int disposal = 0;
  int left = 0;
  int top = 0;
  bool localPalette = false;
  bool interlaced = false;
  bool sorted = false;
  int loops = 0;        // 0 to 65535
  std::string comment;  // at most 255 characters
};
FrameSettings settingsOf(const clsGIF& gif, int frame);

struct SettingsOrder {
  bool allFrames = true;
  SettingsItem item = SettingsItem::All;
  int frame = 1;  // the current one
  FrameSettings values;
};

// Why it can not be done, and the question to ask before it is.
std::optional<std::string> settingsRefusal(const clsGIF& gif, const SettingsOrder& order);
std::string settingsQuestion(const clsGIF& gif, const SettingsOrder& order);

struct SettingsResult {
  bool changed = false;
  std::string message;  // a failed or partial change of palette scope; empty when all went well
};
// Frame 1 keeps [0, 0]. Masks are made anew where tables changed.
SettingsResult applySettings(clsGIF& gif, const SettingsOrder& order);

}  // namespace ruvo
