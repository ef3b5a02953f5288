// Which files open, by which reader, and the words of every refusal.
#pragma once

#include <cstdint>
#include <string>

#include "formats/format_table.h"

namespace ruvo {

enum class OpenFault {
  None,
  NotFound,
  NoExtension,       // fewer than 3 or more than 4 characters after the last dot
  NotAllowed,        // no format of ours, or one without a reader
  NoImagingService,  // told by the main window, not by openFaultText
  LoadFailed,
  NoImage,    // a side below 1
  TooLarge,   // more pixels or a longer side than any picture may have
  Cancelled,  // the user took none of the file's pictures
};

struct OpenPlan {
  OpenFault fault = OpenFault::None;
  const FormatRow* row = nullptr;  // never null without a fault
  std::int64_t fileSize = 0;
};
// Looks at the path and the file's size only.
OpenPlan planOpen(const std::string& path);
// The message of a fault; empty for those that are told elsewhere or not at all.
std::string openFaultText(OpenFault fault, const std::string& path);

OpenFault sizeFault(std::int64_t width, std::int64_t height);
// What a reader's answer means to the user.
OpenFault loadFault(const ReadPicture& read);

// The open mode of a command line or a hand-over: no message boxes.
constexpr bool isQuietOpen(int openMode) {
  return openMode == 2;
}

// The file dialog's filter: every format with a reader, then one group a family.
std::string openFilter();

}  // namespace ruvo
