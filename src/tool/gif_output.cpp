#include "tool/gif_output.h"

#include "base/paths.h"
#include "base/save_texts.h"

namespace ruvo::tool {

std::optional<std::string> commentOf(const clsGIF& gif) {
  return gif.hasComment() ? std::optional(gif.CommentText()) : std::nullopt;
}

int saveGif(const clsGIF& gif, const std::string& target, Console& console) {
  return gif.Save(pathOf(target), 0, commentOf(gif)) ? 0 : console.refuse(target, kSaveFailed);
}

}  // namespace ruvo::tool
