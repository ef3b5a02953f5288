// A main window over a session of its own, in a folder of its own, and a desktop that answers from a script.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "document/frmRuvoPaint.h"
#include "shell/frmRuvomain.h"
#include "support/temp_folder.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo::test {

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() {
    state.programFolder = folder.path();
    state.tempFolder = folder.path();
    state.imagingFound = state.gdiPlusUsable = true;
    start();
  }

  // A new window on the same settings file, as at the next start.
  void start() {
    window.reset();
    state.closingConfirmed = false;
    window = std::make_unique<frmRuvomain>(services);
    window->show();
  }

  template <typename Control = QAbstractButton>
  Control& control(const QString& name) {
    auto* found = window->findChild<Control*>(name);
    if (found == nullptr) throw std::runtime_error("no control " + name.toStdString());
    return *found;
  }
  void click(const QString& name) { control(name).click(); }
  QString panel(int index) { return control<QLabel>(QString("lblStatusPanel(%1)").arg(index)).text(); }
  void mouse(QWidget& target, Qt::MouseButton button) {
    const QPointF at(target.width() / 2.0, target.height() / 2.0);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, at, target.mapToGlobal(at), button,
                        type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
      QApplication::sendEvent(&target, &event);
    }
  }

  frmRuvoPaint& openNew() {
    state.newImageWidth = 40;
    state.newImageHeight = 30;
    window->openDocument(PendingOpen::New, QString());
    return *window->activeDocument();
  }
  QMdiSubWindow& frameOf(frmRuvoPaint& document) { return *qobject_cast<QMdiSubWindow*>(document.parentWidget()); }
  // A picture file that opens; its path.
  QString pictureFile(const QString& name) {
    const QString path = QString::fromStdString((folder.path() / name.toStdString()).string());
    QImage picture(12, 9, QImage::Format_RGB32);
    picture.fill(Qt::red);
    picture.save(path, "BMP");
    return path;
  }

  TempFolder folder;
  ScriptedDesktop desktop;
  SessionState state;
  SettingsFile settings{folder.path() / kSettingsFileName};
  FileHistory history{settings, kPaintHistorySection};
  FileHistory historyGifAni{settings, kGifAniHistorySection};
  std::vector<std::pair<std::string, PendingOpen>> fromOutside;
  SessionServices services{
      state, settings, history, historyGifAni,
      [this](const std::string& text, PendingOpen command) { fromOutside.emplace_back(text, command); }};
  std::unique_ptr<frmRuvomain> window;
};

}  // namespace ruvo::test
