#include "formats/picture_readers.h"

#include "base/limits.h"
#include "platform/imaging/imaging_service.h"
#include "platform/imaging/pixel_rows.h"

namespace ruvo::readers {
namespace {

ReadPicture refusedFor(imaging::LoadError error) {
  ReadPicture refused;
  refused.error = error;
  return refused;
}

// The loaded bitmap as a picture of 32 bits, its own memory moved where that is possible.
bool takeBitmap(imaging::Picture&& picture, clsDIB& dib) {
  raster::Surface* bitmap = picture.bitmap.get();
  const bool movable = bitmap && bitmap->depth() == 32 && bitmap->order() == raster::RowOrder::BottomUp &&
                       picture.bitmap.use_count() == 1;
  if (movable) {
    dib.adopt(std::move(*bitmap), picture.hasAlpha);
  } else if (dib.CreateDIBFromPic(picture, true)) {
    dib.setDIBhasAlpha(picture.hasAlpha);
  }
  return !dib.empty();
}

// Composes a picture with alpha onto white, in place.
void dropAlpha(clsDIB& dib) {
  if (!dib.DIBhasAlpha()) return;
  const raster::View32 view = dib.surface().view32();
  for (int y = 0; y < view.height(); ++y) {
    Pixel32* row = view.row(y);
    for (int x = 0; x < view.width(); ++x) {
      Pixel32& p = row[x];
      const auto onWhite = [&](int c) {
        return static_cast<std::uint8_t>(255 - imaging::multiplyBytes(255 - c, p.alpha));
      };
      p = {onWhite(p.blue), onWhite(p.green), onWhite(p.red), 0};
    }
  }
  dib.setDIBhasAlpha(false);
}

ReadPicture pictureOf(imaging::LoadResult&& loaded) {
  ReadPicture read;
  read.error = loaded.error;
  read.width = loaded.width;
  read.height = loaded.height;
  read.fileDepth = loaded.fileDepth;
  if (!loaded) return read;
  read.width = loaded.picture.width;
  read.height = loaded.picture.height;
  if (!pictureSizeAllowed(read.width, read.height)) {
    read.error = imaging::LoadError::TooLarge;
  } else if (!takeBitmap(std::move(loaded.picture), read.dib)) {
    read.error = imaging::LoadError::NoMemory;
  }
  return read;
}

}  // namespace

ReadPicture classic(const std::filesystem::path& file, const ReadRequest&) {
  return pictureOf(imaging::LoadPicture(file));
}

ReadPicture imagingService(const std::filesystem::path& file, const ReadRequest& request) {
  if (!imaging::imagingUsable()) return refusedFor(imaging::LoadError::NotThisFormat);
  ReadPicture read = pictureOf(imaging::LoadImageThroughGDIPlus(file));
  if (read && !request.keepAlpha) dropAlpha(read.dib);
  return read;
}

}  // namespace ruvo::readers
