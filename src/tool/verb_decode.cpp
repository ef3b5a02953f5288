#include "base/paths.h"
#include "tool/picture_input.h"
#include "tool/rgba_rows.h"
#include "tool/verbs.h"

namespace ruvo::tool {

int decode(const Arguments& arguments, Console& console) {
  const std::string& target = arguments.operand(1);
  FileReplacement file(pathOf(target));
  bool some = false;
  const auto take = [&](const ShownPicture& picture) {
    some = true;
    return writePam(file, picture.surface, picture.hasAlpha);
  };
  if (!eachPicture(arguments.operand(0), arguments.has("--native"), take, console)) return 1;
  // All images of an icon may have been left out, each with its words.
  if (!some) return 1;
  return file.commit() ? 0 : console.refuse(target, file.reason());
}

}  // namespace ruvo::tool
