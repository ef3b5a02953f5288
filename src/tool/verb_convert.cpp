#include "base/paths.h"
#include "image/basGDIProc.h"
#include "platform/raster/blit.h"
#include "tool/picture_input.h"
#include "tool/picture_output.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

struct Chosen {
  clsDIB picture;
  Point hotSpot;
};

// One picture of a file of several: number N, or the first that there is. False when it was refused, which has been
// told.
bool choose(const std::string& file, std::optional<int> number, bool native, Chosen& chosen, Console& console) {
  const auto take = [&](const ShownPicture& shown) {
    if (number && shown.number < *number) return true;
    if (!number || shown.number == *number) {
      chosen.picture.adopt(raster::copyOf(shown.surface), shown.hasAlpha);
      chosen.hotSpot = shown.hotSpot;
    }
    return false;
  };
  if (!eachPicture(file, native, take, console)) return false;
  if (chosen.picture.empty()) {
    console.refuse(file, "has no frame " + std::to_string(number.value_or(1)));
    return false;
  }
  return true;
}

bool readChosen(const Arguments& arguments, bool keepAlpha, Chosen& chosen, Console& console) {
  const std::string& file = arguments.operand(0);
  const bool native = arguments.has("--native");
  const FormatRow* row = formatOfExtension(extensionOf(file));
  const bool isIcon = row && (row->format == Format::Ico || row->format == Format::Cur);
  const std::optional<int> number = arguments.number("--frame");
  if (number || isIcon) return choose(file, number, native, chosen, console);
  ReadPicture read = readFile(file, {.native = native, .keepAlpha = keepAlpha}, console);
  chosen.picture = std::move(read.dib);
  return !chosen.picture.empty();
}

}  // namespace

int convert(const Arguments& arguments, Console& console) {
  const std::string& target = arguments.operand(1);
  OutputRequest request;
  request.bits = arguments.number("--bpp").value_or(0);
  request.dither = arguments.text("--dither").value_or(request.dither);
  request.quality = arguments.number("--quality").value_or(request.quality);
  request.interlaced = arguments.has("--interlaced");
  request.transparentTopPixel = arguments.has("--transparent-top-pixel");
  request.native = arguments.has("--native");
  const PictureOutput plan(target, request);
  if (!plan.fault().empty()) return console.refuse(target, plan.fault());

  Chosen chosen;
  if (!readChosen(arguments, plan.keepsAlpha(), chosen, console)) return 1;
  if (const auto size = arguments.size("--resize")) {
    const bool smooth = !arguments.has("--nearest");
    if (!ResizeDIBQuality(chosen.picture, size->width, size->height, smooth))
      return console.refuse("not enough memory");
  } else {
    request.hotSpot = chosen.hotSpot;
  }
  const std::string fault = PictureOutput(target, request).write(std::move(chosen.picture));
  return fault.empty() ? 0 : console.refuse(target, fault);
}

}  // namespace ruvo::tool
