#include <gmock/gmock.h>

#include <QDialog>
#include <QPushButton>
#include <QTimer>

#include "base/file_io.h"
#include "document_fixture.h"
#include "formats/clsGIF.h"
#include "formats/clsICO.h"
#include "image/basGDIProc.h"
#include "support/bmp_bytes.h"

namespace ruvo {
namespace {

using desktop::Answer;
using test::DocumentTest;

class DocumentOpen : public DocumentTest {
 protected:
  // A 24-bit BMP header for a picture of any size, with no pixels behind it.
  static QByteArray bmpHeader(int width, int height) {
    const auto bytes = test::BmpFile{.width = width, .height = height}.bytes();
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
  }
  // Loads into the open document and expects these words, and nothing changed by it.
  void expectRefusal(const QString& file, const QString& words) {
    desktop.messages.clear();
    desktop.expect(words);
    EXPECT_FALSE(document->LoadOpenFile(file, 3, true)) << file.toStdString();
    EXPECT_EQ(desktop.messages.value(0), words);
    EXPECT_FALSE(document->LoadOpenFile(file, 2, true)) << "quiet";
    EXPECT_EQ(picture().size(), (Size{4, 3}));
    EXPECT_EQ(colourAt(0, 0), "#ff0000");
    EXPECT_EQ(main.history.size(), 1);
    EXPECT_EQ(undoFiles().size(), 1u);
  }
};

TEST_F(DocumentOpen, EveryFormatWithAReaderBecomesTheFirstState) {
  ASSERT_TRUE(SaveDIBWithEncoder(test::plainDib(20, 10, rgb(0, 128, 0)), path("a.tif").toStdString(), kEncodeTiff, 24));
  clsDIB gifSource = test::plainDib(20, 10, rgb(0, 128, 0), 8);
  std::fill_n(gifSource.DIBBitsPtr(), gifSource.surface().byteCount(), 1);
  ASSERT_TRUE(SaveDIBWithEncoder(gifSource, path("a.gif").toStdString(), kEncodeGif));
  for (const char* name : {"a.bmp", "a.png", "a.jpg"}) write(name, plain(20, 10, QColor(0, 128, 0)));
  for (const char* name : {"a.bmp", "a.png", "a.jpg", "a.tif", "a.gif"}) {
    newWindow();
    ASSERT_TRUE(open(path(name))) << name;
    EXPECT_EQ(picture().size(), (Size{20, 10})) << name;
    EXPECT_EQ(picture().DIBbpp(), 32) << name;
    EXPECT_NEAR(QColor(colourAt(7, 7)).green(), 128, 2) << name;
    EXPECT_EQ(undoFiles(), std::vector<std::string>{"0001.m_Temp"});
    EXPECT_FALSE(main.buttons.undo);
    EXPECT_TRUE(main.buttons.picture);
    EXPECT_EQ(main.wholeTitle, path(name));
    EXPECT_EQ(main.history.last(), path(name));
    EXPECT_EQ(main.panels[kPanelNetSize], "20 x 10");
    EXPECT_FALSE(changed());
  }
}

TEST_F(DocumentOpen, RefusalsSayWhyAndKeepThePicture) {
  openPlain();
  expectRefusal(path("none.bmp"), path("none.bmp") + "\nFile not found");
  expectRefusal(folder.path().c_str(), QString(folder.path().c_str()) + "\nFile not found");
  const QString bare = writeBytes("bare", "BM");
  expectRefusal(bare, "File does not have file extension/file format unknown.\n" + bare);
  const QString text = writeBytes("words.txt", "BM");
  expectRefusal(text, "File format not allowed for\n" + text);
  for (const char* kind : {"bmp", "png", "gif", "jpg", "wmf", "emf", "tif", "tga", "pcx", "ico", "cur"}) {
    const QString damaged = writeBytes(QString("words.") + kind, "this is no picture at all");
    expectRefusal(damaged, damaged + "\nFailed to load this file.");
  }
  expectRefusal(writeBytes("wide.bmp", bmpHeader(32761, 1)), "Incoming image exceeds max size allowed.");
  expectRefusal(writeBytes("vast.bmp", bmpHeader(5001, 5000)), "Incoming image exceeds max size allowed.");
  expectRefusal(writeBytes("flat.bmp", bmpHeader(4, 0)), "Failed to retrieve incoming image");
}

// A see-through GIF frame at (3, 2) of a 20 x 10 screen, and a second frame, in a file of so many bytes.
void writeGif(const std::filesystem::path& file, std::size_t length) {
  clsGIF gif;
  clsDIB picture = test::plainDib(8, 6, rgb(0, 0, 255));
  test::pixelAt(picture, 0, 0) = Pixel32::plain(rgb(255, 0, 255));
  ASSERT_TRUE(gif.FrameInsertImage(picture, 1, {}));
  ASSERT_TRUE(gif.FrameInsertImage(picture, 2, {}));
  gif.setBgdWidth(20);
  gif.setBgdHeight(10);
  gif.setFrameLeft(1, 3);
  gif.setFrameTop(1, 2);
  gif.setFrameUseTransparentColor(1, true);
  gif.setFrameTransparentColorIndex(1, gif.PaletteIndex_In_DIB_XY(1, 0, 0));
  auto bytes = gif.saveBytes();
  ASSERT_LT(bytes.size(), length);
  bytes.resize(length);
  ASSERT_TRUE(replaceFile(file, bytes));
}

TEST_F(DocumentOpen, AGifShowsItsFirstFrameOnceAtItsPlaceAndALargeOneLosesItsFacts) {
  writeGif(folder / "facts.gif", 2000000);
  ASSERT_TRUE(open(path("facts.gif")));
  EXPECT_EQ(picture().size(), (Size{20, 10}));
  EXPECT_EQ(colourAt(2, 2), "#ffffff");
  EXPECT_EQ(colourAt(3, 2), "#ffffff") << "see-through";
  EXPECT_EQ(colourAt(4, 2), "#0000ff");
  EXPECT_EQ(colourAt(10, 7), "#0000ff");
  EXPECT_EQ(colourAt(11, 8), "#ffffff");
  EXPECT_TRUE(
      properties().contains("(GIF) Transparent:   Yes\n(GIF) Interlaced:   No\n(GIF) Animated GIF file:   Yes\n"));
  EXPECT_TRUE(desktop.messages.last().contains("Original image color depth:    8 BPP"));
  desktop.expectSave("", "/facts_Frame.gif");
  EXPECT_TRUE(document->triggerMenu("mnuFileSub", 6)) << "one picture must not take the place of several by chance";
  writeGif(folder / "large.gif", 2000001);
  ASSERT_TRUE(document->LoadOpenFile(path("large.gif"), 3, false));
  EXPECT_EQ(picture().size(), (Size{20, 10}));
  EXPECT_EQ(colourAt(4, 2), "#0000ff");
  save("mnuFileSub", 6, "", "/large_Frame.gif");
  EXPECT_TRUE(properties().contains("(GIF) Transparent:   N/A\n(GIF) Interlaced:   N/A\n"));
}

// An icon file of plain images of these sides, each see-through in its last row.
void writeIcons(const std::filesystem::path& file, std::initializer_list<std::pair<int, Colour>> images) {
  clsICO icons;
  for (const auto& [side, colour] : images) {
    clsICO::Image image;
    image.XOR = test::plainDib(side, side, colour, 24);
    image.AND = test::plainDib(side, side, kWhite, 1);
    std::fill_n(image.AND.surface().pictureRow(side - 1), image.AND.surface().stride(), 0xFF);
    icons.add(std::move(image));
  }
  ASSERT_TRUE(icons.SaveICO_All(file));
}

TEST_F(DocumentOpen, AnIconIsShownOnWhiteAndItsMaskStandsThroughAReduction) {
  writeIcons(folder / "one.ico", {{16, rgb(100, 150, 90)}});
  ASSERT_TRUE(open(path("one.ico")));
  EXPECT_EQ(colourAt(3, 3), "#64965a");
  EXPECT_EQ(colourAt(3, 15), "#ffffff");
  EXPECT_TRUE(properties().contains("(ICO) Multi-icon file:   No"));
  // Painted over, the see-through row would be reduced if it were not masked; a turned picture takes its mask along.
  replaceWith(QColor(100, 150, 91));
  std::fill_n(&test::pixelAt(picture(), 0, 15), 16, Pixel32::plain(rgb(13, 57, 201)));
  document->Do_mnuRotateSubClick(1);
  proceed("mnuColorReductionBWSub", 3);
  EXPECT_EQ(colourAt(3, 0), "#0d39c9");
  EXPECT_TRUE(colourAt(3, 5) == "#000000" || colourAt(3, 5) == "#ffffff");
  document->mnuEditUndo_Click();
  EXPECT_EQ(colourAt(3, 0), "#0d39c9");
  proceed("mnuColorReductionBWSub", 3);
  EXPECT_NE(colourAt(3, 0), "#0d39c9") << "a mask that may no longer fit is gone";
}

TEST_F(DocumentOpen, AFileOfSeveralIconsAsksWhichUnlessQuiet) {
  writeIcons(folder / "two.ico", {{16, rgb(255, 0, 0)}, {32, rgb(0, 0, 255)}});
  openPlain();
  const auto answer = [](bool take) {
    QTimer::singleShot(0, [take] {
      auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(window, nullptr);
      EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
      window->findChild<QPushButton*>("cmdDown")->click();
      if (take) {
        window->accept();
      } else {
        window->reject();
      }
    });
  };
  answer(false);
  EXPECT_FALSE(document->LoadOpenFile(path("two.ico"), 3, true)) << "without a word";
  EXPECT_EQ(picture().size(), (Size{4, 3}));
  answer(true);
  ASSERT_TRUE(document->LoadOpenFile(path("two.ico"), 3, true));
  EXPECT_EQ(picture().size(), (Size{32, 32}));
  EXPECT_EQ(colourAt(0, 0), "#0000ff");
  EXPECT_TRUE(properties().contains("(ICO) Multi-icon file:   Yes"));
  ASSERT_TRUE(document->LoadOpenFile(path("two.ico"), 2, true));
  EXPECT_EQ(picture().size(), (Size{16, 16})) << "quiet: the first";
}

TEST_F(DocumentOpen, WithoutTheImagingServicePngIsRefusedByTheMainWindowsWords) {
  openPlain();
  const QString png = write("a.png", plain(2, 2, Qt::blue));
  imaging::stopImagingService();
  EXPECT_FALSE(document->LoadOpenFile(png, 3, true));
  EXPECT_TRUE(main.calls.contains("gdiPlusMissingMessage()"));
  main.calls.clear();
  EXPECT_FALSE(document->LoadOpenFile(png, 2, true));
  EXPECT_FALSE(main.calls.contains("gdiPlusMissingMessage()"));
  imaging::startImagingService();
}

TEST_F(DocumentOpen, AlphaOfABmpIsKeptThroughEditAndUndoAndThatOfAPngIsComposed) {
  QImage image(4, 3, QImage::Format_ARGB32);
  image.fill(QColor(255, 0, 0, 128));
  ASSERT_TRUE(open(write("a.png", image)));
  EXPECT_FALSE(picture().DIBhasAlpha());
  EXPECT_EQ(colourAt(1, 1), "#ff7f7f");
  clsDIB half = test::dibOf(4, 3, [](int, int) { return Pixel32{0, 0, 255, 128}; });
  half.setDIBhasAlpha(true);
  ASSERT_TRUE(half.Save_DIB_To_File(folder / "a.bmp", half));
  ASSERT_TRUE(document->LoadOpenFile(path("a.bmp"), 3, false));
  const auto alphaAt = [this](int x, int y) { return test::pixelAt(picture(), x, y).alpha; };
  EXPECT_TRUE(picture().DIBhasAlpha());
  EXPECT_EQ(alphaAt(1, 1), 128);
  document->Do_mnuRotateSubClick(0);
  document->mnuEditUndo_Click();
  EXPECT_TRUE(picture().DIBhasAlpha());
  EXPECT_EQ(alphaAt(1, 1), 128);
  EXPECT_EQ(colourAt(1, 1), "#ff0000");
}

TEST_F(DocumentOpen, TheFirstActivationActsOnItsCommand) {
  EXPECT_FALSE(document->firstActivation(PendingOpen::CommandLine, path("none.bmp"))) << "without a word";
  const QString file = write("frame.bmp", plain(4, 3, Qt::red));
  newWindow();
  ASSERT_TRUE(document->firstActivation(PendingOpen::FirstFrame, file));
  EXPECT_EQ(main.title, "Untitled_0_Frame");
  EXPECT_TRUE(main.history.isEmpty());

  main.state.newImageWidth = 50;
  main.state.newImageHeight = 40;
  newWindow();
  ASSERT_TRUE(document->firstActivation(PendingOpen::New, ""));
  EXPECT_EQ(main.title, "Untitled:1");
  EXPECT_EQ(picture().size(), (Size{50, 40}));
  EXPECT_EQ(colourAt(49, 39), "#ffffff");
  EXPECT_EQ(undoFiles().size(), 1u);
  main.documents = 2;
  newWindow();
  ASSERT_TRUE(document->firstActivation(PendingOpen::New, ""));
  EXPECT_EQ(main.title, "Untitled_0");
}

TEST_F(DocumentOpen, OpenGoesToANewWindowOrThisOneAfterTheQuestion) {
  openPlain();
  const QString other = write("other.bmp", plain(9, 9, Qt::blue));
  desktop.expectOpen(other);
  EXPECT_TRUE(document->triggerMenu("mnuFileSub", 1));
  ASSERT_EQ(main.opened.size(), 1);
  EXPECT_EQ(main.opened[0], qMakePair(PendingOpen::FileOpen, other));
  replaceWith(Qt::green);
  ASSERT_TRUE(changed());
  desktop.expectOpen(other);
  desktop.expect("Current picture not saved yet.  Proceed still?").answer(Answer::No);
  EXPECT_TRUE(document->triggerMenu("mnuFileSub", 2));
  EXPECT_EQ(picture().size(), (Size{4, 3}));
  main.state.options.sdiOnly = true;
  desktop.expectOpen(other);
  desktop.expect("Proceed still?").answer(Answer::Yes);
  document->Do_cmdFileOpenClick();
  EXPECT_EQ(picture().size(), (Size{9, 9}));
  EXPECT_FALSE(changed());
  EXPECT_EQ(main.opened.size(), 1);
}

TEST_F(DocumentOpen, ADroppedFileOpensOnceTheDragIsOver) {
  openPlain();
  Q_EMIT document->canvas()->doLoadFileByDragDrop("/x/dropped.png");
  EXPECT_TRUE(main.opened.isEmpty());
  QApplication::processEvents();
  ASSERT_EQ(main.opened.size(), 1);
  EXPECT_EQ(main.opened[0], qMakePair(PendingOpen::FileOpen, QString("/x/dropped.png")));
}

}  // namespace
}  // namespace ruvo
