#include "canvas/tools/shape_canvas.h"

namespace ruvo {
namespace {

using namespace test;

TEST(LineTool, TheBandIsOnTheDisplayUntilTheButtonIsLetGo) {
  ShapeCanvas canvas(4);
  canvas.press({1, 2});
  canvas.move({4, 2});
  EXPECT_PICTURE(canvas.shown(), {".......", ".......", ".####..", ".......", ".......", ".......", "......."});
  EXPECT_EQ(canvas.picture(), kNothing);
  canvas.move({4, 5});
  canvas.release({4, 5});
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "DispMeasureLine 1 2 4 2 0", "DispMeasureLine 1 2 4 5 135",
                                    "NotifyToPrepareUndo"}));
  EXPECT_PICTURE(canvas.picture(), {".......", ".......", ".#.....", "..#....", "...#...", ".......", "......."});
  EXPECT_EQ(canvas.shown(), canvas.picture());
}

TEST(LineTool, AnglesRiseToTheRightAndKeysHoldTheDirection) {
  ShapeCanvas canvas(4, 60);
  canvas.press({30, 30});
  canvas.clear();
  canvas.move({40, 20});
  canvas.move({20, 40});
  canvas.move({20, 30});
  canvas.move({32, 23}, {false, true, false});
  canvas.move({40, 36}, {false, false, true});
  canvas.move({45, 33}, kShift);
  EXPECT_EQ(canvas.events, (Events{"DispMeasureLine 30 30 40 20 45", "DispMeasureLine 30 30 20 40 45",
                                   "DispMeasureLine 30 30 20 30 0", "DispMeasureLine 30 30 30 23 90",
                                   "DispMeasureLine 30 30 36 36 135", "DispMeasureLine 30 30 45 30 0"}));
  canvas.release({45, 33});  // the key was let go before the button: what was shown is drawn
  EXPECT_EQ(canvas.picture()[30].substr(28), "..###############...............");
}

TEST(LineTool, WorksInWholePixelsWhenMagnifiedAndScrolled) {
  ShapeCanvas canvas(4, 60, 4);
  canvas.core.SetScrollValues(22, 41, true, true);
  // Display 0 is the third of the four display pixels of image column 5, and the second of image row 10.
  canvas.press({1, 2});
  canvas.move({14, 2});
  EXPECT_EQ(canvas.events.back(), "DispMeasureLine 5 10 9 10 0");
  EXPECT_EQ(canvas.shown()[1].substr(0, 20), "#################...");
  canvas.release({14, 2});
  EXPECT_EQ(canvas.picture()[10].substr(0, 12), ".....####...");
}

TEST(RectangleTool, LandsWhereTheBandStood) {
  ShapeCanvas canvas(7);
  canvas.press({5, 4});
  canvas.move({1, 2});
  EXPECT_EQ(canvas.events.back(), "DispMeasureRectangle 1 2 5 3");
  EXPECT_PICTURE(canvas.shown(), {".......", ".......", ".#####.", ".#...#.", ".#####.", ".......", "......."});
  canvas.release({1, 2});
  EXPECT_EQ(canvas.picture(), canvas.shown());
  canvas.core.setCanvasOp(8);
  canvas.press({4, 1});
  canvas.move({7, 3}, kShift);  // one past the last column
  canvas.release({90, 2});
  EXPECT_PICTURE(canvas.picture(), {".......", "....###", ".######", ".#..###", ".#####.", ".......", "......."});
}

}  // namespace
}  // namespace ruvo
