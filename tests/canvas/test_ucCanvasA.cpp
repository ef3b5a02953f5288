#include "canvas/ucCanvasA.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include "support/pictures.h"

namespace ruvo {
namespace {

// A viewer with a picture whose red is the column and green the row.
struct ShownViewer {
  ucCanvasA viewer;
  QWidget* view = viewer.findChild<QWidget*>("picDisp");

  ShownViewer(int width, int height, int magnify = 1) {
    viewer.resize(200, 160);
    viewer.show();
    viewer.DIB() = test::dibOf(width, height, [](int x, int y) {
      return Pixel32{7, static_cast<std::uint8_t>(y), static_cast<std::uint8_t>(x), 0};
    });
    viewer.setMagnify(magnify);
    viewer.CanvasResize();
  }
  QScrollBar* bar(const char* name) { return viewer.findChild<QScrollBar*>(name); }
  QPoint scroll() {
    int x = 0, y = 0;
    viewer.GetScrollValues(x, y);
    return {x, y};
  }
  // The widget's point of an image pixel's middle.
  QPoint at(int x, int y) {
    int left = 0, top = 0, startX = 0, startY = 0;
    viewer.GetPicdispStartPos(left, top);
    viewer.GetVisibleStartInfo(startX, startY);
    const int m = viewer.Magnify();
    return {left + (x - startX) * m + m / 2, top + (y - startY) * m + m / 2};
  }
  void drag(QPoint from, QPoint to) {
    QTest::mousePress(view, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, view->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view, &move);
    QTest::mouseRelease(view, Qt::LeftButton, {}, to);
  }
};

TEST(UcCanvasA, ScrollsByBarsHandAndWheel) {
  ShownViewer shown(100, 90, 4);
  QSignalSpy scrolled(&shown.viewer, &ucCanvasA::NotifyScroll);
  ASSERT_TRUE(shown.bar("HsbDisp")->isVisible() && shown.bar("VsbDisp")->isVisible());
  shown.bar("HsbDisp")->setValue(80);
  EXPECT_EQ(shown.scroll(), QPoint(80, 0));
  EXPECT_EQ(scrolled.count(), 1);
  shown.drag({100, 90}, {70, 50});
  EXPECT_EQ(shown.scroll(), QPoint(110, 40));
  EXPECT_EQ(shown.bar("VsbDisp")->value(), 40);
  shown.drag({10, 10}, {190, 150});
  EXPECT_EQ(shown.scroll(), QPoint(0, 0));
  QTest::mouseMove(shown.view, {50, 60});
  EXPECT_EQ(shown.scroll(), QPoint(0, 0));
  QWheelEvent wheel(QPointF(50, 50), shown.view->mapToGlobal(QPointF(50, 50)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                    false);
  QCoreApplication::sendEvent(shown.view, &wheel);
  EXPECT_GT(shown.scroll().y(), 0);
  shown.viewer.SetScrollValues(4, 8);
  const QImage screen = shown.view->grab().toImage();
  EXPECT_EQ(screen.pixelColor(shown.at(5, 9)), QColor(5, 9, 7));

  shown.viewer.DIB() = test::plainDib(20, 20, kWhite);
  shown.viewer.CanvasPicPaint();
  EXPECT_FALSE(shown.bar("HsbDisp")->isVisible());
  shown.viewer.CanvasCleanse();
  EXPECT_EQ(shown.viewer.Magnify(), 1);
  shown.drag({100, 90}, {70, 50});
  EXPECT_EQ(shown.scroll(), QPoint(0, 0));
}

TEST(UcCanvasA, TellsWhatLiesUnderThePointerWhenAsked) {
  ShownViewer shown(30, 20, 3);
  QSignalSpy clicks(&shown.viewer, &ucCanvasA::NotifyClickData);
  QSignalSpy places(&shown.viewer, &ucCanvasA::MonitorXYdata);
  QSignalSpy left(&shown.viewer, &ucCanvasA::NotifyCanvasMouseMove);
  const auto visit = [&] {
    QTest::mouseMove(shown.view, shown.at(12, 5));
    QTest::mouseClick(shown.view, Qt::RightButton, {}, shown.at(12, 5));
    QTest::mouseMove(shown.view, QPoint(2, 2));
  };
  visit();
  EXPECT_TRUE(clicks.isEmpty() && places.isEmpty() && left.isEmpty());

  shown.viewer.setToReportRightClickDataInScrollMode(true);
  shown.viewer.setToMonitorXYdata(true);
  shown.viewer.setToNotifyCanvasMouseMove(true);
  shown.viewer.setToShowPixelRGB(true);
  visit();
  ASSERT_EQ(clicks.count(), 1);
  EXPECT_EQ(clicks[0][0].toInt(), 2);
  EXPECT_EQ(clicks[0][1].value<Colour>(), rgb(12, 5, 7));
  EXPECT_EQ(clicks[0][2].toInt(), 12);
  ASSERT_EQ(places.count(), 1);
  EXPECT_EQ(places[0][1].toInt(), 5);
  EXPECT_EQ(left.count(), 1);
  EXPECT_EQ(shown.view->toolTip(), "");
  QTest::mouseMove(shown.view, shown.at(3, 4));
  EXPECT_EQ(shown.view->toolTip(), "RGB(3, 4, 7)");
  EXPECT_EQ(shown.viewer.DIB_XY_Color(3, 4), rgb(3, 4, 7));
  EXPECT_EQ(shown.viewer.DIB_XY_Color(30, 4), std::nullopt);
}

TEST(UcCanvasA, ACrossHairFollowsThePointer) {
  ShownViewer shown(30, 20, 3);
  shown.viewer.setToShowXYlines(true);
  QTest::mouseMove(shown.view, shown.at(12, 5));
  const QImage crossed = shown.view->grab().toImage();
  EXPECT_EQ(crossed.pixelColor(shown.at(20, 5)), QColor(255 - 20, 255 - 5, 255 - 7));
  EXPECT_EQ(crossed.pixelColor(shown.at(12, 9)), QColor(255 - 12, 255 - 9, 255 - 7));
  EXPECT_EQ(crossed.pixelColor(shown.at(20, 9)), QColor(20, 9, 7));
  QTest::mouseMove(shown.view, QPoint(2, 2));
  EXPECT_EQ(shown.view->grab().toImage().pixelColor(shown.at(20, 5)), QColor(20, 5, 7));
}

}  // namespace
}  // namespace ruvo
