#include "document/frmRuvoPanoramic.h"

#include <QPointer>
#include <QTest>

#include "document/document_fixture.h"

namespace ruvo::test {
namespace {

// A canvas with a picture that is ten times as large as the navigator shows it.
struct Navigator : testing::Test {
  Navigator() {
    canvas->resize(314, 214);
    canvas->show();
    canvas->DIB() = plainDib(2000, 1500, rgb(0, 0, 255));
    window.setGeometry(0, 0, 202, 152);
    window.show();
    layOut(1);
  }
  void layOut(int magnify) {
    canvas->settings().Magnify = magnify;
    canvas->CanvasResize();
    window.refresh();
  }
  QPoint scroll() {
    int x = 0, y = 0;
    canvas->GetScrollValues(x, y);
    return {x, y};
  }
  // The frame's box by its light inner ring; in the window.
  QRect frame() {
    const QImage image = view->grab().toImage();
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == QColor(245, 246, 248)) box |= QRect(x, y, 1, 1);
      }
    }
    return box.isNull() ? box : box.adjusted(-3, -3, 3, 3);
  }
  void move(QPoint to) {
    QMouseEvent event(QEvent::MouseMove, to, view->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view, &event);
  }

  std::unique_ptr<ucCanvas> canvas = std::make_unique<ucCanvas>();
  frmRuvoPanoramic window{*canvas, nullptr};
  QWidget* view = window.findChild<QWidget*>("picDisp");
};

TEST_F(Navigator, FollowsTheView) {
  EXPECT_EQ(frame().topLeft(), QPoint(1, 1));
  EXPECT_NEAR(frame().width(), 30, 2);
  canvas->SetScrollValues(800, 600);
  EXPECT_EQ(frame().topLeft(), QPoint(81, 61));
  layOut(2);
  EXPECT_NEAR(frame().width(), 15, 1);
  EXPECT_EQ(frame().topLeft(), QPoint(41, 31));
  canvas->settings().FitInView = true;
  layOut(2);
  EXPECT_EQ(frame(), QRect(1, 1, 200, 150));
  EXPECT_EQ(view->grab().toImage().pixelColor(10, 75), QColor(0, 0, 255));

  canvas->CanvasCleanse();
  window.refresh();
  QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(50, 50));
  EXPECT_TRUE(frame().isNull());
  canvas.reset();
  EXPECT_TRUE(frame().isNull());
  window.refresh();
}

TEST_F(Navigator, DrivesTheView) {
  QTest::mousePress(view, Qt::LeftButton, {}, QPoint(10, 8));
  EXPECT_EQ(scroll(), QPoint(0, 0));
  move({60, 48});
  EXPECT_EQ(scroll(), QPoint(500, 400));
  EXPECT_EQ(frame().topLeft(), QPoint(51, 41));
  int maxX = 0, maxY = 0;
  canvas->GetScrollMaxInfo(maxX, maxY);
  move({900, 900});
  QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(900, 900));
  move({20, 20});
  EXPECT_EQ(scroll(), QPoint(maxX, maxY));
  // Beside the frame: its middle comes to the pointer. Image pixels count, whatever the magnification.
  layOut(3);
  QTest::mousePress(view, Qt::LeftButton, {}, QPoint(51, 51));
  EXPECT_NEAR(scroll().x() / 3 + 50, 505, 8);
  EXPECT_NEAR(scroll().y() / 3 + 33, 505, 8);
}

using ViewingAids = DocumentTest;

TEST_F(ViewingAids, TheNavigatorOpensWhereItStoodLast) {
  document->Do_imgPanoramicClick();
  openPlain();
  EXPECT_TRUE(main.panoramic);
  QPointer<QWidget> navigator;
  const auto toggle = [&] {
    document->Do_imgPanoramicClick();
    navigator = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
      if (top->objectName() == "frmRuvoPanoramic" && top->isVisible()) navigator = top;
    return !navigator.isNull();
  };
  ASSERT_TRUE(toggle());
  navigator->setGeometry(37, 41, 200, 150);
  EXPECT_FALSE(toggle());
  ASSERT_TRUE(toggle());
  EXPECT_EQ(navigator->geometry().topLeft(), QPoint(37, 41));
  toggle();
}

TEST_F(ViewingAids, TheGlassIsToggledAndStaysThroughUndo) {
  openPlain();
  EXPECT_TRUE(main.glassEnabled);
  replaceWith(Qt::blue);
  document->Do_cmdGlassClick();
  EXPECT_TRUE(main.glassOut && main.tools.tool == 18);
  document->mnuEditUndo_Click();
  EXPECT_EQ(colourAt(1, 1), "#ff0000");
  EXPECT_EQ(document->canvas()->CanvasOp(), 17);
  main.tools.convexGlass = true;
  document->Do_cboGlassClick();
  EXPECT_TRUE(document->canvas()->settings().UseConvexGlass);
  document->Do_cmdGlassClick();
  EXPECT_TRUE(document->canvas()->CanvasOp() == 18 && !main.glassOut);
  // A tool that is chosen in another document meanwhile takes the lens's place.
  document->Do_cmdGlassClick();
  document->activated();
  EXPECT_TRUE(main.glassOut);
  main.tools.tool = 4;
  document->activated();
  EXPECT_TRUE(document->canvas()->CanvasOp() == 4 && !main.glassOut);
  main.tools.viewMode = true;
  document->Do_UpdateModeChange();
  document->Do_cmdGlassClick();
  EXPECT_EQ(document->canvas()->CanvasOp(), 18);
  EXPECT_FALSE(main.glassEnabled);
}

}  // namespace
}  // namespace ruvo::test
