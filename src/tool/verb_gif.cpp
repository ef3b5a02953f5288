#include <system_error>

#include "base/paths.h"
#include "document/model/save_rules.h"
#include "formats/clsGIF.h"
#include "formats/gif_player.h"
#include "platform/imaging/encoders.h"
#include "tool/gif_output.h"
#include "tool/picture_input.h"
#include "tool/rgba_rows.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

// Makes the folder when it is missing. False, with the words told, when it can not be.
bool makeFolder(const std::string& folder, Console& console) {
  std::error_code error;
  std::filesystem::create_directories(pathOf(folder), error);
  if (error) console.refuse(folder, error.message());
  return !error;
}

std::filesystem::path framePath(const std::string& folder, int frame, std::string_view extension) {
  std::string number = std::to_string(frame);
  number.insert(0, number.size() < 3 ? 3 - number.size() : 0, '0');
  return pathOf(folder) / ("frame" + number + std::string(extension));
}

// Empty when written, else why not.
std::string writeShown(const std::filesystem::path& path, const raster::Surface& screen, bool raw) {
  if (!raw) return imaging::savePng(screen, path, true) ? std::string() : kSaveFailed;
  FileReplacement file(path);
  writeRgba(file, screen, true);
  file.commit();
  return file.reason();
}

}  // namespace

int gifFrames(const Arguments& arguments, Console& console) {
  const std::string& folder = arguments.operand(1);
  clsGIF gif;
  if (!loadGif(arguments.operand(0), gif, console) || !makeFolder(folder, console)) return 1;
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    const auto path = framePath(folder, frame, ".gif");
    if (!gif.Save(path, frame, commentOf(gif))) return console.refuse(utf8Of(path), kSaveFailed);
  }
  return 0;
}

int gifComposed(const Arguments& arguments, Console& console) {
  const std::string& file = arguments.operand(0);
  const std::string& folder = arguments.operand(1);
  const bool raw = arguments.has("--rgba");
  if (raw && arguments.has("--png")) return console.refuse("gif composed takes one of --png and --rgba");
  clsGIF gif;
  if (!loadGif(file, gif, console) || !makeFolder(folder, console)) return 1;
  GifPlayer player(gif);
  int shown = 0;
  while (const int frame = player.next()) {
    const auto path = framePath(folder, frame, raw ? ".rgba" : ".png");
    const std::string reason = writeShown(path, player.screen(), raw);
    if (!reason.empty()) return console.refuse(utf8Of(path), reason);
    ++shown;
  }
  return shown == gif.FramesCount() ? 0 : console.refuse(file, "not enough memory");
}

int gifRewrite(const Arguments& arguments, Console& console) {
  clsGIF gif;
  return loadGif(arguments.operand(0), gif, console) ? saveGif(gif, arguments.operand(1), console) : 1;
}

}  // namespace ruvo::tool
