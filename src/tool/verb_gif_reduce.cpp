#include "animation/model/change_bpp.h"
#include "formats/clsGIF.h"
#include "tool/gif_output.h"
#include "tool/picture_input.h"
#include "tool/verbs.h"

namespace ruvo::tool {

int gifReduce(const Arguments& arguments, Console& console) {
  const auto entries = arguments.number("--entries");
  if (!entries) return console.refuse("gif reduce needs --entries");
  const std::string& file = arguments.operand(0);
  clsGIF gif;
  if (!loadGif(file, gif, console)) return 1;
  const std::string failure = changeBpp(gif, {.entries = *entries, .globalise = arguments.has("--globalise")});
  if (!failure.empty()) return console.refuse(file, failure);
  return saveGif(gif, arguments.operand(1), console);
}

}  // namespace ruvo::tool
