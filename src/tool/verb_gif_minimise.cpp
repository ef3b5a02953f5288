#include <system_error>

#include "animation/model/basGIFaniMinimize.h"
#include "animation/model/gif_discrepancies.h"
#include "base/paths.h"
#include "tool/gif_output.h"
#include "tool/picture_input.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

std::int64_t bytesOf(const std::string& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(pathOf(file), error);
  return error ? 0 : static_cast<std::int64_t>(size);
}

// What can not all be made global is told, and the other steps are done all the same: nobody sits before a script who
// could choose again. The repair is made and the comment goes also when no step that was asked for has anything to do.
void minimise(clsGIF& gif, MinimizeOptions options, Console& console) {
  const std::string words = minimizeMessage(minimizeGif(gif, options));
  RectifyGIFData(gif);
  gif.setCommentText({});
  if (words.empty()) return;
  console.out() << words << '\n';
  options.localToGlobal = false;
  minimizeGif(gif, options);
}

}  // namespace

int gifMinimise(const Arguments& arguments, Console& console) {
  const std::string& source = arguments.operand(0);
  const std::string& target = arguments.operand(1);
  MinimizeOptions options{arguments.has("--global"), arguments.has("--unused"), arguments.has("--no-interlace"),
                          arguments.has("--slack")};
  if (!options.any()) options = {true, true, true, true};
  clsGIF gif;
  const std::int64_t before = bytesOf(source);  // the target may be the same file
  if (!loadGif(source, gif, console)) return 1;
  minimise(gif, options, console);
  if (const int status = saveGif(gif, target, console)) return status;
  console.out() << minimizedSizeText(before, bytesOf(target)) << '\n';
  return 0;
}

int gifCheck(const Arguments& arguments, Console& console) {
  clsGIF gif;
  if (!loadGif(arguments.operand(0), gif, console)) return 1;
  console.out() << discrepancyReport(gif);
  return 0;
}

}  // namespace ruvo::tool
