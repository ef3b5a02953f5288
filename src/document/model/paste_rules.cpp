#include "document/model/paste_rules.h"

#include "base/limits.h"
#include "base/number_format.h"
#include "document/model/colour_reduction.h"
#include "document/model/open_rules.h"
#include "document/model/status_texts.h"

namespace ruvo {

std::optional<PasteManner> pasteMannerOf(std::string_view control, int index) {
  if (control == "mnuEditPaste") return PasteManner{};
  if (control == "mnuEditPasteTransparent") return PasteManner{.transparent = true};
  if (control == "mnuEditPasteTranslucentTransparentSub" && index >= 0 && index <= 8)
    return PasteManner{.transparent = true, .translucent = true, .percent = (10 - index) * 10};
  if (control == "mnuEditPasteTranslucentNotTransparentSub" && index >= 0 && index <= 6)
    return PasteManner{.translucent = true, .percent = (8 - index) * 10};
  return std::nullopt;
}

std::string fetchFaultText(const imaging::LoadResult& fetched) {
  if (fetched) return {};
  if (fetched.error != imaging::LoadError::TooLarge) return kFetchFailed;
  if (static_cast<std::int64_t>(fetched.width) * fetched.height <= kLargePicturePixels)
    return openFaultText(OpenFault::TooLarge, {});
  return "Width x height of incoming image is greater than " +
         formatNumber(static_cast<double>(kLargePicturePixels), kFormatLimit) + " pixels ";
}

bool takeFetched(const imaging::Picture& fetched, clsDIB& picture) {
  clsDIB pixels;
  if (!pixels.CreateDIBFromPic(fetched, true)) return false;
  pixels.setDIBhasAlpha(fetched.hasAlpha);
  if (!fetched.hasAlpha) {
    picture = std::move(pixels);
    return true;
  }
  return flattenedCopy(pixels, picture);
}

Size enlargedSize(Size current, Size incoming) {
  return {std::max(current.width, incoming.width), std::max(current.height, incoming.height)};
}

std::string enlargeQuestion(Size incoming) {
  return "Incoming image at " + sizeText(incoming.width, incoming.height) +
         " is larger than the current\nwidth and/or height.  Enlarge the current picture area?";
}

}  // namespace ruvo
