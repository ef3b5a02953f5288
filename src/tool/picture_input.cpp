#include "tool/picture_input.h"

#include "base/paths.h"
#include "document/model/open_rules.h"
#include "formats/clsGIF.h"
#include "formats/clsICO.h"
#include "formats/gif_player.h"

namespace ruvo::tool {
namespace {

// The words of a fault as a message box has them name the file too; here it already stands in front.
int refuseFault(const std::string& file, OpenFault fault, Console& console) {
  std::string words = openFaultText(fault, file);
  if (words.starts_with(file + '\n')) words.erase(0, file.size() + 1);
  return console.refuse(file, words);
}

// For a file whose loader had no words of its own.
int refuseBySize(const std::string& file, imaging::LoadError error, int width, int height, Console& console) {
  if (error == imaging::LoadError::NoMemory) return console.refuse(file, "not enough memory");
  const bool sizeKnown = width != 0 || height != 0;
  OpenFault fault = sizeKnown ? sizeFault(width, height) : OpenFault::None;
  if (fault == OpenFault::None) {
    fault = error == imaging::LoadError::TooLarge ? OpenFault::TooLarge : OpenFault::LoadFailed;
  }
  return refuseFault(file, fault, console);
}

bool eachFrame(const std::string& file, const TakePicture& take, Console& console) {
  clsGIF gif;
  if (!loadGif(file, gif, console)) return false;
  GifPlayer player(gif);
  int shown = 0;
  while (player.next() != 0) {
    ++shown;
    if (!take({shown, player.screen(), true, {}})) return true;
  }
  if (shown < gif.FramesCount()) return console.refuse(file, "not enough memory") == 0;
  return true;
}

bool eachImage(const std::string& file, const FormatRow& row, const TakePicture& take, Console& console) {
  clsICO icon;
  if (!loadIcon(file, row, icon, console)) return false;
  for (int i = 0; i < icon.IconCount(); ++i) {
    const clsDIB picture = icon.withAlpha(i);
    if (picture.empty()) {
      console.refuse(file, "Ref " + std::to_string(i + 1) + ": Unable to get this one");
    } else if (!take({i + 1, picture.surface(), true, {icon.HotSpotX(i), icon.HotSpotY(i)}})) {
      break;
    }
  }
  return true;
}

}  // namespace

const FormatRow* formatOfFile(const std::string& file, Console& console) {
  const OpenPlan plan = planOpen(file);
  const FormatRow* row = plan.fault == OpenFault::None ? formatToOpen(extensionOf(file)) : nullptr;
  if (!row) refuseFault(file, plan.fault == OpenFault::None ? OpenFault::NotAllowed : plan.fault, console);
  return row;
}

int refuseRead(const std::string& file, const ReadPicture& read, Console& console) {
  if (!read.words.empty()) return console.refuse(file, read.words);
  return refuseBySize(file, read.error, read.width, read.height, console);
}

ReadPicture readFile(const std::string& file, const ReadRequest& request, Console& console) {
  const FormatRow* row = formatOfFile(file, console);
  if (!row) return {};
  ReadPicture read = readPicture(pathOf(file), *row, request);
  if (!read) refuseRead(file, read, console);
  return read;
}

bool loadGif(const std::string& file, clsGIF& gif, Console& console) {
  const int code = gif.LoadFromGIFFile(pathOf(file));
  if (code != kGifOk) console.refuse(file, clsGIF::FlagErrMessage(code));
  return code == kGifOk;
}

bool loadIcon(const std::string& file, const FormatRow& row, clsICO& icon, Console& console) {
  if (icon.OpenICO(pathOf(file))) return true;
  // The refusal of the table's reader, which has looked at the reason.
  const ReadPicture read = readPicture(pathOf(file), row);
  refuseRead(file, read, console);
  return false;
}

bool eachPicture(const std::string& file, bool native, const TakePicture& take, Console& console) {
  const FormatRow* row = formatOfFile(file, console);
  if (!row) return false;
  if (row->format == Format::Gif) return eachFrame(file, take, console);
  if (row->format == Format::Ico || row->format == Format::Cur) return eachImage(file, *row, take, console);
  const ReadPicture read = readPicture(pathOf(file), *row, {.native = native, .keepAlpha = true});
  if (!read) {
    refuseRead(file, read, console);
    return false;
  }
  take({1, read.dib.surface(), read.dib.DIBhasAlpha(), {}});
  return true;
}

}  // namespace ruvo::tool
