#include "animation/model/series_resize.h"
#include "tool/gif_output.h"
#include "tool/picture_input.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

ResizeKeep keptSides(std::optional<std::string_view> sides) {
  if (sides == "width") return ResizeKeep::Width;
  if (sides == "height") return ResizeKeep::Height;
  return sides == "both" ? ResizeKeep::Both : ResizeKeep::None;
}

}  // namespace

int gifResize(const Arguments& arguments, Console& console) {
  const std::string& source = arguments.operand(0);
  const auto percent = arguments.number("--percent");
  if (!percent) return console.refuse("gif resize needs --percent");
  if (arguments.has("--keep") && !arguments.has("--screen-only")) {
    return console.refuse("gif resize takes --keep with --screen-only");
  }
  const ResizeOrder order{*percent,
                          arguments.has("--area"),
                          arguments.has("--screen-only"),
                          keptSides(arguments.text("--keep")),
                          arguments.number("--left").value_or(0),
                          arguments.number("--top").value_or(0)};
  clsGIF gif;
  if (!loadGif(source, gif, console)) return 1;
  if (const auto refusal = resizeRefusal(gif, order)) return console.refuse(source, *refusal);
  if (!resizeGif(gif, order)) return console.refuse(source, "not enough memory");
  return saveGif(gif, arguments.operand(1), console);
}

}  // namespace ruvo::tool
