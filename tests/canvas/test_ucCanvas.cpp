#include "canvas/ucCanvas.h"

#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "support/pictures.h"

namespace ruvo {
namespace {

struct ShownCanvas {
  ucCanvas canvas;
  QWidget* view = canvas.findChild<QWidget*>("picDisp");

  ShownCanvas(int width, int height, int client = 200) {
    canvas.resize(client, client);
    canvas.show();
    canvas.DIB().CreateBlankDIB(width, height, 32, kWhite);
    canvas.setCanvasScreenMode(1);
    canvas.CanvasResize();
  }
  QWidget* child(const char* name) { return canvas.findChild<QWidget*>(name); }
  QScrollBar* bar(const char* name) { return canvas.findChild<QScrollBar*>(name); }
  // The widget's point of an image pixel's middle.
  QPoint at(int x, int y) {
    int left = 0, top = 0, startX = 0, startY = 0;
    canvas.GetPicdispStartPos(left, top);
    canvas.GetVisibleStartInfo(startX, startY);
    const int m = canvas.settings().Magnify;
    return {left + (x - startX) * m + m / 2, top + (y - startY) * m + m / 2};
  }
  Pixel32 pixel(int x, int y) { return test::pixelAt(canvas.DIB(), x, y); }
};

TEST(UcCanvas, PaintsByTheMouse) {
  ShownCanvas shown(40, 40);
  shown.canvas.settings().ColorToUse = rgb(200, 10, 20);
  shown.canvas.settings().BrushSize = 1;
  shown.canvas.settings().Magnify = 4;
  shown.canvas.CanvasResize();
  shown.canvas.setCanvasOp(0);
  QSignalSpy undo(&shown.canvas, &ucCanvas::NotifyToPrepareUndo);
  QTest::mousePress(shown.view, Qt::LeftButton, {}, shown.at(10, 10));
  QTest::mouseMove(shown.view, shown.at(20, 10));
  QTest::mouseRelease(shown.view, Qt::LeftButton, {}, shown.at(20, 10));
  EXPECT_EQ(undo.count(), 1);
  EXPECT_EQ(shown.pixel(15, 10).colour(), rgb(200, 10, 20));
  EXPECT_EQ(shown.pixel(15, 11).colour(), kWhite);
  const QImage screen = shown.view->grab().toImage();
  EXPECT_EQ(screen.pixelColor(shown.at(20, 10)), QColor(200, 10, 20));
  EXPECT_EQ(screen.pixelColor(shown.at(20, 12)), QColor(Qt::white));
}

// A dialog that a key opens in the middle of a stroke gets the release.
TEST(UcCanvas, AMoveWithNoButtonDownEndsTheStroke) {
  ShownCanvas shown(40, 40);
  shown.canvas.setCanvasOp(0);
  QSignalSpy undo(&shown.canvas, &ucCanvas::NotifyToPrepareUndo);
  QTest::mousePress(shown.view, Qt::LeftButton, {}, shown.at(10, 10));
  QTest::mouseMove(shown.view, shown.at(20, 10));
  EXPECT_TRUE(shown.canvas.held());
  const QPointF back = shown.at(30, 30);
  QMouseEvent event(QEvent::MouseMove, back, shown.view->mapToGlobal(back), Qt::NoButton, Qt::NoButton, {});
  QCoreApplication::sendEvent(shown.view, &event);
  EXPECT_FALSE(shown.canvas.held());
  EXPECT_EQ(undo.count(), 1);
  EXPECT_EQ(shown.pixel(30, 30).colour(), kWhite);
}

// On a scaled screen the point in the widget is rounded; a click would miss the pixel under the pointer.
TEST(UcCanvas, TakesTheExactPlaceOfThePointer) {
  ShownCanvas shown(40, 40);
  shown.canvas.settings().BrushSize = 1;
  shown.canvas.settings().ColorToUse = kBlack;
  shown.canvas.setCanvasOp(0);
  const QPointF exact = QPointF(shown.at(20, 20)) - QPointF(0.25, 0.25);
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, exact.toPoint(), exact, shown.view->mapToGlobal(exact), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(shown.view, &event);
  }
  EXPECT_EQ(shown.pixel(19, 19).colour(), kBlack);
  EXPECT_EQ(shown.pixel(20, 20).colour(), kWhite);
}

TEST(UcCanvas, BarsWheelAndValuesMoveTheSameView) {
  ShownCanvas shown(1000, 900);
  QSignalSpy scrolled(&shown.canvas, &ucCanvas::NotifyScroll);
  ASSERT_TRUE(shown.bar("HsbDisp")->isVisible() && shown.bar("VsbDisp")->isVisible());
  EXPECT_TRUE(shown.child("picJunction")->isVisible());
  const auto scroll = [&] {
    int x = 0, y = 0;
    shown.canvas.GetScrollValues(x, y);
    return QPoint(x, y);
  };
  shown.bar("HsbDisp")->setValue(120);
  EXPECT_EQ(scroll().x(), 120);
  int maxX = 0, maxY = 0;
  EXPECT_EQ(scrolled.count(), 1);
  shown.canvas.GetScrollMaxInfo(maxX, maxY);
  shown.canvas.SetScrollValues(5000, 5000);
  EXPECT_EQ(shown.bar("HsbDisp")->value(), maxX);
  EXPECT_EQ(shown.bar("VsbDisp")->value(), maxY);
  EXPECT_EQ(scrolled.count(), 2);

  const auto wheel = [&](Qt::KeyboardModifiers keys) {
    QWheelEvent event(QPointF(50, 50), shown.view->mapToGlobal(QPointF(50, 50)), {}, {0, 120}, {}, keys,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(shown.view, &event);
  };
  wheel({});
  EXPECT_EQ(scroll().x(), maxX);
  EXPECT_LT(scroll().y(), maxY);
  wheel(Qt::ShiftModifier);
  EXPECT_LT(scroll().x(), maxX);
  QSignalSpy zoom(&shown.canvas, &ucCanvas::zoomRequested);
  wheel(Qt::ControlModifier);
  ASSERT_EQ(zoom.count(), 1);
  EXPECT_EQ(zoom[0][0].toInt(), 1);
  EXPECT_EQ(shown.canvas.settings().Magnify, 1);
  // A host that zooms leaves the point under the pointer in its place.
  QObject::connect(&shown.canvas, &ucCanvas::zoomRequested, [&](int steps) {
    shown.canvas.settings().Magnify += 2 * steps;
    shown.canvas.CanvasResize();
  });
  shown.canvas.SetScrollValues(200, 300);
  wheel(Qt::ControlModifier);
  EXPECT_EQ(scroll(), QPoint(249 * 3 - 49, 349 * 3 - 49));
}

TEST(UcCanvas, AnEdgeIsDraggedByItsHandle) {
  ShownCanvas shown(40, 40);
  QWidget* handle = shown.child("picDrag(1)");
  ASSERT_TRUE(handle->isVisible());
  QSignalSpy resized(&shown.canvas, &ucCanvas::NotifyDragResize);
  QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(3, 3));
  const QPoint to = handle->mapToGlobal(QPoint(3, 3)) + QPoint(10, 0);
  QTest::mouseMove(handle, handle->mapFromGlobal(to));
  EXPECT_TRUE(shown.child("picDragVertical")->isVisible());
  QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->mapFromGlobal(to));
  EXPECT_FALSE(shown.child("picDragVertical")->isVisible());
  ASSERT_EQ(resized.count(), 1);
  EXPECT_TRUE(resized[0][0].toBool());
  EXPECT_EQ(shown.canvas.DIB().size(), (Size{50, 40}));
}

TEST(UcCanvas, TakesDroppedFilesOfAllowedKindsOnly) {
  ShownCanvas shown(40, 40);
  shown.canvas.settings().FileExtAllowed = "bmp/png";
  QSignalSpy dropped(&shown.canvas, &ucCanvas::doLoadFileByDragDrop);
  const auto drop = [&](const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(shown.view, &enter);
    QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    if (enter.isAccepted()) QCoreApplication::sendEvent(shown.view, &event);
    return enter.isAccepted();
  };
  EXPECT_FALSE(drop("/pictures/notes.txt"));
  EXPECT_TRUE(drop(QString::fromUtf8("/pictures/blüte.PNG")));
  ASSERT_EQ(dropped.count(), 1);
  EXPECT_EQ(dropped[0][0].toString(), QString::fromUtf8("/pictures/blüte.PNG"));
}

TEST(UcCanvas, TheViewFollowsTheWindowsSize) {
  ShownCanvas shown(150, 150);
  EXPECT_FALSE(shown.canvas.HasScrollBarVisible());
  shown.canvas.resize(100, 100);
  EXPECT_TRUE(shown.canvas.HasScrollBarVisible());
  shown.canvas.settings().FitInView = true;
  shown.canvas.CanvasResize();
  int width = 0, height = 0;
  shown.canvas.GetCurrentGrossImageSize(width, height);
  EXPECT_EQ(width, 98);
  EXPECT_FALSE(shown.bar("HsbDisp")->isVisible());
}

}  // namespace
}  // namespace ruvo
