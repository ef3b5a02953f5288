// Writing a GIF from its model, for the verbs that change one.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "formats/clsGIF.h"
#include "tool/console.h"

namespace ruvo::tool {

// The comment as `Save` takes it.
std::optional<std::string> commentOf(const clsGIF& gif);
// All frames with the comment. Answers the exit status; a failure is told.
int saveGif(const clsGIF& gif, const std::string& target, Console& console);

}  // namespace ruvo::tool
