#include "dialogs/model/icon_list_rules.h"

namespace ruvo {
namespace {

constexpr int kTableBits = 8;  // deeper images have no colour table

std::string refText(int index) {
  return "Ref " + std::to_string(index + 1);
}

const clsICO::Image& imageOf(const clsICO& file, int index) {
  return file.images().at(static_cast<std::size_t>(index));
}

}  // namespace

std::string iconListLine(const clsICO& file, int index) {
  const clsICO::Image& image = imageOf(file, index);
  const int bpp = image.statedBPP;
  const std::string colours = bpp <= kTableBits ? std::to_string(1 << bpp) + "-Color" : "True-Color";
  return refText(index) + '\t' + std::to_string(image.statedWidth) + " x " + std::to_string(image.statedHeight) + '\t' +
         colours + '\t' + std::to_string(bpp) + " BPP";
}

std::optional<std::string> iconRefusal(const clsICO& file, int index) {
  const clsICO::Image& image = imageOf(file, index);
  if (image.readable) return std::nullopt;
  const int bpp = image.statedBPP;
  if (bpp < kTableBits && bpp != 0 && bpp != 1 && bpp != 4) {
    return "Selected item is below 8 BPP, but not 1, 4 (or 0 if old Win 95 icons)";
  }
  if (bpp > kTableBits && bpp != 24 && bpp != 32) {
    return "Selected item is of True Color but not 24 BPP or 32 BPP.";
  }
  return refText(index) + '\n' + kUnableToGet;
}

}  // namespace ruvo
