#include "shell/screenshot.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPixmap>
#include <QTimer>
#include <QWindow>

#include "base/file_io.h"

namespace ruvo {
namespace {

constexpr int kLongestWait = 5000;  // milliseconds
constexpr int kStep = 1;

void letEventsThrough(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace

bool waitUntilPainted(QWidget& window) {
  QElapsedTimer time;
  time.start();
  QCoreApplication::processEvents();
  while (!window.windowHandle() || !window.windowHandle()->isExposed()) {
    if (time.hasExpired(kLongestWait)) return false;
    letEventsThrough(kStep);
  }
  QCoreApplication::processEvents();
  return true;
}

bool writePictureOf(QWidget& window, const std::filesystem::path& file) {
  const QPixmap picture = window.grab();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (picture.isNull() || !buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "PNG")) return false;
  return replaceFile(
      file, {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
}

desktop::Answer UnattendedDesktop::message(QWidget*, const QString&, desktop::Icon, desktop::Buttons buttons) {
  return buttons == desktop::Buttons::Ok ? desktop::Answer::Ok : desktop::Answer::No;
}

}  // namespace ruvo
