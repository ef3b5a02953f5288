#include "document/model/new_size_rules.h"

#include "base/limits.h"
#include "base/number_format.h"

namespace ruvo {

std::string thresholdText() {
  return "Width x height exceeds the threshhold set (" + formatNumber(kMaxPicturePixels, kFormatLimit) + " pixels)";
}

std::optional<std::string> newSizeRefusal(int width, int height, SizeField enteredLast) {
  if (width < 1 || height < 1) return kSideTooSmall;
  if (width > kMaxPictureSide || height > kMaxPictureSide) return kSideTooLarge;
  if (pictureSizeAllowed(width, height)) return std::nullopt;
  return enteredLast == SizeField::Width ? "Value entered in width will result in W x H exceeding the threshhold."
                                         : "Value entered in height will result in W x H exceeding the threshhold.";
}

bool newSizeIsLarge(int width, int height) {
  return static_cast<std::int64_t>(width) * height > kLargePicturePixels;
}

}  // namespace ruvo
