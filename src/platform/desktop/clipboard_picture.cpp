#include "platform/desktop/clipboard_picture.h"

#include <QImage>
#include <cstring>

#include "platform/desktop/desktop.h"

namespace ruvo::desktop {

bool putOnClipboard(const raster::Surface& picture, bool hasAlpha) {
  if (picture.empty() || picture.depth() != 32) return false;
  QImage image(picture.width(), picture.height(), hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  if (image.isNull()) return false;
  for (int y = 0; y < picture.height(); ++y) {
    std::memcpy(image.scanLine(y), picture.pictureRow(y), static_cast<std::size_t>(picture.width()) * 4);
  }
  desktop().putOnClipboard(image);
  return true;
}

}  // namespace ruvo::desktop
