#include "platform/imaging/clipboard_types.h"

#include "base/letter_case.h"

namespace ruvo::imaging {
namespace {

// PNG before all others: it loses nothing and keeps what is see-through.
constexpr std::array<std::string_view, 22> kTypes = {
    // Bitmap files
    "image/png", "image/bmp", "image/x-bmp", "image/x-ms-bmp", "image/x-win-bitmap", "image/x-windows-bmp",
    "image/tiff", "image/jpeg", "image/gif",
    // Device-independent bitmaps
    "image/dib", "image/x-dib", "application/x-qt-windows-mime;value=\"DeviceIndependentBitmap\"",
    // Metafiles
    "image/emf", "image/x-emf", "application/emf", "application/x-emf", "application/x-openoffice-emf", "image/wmf",
    "image/x-wmf", "application/wmf", "application/x-wmf", "application/x-openoffice-wmf"};

std::optional<int> placeOf(std::string_view name) {
  const std::string wanted = upperCase(name);
  for (std::size_t i = 0; i < kTypes.size(); ++i) {
    if (upperCase(kTypes[i]) == wanted) return static_cast<int>(i);
  }
  return std::nullopt;
}

}  // namespace

std::optional<int> clipboardRank(std::string_view mediaType) {
  const auto whole = placeOf(mediaType);
  return whole ? whole : placeOf(mediaType.substr(0, mediaType.find(';')));
}

}  // namespace ruvo::imaging
