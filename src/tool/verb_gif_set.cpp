#include <functional>
#include <vector>

#include "animation/model/frame_settings.h"
#include "tool/gif_output.h"
#include "tool/picture_input.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

// One item with the values that the words give it. The values of the frame stand where the words give none.
struct Change {
  SettingsItem item;
  std::function<void(FrameSettings&)> give;
};

std::vector<Change> changesOf(const Arguments& arguments) {
  std::vector<Change> changes;
  const auto number = [&](const char* name, SettingsItem item, int FrameSettings::*field) {
    if (const auto value = arguments.number(name)) {
      changes.push_back({item, [field, value](FrameSettings& settings) { settings.*field = *value; }});
    }
  };
  const auto flag = [&](const char* on, const char* off, SettingsItem item, bool FrameSettings::*field) {
    if (arguments.has(on) || arguments.has(off)) {
      changes.push_back({item, [field, set = arguments.has(on)](FrameSettings& settings) { settings.*field = set; }});
    }
  };
  number("--delay", SettingsItem::Delay, &FrameSettings::delay);
  number("--disposal", SettingsItem::Disposal, &FrameSettings::disposal);
  number("--left", SettingsItem::LeftTop, &FrameSettings::left);
  number("--top", SettingsItem::LeftTop, &FrameSettings::top);
  flag("--interlace", "--no-interlace", SettingsItem::Interlace, &FrameSettings::interlaced);
  flag("--sorted", "--not-sorted", SettingsItem::PaletteSorted, &FrameSettings::sorted);
  flag("--local", "--global", SettingsItem::PaletteScope, &FrameSettings::localPalette);
  number("--loops", SettingsItem::Loops, &FrameSettings::loops);
  if (const auto comment = arguments.text("--comment")) {
    changes.push_back({SettingsItem::Comment, [comment](FrameSettings& settings) { settings.comment = *comment; }});
  }
  return changes;
}

// Empty when done, else why not. What could be done in part is told.
std::string apply(clsGIF& gif, const SettingsOrder& order, Console& console) {
  if (const auto refusal = settingsRefusal(gif, order)) return *refusal;
  const SettingsResult result = applySettings(gif, order);
  if (!result.changed) return result.message;
  if (!result.message.empty()) console.out() << result.message << '\n';
  return {};
}

// A place may be given by one of its numbers, so each frame is written with the other one that it has. Of all frames the
// first stays at the origin.
std::string place(clsGIF& gif, const Change& change, std::optional<int> only, Console& console) {
  for (int frame = only.value_or(2); frame <= only.value_or(gif.FramesCount()); ++frame) {
    SettingsOrder order{false, change.item, frame, settingsOf(gif, frame)};
    change.give(order.values);
    if (std::string words = apply(gif, order, console); !words.empty()) return words;
  }
  return {};
}

std::string make(clsGIF& gif, const Change& change, std::optional<int> only, Console& console) {
  if (change.item == SettingsItem::LeftTop) return place(gif, change, only, console);
  const int frame = only.value_or(1);
  SettingsOrder order{!only, change.item, frame, settingsOf(gif, frame)};
  change.give(order.values);
  return apply(gif, order, console);
}

}  // namespace

int gifSet(const Arguments& arguments, Console& console) {
  const std::string& source = arguments.operand(0);
  for (const auto& [on, off] :
       {std::pair{"--interlace", "--no-interlace"}, {"--sorted", "--not-sorted"}, {"--local", "--global"}}) {
    if (!arguments.has(on) || !arguments.has(off)) continue;
    return console.refuse(std::string("gif set takes one of ") + on + " and " + off);
  }
  const std::vector<Change> changes = changesOf(arguments);
  if (changes.empty()) return console.refuse("gif set needs something to set");
  clsGIF gif;
  if (!loadGif(source, gif, console)) return 1;
  const std::optional<int> only = arguments.number("--frame");
  if (only && *only > gif.FramesCount()) return console.refuse(source, "has no frame " + std::to_string(*only));
  for (const Change& change : changes) {
    if (const std::string words = make(gif, change, only, console); !words.empty())
      return console.refuse(source, words);
  }
  return saveGif(gif, arguments.operand(1), console);
}

}  // namespace ruvo::tool
