#include "document/frmRuvoPanoramic.h"

#include <QTest>

#include "document/document_fixture.h"

namespace ruvo::test {
namespace {

// A canvas with a picture that is ten times as large as the navigator shows it.
struct Navigator : testing::Test {
  Navigator() {
    canvas.resize(314, 214);
    canvas.show();
    show(2000, 1500);
    window = new frmRuvoPanoramic(canvas, nullptr);
    window->setGeometry(0, 0, 202, 152);
    window->show();
    view = window->findChild<QWidget*>("picDisp");
  }
  ~Navigator() override { delete window; }

  void show(int width, int height) {
    canvas.DIB() = dibOf(width, height, [](int x, int) {
      return x < 200 ? Pixel32{255, 0, 0, 0} : Pixel32{0, 255, 255, 0};
    });
    canvas.setCanvasScreenMode(0);
    canvas.CanvasResize();
  }
  QPoint scroll() {
    int x = 0, y = 0;
    canvas.GetScrollValues(x, y);
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
    return box.adjusted(-3, -3, 3, 3);
  }
  void move(QPoint to) {
    QMouseEvent event(QEvent::MouseMove, to, view->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view, &event);
  }

  ucCanvas canvas;
  frmRuvoPanoramic* window = nullptr;
  QWidget* view = nullptr;
};

TEST_F(Navigator, FollowsTheView) {
  const QRect first = frame();
  EXPECT_EQ(first.topLeft(), QPoint(1, 1));
  EXPECT_NEAR(first.width(), 30, 2);
  EXPECT_NEAR(first.height(), 20, 2);
  canvas.SetScrollValues(800, 600);
  EXPECT_EQ(frame().topLeft(), QPoint(81, 61));
  canvas.settings().Magnify = 2;
  canvas.CanvasResize();
  window->refresh();
  EXPECT_NEAR(frame().width(), 15, 1);
  EXPECT_EQ(frame().topLeft(), QPoint(41, 31));
  canvas.settings().FitInView = true;
  canvas.CanvasResize();
  window->refresh();
  EXPECT_EQ(frame(), QRect(1, 1, 200, 150));

  EXPECT_EQ(view->grab().toImage().pixelColor(10, 75), QColor(0, 0, 255));
  show(100, 75);
  window->refresh();
  EXPECT_EQ(frame(), QRect(51, 38, 100, 75));
  EXPECT_EQ(view->grab().toImage().pixelColor(100, 75), QColor(0, 0, 255));
}

TEST_F(Navigator, DrivesTheView) {
  QTest::mousePress(view, Qt::LeftButton, {}, QPoint(10, 8));
  EXPECT_EQ(scroll(), QPoint(0, 0));
  move({60, 48});
  EXPECT_EQ(scroll(), QPoint(500, 400));
  EXPECT_EQ(frame().topLeft(), QPoint(51, 41));
  move({900, 900});
  int maxX = 0, maxY = 0;
  canvas.GetScrollMaxInfo(maxX, maxY);
  EXPECT_EQ(scroll(), QPoint(maxX, maxY));
  QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(900, 900));
  move({20, 20});
  EXPECT_EQ(scroll(), QPoint(maxX, maxY));
  // Beside the frame: its middle comes to the pointer. Image pixels count, whatever the magnification.
  canvas.settings().Magnify = 3;
  canvas.CanvasResize();
  QTest::mousePress(view, Qt::LeftButton, {}, QPoint(51, 51));
  EXPECT_NEAR(scroll().x() / 3 + 50, 505, 8);
  EXPECT_NEAR(scroll().y() / 3 + 33, 505, 8);
}

TEST_F(Navigator, OutlivesItsCanvasAndItsPicture) {
  canvas.CanvasCleanse();
  window->refresh();
  QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(50, 50));
  EXPECT_EQ(frame(), QRect().adjusted(-3, -3, 3, 3));
  auto gone = std::make_unique<ucCanvas>();
  gone->DIB().CreateBlankDIB(400, 300, 32, kWhite);
  frmRuvoPanoramic left(*gone, nullptr);
  left.show();
  gone.reset();
  left.grab();
  QTest::mouseClick(left.findChild<QWidget*>("picDisp"), Qt::LeftButton, {}, QPoint(50, 50));
  left.refresh();
}

using PanoramicButton = DocumentTest;

TEST_F(PanoramicButton, OpensAndClosesTheNavigatorWhereItStoodLast) {
  const auto navigator = [] {
    frmRuvoPanoramic* found = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
      if (auto* one = qobject_cast<frmRuvoPanoramic*>(top); one && one->isVisible()) found = one;
    return found;
  };
  document->Do_imgPanoramicClick();
  EXPECT_EQ(navigator(), nullptr);
  EXPECT_FALSE(main.panoramic);
  openPlain();
  EXPECT_TRUE(main.panoramic);
  document->Do_imgPanoramicClick();
  ASSERT_NE(navigator(), nullptr);
  navigator()->setGeometry(37, 41, 200, 150);
  document->Do_imgPanoramicClick();
  EXPECT_EQ(navigator(), nullptr);
  document->Do_imgPanoramicClick();
  EXPECT_EQ(navigator()->geometry().topLeft(), QPoint(37, 41));
  navigator()->close();
}

// Carried, looked through while a state is taken back, put away: the button tells, and nothing reaches the picture.
TEST_F(PanoramicButton, GlassTogglesAndStaysThroughUndo) {
  openPlain("large.bmp");
  EXPECT_TRUE(main.glassEnabled);
  replaceWith(Qt::blue);
  document->Do_cmdGlassClick();
  EXPECT_EQ(document->canvas()->CanvasOp(), 17);
  EXPECT_TRUE(main.glassOut);
  EXPECT_EQ(main.tools.tool, 18);
  document->mnuEditUndo_Click();
  EXPECT_EQ(colourAt(1, 1), "#ff0000");
  EXPECT_EQ(document->canvas()->CanvasOp(), 17);
  main.tools.glassFactor = 6;
  main.tools.convexGlass = true;
  document->Do_cboGlassClick();
  EXPECT_EQ(document->canvas()->settings().MagnifyGlassFactor, 6);
  EXPECT_TRUE(document->canvas()->settings().UseConvexGlass);
  document->Do_cmdGlassClick();
  EXPECT_EQ(document->canvas()->CanvasOp(), 18);
  EXPECT_FALSE(main.glassOut);
  document->Do_cmdGlassClick();
  document->Do_imgToolsClick(0);
  EXPECT_FALSE(main.glassOut);
  main.tools.viewMode = true;
  document->Do_UpdateModeChange();
  EXPECT_FALSE(main.glassEnabled);
  document->Do_cmdGlassClick();
  EXPECT_EQ(document->canvas()->CanvasOp(), 18);
}

}  // namespace
}  // namespace ruvo::test
