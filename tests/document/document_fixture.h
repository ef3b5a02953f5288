// One document window over a fake main window, with files of the test's own making.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QMouseEvent>

#include "canvas/ucCanvas.h"
#include "document/frmRuvoPaint.h"
#include "document/menu_table.h"
#include "platform/imaging/imaging_service.h"
#include "support/pictures.h"
#include "support/temp_folder.h"
#include "support_ui/fake_main_window.h"
#include "support_ui/scripted_desktop.h"

// Failures show the text instead of its code units.
inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}

namespace ruvo::test {

class DocumentTest : public testing::Test {
 protected:
  DocumentTest() {
    std::filesystem::create_directory(folder / "temp");
    main.state.tempFolder = folder / "temp";
    main.state.gdiPlusUsable = imaging::startImagingService();
    main.state.documents.resize(1);
    newWindow();
  }

  void newWindow() {
    document = std::make_unique<frmRuvoPaint>(main, 0);
    main.active = document.get();
    document->resize(300, 200);
    document->show();
  }
  bool open(const QString& path) { return document->firstActivation(PendingOpen::FileOpen, path); }
  // Opens a 4 x 3 picture in one colour.
  QString openPlain(const QString& name = "plain.bmp", QColor colour = Qt::red) {
    const QString path = write(name, plain(4, 3, colour));
    EXPECT_TRUE(open(path));
    return path;
  }

  QString path(const QString& name) const { return QString::fromStdString((folder / name.toStdString()).string()); }
  QString write(const QString& name, const QImage& image, const char* format = nullptr) const {
    EXPECT_TRUE(image.save(path(name), format)) << name.toStdString();
    return path(name);
  }
  QString writeBytes(const QString& name, const QByteArray& bytes) const {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return path(name);
  }
  static QImage plain(int width, int height, QColor colour) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
  }

  // More colours than a table holds.
  static QImage colourful(int width = 40, int height = 30) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) image.setPixelColor(x, y, QColor(x * 3, y * 4, (x + y)));
    }
    return image;
  }
  // Picks a menu item that asks where to save, where it may propose such a name, and tells these words.
  void save(const char* control, int index, const QString& to, const QString& proposed = "", const QString& told = "") {
    desktop.expectSave(to, proposed);
    if (!told.isEmpty()) desktop.expect(told);
    EXPECT_TRUE(document->triggerMenu(control, index));
  }
  // Picks a menu item that asks whether to proceed.
  void proceed(const char* control, int index, desktop::Answer answer = desktop::Answer::Yes) {
    desktop.expect("Proceed").answer(answer);
    EXPECT_TRUE(document->triggerMenu(control, index));
  }
  // What the menu tells about the file.
  QString properties() {
    desktop.expect("Original image color depth:");
    EXPECT_TRUE(document->triggerMenu("mnuInquiryOriginal"));
    return desktop.messages.last();
  }

  clsDIB& picture() { return document->canvas()->DIB(); }
  // "#rrggbb" of a picture point.
  QString colourAt(int x, int y) {
    const Pixel32 pixel = pixelAt(picture(), x, y);
    return QColor(pixel.red, pixel.green, pixel.blue).name();
  }
  // A click of the Replace tool on the picture's corner: every pixel of that colour becomes the first colour.
  void replaceWith(QColor colour) {
    main.tools.firstColor = rgb(colour.red(), colour.green(), colour.blue());
    document->Notify_ColorToUse_FromMDI();
    document->Do_imgToolsClick(16);
    drag({0, 0}, {0, 0});
  }
  // A press, a move and a release at points of the display.
  void drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) {
    auto* display = document->canvas()->findChild<QWidget*>("picDisp");
    QPoint corner;
    document->canvas()->GetPicdispStartPos(corner.rx(), corner.ry());
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease}) {
      const QPoint at = corner + (type == QEvent::MouseButtonPress ? from : to);
      const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
      QMouseEvent event(type, at, display->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : button, held,
                        Qt::NoModifier);
      QApplication::sendEvent(display, &event);
    }
  }
  bool changed() const { return main.state.documents[0].changed; }
  std::vector<std::string> undoFiles() const { return namesIn(main.state.tempFolder); }

  TempFolder folder;
  ScriptedDesktop desktop;
  FakeMainWindow main;
  std::unique_ptr<frmRuvoPaint> document;
};

}  // namespace ruvo::test
