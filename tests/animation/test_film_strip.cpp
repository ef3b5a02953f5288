#include "animation/film_strip.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

#include "formats/gif_bytes.h"

namespace ruvo {
namespace {

using namespace test;

class FilmStripTest : public testing::Test {
 protected:
  FilmStripTest() {
    GifBytes bytes(8, 8);
    for (int i = 0; i < 9; ++i) bytes.control(0).image({i % 2 == 0 ? "1" : "2"}, 4, 4);
    EXPECT_EQ(load(gif, bytes.bytes()), kGifOk);
    strip.resize(200, 405);
    strip.setGif(&gif);
    strip.show();
  }
  QWidget& film() { return *strip.findChild<QWidget*>("picFilm"); }
  QScrollBar& bar() { return *strip.findChild<QScrollBar*>("vsbFilm"); }
  // In the middle of one of the four places, from 0.
  static QPoint inPlace(int place, int below = 0) { return {80, 55 + 100 * place + below}; }
  QColor boxOf(int place) { return film().grab().toImage().pixelColor(80, 6 + 100 * place); }
  void drag(const QPoint& from, const QPoint& to, Qt::Key whileDown = {}) {
    QTest::mousePress(&film(), Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, film().mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&film(), &move);
    if (whileDown) QTest::keyClick(&film(), whileDown);
    QTest::mouseRelease(&film(), Qt::LeftButton, {}, to);
  }

  clsGIF gif;
  FilmStrip strip;
};

TEST_F(FilmStripTest, ShowsTheSelectedFrameAsTheThirdOfFour) {
  EXPECT_EQ(bar().maximum(), 5);
  EXPECT_EQ(bar().pageStep(), 4);
  EXPECT_EQ(boxOf(0), QColor(0, 0, 255));
  EXPECT_NE(boxOf(1), QColor(0, 0, 255));
  strip.setSelected(4);
  EXPECT_EQ(bar().value(), 0);
  strip.setSelected(7);
  EXPECT_EQ(bar().value(), 4);
  EXPECT_EQ(boxOf(2), QColor(0, 0, 255));
  strip.setSelected(9);
  EXPECT_EQ(bar().value(), 5);
}

TEST_F(FilmStripTest, ClicksAndKeysAskForFrames) {
  QSignalSpy clicked(&strip, &FilmStrip::frameClicked);
  bar().setValue(3);
  QTest::mouseClick(&film(), Qt::LeftButton, {}, inPlace(1));
  strip.setSelected(5);
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End})
    QTest::keyClick(&film(), key);
  QList<int> asked;
  for (const auto& arguments : clicked) asked << arguments[0].toInt();
  EXPECT_EQ(asked, (QList<int>{5, 4, 6, 1, 9, 1, 9}));
  strip.setSelected(1);
  QTest::keyClick(&film(), Qt::Key_Up);
  EXPECT_EQ(clicked.size(), 7);
  strip.setGif(nullptr);
  QTest::mouseClick(&film(), Qt::LeftButton, {}, inPlace(0));
  EXPECT_EQ(clicked.size(), 7);
  EXPECT_EQ(bar().maximum(), 0);
}

TEST_F(FilmStripTest, ADragAsksToMoveTheFrameBetweenTwoOthers) {
  QSignalSpy moved(&strip, &FilmStrip::moveAsked);
  drag(inPlace(0), inPlace(2, 30));
  EXPECT_EQ(moved.size(), 0) << "before dragging is switched on";
  strip.setMovable(true);
  const auto last = [&] { return qMakePair(moved.last()[0].toInt(), moved.last()[1].toInt()); };
  drag(inPlace(0), inPlace(2, 30));
  ASSERT_EQ(moved.size(), 1);
  EXPECT_EQ(last(), qMakePair(1, 3));
  bar().setValue(5);
  drag(inPlace(3), inPlace(0, -30));
  EXPECT_EQ(last(), qMakePair(9, 6));
  drag(inPlace(0), inPlace(3, 90));
  EXPECT_EQ(last(), qMakePair(6, 9));
  // Back where it was, and given up.
  drag(inPlace(1), inPlace(2, -30));
  drag(inPlace(1), inPlace(3), Qt::Key_Escape);
  EXPECT_EQ(moved.size(), 3);
}

}  // namespace
}  // namespace ruvo
