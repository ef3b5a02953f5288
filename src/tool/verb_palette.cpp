#include "animation/model/pal_file.h"
#include "base/file_io.h"
#include "base/paths.h"
#include "image/clsPal.h"
#include "tool/picture_input.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

constexpr int kTreeDepth = 8;

}  // namespace

int colours(const Arguments& arguments, Console& console) {
  const ReadPicture read = readFile(arguments.operand(0), {}, console);
  if (!read) return 1;
  console.out() << clsDIB::CountColorsDIB(read.dib) << '\n';
  return 0;
}

int palette(const Arguments& arguments, Console& console) {
  int chosen = 0;
  for (const char* name : {"--optimal", "--web", "--16", "--halftone"}) chosen += arguments.has(name);
  if (chosen != 1) return console.refuse("palette takes exactly one of --optimal, --web, --16 and --halftone");
  const bool withFile = arguments.operands().size() == 2;
  clsPal pal;
  ReadPicture read;
  if (withFile) {
    read = readFile(arguments.operand(0), {}, console);
    if (!read) return 1;
  }
  if (const auto count = arguments.number("--optimal")) {
    if (!withFile) return console.refuse("palette --optimal needs a picture");
    pal.CreateOptimal(read.dib, *count, kTreeDepth);
  } else if (arguments.has("--web")) {
    pal.CreateWebsafe();
  } else if (arguments.has("--16")) {
    pal.CreatePalette16();
  } else {
    pal.CreateHalftone(*arguments.number("--halftone"));
  }
  const std::string& target = arguments.operands().back();
  const std::string text = palText(pal.entriesInUse(), pal.MaxCount());
  std::string reason;
  if (!replaceFile(pathOf(target), {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, &reason)) {
    return console.refuse(target, reason);
  }
  return 0;
}

}  // namespace ruvo::tool
