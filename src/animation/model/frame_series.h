// What the series panel does to the list of frames, with its limits, questions and failures.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/geometry.h"
#include "formats/clsGIF.h"

namespace ruvo {

enum class SeriesAction {
  BlankBefore,
  BlankAfter,
  DuplicateBefore,
  DuplicateAfter,
  LoadBefore,
  LoadAfter,
  Delete,
  Replace,
  CopyTo,
  CopyFrom,
  Move,
  Swap,
  ShiftUp,
  ShiftDown,
};

struct SeriesOrder {
  SeriesAction action = SeriesAction::BlankAfter;
  int frame = 1;                 // the current one
  int other = 0;                 // of copy, move and swap
  std::filesystem::path file{};  // of load and replace
  Size blankSize{};              // of a blank frame
};

// Why it can not be done at all, and the question that stands in front of it. Both look at the frames only, so they can
// be asked before a file or a size is.
std::optional<std::string> seriesRefusal(const clsGIF& gif, const SeriesOrder& order);
std::optional<std::string> seriesQuestion(const clsGIF& gif, const SeriesOrder& order);

// The file of a load or replace.
struct IncomingFile {
  std::string refusal;   // empty when it may come in
  std::string question;  // when it is unusually large
};
IncomingFile checkIncoming(const std::filesystem::path& file);

struct SeriesResult {
  bool changed = false;
  int frame = 0;        // to be selected afterwards: the one that was added or changed
  std::string message;  // of a failure
};
// A failure leaves the frames as they were. A blank frame is white and takes the delay of the current one. What comes
// into the first place from a file lies at [0, 0], and the screen grows to hold it, within the limit of its area.
SeriesResult editSeries(clsGIF& gif, const SeriesOrder& order);

}  // namespace ruvo
