#include <QBuffer>

#include "document_fixture.h"

namespace ruvo {
namespace {

using desktop::Answer;
using test::DocumentTest;

class DocumentClipboard : public DocumentTest {
 protected:
  // A red picture with its first row and column blue.
  void SetUp() override {
    QImage image = plain(40, 30, Qt::red);
    for (int i = 0; i < 40; ++i) image.setPixelColor(i, 0, Qt::blue);
    for (int i = 0; i < 30; ++i) image.setPixelColor(0, i, Qt::blue);
    ASSERT_TRUE(open(write("red.bmp", image)));
  }
  ucCanvas& canvas() { return *document->canvas(); }
  void mouse(QEvent::Type type, QPoint imagePoint) {
    auto* display = canvas().findChild<QWidget*>("picDisp");
    QPoint at;
    canvas().GetPicdispStartPos(at.rx(), at.ry());
    at += imagePoint;
    const auto buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, display->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      buttons, Qt::NoModifier);
    QApplication::sendEvent(display, &event);
  }
  void drag(QPoint from, QPoint to) {
    mouse(QEvent::MouseButtonPress, from);
    mouse(QEvent::MouseMove, to);
    mouse(QEvent::MouseButtonRelease, to);
  }
  // The rectangular region (tool image 14) or the oval one (15) from 10, 10 to 19, 17.
  void select(int tool = 14) {
    document->Do_imgToolsClick(tool);
    drag({10, 10}, {19, 17});
    EXPECT_TRUE(canvas().HasRegion() && main.buttons.region);
  }
  void otherProgramCopies(const QImage& image) {
    QBuffer png;
    EXPECT_TRUE(png.open(QIODevice::WriteOnly) && image.save(&png, "PNG"));
    desktop.copyElsewhere([&](QMimeData& data) { data.setData("image/png", png.data()); });
    document->updateEditButtons();
  }
  void pick(const char* control, int index = -1) { EXPECT_TRUE(document->triggerMenu(control, index)) << control; }
  std::size_t states() { return undoFiles().size(); }
  QString clipboardAt(int x, int y) { return desktop.clipboard.pixelColor(x, y).name(); }
};

const char* const kRed = "#ff0000";
const char* const kGreen = "#00ff00";
const char* const kBlue = "#0000ff";
const char* const kPaper = "#ffffff";

TEST_F(DocumentClipboard, CopyAndCutTakeTheRegionOrThePicture) {
  EXPECT_FALSE(document->triggerMenu("mnuEditCut"));
  EXPECT_FALSE(document->triggerMenu("mnuEditPaste"));
  pick("mnuEditCopy");
  EXPECT_EQ(desktop.clipboard.size(), QSize(40, 30));
  document->updateEditButtons();
  EXPECT_TRUE(main.buttons.paste);
  select(15);
  pick("mnuEditCutAndCopy");
  EXPECT_EQ(desktop.clipboard.size(), QSize(10, 8));
  EXPECT_EQ(clipboardAt(0, 0), kPaper);
  EXPECT_EQ(clipboardAt(5, 4), kRed);
  EXPECT_EQ(colourAt(10, 10), kRed) << "outside the oval";
  EXPECT_EQ(colourAt(15, 14), kPaper);
  EXPECT_EQ(states(), 2u);
  EXPECT_TRUE(changed() && !canvas().HasRegion() && !main.buttons.region);
  EXPECT_EQ(canvas().CanvasOp(), 12) << "the tool stays";
  document->mnuEditUndo_Click();
  EXPECT_EQ(colourAt(15, 14), kRed);
  select();
  drag({12, 12}, {22, 12});
  EXPECT_EQ(clipboardAt(5, 4), kRed) << "the copy is its own";
  pick("mnuEditCut");
  EXPECT_EQ(colourAt(12, 12), kPaper) << "the hole stays";
  EXPECT_EQ(colourAt(25, 12), kRed) << "nothing is erased where the region was moved to";
  EXPECT_EQ(states(), 2u);
}

TEST_F(DocumentClipboard, APasteFloatsUntilTheNextCommandAndIsDroppedByCut) {
  const Colour eraser = canvas().settings().TransparentColor;
  QImage incoming = plain(6, 5, Qt::blue);
  incoming.setPixelColor(2, 2, Qt::green);
  otherProgramCopies(incoming);
  pick("mnuEditPasteTransparent");
  EXPECT_TRUE(canvas().PasteOn() && changed());
  EXPECT_EQ(main.tools.tool, 14) << "the toolbox shows the tool that holds it";
  EXPECT_EQ(colourAt(2, 2), kGreen);
  EXPECT_EQ(colourAt(3, 3), kRed);
  EXPECT_EQ(states(), 1u);
  pick("mnuEditPaste");
  EXPECT_EQ(states(), 2u) << "the first one has landed";
  EXPECT_EQ(colourAt(3, 3), kBlue);
  pick("mnuEditCut");
  EXPECT_EQ(colourAt(3, 3), kRed);
  EXPECT_EQ(colourAt(2, 2), kGreen);
  EXPECT_EQ(states(), 2u);
  EXPECT_EQ(canvas().settings().TransparentColor, eraser);
  pick("mnuEditPasteTranslucentNotTransparentSub", 3);
  EXPECT_EQ(colourAt(4, 4), "#800080") << "half of both";
  pick("mnuEditUndo");
  EXPECT_EQ(colourAt(4, 4), kRed);
  EXPECT_TRUE(main.buttons.redo) << "what floated became a state";
}

TEST_F(DocumentClipboard, WhatCanNotBePastedIsRefusedInWordsAndChangesNothing) {
  const auto refused = [&](const char* form, const QByteArray& bytes, const char* words) {
    desktop.copyElsewhere([&](QMimeData& data) { data.setData(form, bytes); });
    desktop.expect(words);
    document->mnuEditPaste_Click();
    EXPECT_TRUE(!canvas().HasRegion() && !changed());
    EXPECT_EQ(states(), 1u);
  };
  refused("text/plain", "words", "Failed to fetch image from clipboard.");
  refused("image/png", "\x89PNG\r\n\x1A\nbroken", "Failed to fetch image from clipboard.");
  refused("image/bmp", "", "Failed to fetch image from clipboard.");
  otherProgramCopies(plain(3517, 853, Qt::red));
  desktop.expect("Width x height of incoming image is greater than 3,000,000 pixels ");
  pick("mnuEditPaste");
  otherProgramCopies(plain(32760, 20, Qt::green));
  desktop.expect("Incoming image at 32760 x 20 is larger than the current\nwidth and/or height.").answer(Answer::Yes);
  clsDIB tall = test::plainDib(20, 800, kWhite);
  picture() = std::move(tall);
  desktop.expect("Incoming image exceeds max size allowed.");
  pick("mnuEditPaste");
  EXPECT_EQ(picture().size(), (Size{20, 800}));
  EXPECT_FALSE(canvas().HasRegion());
  pick("mnuEditClearClipboard");
  EXPECT_FALSE(main.buttons.paste || document->triggerMenu("mnuEditPaste"));
}

TEST_F(DocumentClipboard, ALargerPictureMayEnlargeTheAreaAndTheFittedViewIsLeft) {
  otherProgramCopies(plain(50, 10, Qt::green));
  main.tools.viewMode = main.tools.fitIn = true;
  document->Do_UpdateModeChange();
  for (const Answer leave : {Answer::No, Answer::Yes}) {
    desktop.expect("Cannot paste in Fit-In screen.  Change to actual-size screen?").answer(leave);
    if (leave == Answer::Yes) desktop.expect("Enlarge the current picture area?").answer(Answer::No);
    pick("mnuEditPaste");
    EXPECT_EQ(canvas().PasteOn(), leave == Answer::Yes);
    EXPECT_EQ(main.tools.fitIn, leave == Answer::No);
  }
  EXPECT_EQ(picture().size(), (Size{40, 30}));
  mouse(QEvent::MouseButtonPress, {30, 25});
  mouse(QEvent::MouseButtonRelease, {30, 25});
  QCoreApplication::processEvents();
  EXPECT_TRUE(!canvas().PasteOn() && canvas().CanvasOp() == 18) << "no region can be drawn in the view mode";
  desktop.expect("Enlarge the current picture area?").answer(Answer::Yes);
  pick("mnuEditPaste");
  EXPECT_EQ(picture().size(), (Size{50, 30}));
  EXPECT_EQ(colourAt(45, 20), kPaper);
  EXPECT_EQ(colourAt(35, 20), kRed);
  EXPECT_EQ(states(), 3u) << "the first paste, the larger area";
}

TEST_F(DocumentClipboard, CropsLeaveTheRegionOrTheImageInIt) {
  select(15);
  pick("mnuEditCrop");
  EXPECT_EQ(picture().size(), (Size{10, 8}));
  EXPECT_EQ(colourAt(0, 0), kPaper);
  EXPECT_EQ(colourAt(5, 4), kRed);
  EXPECT_EQ(states(), 2u);
  EXPECT_FALSE(canvas().HasRegion());
  document->mnuEditUndo_Click();
  EXPECT_EQ(picture().size(), (Size{40, 30}));
  QImage incoming = plain(12, 9, Qt::blue);
  for (const QPoint at : {QPoint(3, 4), {6, 5}}) incoming.setPixelColor(at, Qt::green);
  otherProgramCopies(incoming);
  pick("mnuEditPasteTransparent");
  desktop.expect("Reminder:  If the cropped image is invisible, it is because you have cropped\n");
  pick("mnuEditCropPerImageInsideRegion");
  EXPECT_EQ(picture().size(), (Size{4, 2}));
  EXPECT_EQ(colourAt(0, 0), kGreen);
  EXPECT_EQ(colourAt(1, 0), kPaper);
  EXPECT_EQ(states(), 2u);
  otherProgramCopies(plain(4, 2, Qt::blue));
  for (const char* crop : {"mnuEditCropPerImageInsideRegion", "mnuEditCrop"}) {
    pick("mnuEditPasteTransparent");
    if (*crop && QString(crop).endsWith("Crop")) drag({1, 1}, {4, 1});
    desktop.expect("Size too small to crop.");
    pick(crop);
    EXPECT_EQ(picture().size(), (Size{4, 2}));
    EXPECT_TRUE(canvas().PasteOn()) << "it floats still";
  }
}

TEST_F(DocumentClipboard, CleanseLeavesAWhiteSheetOrTheRegionOnIt) {
  for (const int item : {0, 1}) {
    pick("mnuEditCleansePaintSub", item);
    EXPECT_EQ(colourAt(15, 14), kPaper);
    EXPECT_EQ(states(), 2u);
    document->mnuEditUndo_Click();
  }
  EXPECT_TRUE(desktop.clipboard.isNull());
  select();
  desktop.copyElsewhere([](QMimeData& data) { data.setText("lost"); });
  pick("mnuEditCleansePaintSub", 1);
  EXPECT_EQ(colourAt(10, 10), kRed);
  EXPECT_EQ(colourAt(9, 10), kPaper);
  EXPECT_EQ(picture().size(), (Size{40, 30}));
  EXPECT_EQ(desktop.clipboard.size(), QSize(10, 8));
  EXPECT_EQ(canvas().CanvasOp(), 18);
  EXPECT_FALSE(canvas().HasRegion());
  EXPECT_EQ(states(), 2u);
}

TEST_F(DocumentClipboard, ANewDocumentIsMadeOfTheClipboardsPicture) {
  desktop.copyElsewhere([](QMimeData& data) { data.setText("words"); });
  newWindow();
  EXPECT_TRUE(document->firstActivation(PendingOpen::Paste, ""));
  EXPECT_EQ(picture().size(), (Size{320, 200}));
  EXPECT_FALSE(changed());
  QImage faint(3, 2, QImage::Format_ARGB32);
  faint.fill(QColor(255, 0, 0, 128));
  otherProgramCopies(faint);
  newWindow();
  EXPECT_TRUE(document->firstActivation(PendingOpen::Paste, ""));
  EXPECT_EQ(picture().size(), (Size{3, 2}));
  EXPECT_FALSE(picture().DIBhasAlpha());
  EXPECT_EQ(QColor(colourAt(1, 1)).red(), 255);
  EXPECT_NEAR(QColor(colourAt(1, 1)).green(), 127, 2) << "over white";
  EXPECT_TRUE(changed()) << "no file has it";
  desktop.copyElsewhere([](QMimeData& data) { data.setData("image/png", "none"); });
  desktop.expect("Failed to fetch image from clipboard.");
  newWindow();
  EXPECT_FALSE(document->firstActivation(PendingOpen::Paste, ""));
}

}  // namespace
}  // namespace ruvo
