#include "document_fixture.h"

namespace ruvo {
namespace {

using desktop::Answer;
using test::DocumentTest;

class DocumentEdit : public DocumentTest {};

TEST_F(DocumentEdit, StrokesBecomeStatesThatUndoAndRedoWalk) {
  openPlain();
  replaceWith(Qt::green);
  EXPECT_TRUE(changed() && main.buttons.undo);
  replaceWith(Qt::blue);
  EXPECT_EQ(undoFiles().size(), 3u);
  EXPECT_TRUE(document->triggerMenu("mnuEditUndo"));
  EXPECT_EQ(colourAt(2, 1), "#00ff00");
  EXPECT_TRUE(main.buttons.redo);
  EXPECT_EQ(document->canvas()->CanvasOp(), 15) << "the tool is still chosen";
  document->mnuEditUndo_Click();
  EXPECT_FALSE(document->triggerMenu("mnuEditUndo")) << "disabled at the first state";
  document->mnuEditRedo_Click();
  EXPECT_EQ(colourAt(2, 1), "#00ff00");
  for (const auto& [answer, colour] : {std::pair{Answer::No, "#00ff00"}, {Answer::Yes, "#ff0000"}}) {
    desktop.expect("There will not be Redo after Undo All.  Sure to Undo All?").answer(answer);
    document->mnuEditUndoAll_Click();
    EXPECT_EQ(colourAt(2, 1), colour);
  }
  EXPECT_FALSE(main.buttons.redo);
}

TEST_F(DocumentEdit, AFullDiskIsToldOnceAndThePictureStays) {
  openPlain();
  std::filesystem::remove_all(main.state.tempFolder);
  desktop.expect(QString::fromStdString(main.state.tempFolder.string()));
  replaceWith(Qt::green);
  replaceWith(Qt::blue);
  EXPECT_EQ(desktop.messages.size(), 1);
  EXPECT_EQ(colourAt(0, 0), "#0000ff");
  EXPECT_TRUE(changed());
  document->mnuEditUndo_Click();
  EXPECT_EQ(colourAt(0, 0), "#0000ff") << "no file to go back to";
}

TEST_F(DocumentEdit, TurnsAndEdgeDragsArePushedOnlyWhenSomethingChanged) {
  openPlain();
  document->Do_mnuRotateSubClick(2);
  EXPECT_EQ(picture().size(), (Size{3, 4}));
  EXPECT_EQ(main.panels[kPanelNetSize], "3 x 4");
  EXPECT_EQ(undoFiles().size(), 2u);
  document->Do_mnuRotateSubClick(7);
  Q_EMIT document->canvas()->NotifyDragResize(false);
  EXPECT_EQ(undoFiles().size(), 2u);
  Q_EMIT document->canvas()->NotifyDragResize(true);
  EXPECT_EQ(undoFiles().size(), 3u);
}

TEST_F(DocumentEdit, APolygonsCutOutBecomesThePictureWithOneState) {
  openPlain();
  desktop.expect("Size too small to crop.");
  for (const int height : {1, 2}) {
    document->canvas()->DIBregion() = test::plainDib(2, height, kBlack);
    Q_EMIT document->canvas()->NotifyPolygonCrop();
    EXPECT_EQ(picture().size(), (height == 1 ? Size{4, 3} : Size{2, 2}));
    EXPECT_EQ(undoFiles().size(), static_cast<std::size_t>(height));
    EXPECT_EQ(changed(), height == 2);
  }
  EXPECT_EQ(main.panels[kPanelNetSize], "2 x 2");
}

TEST_F(DocumentEdit, ToolsFollowTheToolboxAndTheMode) {
  main.tools.tool = 13;
  main.tools.brushSize = 9;
  openPlain();
  ucCanvas& canvas = *document->canvas();
  EXPECT_EQ(canvas.CanvasOp(), 14) << "the document takes over the tool that waits";
  EXPECT_EQ(canvas.settings().BrushSize, 9);
  document->Do_imgToolsClick(0);
  EXPECT_EQ(canvas.CanvasOp(), 0);
  EXPECT_FALSE(canvas.settings().HandScrollEnabled);
  main.tools.viewMode = true;
  document->Do_UpdateModeChange();
  EXPECT_EQ(canvas.CanvasOp(), 18);
  EXPECT_EQ(canvas.CanvasScreenMode(), 0);
  document->Do_imgToolsClick(2);
  EXPECT_EQ(canvas.CanvasOp(), 18);
  main.tools.viewMode = false;
  document->activated();
  EXPECT_EQ(canvas.CanvasOp(), 0) << "a mode changed meanwhile is taken over";
  EXPECT_EQ(canvas.CanvasScreenMode(), 1);
  document->Do_imgToolsClick(18);
  EXPECT_EQ(canvas.CanvasOp(), 18);
  EXPECT_TRUE(main.calls.contains("FlatAllToolsImages"));
}

TEST_F(DocumentEdit, ZoomStaysWithinItsLimits) {
  ASSERT_TRUE(open(write("big.bmp", plain(5000, 20, Qt::red))));
  ucCanvas& canvas = *document->canvas();
  EXPECT_FALSE(main.zoomOut);
  EXPECT_TRUE(main.corners);
  for (int i = 0; i < 10; ++i) document->Do_cmdZoomClick(0);
  EXPECT_EQ(canvas.settings().Magnify, 8);
  EXPECT_FALSE(main.zoomIn);
  EXPECT_EQ(main.panels[kPanelScreenSize], "40000 x 160");
  main.tools.viewMode = true;
  document->Do_UpdateModeChange();
  EXPECT_EQ(canvas.settings().Magnify, 1);
  main.tools.zoomScale = 6;
  document->Do_zoomScaleChanged();
  EXPECT_EQ(canvas.settings().Magnify, 6);
  desktop.expect("Will result in width");
  main.tools.zoomScale = 7;
  document->Do_zoomScaleChanged();
  EXPECT_EQ(canvas.settings().Magnify, 6);
  EXPECT_EQ(main.tools.zoomScale, 6) << "the box shows what is";
  main.tools.fitIn = true;
  document->Do_ckbFitInClick();
  EXPECT_TRUE(canvas.settings().FitInView);
  EXPECT_FALSE(main.zoomIn);
  main.tools.viewMode = false;
  document->Do_UpdateModeChange();
  EXPECT_FALSE(canvas.settings().FitInView);
}

TEST_F(DocumentEdit, ZoomKeepsTheMiddleInView) {
  const auto middle = [this] {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    document->canvas()->GetVisibleInfo(x1, y1, x2, y2);
    return QPoint((x1 + x2) / 2, (y1 + y2) / 2);
  };
  ASSERT_TRUE(open(write("small.bmp", plain(200, 150, Qt::red))));
  for (int i = 0; i < 7; ++i) document->Do_cmdZoomClick(0);
  EXPECT_LE((middle() - QPoint(100, 75)).manhattanLength(), 4) << "of a picture that outgrows the view";
  ASSERT_TRUE(document->LoadOpenFile(write("big.bmp", plain(3000, 2000, Qt::red)), 3, false));
  document->canvas()->SetScrollValues(1000, 800);
  const QPoint before = middle();
  document->Do_cmdZoomClick(0);
  document->Do_cmdZoomClick(0);
  EXPECT_LE((middle() - before).manhattanLength(), 4);
  document->Do_imgLowerRightClick();
  EXPECT_GE(middle().x(), 2900);
  document->Do_imgUpperLeftClick();
  EXPECT_LT(middle().manhattanLength(), 300);
}

TEST_F(DocumentEdit, CanvasEventsBecomeTextsAndColours) {
  openPlain();
  ucCanvas& canvas = *document->canvas();
  Q_EMIT canvas.DispPointOfClick(1, 2, rgb(3, 4, 5));
  EXPECT_EQ(main.panels[kPanelPixel], "Click:  [1, 2]   RGB(3, 4, 5)");
  Q_EMIT canvas.DispMeasureClear();
  EXPECT_EQ(main.panels[kPanelPixel], "");
  const auto told = [this] { return main.panels[kPanelPixel].toStdString(); };
  Q_EMIT canvas.DispMeasureLine(1, 2, 4, 6, 53.13);
  EXPECT_EQ(told(), "[1,2]  [4,6]   L=5   A=53.1");
  Q_EMIT canvas.DispMeasureLine(0, 1, 1500, 0, 179.96);
  EXPECT_EQ(told(), "[0,1]  [1500,0]   L=1500   A=0.0");
  Q_EMIT canvas.DispMeasureArc(1, 2, 3, 4, 5, 6, 7.6);
  EXPECT_EQ(told(), "[1,2]  [3,4]  C=[5,6]  R=8");
  Q_EMIT canvas.DispMeasureOval(1, 2, 3, 7, 8);
  EXPECT_EQ(told(), "[1, 2]  Radius 3   w=7  h=8");
  Q_EMIT canvas.DispMeasureRectangle(1, 2, 3, 4);
  EXPECT_EQ(told(), "Start [1, 2]   W=3 H=4");
  document->activated();
  EXPECT_EQ(told(), "") << "the panel is another picture's from here on";
  Q_EMIT canvas.NotifyDragResizeProforma(7, 8);
  EXPECT_EQ(main.panels[kPanelNetSize], "7 x 8");
  Q_EMIT canvas.NotifyClickData(2, rgb(9, 8, 7), 0, 0);
  EXPECT_EQ(main.picked, rgb(9, 8, 7));
  EXPECT_TRUE(main.pickedSecond);
  desktop.expect("No stamp loaded yet.");
  Q_EMIT canvas.NoStamp();
  Q_EMIT canvas.NotifyRegionMoved();
  EXPECT_TRUE(changed());
  EXPECT_EQ(undoFiles().size(), 1u) << "a region that is still moving is no state";
}

TEST_F(DocumentEdit, CustomPicturesAreCheckedAndHandedToTheCanvas) {
  openPlain();
  ucCanvas& canvas = *document->canvas();
  QImage brush = plain(9, 9, Qt::white);
  brush.setPixelColor(4, 4, Qt::black);
  const QString words = "Non-transparent area smaller than the minimum size\nof 2 x 2 pixels";
  desktop.expectOpen(write("dot.png", brush));
  desktop.expect(words);
  document->Do_cmdCustomBrushClick();
  EXPECT_FALSE(canvas.CustomBrushPresent());
  brush.setPixelColor(5, 5, Qt::black);
  desktop.expectOpen(write("dots.png", brush));
  document->Do_cmdCustomBrushClick();
  EXPECT_TRUE(canvas.CustomBrushPresent());
  EXPECT_EQ(canvas.DIBCustomBrushMask().size(), (Size{9, 9}));
  EXPECT_EQ(main.folders["CustomBrush"], QString::fromStdString(folder.path().string()));
  EXPECT_TRUE(main.calls.contains("showCustomPictures"));
  desktop.expectOpen(write("thin.png", plain(1, 9, Qt::black)));
  desktop.expect(words);
  document->Do_cmdCustomPatternClick();
  EXPECT_FALSE(canvas.CustomPatternPresent());
  desktop.expectOpen(path("none.png"));
  desktop.expect(path("none.png") + "\nFile not found");
  document->Do_cmdStampLoadClick(0);
  EXPECT_FALSE(canvas.StampPresent());
}

TEST_F(DocumentEdit, OptionsAreCopiedAndRefusedWhereTheyMustBe) {
  main.state.options.showPixelRgb = true;
  main.state.options.watchRam = 2;
  openPlain();
  const auto checked = [this](const char* control, int index) {
    return document->findChild<QAction*>(QString("%1(%2)").arg(control).arg(index))->isChecked();
  };
  EXPECT_TRUE(checked("mnuOptionsSub", 10));
  EXPECT_TRUE(checked("mnuSubMonitorRAM", 2));
  main.documents = 2;
  desktop.expect("Cannot change to SDI when there are more than one documents currently.");
  EXPECT_TRUE(document->triggerMenu("mnuOptionsSub", 1));
  EXPECT_FALSE(checked("mnuOptionsSub", 1));
  main.documents = 1;
  EXPECT_TRUE(document->triggerMenu("mnuOptionsSub", 1));
  EXPECT_TRUE(checked("mnuOptionsSub", 1));
  for (int option = 0; option < 4; ++option) {
    EXPECT_TRUE(document->triggerMenu("mnuOptionsSessionOnlySub", option));
    EXPECT_TRUE(checked("mnuOptionsSessionOnlySub", option)) << option;
  }
  document->Notify_SessionOptions_FromMDI();
  const ucCanvas& canvas = *document->canvas();
  EXPECT_TRUE(canvas.settings().UseAlternativeRegionMarquee && canvas.SuspendCanvasResizeByEdgeDragging());
  EXPECT_TRUE(canvas.settings().SuspendRegionResizeByEdgeDragging && canvas.settings().TurnOnXYlines);
}

TEST_F(DocumentEdit, InquiryTellsAboutThePicture) {
  const QString file = openPlain();
  desktop.expect(file + "\n\nFile Size:  ");
  EXPECT_TRUE(document->triggerMenu("mnuInquiryOriginal"));
  EXPECT_TRUE(desktop.messages.last().endsWith("Change made:  No"));
  desktop.expect("    Color Count: 1");
  EXPECT_TRUE(document->triggerMenu("mnuInquiryColorCount"));
  desktop.expect("Size displayed:   w = 4   h = 3");
  EXPECT_TRUE(document->triggerMenu("mnuInquiryStartPosCurrentScreen"));
  desktop.expect(file);
  EXPECT_TRUE(document->triggerMenu("mnuInquiryFullFileSpec"));
}

}  // namespace
}  // namespace ruvo
