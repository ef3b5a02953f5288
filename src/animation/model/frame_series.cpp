#include "animation/model/frame_series.h"

#include "animation/model/gif_change.h"
#include "animation/model/session_limits.h"
#include "base/paths.h"
#include "document/model/open_rules.h"
#include "platform/imaging/picture_loader.h"

namespace ruvo {
namespace {

using enum SeriesAction;

bool adds(SeriesAction action) {
  switch (action) {
    case BlankBefore:
    case BlankAfter:
    case DuplicateBefore:
    case DuplicateAfter:
    case LoadBefore:
    case LoadAfter:
      return true;
    default:
      return false;
  }
}

// The place that a new frame takes.
int placeOf(const SeriesOrder& order) {
  const bool after = order.action == BlankAfter || order.action == DuplicateAfter || order.action == LoadAfter;
  return order.frame + (after ? 1 : 0);
}

// From where to where a copy, move, swap or shift goes.
struct Way {
  int from = 0;
  int to = 0;

  bool touchesFirst() const { return from == 1 || to == 1; }
  std::string words(const char* between = " to ") const { return std::to_string(from) + between + std::to_string(to); }
};
Way wayOf(const SeriesOrder& order) {
  switch (order.action) {
    case CopyFrom:
      return {order.other, order.frame};
    case ShiftUp:
      return {order.frame, order.frame - 1};
    case ShiftDown:
      return {order.frame, order.frame + 1};
    default:
      return {order.frame, order.other};
  }
}

constexpr const char* kReplaceFirst =
    "Replacing first frame might affect backgound width and height, thus\n"
    "possibly affecting subsequent frame(s).  (i)  If the size of new first frame\n"
    "is greater, screen size will be enlarged and (ii) The [left, top] value of\n"
    "first frame is set to [0, 0] automatically.\n"
    "Proceed still?";

std::string firstTouched(const std::string& what, const char* warning) {
  return what + ".\n" + warning + "\nProceed?";
}

std::optional<std::string> shiftQuestion(const Way& way) {
  if (way.to == 1) return "Shifting another frame to first frame might affect subsequent ones.\nProceed?";
  if (way.from == 1) return "Shifting first frame might affect subsequent ones.\nProceed?";
  return std::nullopt;
}

// --- The actions, on a copy of the model

bool insertBlank(clsGIF& gif, const SeriesOrder& order) {
  GifFrameSettings settings;
  settings.Delay = gif.FrameDelay(order.frame);
  return gif.FrameInsertBlank(placeOf(order), order.blankSize.width, order.blankSize.height, kWhite, settings);
}

// The smallest blank makes room for the copy, so that the screen stays as it is.
bool duplicate(clsGIF& gif, const SeriesOrder& order) {
  const int place = placeOf(order);
  const int original = place == order.frame ? order.frame + 1 : order.frame;
  return gif.FrameInsertBlank(place, 1, 1, kWhite) && gif.FrameCopy(original, place);
}

bool replace(clsGIF& gif, const SeriesOrder& order) {
  const Size old{gif.BgdWidth(), gif.BgdHeight()};
  if (gif.FrameReplaceImage(order.file, order.frame) != kGifOk) return false;
  gif.setBgdWidth(std::max(old.width, gif.BgdWidth()));
  gif.setBgdHeight(std::max(old.height, gif.BgdHeight()));
  return true;
}

bool act(clsGIF& gif, const SeriesOrder& order) {
  const Way way = wayOf(order);
  switch (order.action) {
    case BlankBefore:
    case BlankAfter:
      return insertBlank(gif, order);
    case DuplicateBefore:
    case DuplicateAfter:
      return duplicate(gif, order);
    case LoadBefore:
    case LoadAfter:
      return gif.FrameInsertImage(order.file, placeOf(order)) == kGifOk;
    case Replace:
      return replace(gif, order);
    case Delete:
      return gif.FrameDelete(order.frame);
    case CopyTo:
    case CopyFrom:
      return gif.FrameCopy(way.from, way.to);
    case Swap:
      return gif.FrameSwap(way.from, way.to);
    case Move:
    case ShiftUp:
    case ShiftDown:
      return gif.FrameMoveTo(way.from, way.to);
  }
  return false;
}

std::string failureText(const SeriesOrder& order) {
  const Way way = wayOf(order);
  switch (order.action) {
    case BlankBefore:
    case BlankAfter:
      return clsGIF::FlagErrMessage(kGifBadSize);
    case DuplicateBefore:
    case DuplicateAfter:
      return "Failed to duplicate the image.";
    case LoadBefore:
    case LoadAfter:
      return "Failed to insert an image frame.";
    case Replace:
      return "Failed to replace an image frame.";
    case Delete:
      return "Failed to delete frame " + std::to_string(order.frame) + '.';
    case CopyTo:
    case CopyFrom:
      return "Failed to copy from " + way.words();
    case Swap:
      return "Failed to swap " + way.words(" with ") + '.';
    case Move:
    case ShiftUp:
    case ShiftDown:
      break;
  }
  return "Failed to move from " + way.words();
}

int frameAfterwards(const clsGIF& gif, const SeriesOrder& order) {
  if (adds(order.action)) return placeOf(order);
  if (order.action == Replace || order.action == Delete) return std::min(order.frame, gif.FramesCount());
  return wayOf(order).to;
}

}  // namespace

std::optional<std::string> seriesRefusal(const clsGIF& gif, const SeriesOrder& order) {
  if (adds(order.action) && gif.FramesCount() >= clsGIF::kMostFrames) {
    return "Will exceed max number of frames allowed; " + std::to_string(clsGIF::kMostFrames) + " being the limit.";
  }
  const Way way = wayOf(order);
  switch (order.action) {
    case Delete:
      if (gif.FramesCount() == 1) return "Not allowed to delete the only frame in file.";
      break;
    case ShiftUp:
      if (way.to < 1) return "Your are at the first frame.";
      break;
    case ShiftDown:
      if (way.to > gif.FramesCount()) return "Your are at the last frame.";
      break;
    case CopyTo:
    case CopyFrom:
    case Move:
    case Swap:
      if (way.from == way.to) return "Cannot move/copy to the same frame";
      break;
    default:
      break;
  }
  return std::nullopt;
}

std::optional<std::string> seriesQuestion(const clsGIF& gif, const SeriesOrder& order) {
  const Way way = wayOf(order);
  const bool first = order.frame == 1 && gif.FramesCount() > 0;
  switch (order.action) {
    case BlankBefore:
      if (!first) break;
      return "Inserting first frame might affect backgound width and height, thus\n"
             "possibly affecting subsequent frame.   Proceed still?";
    case LoadBefore:
    case Replace:
      if (!first) break;
      return kReplaceFirst;
    case Delete:
      if (!first) break;
      return "Deleting first frame might affect backgound width and height, thus\n"
             "possibly affecting subsequent frame(s).  Proceed still?";
    case ShiftUp:
    case ShiftDown:
      return shiftQuestion(way);
    case CopyTo:
    case CopyFrom:
      if (way.to != 1) return "Proceed to copy from " + way.words() + '?';
      return firstTouched("Copy from " + way.words(), "Copying to first frame might affect subsequent ones.");
    case Move:
      if (!way.touchesFirst()) return "Proceed to move current frame from position " + way.words(" to position ") + '?';
      return firstTouched("Move from " + way.words(), "Moving first frame might affect subsequent ones.");
    case Swap:
      if (!way.touchesFirst()) return "Proceed to swap current frame with " + std::to_string(way.to) + '?';
      return firstTouched("Swap " + way.words(" with "),
                          "Swapping first frame with another frame might affect subsequent ones.");
    default:
      break;
  }
  return std::nullopt;
}

IncomingFile checkIncoming(const std::filesystem::path& file) {
  const imaging::LoadResult loaded = imaging::LoadPicture(file);
  const std::string path = utf8Of(file);
  const Size size{loaded.width, loaded.height};
  if (loaded.error == imaging::LoadError::TooLarge) return {openFaultText(OpenFault::TooLarge, path), {}};
  if (!loaded) return {openFaultText(OpenFault::LoadFailed, path), {}};
  if (size.empty()) return {openFaultText(OpenFault::NoImage, path), {}};
  if (!screenAreaAllowed(size)) return {openFaultText(OpenFault::TooLarge, path), {}};
  return {{}, isUnusuallyLarge(size) ? unusuallyLargeQuestion("Incoming image", size) : std::string()};
}

SeriesResult editSeries(clsGIF& gif, const SeriesOrder& order) {
  std::string message = failureText(order);
  const Size before{gif.BgdWidth(), gif.BgdHeight()};
  const bool changed = changeWhole(gif, [&](clsGIF& copy) {
    if (!act(copy, order)) return false;
    const Size screen{copy.BgdWidth(), copy.BgdHeight()};
    if (screen == before || screenAreaAllowed(screen)) return true;
    message = screenAreaText();
    return false;
  });
  if (!changed) return {false, order.frame, message};
  return {true, frameAfterwards(gif, order), {}};
}

}  // namespace ruvo
