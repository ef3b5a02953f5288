#include "platform/desktop/clipboard_picture.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <cstring>
#include <map>

#include "platform/desktop/desktop.h"
#include "platform/imaging/clipboard_types.h"
#include "platform/imaging/codecs.h"

namespace ruvo::desktop {
namespace {

using imaging::LoadError;
using imaging::LoadResult;

// What this program itself puts there, and all that some platforms offer: an image that needs no decoding.
constexpr const char* kReadyImage = "application/x-qt-image";

// After so long without a picture no further form is asked for. One question to a program that hangs may take as long.
constexpr qint64 kPatienceMs = 4000;

// Forms by their place, the best first; behind them those of the other readers.
std::multimap<int, QString> formsIn(const QStringList& offered) {
  constexpr int kOtherReader = 1000;
  std::multimap<int, QString> forms;
  for (const QString& name : offered) {
    if (const auto rank = imaging::clipboardRank(name.toStdString())) {
      forms.emplace(*rank, name);
    } else if (name.startsWith(u"image/") && !name.contains(u"svg") &&
               QImageReader::supportedMimeTypes().contains(name.toLatin1())) {
      forms.emplace(kOtherReader, name);
    }
  }
  return forms;
}

LoadResult tooLarge(QSize size) {
  LoadResult result = imaging::refused(LoadError::TooLarge);
  result.width = size.width();
  result.height = size.height();
  return result;
}

LoadResult fromImage(QImage image, std::int64_t maxPixels) {
  if (image.isNull()) return imaging::refused(LoadError::Broken);
  if (!imaging::sizeAllowed(image.width(), image.height(), maxPixels)) return tooLarge(image.size());
  const bool alpha = image.hasAlphaChannel();
  image.convertTo(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  raster::Surface surface;
  if (image.isNull() || !surface.create(image.width(), image.height(), 32))
    return imaging::refused(LoadError::NoMemory);
  for (int y = 0; y < image.height(); ++y) {
    std::memcpy(surface.pictureRow(y), image.constScanLine(y), static_cast<std::size_t>(image.width()) * 4);
  }
  LoadResult result;
  result.width = image.width();
  result.height = image.height();
  result.fileDepth = image.depth();
  result.picture = imaging::Picture::ofBitmap(std::move(surface), alpha);
  return result;
}

// Of a form that this program has no reader for. One whose size can not be told before it is decoded is left alone.
LoadResult byOtherReader(const QByteArray& bytes, std::int64_t maxPixels) {
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer);
  const QSize size = reader.size();
  if (!size.isValid()) return imaging::refused(LoadError::Broken);
  if (!imaging::sizeAllowed(size.width(), size.height(), maxPixels)) return tooLarge(size);
  return fromImage(reader.read(), maxPixels);
}

LoadResult fromBytes(const QString& form, const QByteArray& bytes, std::int64_t maxPixels) {
  if (!imaging::clipboardRank(form.toStdString())) return byOtherReader(bytes, maxPixels);
  return imaging::LoadPictureFromBytes({bytes.begin(), bytes.end()}, maxPixels);
}

}  // namespace

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

bool holdsPicture(const QMimeData& data) {
  const QStringList offered = data.formats();
  return offered.contains(QLatin1String(kReadyImage)) || !formsIn(offered).empty();
}

LoadResult pictureOf(const QMimeData& data, std::int64_t maxPixels) {
  QElapsedTimer since;
  since.start();
  const QStringList offered = data.formats();
  const auto forms = formsIn(offered);
  // With forms to choose from, the ready image would only be one of them, decoded with no look at its size.
  if (forms.empty()) {
    const bool ready = offered.contains(QLatin1String(kReadyImage));
    return ready ? fromImage(qvariant_cast<QImage>(data.imageData()), maxPixels) : imaging::refused(LoadError::Missing);
  }
  for (const auto& [rank, form] : forms) {
    if (since.elapsed() > kPatienceMs) break;
    const QByteArray bytes = data.data(form);
    if (bytes.isEmpty()) continue;
    LoadResult loaded = fromBytes(form, bytes, maxPixels);
    if (loaded || loaded.error == LoadError::TooLarge) return loaded;
  }
  return imaging::refused(LoadError::Broken);
}

}  // namespace ruvo::desktop
