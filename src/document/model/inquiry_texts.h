// What the Inquiry menu tells about a picture and its file.
#pragma once

#include <string>

#include "base/geometry.h"
#include "document/model/file_record.h"

namespace ruvo {

struct PictureFacts {
  Size size;
  int bitsPerPixel = 24;
  bool changed = false;
  std::string fileDate;  // empty when there is no file
};

// "True-color" for more than 8 bits.
std::string depthText(int bitsPerPixel);
std::string generalPropertiesText(const FileRecord& record, const PictureFacts& facts);
std::string colourCountText(int count);
// All in image pixels but the window, which is in its own pixels.
std::string currentScreenText(Size picture, Point start, Size shown, Size window);

}  // namespace ruvo
