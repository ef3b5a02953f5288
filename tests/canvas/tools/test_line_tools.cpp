#include "canvas/engine/recorded_canvas.h"

namespace ruvo {
namespace {

using namespace test;

constexpr KeyModifiers kShift{true, false, false};
const Rows kNothing(7, ".......");

// A white picture with a tool that draws in black with one pixel.
struct Banding : RecordedCanvas {
  explicit Banding(int op, int side = 7, int magnify = 1) : RecordedCanvas(side, side) {
    core.settings.ColorToUse = kBlack;
    core.settings.BrushSize = 1;
    core.settings.Magnify = magnify;
    core.CanvasResize();
    core.setCanvasOp(op);
    clear();
  }
  Rows shown() { return rowsOf(seen()); }
  // What a move from the middle of 60 pixels tells.
  std::string measured(Point to, KeyModifiers keys = {}) {
    press({30, 30});
    clear();
    move(to, keys);
    core.keyPress(CanvasKey::Escape, {});
    return events.empty() ? std::string() : events[0];
  }
};

TEST(LineTool, TheBandIsOnTheDisplayUntilTheButtonIsLetGo) {
  Banding canvas(4);
  canvas.press({1, 2});
  canvas.move({4, 2});
  EXPECT_PICTURE(canvas.shown(), {".......", ".......", ".####..", ".......", ".......", ".......", "......."});
  EXPECT_EQ(canvas.picture(), kNothing);
  canvas.move({4, 5});
  canvas.release({4, 5});
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "DispMeasureLine 1 2 4 2 0", "DispMeasureLine 1 2 4 5 135",
                                    "NotifyToPrepareUndo"}));
  const Rows line = {".......", ".......", ".#.....", "..#....", "...#...", ".......", "......."};
  EXPECT_EQ(canvas.picture(), line);
  EXPECT_EQ(canvas.shown(), line);
}

TEST(LineTool, AnglesRiseToTheRightAndKeysHoldTheDirection) {
  Banding canvas(4, 60);
  EXPECT_EQ(canvas.measured({40, 20}), "DispMeasureLine 30 30 40 20 45");
  EXPECT_EQ(canvas.measured({20, 40}), "DispMeasureLine 30 30 20 40 45");
  EXPECT_EQ(canvas.measured({20, 30}), "DispMeasureLine 30 30 20 30 0");
  EXPECT_EQ(canvas.measured({45, 33}, kShift), "DispMeasureLine 30 30 45 30 0");
  EXPECT_EQ(canvas.measured({32, 23}, {false, true, false}), "DispMeasureLine 30 30 30 23 90");
  EXPECT_EQ(canvas.measured({40, 36}, {false, false, true}), "DispMeasureLine 30 30 36 36 135");
  // The key is let go before the button: what was shown is drawn.
  canvas.press({30, 30});
  canvas.move({45, 33}, kShift);
  canvas.release({45, 33});
  EXPECT_EQ(canvas.picture()[30].substr(28), "..###############...............");
}

TEST(LineTool, WorksInWholePixelsWhenMagnifiedAndScrolled) {
  Banding canvas(4, 60, 4);
  canvas.core.SetScrollValues(22, 41, true, true);
  // Display 0 is the third of the four display pixels of image column 5, and the second of image row 10.
  canvas.press({1, 2});
  canvas.move({14, 2});
  EXPECT_EQ(canvas.events.back(), "DispMeasureLine 5 10 9 10 0");
  EXPECT_EQ(canvas.shown()[1].substr(0, 20), "#################...");
  canvas.release({14, 2});
  EXPECT_EQ(canvas.picture()[10].substr(0, 12), ".....####...");
  EXPECT_EQ(canvas.shown()[1].substr(0, 20), "##############......");
}

TEST(RectangleTool, LandsWhereTheBandStood) {
  Banding canvas(7);
  canvas.press({5, 4});
  canvas.move({1, 2});
  EXPECT_EQ(canvas.events.back(), "DispMeasureRectangle 1 2 5 3");
  const Rows frame = {".......", ".......", ".#####.", ".#...#.", ".#####.", ".......", "......."};
  EXPECT_EQ(canvas.shown(), frame);
  canvas.release({1, 2});
  EXPECT_EQ(canvas.picture(), frame);
  canvas.core.setCanvasOp(8);
  canvas.drag({1, 1}, {5, 3}, kShift);
  EXPECT_PICTURE(canvas.picture(), {".......", ".###...", ".#####.", ".###.#.", ".#####.", ".......", "......."});
  canvas.core.settings.RectangleCornerShape = 1;
  canvas.press({1, 1});
  canvas.move({7, 5});  // one past the last column
  canvas.release({90, 2});
  EXPECT_PICTURE(canvas.picture(), {".......", ".#####.", ".######", ".######", ".######", "..####.", "......."});
  EXPECT_EQ(canvas.events.back(), "NotifyToPrepareUndo");
}

// Escape, another tool, another picture: nothing is drawn, nothing is told, nothing stays on the display.
TEST(BandTools, AnAbandonedGestureLeavesNothing) {
  const std::function<void(Banding&)> ways[] = {
      [](Banding& c) { EXPECT_TRUE(c.core.keyPress(CanvasKey::Escape, {})); },
      [](Banding& c) { c.core.setCanvasOp(18); },
      [](Banding& c) { c.core.dropFloating(); },
      [](Banding& c) { c.core.bitmaps.DIB = plainDib(7, 7, kWhite); },
  };
  for (const int op : {4, 7, 8}) {
    for (const auto& leave : ways) {
      Banding canvas(op);
      canvas.press({1, 1});
      canvas.move({4, 5});
      leave(canvas);
      canvas.core.CanvasPicPaint();
      canvas.clear();
      EXPECT_EQ(canvas.shown(), kNothing) << op;
      canvas.move({5, 5});
      canvas.release({5, 5});
      EXPECT_EQ(canvas.events, Events{}) << op;
      EXPECT_EQ(canvas.picture(), kNothing) << op;
      EXPECT_FALSE(canvas.core.keyPress(CanvasKey::Escape, {}));
    }
  }
}

}  // namespace
}  // namespace ruvo
