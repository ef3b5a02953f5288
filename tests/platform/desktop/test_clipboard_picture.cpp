#include "platform/desktop/clipboard_picture.h"

#include "base/limits.h"
#include "platform/desktop/desktop.h"
#include "support/pictures.h"

namespace ruvo::desktop {
namespace {

using imaging::LoadError;

QByteArray bytesOf(QColor colour, const char* format) {
  QImage image(40, 30, QImage::Format_ARGB32);
  image.fill(colour);
  QBuffer buffer;
  EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format));
  return buffer.data();
}
// The colour of the one-coloured picture that the data hold, 0 without one.
Colour colourOf(const QMimeData& data) {
  const imaging::LoadResult loaded = pictureOf(data, kLargePicturePixels);
  return loaded ? test::pixelAt(test::deepOf(*loaded.picture.bitmap), 1, 1).colour() : 0;
}

TEST(ClipboardPicture, TheBestFormThatCanBeReadIsTaken) {
  QMimeData data;
  data.setData("image/png", bytesOf(Qt::green, "PNG").left(40));
  data.setData("image/x-xpixmap", bytesOf(Qt::yellow, "XPM"));
  EXPECT_EQ(colourOf(data), rgb(255, 255, 0)) << "a form that only another reader knows, after the broken one";
  EXPECT_EQ(pictureOf(data, 40 * 30 - 1).error, LoadError::TooLarge);
  data.setData("image/bmp", "");
  data.setData("image/x-MS-bmp", bytesOf(Qt::red, "BMP"));
  EXPECT_EQ(colourOf(data), rgb(255, 0, 0));
  data.setData("image/png", bytesOf(Qt::green, "PNG"));
  EXPECT_EQ(colourOf(data), rgb(0, 255, 0));
}

TEST(ClipboardPicture, WhatWasPutThereOutlivesChangesAndIsSeenByWatchers) {
  int changes = 0;
  QObject watcher;
  desktop().watchClipboard(&watcher, [&] { ++changes; });
  raster::Surface picture = test::surfaceOf({"#..", ".#."});
  ASSERT_TRUE(putOnClipboard(picture, true));
  raster::fillRect(picture, picture.bounds(), kBlack);
  const imaging::LoadResult back = desktop().clipboardPicture(kLargePicturePixels);
  ASSERT_TRUE(back && back.picture.hasAlpha && desktop().clipboardHasPicture());
  EXPECT_PICTURE(test::rowsOf(*back.picture.bitmap), ({"#..", ".#."}));
  EXPECT_EQ(desktop().clipboardPicture(5).error, LoadError::TooLarge);
  desktop().clearClipboard();
  EXPECT_FALSE(desktop().clipboardHasPicture());
  EXPECT_EQ(changes, 2);
}

}  // namespace
}  // namespace ruvo::desktop
