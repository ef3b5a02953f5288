#include "animation/gif_field.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QtTest>

#include "formats/gif_bytes.h"

namespace ruvo {
namespace {

using namespace test;

// A 6 x 4 screen: frame 1 is blue all over, frame 2 a green 2 x 2 with a see-through first pixel (red) at 3, 1.
clsGIF twoFrames() {
  clsGIF gif;
  EXPECT_EQ(load(gif, GifBytes(6, 4)
                          .control(0)
                          .image({"333333", "333333", "333333", "333333"})
                          .control(1, 0, 1)
                          .image({"12", "22"}, 3, 1)
                          .bytes()),
            kGifOk);
  return gif;
}

class GifFieldTest : public testing::Test {
 protected:
  GifFieldTest() {
    field.resize(60, 40);
    field.setGif(&gif);
    field.show();
  }
  // The colour shown at a place of the animation's screen; it lies in the middle at its own size.
  QColor shownAt(int x, int y) { return field.grab().toImage().pixelColor(27 + x, 18 + y); }
  QColor ground() const { return field.palette().color(QPalette::Base); }
  // Lets the animation run until that many frames were shown.
  QList<int> ticks(int count) {
    QSignalSpy spy(&field, &GifField::ticked);
    while (spy.size() < count && spy.wait()) {
    }
    QList<int> frames;
    for (const auto& arguments : spy) frames << arguments[0].toInt();
    return frames;
  }

  clsGIF gif = twoFrames();
  GifField field;
};

TEST_F(GifFieldTest, AFrameStandsByItselfOnTheChosenGround) {
  EXPECT_EQ(shownAt(0, 0), Qt::blue);
  EXPECT_NE(shownAt(-1, 0), Qt::blue);
  field.showFrame(2);
  EXPECT_EQ(shownAt(4, 1), Qt::green);
  EXPECT_EQ(shownAt(3, 1), ground());
  field.setPattern(kPatternTransparentColor);
  EXPECT_EQ(shownAt(3, 1), Qt::red);
}

TEST_F(GifFieldTest, RunsInTurnAndComesBackToTheFrameOfBefore) {
  QSignalSpy running(&field, &GifField::runningChanged);
  field.showFrame(2);
  field.start();
  EXPECT_TRUE(field.running());
  const QList<int> frames = ticks(3);
  ASSERT_GE(frames.size(), 3);
  EXPECT_EQ(frames.first(3), (QList<int>{1, 2, 1}));
  EXPECT_EQ(shownAt(0, 0), Qt::blue);
  field.stop();
  EXPECT_EQ(field.frame(), 2);
  EXPECT_EQ(shownAt(0, 0), ground());
  EXPECT_EQ(running.size(), 2);
  // A single frame does not run, nor does none.
  gif.FrameDelete(2);
  field.changed();
  field.start();
  EXPECT_FALSE(field.running());
  EXPECT_EQ(field.frame(), 1);
  field.setGif(nullptr);
  field.start();
  EXPECT_FALSE(field.running());
  EXPECT_EQ(shownAt(0, 0), shownAt(-5, -5));
}

TEST_F(GifFieldTest, TellsWhichPixelOfTheFrameWasPressedAtAnyScale) {
  QSignalSpy pressed(&field, &GifField::pressed);
  field.showFrame(2);
  QTest::mouseClick(&field, Qt::RightButton, {}, {27 + 4, 18 + 2});
  ASSERT_EQ(pressed.size(), 1);
  EXPECT_EQ(pressed[0][0].toPoint(), QPoint(1, 1));
  EXPECT_EQ(pressed[0][1].value<Qt::MouseButton>(), Qt::RightButton);
  QTest::mouseClick(&field, Qt::LeftButton, {}, {27, 18});
  EXPECT_EQ(pressed.size(), 1);
  // A room of 3 x 2 halves the picture.
  field.resize(7, 6);
  EXPECT_EQ(field.framePointAt({2 + 2, 2 + 1}), QPoint(1, 1));
  EXPECT_EQ(field.framePointAt({1, 1}), QPoint(-1, -1));
}

}  // namespace
}  // namespace ruvo
