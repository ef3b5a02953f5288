#include "platform/desktop/clipboard_picture.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QMimeData>

#include "base/limits.h"
#include "platform/desktop/desktop.h"
#include "support/bmp_bytes.h"
#include "support/pictures.h"

namespace ruvo::desktop {
namespace {

using imaging::LoadError;

QImage plain(QColor colour, int width = 3, int height = 2) {
  QImage image(width, height, QImage::Format_ARGB32);
  image.fill(colour);
  return image;
}

QByteArray bytesOf(const QImage& image, const char* format) {
  QBuffer buffer;
  EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format));
  return buffer.data();
}

// The colour of the one-coloured picture that the data hold; invalid without one.
QColor colourOf(const QMimeData& data) {
  const imaging::LoadResult loaded = pictureOf(data, kLargePicturePixels);
  if (!loaded) return {};
  const raster::Surface deep = test::deepOf(*loaded.picture.bitmap);
  const Pixel32 pixel = test::pixelAt(deep, 1, 1);
  return {pixel.red, pixel.green, pixel.blue};
}

TEST(ClipboardPicture, TheBestReadableFormIsTaken) {
  QMimeData data;
  data.setText("words");
  EXPECT_FALSE(holdsPicture(data));
  EXPECT_EQ(pictureOf(data, kLargePicturePixels).error, LoadError::Missing);
  data.setData("image/svg+xml", "<svg/>");
  EXPECT_FALSE(holdsPicture(data));
  data.setData("image/x-xpixmap", bytesOf(plain(Qt::yellow), "XPM"));
  EXPECT_EQ(colourOf(data), QColor(Qt::yellow)) << "of a form that only another reader knows";
  const auto dib = test::BmpFile{.width = 2, .height = 2, .data = std::vector<std::uint8_t>(16, 255)}.bytes();
  data.setData("image/x-dib",
               QByteArray(reinterpret_cast<const char*>(dib.data()), static_cast<int>(dib.size())).mid(14));
  EXPECT_EQ(colourOf(data), QColor(Qt::white));
  data.setData("image/x-MS-bmp", bytesOf(plain(Qt::red), "BMP"));
  EXPECT_EQ(colourOf(data), QColor(Qt::red));
  data.setData("image/png", bytesOf(plain(Qt::green), "PNG"));
  EXPECT_EQ(colourOf(data), QColor(Qt::green));
  EXPECT_TRUE(pictureOf(data, kLargePicturePixels).picture.hasAlpha);
}

TEST(ClipboardPicture, DamagedAndEmptyFormsGiveWayButNotALargeOne) {
  QMimeData data;
  data.setData("image/png", bytesOf(plain(Qt::green), "PNG").left(40));
  EXPECT_TRUE(holdsPicture(data));
  EXPECT_EQ(pictureOf(data, kLargePicturePixels).error, LoadError::Broken);
  data.setData("image/tiff", "");
  data.setData("image/bmp", bytesOf(plain(Qt::red), "BMP"));
  EXPECT_EQ(colourOf(data), QColor(Qt::red));
  data.setData("image/png", bytesOf(plain(Qt::green, 40, 30), "PNG"));
  for (const int limit : {40 * 30, 40 * 30 - 1}) {
    const imaging::LoadResult loaded = pictureOf(data, limit);
    EXPECT_EQ(loaded.error, limit == 40 * 30 ? LoadError::None : LoadError::TooLarge);
    EXPECT_EQ(QSize(loaded.width, loaded.height), QSize(40, 30));
  }
  QMimeData ready;
  ready.setImageData(plain(Qt::blue, 40, 30));
  EXPECT_EQ(colourOf(ready), QColor(Qt::blue));
  EXPECT_EQ(pictureOf(ready, 1000).error, LoadError::TooLarge);
}

TEST(ClipboardPicture, WhatWasPutThereOutlivesChangesAndIsSeenByWatchers) {
  Desktop& desk = desktop();
  int changes = 0;
  QObject watcher;
  desk.watchClipboard(&watcher, [&] { ++changes; });
  raster::Surface picture = test::surfaceOf({"#..", ".#."});
  test::pixelAt(picture, 0, 1).alpha = 7;
  for (const bool alpha : {false, true}) {
    ASSERT_TRUE(putOnClipboard(picture, alpha));
    raster::Surface kept = raster::copyOf(picture);
    raster::fillRect(picture, picture.bounds(), rgb(1, 2, 3));
    const imaging::LoadResult back = desk.clipboardPicture(kLargePicturePixels);
    ASSERT_TRUE(back && desk.clipboardHasPicture());
    EXPECT_EQ(back.picture.hasAlpha, alpha);
    EXPECT_PICTURE(test::rowsOf(*back.picture.bitmap), ({"#..", ".#."}));
    EXPECT_EQ(test::pixelAt(*back.picture.bitmap, 0, 1).alpha, 7) << "kept whether it counts or not";
    picture = std::move(kept);
  }
  desk.clearClipboard();
  EXPECT_FALSE(desk.clipboardHasPicture());
  EXPECT_EQ(desk.clipboardPicture(kLargePicturePixels).error, LoadError::Missing);
  EXPECT_EQ(changes, 3);
  raster::Surface indexed;
  EXPECT_FALSE(putOnClipboard(indexed, false));
  EXPECT_TRUE(indexed.create(2, 2, 8) && !putOnClipboard(indexed, false));
}

}  // namespace
}  // namespace ruvo::desktop
