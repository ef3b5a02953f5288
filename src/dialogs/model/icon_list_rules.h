// The choice among the images of an icon file: a line for each, and why one can not be taken.
#pragma once

#include <optional>
#include <string>

#include "formats/clsICO.h"

namespace ruvo {

inline constexpr const char* kUnableToGet = "Unable to get this one";

// "Ref 1", a tab, "32 x 32", a tab, "16-Color", a tab, "4 BPP": what the file says, whether or not it could be read.
std::string iconListLine(const clsICO& file, int index);
// The words with which an image is refused; nothing when it was read.
std::optional<std::string> iconRefusal(const clsICO& file, int index);

}  // namespace ruvo
