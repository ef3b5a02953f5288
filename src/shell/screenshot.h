// A run that pictures the main window: waiting until it has been painted, and writing what a person would see.
#pragma once

#include <QWidget>
#include <filesystem>

#include "platform/desktop/desktop.h"
#include "platform/imaging/codecs.h"

namespace ruvo {

// Lets events through until the window system has shown the window and it has painted itself; false when that does not
// happen within a few seconds.
bool waitUntilPainted(QWidget& window);

// The whole window at its screen's device pixel ratio, as a PNG file that replaces an old one only when it is whole.
bool writePictureOf(QWidget& window, const std::filesystem::path& file);

// Nobody sits before such a run: messages are not shown and get the careful answer, pickers are cancelled.
class UnattendedDesktop : public desktop::Desktop {
 public:
  UnattendedDesktop() : previous_(desktop::setDesktop(this)) {}
  ~UnattendedDesktop() override { desktop::setDesktop(previous_); }

  desktop::Answer message(QWidget* parent, const QString& text, desktop::Icon icon, desktop::Buttons buttons) override;
  QString openFile(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
  QString saveFile(QWidget*, const QString&, const QString&, const QString&, const QString&) override { return {}; }
  QString pickFolder(QWidget*, const QString&, const QString&) override { return {}; }
  std::optional<QColor> pickColor(QWidget*, const QColor&) override { return std::nullopt; }
  bool clipboardHasPicture() override { return false; }
  void putOnClipboard(const QImage&) override {}
  imaging::LoadResult clipboardPicture(std::int64_t) override { return imaging::refused(imaging::LoadError::Missing); }
  void clearClipboard() override {}
  void watchClipboard(QObject*, std::function<void()>) override {}
  std::int64_t freeRamKb() override { return INT64_MAX; }
  int screenBitsPerPixel() override { return 32; }
  desktop::PrintAnswer print(QWidget*, const desktop::PrintedList&) override { return desktop::PrintAnswer::Cancelled; }
  bool open(const QString&) override { return false; }

 private:
  Desktop* previous_;
};

}  // namespace ruvo
