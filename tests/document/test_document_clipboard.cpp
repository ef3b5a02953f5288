#include "document_fixture.h"

namespace ruvo {
namespace {

using desktop::Answer;
using test::DocumentTest;

class DocumentClipboard : public DocumentTest {
 protected:
  void SetUp() override { ASSERT_TRUE(open(write("red.bmp", plain(40, 30, Qt::red)))); }
  ucCanvas& canvas() { return *document->canvas(); }
  // With the tool image of rectangles (14) or ovals (15).
  void select(int tool) {
    document->Do_imgToolsClick(tool);
    drag({10, 10}, {19, 17});
  }
  void otherProgramCopies(const QImage& image) {
    desktop.copyElsewhere([&](QMimeData& data) { data.setImageData(image); });
    document->updateEditButtons();
  }
  // Blue, with green pixels at 3, 4 and 6, 5.
  static QImage stamp() {
    QImage image = plain(12, 9, Qt::blue);
    for (const QPoint at : {QPoint(3, 4), {6, 5}}) image.setPixelColor(at, Qt::green);
    return image;
  }
  void pick(const char* control, int index = -1) { EXPECT_TRUE(document->triggerMenu(control, index)) << control; }
  std::size_t states() { return undoFiles().size(); }
};

const char *const kRed = "#ff0000", *const kGreen = "#00ff00", *const kBlue = "#0000ff", *const kPaper = "#ffffff";

TEST_F(DocumentClipboard, CopyAndCutTakeTheRegionOrThePicture) {
  EXPECT_FALSE(document->triggerMenu("mnuEditCut") || document->triggerMenu("mnuEditPaste"));
  pick("mnuEditCopy");
  EXPECT_EQ(desktop.clipboard.size(), QSize(40, 30));
  select(15);
  pick("mnuEditCutAndCopy");
  EXPECT_EQ(desktop.clipboard.size(), QSize(10, 8));
  EXPECT_EQ(desktop.clipboard.pixelColor(0, 0), Qt::white);
  EXPECT_EQ(colourAt(15, 14), kPaper);
  EXPECT_EQ(states(), 2u);
  EXPECT_TRUE(changed() && main.buttons.paste && !main.buttons.region);
}

TEST_F(DocumentClipboard, APasteFloatsUntilTheNextCommandAndIsDroppedByCut) {
  const Colour eraser = canvas().settings().TransparentColor;
  otherProgramCopies(stamp());
  pick("mnuEditPasteTransparent");
  EXPECT_TRUE(canvas().PasteOn() && changed() && main.tools.tool == 14);
  EXPECT_EQ(colourAt(3, 4), kGreen);
  EXPECT_EQ(colourAt(3, 3), kRed);
  EXPECT_EQ(states(), 1u);
  pick("mnuEditPaste");
  EXPECT_EQ(states(), 2u) << "the first one has landed";
  EXPECT_EQ(colourAt(3, 3), kBlue);
  pick("mnuEditCut");
  EXPECT_EQ(colourAt(3, 3), kRed);
  EXPECT_EQ(states(), 2u);
  EXPECT_EQ(canvas().settings().TransparentColor, eraser);
  pick("mnuEditPasteTranslucentNotTransparentSub", 3);
  EXPECT_EQ(colourAt(3, 3), "#800080") << "half of both";
  pick("mnuEditUndo");
  EXPECT_TRUE(main.buttons.redo) << "what floated became a state";
}

TEST_F(DocumentClipboard, TurnsTakeTheRegionWhereThereIsOne) {
  select(14);  // ten pixels wide, eight high
  pick("mnuRotateSub", 3);
  EXPECT_TRUE(canvas().RegionMoveReady() && changed());
  EXPECT_EQ(states(), 1u) << "it still floats";
  EXPECT_EQ(picture().size(), (Size{40, 30}));
  EXPECT_EQ(colourAt(10, 13), kPaper);
  EXPECT_EQ(colourAt(12, 10), kRed);
  document->Do_imgToolsClick(0);
  EXPECT_EQ(states(), 2u);
  pick("mnuEditUndo");
  EXPECT_EQ(colourAt(10, 13), kRed);
}

TEST_F(DocumentClipboard, WhatCanNotBePastedIsRefusedInWordsAndChangesNothing) {
  for (const auto& [form, bytes] : {std::pair{"text/plain", "words"}, {"image/png", "broken"}, {"image/bmp", ""}}) {
    desktop.copyElsewhere([&](QMimeData& data) { data.setData(form, bytes); });
    desktop.expect("Failed to fetch image from clipboard.");
    document->mnuEditPaste_Click();
  }
  otherProgramCopies(plain(3517, 853, Qt::red));
  desktop.expect("Width x height of incoming image is greater than 3,000,000 pixels ");
  pick("mnuEditPaste");
  picture() = test::plainDib(20, 800, kWhite);
  otherProgramCopies(plain(32760, 20, Qt::green));
  desktop
      .expect(
          "Incoming image at 32760 x 20 is larger than the current\nwidth and/or height.  Enlarge the current "
          "picture area?")
      .answer(Answer::Yes);
  desktop.expect("Incoming image exceeds max size allowed.");
  pick("mnuEditPaste");
  EXPECT_EQ(picture().size(), (Size{20, 800}));
  EXPECT_FALSE(canvas().HasRegion() || changed() || states() != 1);
}

TEST_F(DocumentClipboard, ALargerPictureMayEnlargeTheAreaAndTheFittedViewIsLeft) {
  otherProgramCopies(plain(50, 10, Qt::green));
  main.tools.viewMode = main.tools.fitIn = true;
  document->Do_UpdateModeChange();
  const QString fitted = "Cannot paste in Fit-In screen.  Change to actual-size screen?", enlarge = "Enlarge";
  desktop.expect(fitted).answer(Answer::No);
  pick("mnuEditPaste");
  desktop.expect(fitted).answer(Answer::Yes);
  desktop.expect(enlarge).answer(Answer::No);
  pick("mnuEditPaste");
  EXPECT_TRUE(!main.tools.fitIn && canvas().PasteOn());
  drag({30, 25}, {30, 25});
  QCoreApplication::processEvents();
  EXPECT_TRUE(!canvas().PasteOn() && canvas().CanvasOp() == 18) << "no region can be drawn in the view mode";
  desktop.expect(enlarge).answer(Answer::Yes);
  pick("mnuEditPaste");
  EXPECT_EQ(picture().size(), (Size{50, 30}));
  EXPECT_EQ(colourAt(45, 20), kPaper);
  EXPECT_EQ(states(), 3u) << "the first paste, the larger area";
}

TEST_F(DocumentClipboard, CropsLeaveTheRegionOrTheImageInIt) {
  select(15);
  pick("mnuEditCrop");
  EXPECT_EQ(picture().size(), (Size{10, 8}));
  EXPECT_EQ(colourAt(0, 0), kPaper);
  document->mnuEditUndo_Click();
  otherProgramCopies(stamp());
  pick("mnuEditPasteTransparent");
  desktop.expect("Reminder:  If the cropped image is invisible, it is because you have cropped\n");
  pick("mnuEditCropPerImageInsideRegion");
  EXPECT_EQ(picture().size(), (Size{4, 2}));
  EXPECT_EQ(colourAt(0, 0), kGreen);
  EXPECT_EQ(colourAt(1, 0), kPaper);
  EXPECT_EQ(states(), 2u);
  otherProgramCopies(plain(4, 1, Qt::blue));
  pick("mnuEditPasteTransparent");
  for (const char* crop : {"mnuEditCropPerImageInsideRegion", "mnuEditCrop"}) {
    desktop.expect("Size too small to crop.");
    pick(crop);
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
  select(14);
  pick("mnuEditCleansePaintSub", 1);
  EXPECT_EQ(colourAt(10, 10), kRed);
  EXPECT_EQ(colourAt(9, 10), kPaper);
  EXPECT_EQ(desktop.clipboard.size(), QSize(10, 8));
  EXPECT_TRUE(canvas().CanvasOp() == 18 && !canvas().HasRegion() && states() == 2);
}

TEST_F(DocumentClipboard, ANewDocumentIsMadeOfTheClipboardsPicture) {
  newWindow();
  EXPECT_TRUE(document->firstActivation(PendingOpen::Paste, ""));
  EXPECT_EQ(picture().size(), (Size{320, 200}));
  EXPECT_FALSE(changed());
  QImage faint(3, 2, QImage::Format_ARGB32);
  faint.fill(QColor(255, 0, 0, 0));
  otherProgramCopies(faint);
  newWindow();
  EXPECT_TRUE(document->firstActivation(PendingOpen::Paste, ""));
  EXPECT_EQ(picture().size(), (Size{3, 2}));
  EXPECT_EQ(colourAt(1, 1), kPaper) << "see-through over white";
  EXPECT_TRUE(changed()) << "no file has it";
  desktop.copyElsewhere([](QMimeData& data) { data.setData("image/png", "none"); });
  desktop.expect("Failed to fetch image from clipboard.");
  newWindow();
  EXPECT_FALSE(document->firstActivation(PendingOpen::Paste, ""));
}

}  // namespace
}  // namespace ruvo
