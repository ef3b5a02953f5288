#include "canvas/engine/recorded_canvas.h"
#include "support/steady_random.h"

namespace ruvo {
namespace {

using namespace test;

const Events kStroke = {"DispMeasureClear", "NotifyToPrepareUndo"};

// A white picture with a tool that draws in black with one pixel.
struct Drawing : RecordedCanvas {
  explicit Drawing(int op, int side = 5) : RecordedCanvas(side, side) {
    core.settings.ColorToUse = kBlack;
    core.settings.BrushSize = 1;
    core.setCanvasOp(op);
    clear();
  }
};

TEST(Tools, PaintDrawsFromPressToReleaseAndTellsOnce) {
  Drawing canvas(0);
  canvas.press({1, 1});
  EXPECT_PICTURE(canvas.picture(), {".....", ".#...", ".....", ".....", "....."});
  canvas.move({3, 1});
  EXPECT_EQ(canvas.events, Events{"DispMeasureClear"});
  canvas.release({3, 1});
  EXPECT_PICTURE(canvas.picture(), {".....", ".###.", ".....", ".....", "....."});
  EXPECT_EQ(canvas.events, kStroke);
  canvas.move({3, 4});
  EXPECT_PICTURE(canvas.picture(), {".....", ".###.", ".....", ".....", "....."});
}

TEST(Tools, ShiftHoldsTheColumnAndCtrlTheRow) {
  for (const int style : {0, 6}) {
    Drawing canvas(0, 40);
    canvas.core.settings.BrushStyle = style;
    const auto cur = [&](KeyModifiers keys) {
      canvas.press({10, 10});
      canvas.move({20, 30}, keys);
      canvas.move({30, 30}, keys);
      canvas.release({30, 30});
      int left = 0, top = 0, right = 0, bottom = 0;
      clsDIB::DIBNetPaintedArea(canvas.core.bitmaps.DIB, left, top, right, bottom, kWhite, false);
      clsDIB::ColorBackGroundDIB(canvas.core.bitmaps.DIB, kWhite);
      return Point{right, 39 - top};  // memory rows run upwards
    };
    const Point free = cur({});
    const Point frozen = cur({true, true, false});
    EXPECT_EQ(cur({true, false, false}), (Point{frozen.x, free.y})) << style;
    EXPECT_EQ(cur({false, true, false}), (Point{free.x, frozen.y})) << style;
  }
}

TEST(Tools, AMoveRepaintsOnlyWhatChanged) {
  for (const int magnify : {1, 3}) {
    Drawing canvas(0, 400);
    canvas.core.settings.BrushStyle = 2;
    canvas.core.settings.BrushSize = 4;
    canvas.core.settings.Magnify = magnify;
    canvas.core.CanvasResize();
    canvas.press({30, 30});
    canvas.clear();
    canvas.move({36, 30});
    const Rect all = canvas.repaintedInAll();
    EXPECT_LE(all.width(), 6 + 8 * magnify);
    EXPECT_LE(all.height(), 8 * magnify);
    EXPECT_TRUE(all.contains(canvas.control({36, 30}).x, canvas.control({36, 30}).y));
  }
}

// The pen paints only where the view shows the picture; dabs are whole.
TEST(Tools, PensStayInTheViewDabsDoNot) {
  for (const int style : {0, 2}) {
    Drawing canvas(0, 200);
    canvas.core.settings.BrushSize = 9;
    canvas.core.settings.BrushStyle = style;
    const int last = canvas.core.view().displaySize().width - 1;
    canvas.click({last, 50});
    EXPECT_EQ(canvas.picture()[50][static_cast<std::size_t>(last)], '#');
    EXPECT_EQ(canvas.picture()[50][static_cast<std::size_t>(last + 1)], style == 0 ? '.' : '#');
  }
}

TEST(Tools, TheEraserPaintsInTheSeeThroughColour) {
  Drawing canvas(1);
  clsDIB::ColorBackGroundDIB(canvas.core.bitmaps.DIB, kBlack);
  canvas.core.settings.BrushStyle = 8;  // nothing to erase with: as style 0
  canvas.click({2, 0});
  EXPECT_PICTURE(canvas.picture(), {"##.##", "#####", "#####", "#####", "#####"});
  EXPECT_EQ(canvas.events, kStroke);
}

TEST(Tools, LeavingTheToolEndsTheStrokeAsIfReleased) {
  for (const int op : {0, 1, 14}) {
    Drawing canvas(op);
    canvas.press({2, 2});
    canvas.core.setCanvasOp(18);
    EXPECT_EQ(canvas.taken(), kStroke) << op;
    canvas.release({2, 2});
    EXPECT_EQ(canvas.events, Events{}) << op;
  }
}

// A host may take the picture away in the middle of a stroke (an undo by the keyboard).
TEST(Tools, AStrokeDoesNotGoOnInAnotherPicture) {
  for (const int op : {0, 1, 14}) {
    for (const int style : {0, 2}) {
      Drawing canvas(op);
      canvas.core.settings.BrushStyle = style;
      canvas.core.settings.TransparentColor = kBlack;
      canvas.press({2, 2});
      canvas.core.bitmaps.DIB = dibOf({"...", "..."});
      canvas.core.CanvasPicPaint();
      canvas.clear();
      canvas.move({1, 1});
      canvas.release({1, 1});
      EXPECT_EQ(canvas.events, Events{});
      EXPECT_PICTURE(canvas.picture(), {"...", "..."});
    }
  }
}

TEST(Tools, FillActsAtRelease) {
  Drawing canvas(2);
  canvas.core.bitmaps.DIB = dibOf({"..#", ".#.", "#.."});
  canvas.core.CanvasResize();
  canvas.clear();
  canvas.press({0, 0});
  EXPECT_PICTURE(canvas.picture(), {"..#", ".#.", "#.."});
  canvas.release({0, 0});
  EXPECT_PICTURE(canvas.picture(), {"###", "##.", "#.."});
  EXPECT_EQ(canvas.taken(), kStroke);
  canvas.core.settings.FillPattern = 9;
  canvas.click({2, 2});
  EXPECT_EQ(canvas.taken(), Events{"DispMeasureClear"});
  canvas.core.settings.FillPattern = 0;
  canvas.press({2, 2});
  canvas.release({60, 60});
  EXPECT_EQ(canvas.taken(), Events{"DispMeasureClear"});
  EXPECT_PICTURE(canvas.picture(), {"###", "##.", "#.."});
}

TEST(Tools, ReplaceActsOnTheWholePictureAndTellsEvenForNothing) {
  Drawing canvas(15);
  canvas.core.bitmaps.DIB = dibOf({".#x", "x#."}, {{'.', kWhite}, {'#', kBlack}, {'x', rgb(9, 9, 9)}});
  canvas.core.CanvasResize();
  canvas.clear();
  canvas.click({0, 0});
  EXPECT_PICTURE(canvas.picture(), {"##?", "?##"});
  EXPECT_EQ(canvas.taken(), kStroke);
  canvas.click({0, 0});
  EXPECT_EQ(canvas.taken(), kStroke);
  EXPECT_EQ(canvas.waits, 2);
  EXPECT_FALSE(canvas.core.Busy());
}

TEST(Tools, StampIsPutDownCentredAndSaysWhenThereIsNone) {
  Drawing canvas(13);
  canvas.click({2, 2});
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NoStamp"}));
  canvas.core.bitmaps.DIBStamp = dibOf({"###", "###"});
  canvas.core.bitmaps.DIBStampMask = dibOf({"#.#", ".#."});
  canvas.click({2, 2});
  EXPECT_EQ(canvas.taken(), kStroke);
  EXPECT_PICTURE(canvas.picture(), {".....", ".#.#.", "..#..", ".....", "....."});
}

TEST(Tools, SprayBurstsAtPressAndAtEachMove) {
  SteadyRandom dots(0.99);
  Drawing canvas(14, 60);
  canvas.core.setRandomSource(&dots);
  canvas.press({10, 10});
  canvas.move({40, 40});
  canvas.release({40, 40});
  EXPECT_EQ(dots.seeds, 2);
  EXPECT_EQ(canvas.picture()[10][10], '#');
  EXPECT_EQ(canvas.picture()[40][40], '#');
  EXPECT_EQ(canvas.picture()[25][25], '.');
  EXPECT_EQ(canvas.events, kStroke);
}

TEST(Tools, ThePickerTellsWhatIsSeen) {
  Drawing canvas(16);
  canvas.core.bitmaps.DIB = dibOf({"#."});
  canvas.core.settings.Magnify = 3;
  canvas.core.CanvasResize();
  canvas.clear();
  canvas.click({2, 2});
  canvas.click({3, 2}, MouseButton::Right);
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NotifyClickData 1 0 0 0", "NotifyClickData 2 16777215 1 0"}));
  canvas.core.bitmaps.DIB.setDIBhasAlpha(true);  // byte 3 is zero: nothing of the black is seen
  canvas.click({2, 2});
  EXPECT_EQ(canvas.taken().back(), "NotifyClickData 1 16777215 0 0");
}

}  // namespace
}  // namespace ruvo
