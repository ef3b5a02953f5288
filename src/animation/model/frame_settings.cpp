#include "animation/model/frame_settings.h"

#include "animation/model/basGIFaniMinimize.h"
#include "animation/model/gif_change.h"
#include "animation/model/session_limits.h"
#include "base/paths.h"

namespace ruvo {
namespace {

bool covers(const SettingsOrder& order, SettingsItem item) {
  return order.item == SettingsItem::All || order.item == item;
}

bool inScope(const SettingsOrder& order, int frame) {
  return order.allFrames || order.frame == frame;
}

std::string trimmed(const std::string& text) {
  static constexpr const char* kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The sort flag of the table that the frame uses.
bool tableSorted(const clsGIF& gif, int frame) {
  return gif.LocalPaletteUsed(frame) ? gif.LocalPaletteSorted(frame) : gif.GlobalPaletteSorted();
}

enum class ScopeChange { None, ToLocal, ToGlobal };

ScopeChange scopeChange(const clsGIF& gif, const SettingsOrder& order) {
  if (!covers(order, SettingsItem::PaletteScope)) return ScopeChange::None;
  const bool local = order.values.localPalette;
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (inScope(order, frame) && gif.LocalPaletteUsed(frame) != local) {
      return local ? ScopeChange::ToLocal : ScopeChange::ToGlobal;
    }
  }
  return ScopeChange::None;
}

// --- Writing. Each answers whether anything became different.

template <typename Value, typename Set>
bool write(clsGIF& gif, int frame, Value (clsGIF::*get)(int) const, Set set, Value value) {
  if ((gif.*get)(frame) == value) return false;
  (gif.*set)(frame, value);
  return true;
}

bool writeFrame(clsGIF& gif, int frame, const SettingsOrder& order) {
  const FrameSettings& to = order.values;
  bool changed = false;
  if (covers(order, SettingsItem::Delay)) {
    changed |= write(gif, frame, &clsGIF::FrameDelay, &clsGIF::setFrameDelay, to.delay);
  }
  if (covers(order, SettingsItem::Disposal)) {
    changed |= write(gif, frame, &clsGIF::FrameDisposalMethod, &clsGIF::setFrameDisposalMethod, to.disposal);
  }
  if (covers(order, SettingsItem::LeftTop)) {
    // The first frame lies at the origin, whatever the others are given.
    changed |= write(gif, frame, &clsGIF::FrameLeft, &clsGIF::setFrameLeft, frame == 1 ? 0 : to.left);
    changed |= write(gif, frame, &clsGIF::FrameTop, &clsGIF::setFrameTop, frame == 1 ? 0 : to.top);
  }
  if (covers(order, SettingsItem::Interlace)) {
    changed |= write(gif, frame, &clsGIF::FrameInterlaced, &clsGIF::setFrameInterlaced, to.interlaced);
  }
  if (covers(order, SettingsItem::PaletteSorted) && gif.LocalPaletteUsed(frame)) {
    changed |= write(gif, frame, &clsGIF::LocalPaletteSorted, &clsGIF::setLocalPaletteSorted, to.sorted);
  }
  return changed;
}

// What belongs to the file and to no frame.
bool writeFile(clsGIF& gif, const SettingsOrder& order) {
  const FrameSettings& to = order.values;
  bool changed = false;
  if (covers(order, SettingsItem::Loops) && gif.NetscapeLoops() != to.loops) {
    gif.setNetscapeLoops(to.loops);
    changed = true;
  }
  if (covers(order, SettingsItem::Comment) && gif.CommentText() != trimmed(to.comment)) {
    gif.setCommentText(trimmed(to.comment));
    changed = true;
  }
  if (order.allFrames && covers(order, SettingsItem::PaletteSorted) && gif.GlobalPaletteExists() &&
      gif.GlobalPaletteSorted() != to.sorted) {
    gif.setGlobalPaletteSorted(to.sorted);
    changed = true;
  }
  return changed;
}

void toLocal(clsGIF& gif, const SettingsOrder& order) {
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (!inScope(order, frame) || gif.LocalPaletteUsed(frame)) continue;
    gif.UpdateLocalPalettePerGlobal(frame);
    gif.setLocalPaletteEntries(frame, entriesNeeded(gif, frame));  // more than none where no table was
    gif.setLocalPaletteSorted(frame, gif.GlobalPaletteSorted());
    gif.setLocalPaletteUsed(frame, true);
  }
  if (anyFrameUsesGlobal(gif)) return;
  RemoveUnusedGlobal(gif);
  gif.setBgdColorIndex(0);  // there is no table left that it could point into
}

int localFrames(const clsGIF& gif) {
  int count = 0;
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) count += gif.LocalPaletteUsed(frame);
  return count;
}

// Answers the number of frames that moved.
int allToGlobal(clsGIF& gif) {
  cleanPalettes(gif);
  const int moved = LocalToGlobalAllFrames(gif);
  gif.Remask_All_Frames();
  return moved;
}

// The other frames' own tables stay as they are.
bool oneToGlobal(clsGIF& gif, int frame) {
  RectifyGIFData(gif);
  if (gif.GlobalPaletteExists()) {
    RemoveUnusedGlobal(gif);
    RemoveDuplicateGlobal(gif);
  }
  RemoveUnusedLocal(gif, frame);
  RemoveDuplicateLocal(gif, frame);
  const bool moved = LocalToGlobalOneFrame(gif, frame);
  gif.Remask_All_Frames();
  return moved;
}

// Nothing has changed when no frame could move, not even by the cleaning.
SettingsResult toGlobal(clsGIF& gif, const SettingsOrder& order) {
  if (!order.allFrames) {
    const bool moved = changeWhole(gif, [&](clsGIF& copy) { return oneToGlobal(copy, order.frame); });
    return {moved, moved ? "" : "Failed to change current frame to global palette"};
  }
  const int local = localFrames(gif);
  int moved = 0;
  if (!changeWhole(gif, [&](clsGIF& copy) { return (moved = allToGlobal(copy)) > 0; })) {
    return {false, "Failed to change any frame to global palette"};
  }
  if (moved == local) return {true, {}};
  return {true,
          std::to_string(moved) + " changed to use global palette; " + std::to_string(local - moved) + " not changed."};
}

SettingsResult applyScope(clsGIF& gif, const SettingsOrder& order) {
  switch (scopeChange(gif, order)) {
    case ScopeChange::ToLocal:
      toLocal(gif, order);
      return {true, {}};
    case ScopeChange::ToGlobal:
      return toGlobal(gif, order);
    case ScopeChange::None:
      break;
  }
  return {};
}

// Values that no field takes and that a save would have to cut. What the file already has may stand.
std::optional<std::string> valueRefusal(const clsGIF& gif, const SettingsOrder& order) {
  const FrameSettings& to = order.values;
  if (covers(order, SettingsItem::Loops) && (to.loops < 0 || to.loops > kMostLoops)) {
    return "Loops must be from 0 to " + std::to_string(kMostLoops) + ".";
  }
  if (covers(order, SettingsItem::Comment) && to.comment != gif.CommentText() &&
      utf8Length(trimmed(to.comment)) > static_cast<std::size_t>(clsGIF::kMostCommentBytes)) {
    return "Comment must not exceed " + std::to_string(clsGIF::kMostCommentBytes) + " characters.";
  }
  return std::nullopt;
}

}  // namespace

FrameSettings settingsOf(const clsGIF& gif, int frame) {
  FrameSettings settings;
  settings.delay = gif.FrameDelay(frame);
  settings.disposal = gif.FrameDisposalMethod(frame);
  settings.left = gif.FrameLeft(frame);
  settings.top = gif.FrameTop(frame);
  settings.localPalette = gif.LocalPaletteUsed(frame);
  settings.interlaced = gif.FrameInterlaced(frame);
  settings.sorted = tableSorted(gif, frame);
  settings.loops = gif.NetscapeLoops();
  settings.comment = gif.CommentText();
  return settings;
}

std::optional<std::string> settingsRefusal(const clsGIF& gif, const SettingsOrder& order) {
  const FrameSettings& to = order.values;
  if (!order.allFrames && order.frame == 1 && covers(order, SettingsItem::LeftTop) && (to.left != 0 || to.top != 0)) {
    return "For first frame, the [left, top] must be [0, 0]";
  }
  if (!order.allFrames && !gif.LocalPaletteUsed(order.frame) && covers(order, SettingsItem::PaletteSorted) &&
      to.sorted != gif.GlobalPaletteSorted()) {
    return "You have selected to change setting of a single frame only;\n"
           "since current frame is using global palette, you cannot change\n"
           "the \"palette sorted\" status.\n"
           "Please change \"palette sorted\" back to original status first.";
  }
  return valueRefusal(gif, order);
}

std::string settingsQuestion(const clsGIF& gif, const SettingsOrder& order) {
  const ScopeChange change = scopeChange(gif, order);
  if (change == ScopeChange::ToLocal) {
    return order.allFrames ? "Sure to change all frames to use local palette only?"
                           : "Sure to change current frame to use local palette only?";
  }
  const std::string proceed =
      order.allFrames ? "Proceed to change settings of all frames?" : "Proceed to change setting of current frame?";
  if (change == ScopeChange::None) return proceed;
  const std::string cleaned = "(Processes will remove any unused/duplicate palette entries)\n" + proceed;
  static constexpr const char* kLimit = "be subject to the resultant color count not exceeding 256.\n";
  if (gif.GlobalPaletteExists()) {
    static constexpr const char* kExists = "You have selected to change from local to global palette.  ";
    return (order.allFrames ? std::string(kExists) + "Frames\nto change will " : std::string(kExists) + " It will\n") +
           kLimit + cleaned;
  }
  static constexpr const char* kNone = "No global palette in existence currently; will create one.";
  return (order.allFrames ? std::string(kNone) + "   Frames to\nchange will " + kLimit : std::string(kNone) + '\n') +
         cleaned;
}

SettingsResult applySettings(clsGIF& gif, const SettingsOrder& order) {
  bool changed = writeFile(gif, order);
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (inScope(order, frame)) changed |= writeFrame(gif, frame, order);
  }
  SettingsResult result = applyScope(gif, order);
  result.changed |= changed;
  return result;
}

}  // namespace ruvo
