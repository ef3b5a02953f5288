// Toolbox, option frames, brush size and colours, with no document: the controls only keep the state.
#include <QTest>

#include "canvas/ucCanvas.h"
#include "shell/main_window_fixture.h"

namespace ruvo::test {
namespace {

using Tools = MainWindowTest;

TEST_F(Tools, ClickMovesTheBorderAndShowsTheToolsFrame) {
  for (int tool = 0; tool < 19; ++tool) {
    window->selectTool(tool);
    EXPECT_EQ(window->toolbox().tool, tool);
    for (int frame = 0; frame < 10; ++frame)
      EXPECT_EQ(!control<QWidget>(QString("fraOption(%1)").arg(frame)).isHidden(),
                frame == kToolOptionFrame[static_cast<std::size_t>(tool)])
          << "tool " << tool << " frame " << frame;
    int borders = 0;
    for (int i = 0; i < 19; ++i) borders += control(QString("imgTools(%1)").arg(i)).isChecked() ? 1 : 0;
    EXPECT_EQ(borders, 1);
    EXPECT_TRUE(control(QString("imgTools(%1)").arg(tool)).isEnabled());
  }
  click("imgTools(2)");
  EXPECT_EQ(window->toolbox().tool, 2);
  click("imgTools(2)");  // a second click on the chosen tool does not let it go
  EXPECT_EQ(window->toolbox().tool, 2);
  click("imgTools(18)");
  EXPECT_EQ(window->toolbox().tool, 18);
}

TEST_F(Tools, PictureOfAnOptionChoosesItAsTheOptionDoes) {
  click("optBrushStyle(2)");
  EXPECT_EQ(window->toolbox().brushStyle, 2);
  mouse(control<QWidget>("imgBrushStyle(6)"), Qt::LeftButton);
  EXPECT_EQ(window->toolbox().brushStyle, 6);
  EXPECT_FALSE(control("optBrushStyle(2)").isChecked());
}

TEST_F(Tools, CustomBrushAndPatternNeedAPicture) {
  desktop.expect("No custom brush loaded yet.");
  click("optBrushStyle(8)");
  EXPECT_EQ(window->toolbox().brushStyle, 0);
  desktop.expect("No custom Pattern loaded yet.");
  click("optFillPattern(9)");
  EXPECT_EQ(window->toolbox().fillPattern, 0);
  EXPECT_TRUE(desktop.messages[1].endsWith("(To load a custom Pattern, click the Button)."));

  // Loaded in one document, every document has it.
  openNew().canvas()->DIBCustomBrush().CreateBlankDIB(4, 4, 32, kBlack);
  window->showCustomPictures();
  click("optBrushStyle(8)");
  EXPECT_EQ(window->toolbox().brushStyle, 8);
  EXPECT_TRUE(openNew().canvas()->CustomBrushPresent());
}

TEST_F(Tools, TextureWeightIsShownWithATextureOnly) {
  QWidget& weight = control<QWidget>("cboStampTextureWeight");
  window->SetOptionFrame(7);
  EXPECT_FALSE(weight.isVisible());
  control<QComboBox>("cboStampStyle").setCurrentIndex(1);
  EXPECT_TRUE(weight.isVisible());
}

TEST_F(Tools, BrushSizeStepsBetweenOneAndTwenty) {
  QComboBox& size = control<QComboBox>("cboBrushSize");
  for (int i = 0; i < 25; ++i) click("cmdAdjBrushSize(0)");
  EXPECT_EQ(window->toolbox().brushSize, 20);
  EXPECT_FALSE(control("cmdAdjBrushSize(0)").isEnabled());
  for (int i = 0; i < 25; ++i) click("cmdAdjBrushSize(1)");
  EXPECT_EQ(size.currentIndex(), 0);
  EXPECT_FALSE(control("cmdAdjBrushSize(1)").isEnabled());
  EXPECT_TRUE(control("cmdAdjBrushSize(0)").isEnabled());

  frmRuvoPaint& document = openNew();
  click("cmdAdjBrushSize(0)");
  EXPECT_EQ(document.canvas()->settings().BrushSize, 2);
}

TEST_F(Tools, AntialiasedLineHasItsOwnBrushSizeWhileChosen) {
  const int& size = openNew().canvas()->settings().BrushSize;
  click("imgTools(4)");
  click("optLineType(8)");
  // The box goes on showing the user's own size, which can be changed for what comes next.
  control<QComboBox>("cboBrushSize").setCurrentIndex(9);
  EXPECT_EQ(window->toolbox().brushSize, 10);
  EXPECT_EQ(size, 2);
  click("optLineType(7)");
  EXPECT_EQ(size, 10);
  click("optLineType(8)");
  EXPECT_EQ(size, 2);
  click("imgTools(0)");
  EXPECT_EQ(size, 10);
}

// Every tool's frame writes to the canvas, and a document that is opened later reads the same.
TEST_F(Tools, OptionsOfShapesReachEveryCanvas) {
  frmRuvoPaint& first = openNew();
  control<QComboBox>("cboPolygonOperationType").setCurrentIndex(4);
  control<QComboBox>("cboPolygonSetting(0)").setCurrentText("5");
  control<QComboBox>("cboPolygonSetting(1)").setCurrentText("20");
  control<QComboBox>("cboPolygonSetting(2)").setCurrentText("0.4");
  control<QComboBox>("cboPolygonSetting(3)").setCurrentText("90");
  for (const char* name :
       {"optPolygonDrawMethod(1)", "optLineType(4)", "optRectangleCornerShape(3)", "optOvalEnhancement(1)"})
    click(name);
  window->selectTool(7);
  mouse(control<QWidget>("picColorToUse(2)"), Qt::RightButton);
  for (frmRuvoPaint* document : {&first, &openNew()}) {
    const CanvasSettings& taken = document->canvas()->settings();
    EXPECT_EQ(document->canvas()->PolygonDrawMethod(), 1);
    EXPECT_EQ(taken.PolygonOperationType, 4);
    EXPECT_EQ(taken.PolygonNumPoints, 5);
    EXPECT_EQ(taken.PolygonRadius, 20);
    EXPECT_FLOAT_EQ(taken.PolygonConcaveFactor, 0.4F);
    EXPECT_EQ(taken.PolygonAngle, 90);
    EXPECT_EQ(taken.LineType, 4);
    EXPECT_EQ(taken.RectangleCornerShape, 3);
    EXPECT_EQ(taken.OvalEnhancement, 1);
    EXPECT_EQ(taken.BezierFillColor, kBlack);
  }
  EXPECT_EQ(window->activeDocument()->canvas()->settings().BezierType, 1) << "the filled curve is the chosen tool";
}

TEST_F(Tools, ARegionKeepsItsTool) {
  frmRuvoPaint& selected = openNew();
  click("imgTools(15)");
  QWidget* display = selected.canvas()->findChild<QWidget*>("picDisp");
  QPoint corner;
  selected.canvas()->GetPicdispStartPos(corner.rx(), corner.ry());
  QTest::mousePress(display, Qt::LeftButton, {}, corner + QPoint(2, 2));
  QTest::mouseMove(display, corner + QPoint(30, 25));
  QTest::mouseRelease(display, Qt::LeftButton, {}, corner + QPoint(30, 25));
  ASSERT_TRUE(selected.canvas()->HasRegion());
  openNew();
  click("imgTools(4)");
  control<QMdiArea>("mdiWorkspace").setActiveSubWindow(&frameOf(selected));
  EXPECT_EQ(window->toolbox().tool, 15);
  EXPECT_TRUE(selected.canvas()->HasRegion());
}

// Escape, arrows and Delete are the picture's unless a control that knows them has the focus.
TEST_F(Tools, AToolAndASizeGiveTheKeysToThePicture) {
  QApplication::setActiveWindow(window.get());
  QWidget* picture = openNew().canvas()->findChild<QWidget*>("picDisp");
  QComboBox& size = control<QComboBox>("cboBrushSize");
  const auto hasKeys = [&](QWidget* widget) { return QApplication::focusWidget() == widget; };
  EXPECT_TRUE(hasKeys(picture));
  size.setFocus();
  click("imgTools(2)");
  EXPECT_TRUE(hasKeys(picture));
  size.setFocus();
  size.setCurrentIndex(5);
  EXPECT_TRUE(hasKeys(picture)) << "picked from the list";
  size.setFocus();
  QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
  QApplication::sendEvent(&size, &down);
  EXPECT_EQ(size.currentIndex(), 6);
  EXPECT_TRUE(hasKeys(&size)) << "stepped through with its keys";
  click("cmdMode(0)");
  EXPECT_TRUE(hasKeys(picture));
  QWidget& scale = control<QWidget>("txbZoomScale");
  scale.setFocus();
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&scale, &enter);
  EXPECT_TRUE(hasKeys(picture));
  click("cmdMode(1)");
  // Beside the options there is nothing that could take them.
  mouse(*control<QWidget>("picOptionArea").findChild<QWidget*>("qt_scrollarea_viewport"), Qt::LeftButton);
  EXPECT_TRUE(hasKeys(picture));
}

TEST_F(Tools, ColoursSwapByArrowAndRightClick) {
  window->colorPicked(rgb(10, 20, 30), false);
  window->colorPicked(rgb(200, 100, 50), true);
  frmRuvoPaint& document = openNew();
  click("imgSwapColor");
  EXPECT_EQ(window->toolbox().firstColor, rgb(200, 100, 50));
  EXPECT_EQ(document.canvas()->settings().ColorToUse, rgb(200, 100, 50));
  mouse(control<QWidget>("picColorToUse(1)"), Qt::RightButton);
  EXPECT_EQ(window->toolbox().firstColor, rgb(10, 20, 30));
  EXPECT_EQ(window->toolbox().secondColor, rgb(200, 100, 50));
  // The second colour is the main window's alone; the canvas keeps painting with the first.
  EXPECT_EQ(document.canvas()->settings().ColorToUse, rgb(10, 20, 30));
  mouse(control<QWidget>("picColorToUse(2)"), Qt::RightButton);
  EXPECT_EQ(window->toolbox().bezierFillColor, rgb(10, 20, 30));
  EXPECT_EQ(document.canvas()->settings().BezierFillColor, rgb(10, 20, 30));
}

TEST_F(Tools, LeftClickTellsTheColoursValues) {
  window->colorPicked(rgb(255, 128, 0), false);
  desktop.expect("RGB ( 255,  128,  0 )");
  mouse(control<QWidget>("picColorToUse(0)"), Qt::LeftButton);
  EXPECT_TRUE(desktop.messages[0].endsWith("HTML   #FF8000"));
}

TEST_F(Tools, PalettesAndChartColourTheBoxTheyStandBeside) {
  click("cmdPaletteWebSafe(1)");
  QWidget* palette = QApplication::activePopupWidget();
  ASSERT_NE(palette, nullptr);
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(14, 38), palette->mapToGlobal(QPointF(14, 38)), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(palette, &press);
  EXPECT_EQ(window->toolbox().secondColor, kBlack);
  EXPECT_EQ(window->toolbox().firstColor, kBlack);

  click("cmdColorChart(0)");
  auto* html = window->findChild<QLineEdit*>("txbHTML");
  ASSERT_NE(html, nullptr);
  html->setText("336699");
  Q_EMIT html->editingFinished();
  EXPECT_EQ(window->toolbox().firstColor, rgb(0x33, 0x66, 0x99));
  window->colorPicked(rgb(1, 2, 3), false);
  EXPECT_EQ(html->text(), "010203");
}

}  // namespace
}  // namespace ruvo::test
