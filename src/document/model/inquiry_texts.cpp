#include "document/model/inquiry_texts.h"

#include "base/letter_case.h"
#include "base/number_format.h"
#include "document/model/status_texts.h"

namespace ruvo {
namespace {

std::string widthHeight(Size size) {
  return "w = " + std::to_string(size.width) + "   h = " + std::to_string(size.height);
}

std::string orNotApplicable(const std::string& text) {
  return text.empty() ? "N/A" : text;
}

}  // namespace

std::string depthText(int bitsPerPixel) {
  switch (bitsPerPixel) {
    case 1:
      return "  1 BPP   2-color";
    case 4:
      return "  4 BPP   16-color";
    case 8:
      return "  8 BPP   256-color";
    default:
      return "True-color";
  }
}

std::string generalPropertiesText(const FileRecord& record, const PictureFacts& facts) {
  const bool untitled = record.untitled();
  std::string text = untitled ? "UNTITLED\n(Not directly from existing file)\n\n" : record.name + "\n\n";
  text += "File Size:  " +
          (untitled ? "N/A" : formatNumber(static_cast<double>(record.fileSize), kFormatFileSize) + "  bytes") + '\n';
  text += "File Date:  " + orNotApplicable(untitled ? std::string() : facts.fileDate) + '\n';
  text += "Original Image Size:  " +
          (untitled ? "N/A" : sizeText(record.originalWidth, record.originalHeight) + "  pixels      ") + '\n';
  text += "Current Actual Size:  " + sizeText(facts.size.width, facts.size.height) + "  pixels\n";
  text += "Original image color depth:  " + (untitled ? "N/A" : depthText(record.bitsPerPixel)) + '\n';
  text += "Current color depth:  " + depthText(facts.bitsPerPixel) + '\n';
  const std::string type = upperCase(record.type);
  if (type == "GIF") {
    text += "(GIF) Transparent:   " + orNotApplicable(record.transparent) + '\n';
    text += "(GIF) Interlaced:   " + orNotApplicable(record.interlaced) + '\n';
    text += "(GIF) Animated GIF file:   " + orNotApplicable(record.severalFrames) + '\n';
  } else if (type == "JPG" || type == "JPEG") {
    text += "(JPG/JPEG)  From digital camera:   " + orNotApplicable(record.fromCamera) + '\n';
  } else if (type == "ICO") {
    text += "(ICO) Multi-icon file:   " + orNotApplicable(record.severalFrames) + '\n';
  }
  return text + "Change made:  " + yesNo(facts.changed);
}

std::string colourCountText(int count) {
  return "\n    Color Count: " + std::to_string(count) + '\n';
}

std::string currentScreenText(Size picture, Point start, Size shown, Size window) {
  return "CURRENT SCREEN\n\nPicture size:   " + sizeText(picture.width, picture.height) +
         "\nCurrent display starts at:   [ " + std::to_string(start.x) + ",  " + std::to_string(start.y) +
         " ]\nSize displayed:   " + widthHeight(shown) + "\nWindow size:   " + widthHeight(window) + " (excl caption)";
}

}  // namespace ruvo
