#include "canvas/ucCanvasA.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "support/pictures.h"

namespace ruvo {
namespace {

// A viewer of 200 x 160 with a picture whose red is the column and green the row.
struct UcCanvasA : testing::Test {
  ucCanvasA viewer;
  QWidget* view = viewer.findChild<QWidget*>("picDisp");

  void show(int width, int height, int magnify) {
    viewer.resize(200, 160);
    viewer.show();
    viewer.DIB() = test::dibOf(width, height, [](int x, int y) {
      return Pixel32{7, static_cast<std::uint8_t>(y), static_cast<std::uint8_t>(x), 0};
    });
    viewer.setMagnify(magnify);
    viewer.CanvasResize();
  }
  QPoint scroll() {
    int x = 0, y = 0;
    viewer.GetScrollValues(x, y);
    return {x, y};
  }
  QColor seen(QPoint at) { return view->grab().toImage().pixelColor(at); }
  void drag(QPoint from, QPoint to) {
    QTest::mousePress(view, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, view->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view, &move);
    QTest::mouseRelease(view, Qt::LeftButton, {}, to);
    QTest::mouseMove(view, from);
  }
};

TEST_F(UcCanvasA, ScrollsByBarsAndHand) {
  show(100, 90, 4);
  auto* bar = viewer.findChild<QScrollBar*>("HsbDisp");
  bar->setValue(80);
  EXPECT_EQ(scroll(), QPoint(80, 0));
  drag({100, 90}, {70, 50});
  EXPECT_EQ(scroll(), QPoint(110, 40));
  EXPECT_EQ(bar->value(), 110);
  drag({10, 10}, {190, 150});
  EXPECT_EQ(scroll(), QPoint(0, 0));
  viewer.SetScrollValues(5, 8);
  EXPECT_EQ(seen({1 + 3, 1 + 4}), QColor(2, 3, 7));
  QPoint first;
  viewer.GetVisibleStartInfo(first.rx(), first.ry());
  EXPECT_EQ(first, QPoint(1, 2));
  viewer.DIB() = test::plainDib(10, 10, kBlack);
  viewer.setCanvasBackColor(Qt::yellow);
  viewer.CanvasPicPaint();
  EXPECT_TRUE(!bar->isVisible() && seen({5, 5}) == QColor(Qt::yellow) && seen({100, 80}) == QColor(Qt::black));
  EXPECT_EQ(viewer.DIB_XY_Color(9, 9), kBlack);
  EXPECT_EQ(viewer.DIB_XY_Color(9, 10), std::nullopt);
  viewer.CanvasCleanse();
  drag({100, 90}, {70, 50});
  EXPECT_TRUE(!bar->isVisible() && viewer.Magnify() == 1 && scroll() == QPoint(0, 0));
}

TEST_F(UcCanvasA, TellsWhatLiesUnderThePointerWhenAsked) {
  show(30, 20, 3);
  QPoint corner;
  viewer.GetPicdispStartPos(corner.rx(), corner.ry());
  const QPoint at = corner + QPoint(12 * 3 + 1, 5 * 3 + 1);
  QSignalSpy clicks(&viewer, &ucCanvasA::NotifyClickData);
  QSignalSpy places(&viewer, &ucCanvasA::MonitorXYdata);
  QSignalSpy left(&viewer, &ucCanvasA::NotifyCanvasMouseMove);
  for (const bool asked : {false, true}) {
    viewer.setToReportRightClickDataInScrollMode(asked);
    viewer.setToMonitorXYdata(asked);
    viewer.setToNotifyCanvasMouseMove(asked);
    viewer.setToShowPixelRGB(asked);
    viewer.setToShowXYlines(asked);
    QTest::mouseMove(view, at);
    QTest::mouseClick(view, Qt::RightButton, {}, at);
    EXPECT_EQ(view->toolTip(), asked ? "RGB(12, 5, 7)" : "");
    EXPECT_EQ(seen(at + QPoint(6, 0)), asked ? QColor(255 - 14, 255 - 5, 255 - 7) : QColor(14, 5, 7));
    QTest::mouseMove(view, QPoint(2, 2));
    EXPECT_EQ(view->toolTip(), "");
    EXPECT_EQ(seen(at + QPoint(6, 0)), QColor(14, 5, 7));
    EXPECT_EQ(std::vector({clicks.count(), places.count(), left.count()}), std::vector<qsizetype>(3, asked ? 1 : 0));
  }
  EXPECT_EQ(clicks[0], (QVariantList{2, QVariant::fromValue(rgb(12, 5, 7)), 12, 5}));
}

}  // namespace
}  // namespace ruvo
