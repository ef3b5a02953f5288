// Reading pictures for the verbs, with the words of every refusal.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "base/geometry.h"
#include "formats/format_table.h"
#include "tool/console.h"

namespace ruvo {
class clsGIF;
class clsICO;
}  // namespace ruvo

namespace ruvo::tool {

// The format of a file that is there, by its extension; null, with the words told, for a file that is missing or of none
// of the program's formats.
const FormatRow* formatOfFile(const std::string& file, Console& console);
// Tells why a file of that format has no picture. Answers 1.
int refuseRead(const std::string& file, const ReadPicture& read, Console& console);
// The (first) picture of a file; empty when it was refused, which has been told.
ReadPicture readFile(const std::string& file, const ReadRequest& request, Console& console);

// Loads all frames, whatever the file's size. False when it was refused, which has been told.
bool loadGif(const std::string& file, clsGIF& gif, Console& console);
// Loads all images. The same.
bool loadIcon(const std::string& file, const FormatRow& row, clsICO& icon, Console& console);

struct ShownPicture {
  int number;                      // of the frame or image, from 1
  const raster::Surface& surface;  // 32 bits
  bool hasAlpha;                   // straight, in byte 3; else opaque
  Point hotSpot;                   // of a cursor
};
// Answers false to stop.
using TakePicture = std::function<bool(const ShownPicture&)>;

// Hands every picture of a file over, one after another: a GIF's frames as they are shown, an icon's images with their
// masks as alpha, else the one picture. False when the file was refused, which has been told; an image of an icon that
// can not be read is told and left out.
bool eachPicture(const std::string& file, bool native, const TakePicture& take, Console& console);

}  // namespace ruvo::tool
