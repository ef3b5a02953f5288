#include <sys/stat.h>

#include "document/frmRuvoSizeOfNew.h"
#include "document/model/picture_loading.h"
#include "document_fixture.h"

namespace ruvo {
namespace {

using desktop::Answer;
using test::DocumentTest;

class DocumentSave : public DocumentTest {
 protected:
  // Opens a picture of many colours and edits it, so that there is something to lose.
  void openColourful() {
    ASSERT_TRUE(open(write("colourful.bmp", colourful())));
    document->Do_mnuRotateSubClick(0);
    ASSERT_TRUE(changed());
    ASSERT_TRUE(main.buttons.undo);
  }
  void expectSaved(const QString& file) {
    EXPECT_FALSE(changed());
    EXPECT_FALSE(main.buttons.undo);
    EXPECT_EQ(undoFiles().size(), 1u);
    EXPECT_EQ(main.wholeTitle, file);
    EXPECT_EQ(main.history.last(), file);
    EXPECT_EQ(main.tools.tool, 18);
  }
  void expectNothingLost() {
    EXPECT_TRUE(changed());
    EXPECT_TRUE(main.buttons.undo);
    EXPECT_EQ(undoFiles().size(), 2u);
    EXPECT_EQ(main.history.size(), 1);
    EXPECT_EQ(clsDIB::BPPperActualDIB(picture()), 24);
  }
};

TEST_F(DocumentSave, EachFormatComesBackAsItWas) {
  struct Case {
    const char* control;
    int index;
    const char* name;
    const char* proposed;
    int tolerance;
  };
  const Case cases[] = {
      {"mnuFileSaveBMPSub", 0, "out.bmp", "colourful.bmp", 0},
      {"mnuFileSavePNGSub", 0, "out.png", "colourful.png", 0},
      {"mnuFileSub", 11, "out.tif", "colourful.tif", 0},
      {"mnuFileSub", 12, "out.tga", "colourful.tga", 0},
      {"mnuFileSub", 13, "out.pcx", "colourful.pcx", 0},
      {"mnuFileSaveJPGSub", 4, "out95.jpg", "colourful.jpg", 40},
      {"mnuFileSaveJPGSub", 0, "out55.jpg", "colourful.jpg", 90},
  };
  for (const Case& c : cases) {
    newWindow();
    openColourful();
    const QString file = path(c.name);
    save(c.control, c.index, file, c.proposed);
    expectSaved(file);
    const LoadedPicture back = loadPicture(file.toStdString());
    ASSERT_EQ(back.fault, OpenFault::None) << c.name;
    ASSERT_EQ(back.dib.size(), (Size{40, 30}));
    const auto shown = [this](int x, int y) { return test::pixelAt(picture(), x, y); };
    EXPECT_LE(test::farthest(&back.dib.surface(), shown), c.tolerance) << c.name;
  }
  EXPECT_LT(QFileInfo(path("out55.jpg")).size(), QFileInfo(path("out95.jpg")).size());
}

TEST_F(DocumentSave, FewColoursAreSavedExactlyAtTheirDepth) {
  QImage image = plain(8, 4, Qt::black);
  ASSERT_TRUE(open(write("black.bmp", image)));
  save("mnuFileSaveBMPSub", 0, path("one.bmp"));
  QImage back(path("one.bmp"));
  EXPECT_EQ(back.depth(), 1);
  EXPECT_EQ(back.pixelColor(3, 3), QColor(Qt::black));
  for (int x = 0; x < 8; ++x) image.setPixelColor(x, 0, QColor(x * 20, x, 255));
  ASSERT_TRUE(document->LoadOpenFile(write("few.bmp", image), 3, false));
  save("mnuFileSaveBMPSub", 0, path("eight.bmp"));
  back = QImage(path("eight.bmp"));
  EXPECT_EQ(back.depth(), 8);
  EXPECT_EQ(back.pixelColor(7, 0), QColor(140, 7, 255));
}

TEST_F(DocumentSave, ConvertingTo8BitsStaysOnTheCanvasOnlyAfterSuccess) {
  openColourful();
  save("mnuFileSaveBMPSub", 2, path("no/such/folder.bmp"), "", "Failed to save this file.");
  expectNothingLost();
  save("mnuFileSaveBMPSub", 2, path("eight.bmp"));
  expectSaved(path("eight.bmp"));
  EXPECT_EQ(clsDIB::BPPperActualDIB(picture()), 8);
  EXPECT_EQ(QImage(path("eight.bmp")).depth(), 8);
  const QString first = colourAt(11, 7);
  document->Do_mnuRotateSubClick(0);
  document->mnuEditUndo_Click();
  EXPECT_EQ(colourAt(11, 7), first) << "the first state is what was saved";
}

TEST_F(DocumentSave, CancelledRefusedAndFailedSavesLoseNothing) {
  openColourful();
  save("mnuFileSavePNGSub", 0, "");
  expectNothingLost();
  const QString old = writeBytes("old.png", "old");
  ASSERT_EQ(::chmod(old.toStdString().c_str(), 0444), 0);
  save("mnuFileSavePNGSub", 0, old, "", "File is read only.");
  expectNothingLost();
  EXPECT_EQ(QFileInfo(old).size(), 3);
  std::filesystem::create_directory(folder / "taken.tif");
  save("mnuFileSub", 11, path("taken.tif"), "", "Failed to save this file.");
  expectNothingLost();
  main.state.gdiPlusUsable = false;
  desktop.expect("GDIplus.dll not found.  Please select to save with Options Panel.");
  EXPECT_TRUE(document->triggerMenu("mnuFileSavePNGSub", 1));
  EXPECT_TRUE(document->triggerMenu("mnuFileSub", 11));
  EXPECT_TRUE(main.calls.contains("gdiPlusMissingMessage()"));
  expectNothingLost();
}

TEST_F(DocumentSave, PlainSaveUsesTheRecordsOwnFormatAndItsExtension) {
  const QString photo = write("photo.jpg", plain(8, 8, Qt::blue));
  const QString mine = writeBytes("mine.bmp.jpg", "a file that nobody agreed to replace");
  ASSERT_TRUE(open(photo));
  desktop.expectSave(path("mine.bmp"), "photo.jpg");
  save("mnuFileSub", 6, path("again.png"), "mine.bmp.jpg");
  EXPECT_EQ(QImageReader::imageFormat(path("again.png.jpg")), "jpeg");
  EXPECT_EQ(main.wholeTitle, path("again.png.jpg"));
  EXPECT_FALSE(QFile::exists(path("mine.bmp")));
}

TEST_F(DocumentSave, TheViewModeSavesWhatItShows) {
  openPlain("small.bmp");
  replaceWith(Qt::green);
  main.tools.viewMode = true;
  document->Do_UpdateModeChange();
  main.tools.zoomScale = 2;
  document->Do_zoomScaleChanged();
  save("mnuFileSaveBMPSub", 0, path("twice.bmp"));
  EXPECT_EQ(QImage(path("twice.bmp")).size(), QSize(8, 6));
  EXPECT_EQ(picture().size(), (Size{4, 3})) << "the picture keeps its size";
  EXPECT_TRUE(changed()) << "and is still unsaved at that size";
  main.tools.zoomScale = 20;
  document->Do_zoomScaleChanged();
  ASSERT_TRUE(document->LoadOpenFile(write("large.bmp", plain(3000, 3000, Qt::red)), 3, false));
  EXPECT_EQ(main.tools.zoomScale, 1) << "twenty times would be too large";
  main.tools.zoomScale = 10;
  document->Do_zoomScaleChanged();
  save("mnuFileSaveBMPSub", 0, path("vast.bmp"), "", "Failed to save this file.");
  EXPECT_FALSE(QFile::exists(path("vast.bmp")));
}

TEST_F(DocumentSave, ClosingAsksOnlyForUnsavedWork) {
  openColourful();
  desktop.expect("Current picture not saved yet.  Proceed still?").answer(Answer::No);
  EXPECT_FALSE(document->close());
  EXPECT_EQ(undoFiles().size(), 2u);
  desktop.expect("Proceed still?").answer(Answer::Yes);
  EXPECT_TRUE(document->close());
  EXPECT_TRUE(undoFiles().empty());
  EXPECT_TRUE(main.calls.contains("releaseDocument"));
  EXPECT_TRUE(main.calls.contains("MDI_disableAllButtonsOnToolBar"));
  EXPECT_EQ(main.panels[kPanelNetSize], "");
  main.documents = 1;
  newWindow();
  openColourful();
  main.state.closingConfirmed = true;
  EXPECT_TRUE(document->close()) << "already agreed to";
}

TEST_F(DocumentSave, NewReusesTheOnlyWindowAfterTheQuestion) {
  openColourful();
  const auto answerDialog = [] {
    QTimer::singleShot(0, [] {
      auto* dialog = qobject_cast<frmRuvoSizeOfNew*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->chosenSize(), (Size{40, 30})) << "offers the size of the picture";
      dialog->accept();
    });
  };
  answerDialog();
  document->Do_cmdFileNewClick();
  ASSERT_EQ(main.opened.size(), 1);
  EXPECT_EQ(main.opened[0].first, PendingOpen::New);
  main.state.options.sdiOnly = true;
  answerDialog();
  desktop.expect("Current picture not saved yet.  Proceed still?").answer(Answer::Yes);
  document->Do_cmdFileNewClick();
  EXPECT_EQ(main.title, "Untitled_0");
  EXPECT_EQ(colourAt(5, 5), "#ffffff");
  EXPECT_FALSE(changed());
}

}  // namespace
}  // namespace ruvo
