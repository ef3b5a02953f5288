// Which files open, by which reader, and the words of every refusal.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>

#include "platform/imaging/picture_loader.h"

namespace ruvo {

enum class OpenRoute { NotBuilt, PlatformLoader, ImagingService };

// One row of the dispatch: the first whose extension and size fit decides.
struct OpenRow {
  std::string_view extension;  // upper case, with its dot
  std::string_view family;     // name of its group in the file dialog
  std::int64_t maxFileBytes;
  OpenRoute route;
};
inline constexpr std::int64_t kAnyFileSize = std::numeric_limits<std::int64_t>::max();
std::span<const OpenRow> openTable();

enum class OpenFault {
  None,
  NotFound,
  NoExtension,       // fewer than 3 or more than 4 characters after the last dot
  NotAllowed,        // no format of ours, or one without a reader
  NoImagingService,  // told by the main window, not by openFaultText
  LoadFailed,
  NoImage,   // a side below 1
  TooLarge,  // more pixels or a longer side than any picture may have
};

struct OpenPlan {
  OpenFault fault = OpenFault::None;
  OpenRoute route = OpenRoute::NotBuilt;
  std::string extension;  // upper case, with its dot
  std::int64_t fileSize = 0;
};
// Looks at the path and the file's size only.
OpenPlan planOpen(const std::string& path);
// The message of a fault; empty for None and NoImagingService.
std::string openFaultText(OpenFault fault, const std::string& path);

OpenFault sizeFault(std::int64_t width, std::int64_t height);
// What a loader's refusal means to the user.
OpenFault loadFault(const imaging::LoadResult& result);

// The open mode of a command line or a hand-over: no message boxes.
constexpr bool isQuietOpen(int openMode) {
  return openMode == 2;
}

// The file dialog's filter: every format with a reader, then one group a family.
std::string openFilter();

}  // namespace ruvo
