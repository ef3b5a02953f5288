#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>

#include "../formats/exif_bytes.h"
#include "base/file_io.h"
#include "document/model/picture_loading.h"
#include "document_fixture.h"
#include "formats/clsEXIF.h"
#include "formats/clsGIF.h"
#include "formats/clsICO.h"

namespace ruvo {
namespace {

using namespace test;
using desktop::Answer;

class DocumentFormats : public DocumentTest {
 protected:
  // A picture of 101 colours whose top left has one of its own.
  void openFewColours() {
    QImage image(20, 10, QImage::Format_RGB32);
    for (int i = 0; i < 200; ++i) image.setPixelColor(i % 20, i / 20, QColor(i % 100, 77, 200));
    image.setPixelColor(0, 0, QColor(255, 0, 255));
    ASSERT_TRUE(open(write("few.bmp", image)));
    document->Do_mnuRotateSubClick(0);
    document->Do_mnuRotateSubClick(0);
  }
  std::filesystem::path place(const QString& name) const { return folder / name.toStdString(); }
  // Answers the next modal window.
  template <typename Act>
  void inWindow(const char* name, Act act) {
    QTimer::singleShot(0, document.get(), [name, act] {
      auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(window, nullptr);
      EXPECT_EQ(window->objectName(), name);
      act(*window);
    });
  }
};

TEST_F(DocumentFormats, GifItemsWriteTheirFlagsWithAndWithoutTheImagingService) {
  for (const bool service : {true, false}) {
    for (int variant = 0; variant <= 3; ++variant) {
      SCOPED_TRACE(testing::Message() << "service " << service << ", item " << variant);
      if (!service) imaging::stopImagingService();
      main.state.gdiPlusUsable = service;
      newWindow();
      openFewColours();
      const QString file = path(QString("out%1%2.gif").arg(service).arg(variant));
      save("mnuFileSaveGIFSub", variant, file, "few.gif");
      clsGIF gif;
      ASSERT_EQ(gif.LoadFromGIFFile(file.toStdString()), kGifOk);
      const bool transparent = variant == 1 || variant == 2;
      const bool interlaced = variant == 2 || variant == 3;
      EXPECT_EQ(gif.FramesCount(), 1);
      EXPECT_EQ(gif.FrameUseTransparentColor(1), transparent);
      EXPECT_EQ(gif.FrameInterlaced(1), interlaced);
      if (transparent) {
        EXPECT_EQ(gif.FrameTransparentColor(1), rgb(255, 0, 255));
      }
      clsDIB shown = plainDib(20, 10, kWhite);
      gif.FrameDraw(shown.surface(), 1, 0, 0);
      EXPECT_EQ(pixelAt(shown, 0, 0).colour(), transparent ? kWhite : rgb(255, 0, 255));
      EXPECT_EQ(pixelAt(shown, 19, 0).colour(), rgb(19, 77, 200));
      EXPECT_EQ(pixelAt(shown, 3, 9).colour(), rgb(83, 77, 200));
      EXPECT_EQ(undoFiles().size(), 1u) << "working files are gone";
      EXPECT_FALSE(changed());
      const QString told = properties();
      EXPECT_TRUE(told.contains(transparent ? "(GIF) Transparent:   Yes" : "(GIF) Transparent:   No"));
      EXPECT_TRUE(told.contains(interlaced ? "(GIF) Interlaced:   Yes" : "(GIF) Interlaced:   No"));
      EXPECT_TRUE(told.contains("(GIF) Animated GIF file:   No"));
    }
  }
  imaging::startImagingService();
}

TEST_F(DocumentFormats, AGifReducesACopyAndTakesTheCornersReducedColour) {
  ASSERT_TRUE(open(write("many.bmp", colourful(80, 60))));
  const QString corner = colourAt(0, 0);
  save("mnuFileSaveGIFSub", 1, path("out.gif"));
  EXPECT_EQ(clsDIB::BPPperActualDIB(picture()), 24) << "the picture keeps its colours";
  EXPECT_EQ(colourAt(0, 0), corner);
  clsGIF gif;
  ASSERT_EQ(gif.LoadFromGIFFile(place("out.gif")), kGifOk);
  EXPECT_TRUE(gif.FrameUseTransparentColor(1));
  clsDIB shown = plainDib(80, 60, rgb(1, 2, 3));
  gif.FrameDraw(shown.surface(), 1, 0, 0);
  EXPECT_EQ(pixelAt(shown, 0, 0).colour(), rgb(1, 2, 3)) << "the corner is see-through";
  // Plain Save keeps the manner of the file.
  save("mnuFileSub", 6, path("again.gif"), "out.gif");
  ASSERT_EQ(gif.LoadFromGIFFile(place("again.gif")), kGifOk);
  EXPECT_TRUE(gif.FrameUseTransparentColor(1));
  save("mnuFileSaveGIFSub", 2, path("no/such/folder.gif"), "", "Failed to save this file.");
}

TEST_F(DocumentFormats, TheGifPanelChoosesThePixel) {
  openFewColours();
  inWindow("frmRuvoFileSaveGIForPNG", [this](QDialog& panel) {
    auto* saveTo = panel.findChild<QLineEdit*>("txbSaveTo");
    ASSERT_NE(saveTo, nullptr);
    saveTo->setText(path("panel.gif"));
    panel.findChild<QCheckBox*>("ckbGIFinterlaced")->setChecked(true);
    panel.accept();
  });
  desktop.expect("Saved to " + path("panel.gif"));
  EXPECT_TRUE(document->triggerMenu("mnuFileSaveGIFSub", 5));
  EXPECT_EQ(main.wholeTitle, path("panel.gif"));
  EXPECT_FALSE(changed());
  EXPECT_TRUE(properties().contains("(GIF) Interlaced:   Yes"));
  inWindow("frmRuvoFileSaveGIForPNG", [](QDialog& panel) { panel.reject(); });
  EXPECT_TRUE(document->triggerMenu("mnuFileSaveGIFSub", 5));
}

TEST_F(DocumentFormats, ThePngPanelsWriteTheirDepth) {
  for (const int index : {3, 4}) {
    newWindow();
    openFewColours();
    const QString file = path(QString("panel%1.png").arg(index));
    inWindow("frmRuvoFileSaveGIForPNG", [&](QDialog& panel) {
      panel.findChild<QLineEdit*>("txbSaveTo")->setText(file);
      panel.accept();
    });
    desktop.expect("Save to " + file);
    EXPECT_TRUE(document->triggerMenu("mnuFileSavePNGSub", index));
    const QImage back(file);
    EXPECT_EQ(back.depth(), index == 3 ? 32 : 8);
    EXPECT_EQ(back.pixelColor(19, 0), QColor(19, 77, 200));
    EXPECT_FALSE(changed());
    EXPECT_EQ(undoFiles().size(), 1u);
    EXPECT_TRUE(properties().contains(index == 3 ? "depth:  True-color" : "depth:    8 BPP"));
  }
  imaging::setServiceFaults({.noZlib = true});
  desktop.expect("zLIB.dll missing in Ruvo Paint program folder.\nPlease select to save without Options Panel.");
  EXPECT_TRUE(document->triggerMenu("mnuFileSavePNGSub", 3));
  imaging::setServiceFaults({});
}

TEST_F(DocumentFormats, IconsAndCursorsAreSavedByTheirWindow) {
  for (const int index : {15, 16}) {
    newWindow();
    ASSERT_TRUE(open(write("square.bmp", plain(32, 32, Qt::red))));
    replaceWith(Qt::green);
    const QString file = path(index == 15 ? "one.ico" : "one.cur");
    inWindow("frmRuvoFileSaveICOorCUR", [](QDialog& window) { window.accept(); });
    save("mnuFileSub", index, file, index == 15 ? "square.ico" : "square.cur", "Saved to");
    EXPECT_EQ(main.wholeTitle, file);
    EXPECT_FALSE(changed());
    clsICO icon;
    ASSERT_TRUE(icon.OpenICO(file.toStdString()));
    EXPECT_EQ(icon.IconCount(), 1);
    EXPECT_EQ(pixelAt(picture(), 5, 5).colour(), rgb(0, 255, 0));
    EXPECT_EQ(properties().contains("(ICO) Multi-icon file:   No"), index == 15);
  }
  ASSERT_TRUE(document->LoadOpenFile(write("large.bmp", plain(60, 40, Qt::red)), 3, false));
  replaceWith(Qt::green);
  inWindow("frmRuvoFileSaveICOorCUR", [](QDialog& window) { window.accept(); });
  save("mnuFileSub", 15, path("small.ico"), "", "Saved to");
  EXPECT_EQ(picture().size(), (Size{60, 40}));
  EXPECT_TRUE(changed()) << "at its own size it is still unsaved";
}

// --- Camera data

Bytes cameraPhoto(const QString& plainJpeg) {
  TiffBuilder tiff(true);
  tiff.begin();
  tiff.text(36867, "2004:08:27 13:52:55");
  tiff.number(40962, 8);
  tiff.number(40963, 8);
  const Bytes plain = *readWholeFile(plainJpeg.toStdString(), 1 << 20);
  return joined({kStart, exifSegment(tiff.build()), Bytes(plain.begin() + 2, plain.end())});
}

TEST_F(DocumentFormats, APhotographGetsItsCameraDataBack) {
  const QString photo = write("photo.jpg", plain(8, 8, Qt::blue));
  ASSERT_TRUE(replaceFile(place("photo.jpg"), cameraPhoto(photo)));
  clsEXIF exif;
  Bytes block;
  ASSERT_TRUE(exif.readBlock(place("photo.jpg"), block));
  ASSERT_TRUE(open(photo));
  EXPECT_TRUE(properties().contains("(JPG/JPEG)  From digital camera:   Yes"));
  Bytes written;
  for (const bool service : {true, false}) {
    if (!service) imaging::stopImagingService();
    main.state.gdiPlusUsable = service;
    // Over the photograph itself, so the block has to be in hand before that goes.
    save("mnuFileSaveJPGSub", 2, photo, "/photo_EX.jpg");
    ASSERT_TRUE(exif.readBlock(place("photo.jpg"), written));
    // Before the block's end only the start marker and, from a writer that makes one, its JFIF segment.
    EXPECT_TRUE(std::equal(block.begin() + 2, block.end(), written.end() - static_cast<int>(block.size()) + 2));
    EXPECT_TRUE(exif.IsFromDigitalCamera(place("photo.jpg")));
    EXPECT_EQ(QImage(photo).size(), QSize(8, 8));
    EXPECT_NEAR(QImage(photo).pixelColor(4, 4).blue(), 255, 4);
    EXPECT_EQ(undoFiles().size(), 1u) << "no working file stays";
    EXPECT_TRUE(properties().contains("From digital camera:   Yes"));
  }
  imaging::startImagingService();
  main.state.gdiPlusUsable = true;

  main.state.options.jpgAddBackExif = false;
  save("mnuFileSaveJPGSub", 2, path("bare.jpg"), "/photo.jpg");
  EXPECT_FALSE(exif.readBlock(place("bare.jpg"), written));
  EXPECT_TRUE(properties().contains("From digital camera:   No"));

  main.state.options.jpgAddBackExif = true;
  ASSERT_TRUE(document->LoadOpenFile(photo, 3, false));
  std::filesystem::remove(place("photo.jpg"));
  desktop.expect(photo + "\nOrig file missing.  Orig EXIF data will not be saved.");
  save("mnuFileSaveJPGSub", 4, photo, "/photo.jpg");
  EXPECT_FALSE(exif.readBlock(place("photo.jpg"), written));
  EXPECT_TRUE(QFile::exists(photo));
}

}  // namespace
}  // namespace ruvo
