// The words for a file that could not be written, whichever window wrote it.
#pragma once

namespace ruvo {

inline constexpr const char* kSaveFailed = "Failed to save this file.";
inline constexpr const char* kFileReadOnly = "File is read only.";

}  // namespace ruvo
