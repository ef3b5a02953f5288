#include "canvas/tools/shape_canvas.h"

namespace ruvo {
namespace {

using namespace test;

TEST(OvalTool, LandsWhereTheBandStoodAndMeasuresItsBox) {
  ShapeCanvas canvas(9);
  canvas.press({6, 5});
  canvas.move({1, 1});
  EXPECT_EQ(canvas.events.back(), "DispMeasureOval 1 1 2.75 6 5");
  EXPECT_PICTURE(canvas.shown(), {".......", "..####.", ".#....#", ".#....#", ".#....#", "..####.", "......."});
  EXPECT_EQ(canvas.picture(), kNothing);
  canvas.release({1, 1});
  EXPECT_EQ(canvas.taken().back(), "NotifyToPrepareUndo");
  EXPECT_EQ(canvas.picture(), canvas.shown());
  canvas.core.setCanvasOp(10);
  canvas.drag({0, 0}, {2, 6}, kShift);
  EXPECT_PICTURE(canvas.picture(), {".#.....", "######.", ".#....#", ".#....#", ".#....#", "..####.", "......."});
  // A press without a move is no oval.
  canvas.clear();
  canvas.click({6, 0});
  EXPECT_EQ(canvas.events, Events{"DispMeasureClear"});
}

TEST(OvalTool, SoftEdgesNeedBothTheEnhancementAndTheLeaveToSmooth) {
  for (const int op : {9, 10}) {
    for (const bool allowed : {false, true}) {
      ShapeCanvas canvas(op, 20);
      canvas.core.settings.OvalEnhancement = 1;
      canvas.core.settings.AllowAntialiasing = allowed;
      canvas.drag({0, 0}, {19, 19});
      EXPECT_EQ(clsDIB::CountColorsDIB(canvas.core.bitmaps.DIB) > 2, allowed);
    }
  }
}

TEST(ArcTool, ThreePressesAndTheLastOneDrags) {
  ShapeCanvas canvas(5, 40);
  canvas.click({5, 20});
  canvas.move({30, 30});
  EXPECT_EQ(canvas.shown()[20].substr(0, 9), "...#####.");  // a marker, and no more
  canvas.click({20, 5});
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "DispMeasureClear"}));
  EXPECT_EQ(canvas.inked(), 0);
  canvas.press({30, 10});
  canvas.move({35, 20});
  EXPECT_EQ(canvas.events.back(), "DispMeasureArc 5 20 35 20 20 20 15");
  EXPECT_EQ(canvas.inked(), 0);
  EXPECT_EQ(canvas.shown()[9][10], '#');
  canvas.release({35, 20});
  EXPECT_EQ(canvas.events.back(), "NotifyToPrepareUndo");
  const Rows rows = canvas.picture();
  for (const Point& p : {Point{5, 20}, {20, 5}, {35, 20}}) EXPECT_EQ(rows[p.y][p.x], '#');
  EXPECT_EQ(rows[35], std::string(40, '.'));
  EXPECT_EQ(canvas.shown(), rows);
}

TEST(ArcTool, ShiftJoinsTheEndsByALineThatMayBeSoft) {
  for (const bool allowed : {false, true}) {
    ShapeCanvas canvas(5, 40);
    canvas.core.settings.AllowAntialiasing = allowed;
    canvas.click({5, 20});
    canvas.click({20, 5});
    canvas.press({34, 10});
    canvas.move({35, 21});
    canvas.release({35, 21}, MouseButton::Left, kShift);
    EXPECT_EQ(canvas.picture()[20][15], '#');
    EXPECT_EQ(clsDIB::CountColorsDIB(canvas.core.bitmaps.DIB) > 2, allowed);
  }
}

TEST(ArcTool, PointsOnALineAreForgotten) {
  ShapeCanvas canvas(5);
  for (const int x : {1, 3, 5}) canvas.click({x, x});
  EXPECT_EQ(canvas.taken(), Events(3, "DispMeasureClear"));
  EXPECT_FALSE(canvas.inProgress());
  EXPECT_EQ(canvas.shown(), kNothing);
}

// A curve of 40 pixels along row 10 that is still open; its nodes stand at columns 10, 23, 36 and 50.
struct OpenCurve : ShapeCanvas {
  OpenCurve() : ShapeCanvas(kBezierOp, 80) {
    drag({10, 10}, {24, 23});  // too short
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(taken(), Events{"DispMeasureClear"});
    EXPECT_EQ(inked(), 0);
    drag({10, 10}, {50, 10});
    EXPECT_EQ(taken(), (Events{"DispMeasureClear", "NotifyBezierStatus"}));
    EXPECT_EQ(inked(), 40);
  }
};

TEST(BezierTool, NodesBendTheCurveUntilTheRightButtonFixesIt) {
  OpenCurve canvas;
  EXPECT_TRUE(canvas.inProgress());
  EXPECT_EQ(canvas.cursor, CursorWord::Bezier);
  canvas.drag({24, 11}, {24, 51});
  const Rows bent = canvas.picture();
  EXPECT_EQ(std::count(bent[10].begin(), bent[10].end(), '#'), 2);
  EXPECT_NE(canvas.shown(), bent);  // the nodes
  canvas.core.settings.ColorToUse = rgb(255, 0, 0);
  canvas.drag({40, 60}, {50, 70});  // no node there
  EXPECT_EQ(canvas.picture(), bent);
  canvas.drag({24, 51}, {24, 11});
  EXPECT_EQ(canvas.inked(), 40);
  EXPECT_EQ(canvas.picture()[10][20], '?');
  canvas.clear();
  canvas.click({40, 40}, MouseButton::Right);
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NotifyBezierStatus", "NotifyToPrepareUndo"}));
  EXPECT_FALSE(canvas.inProgress());
  EXPECT_EQ(canvas.shown(), canvas.picture());
  EXPECT_TRUE(canvas.core.bitmaps.DIBsnap.empty());
  canvas.click({40, 40}, MouseButton::Right);
  EXPECT_EQ(canvas.events, Events{"DispMeasureClear"});
}

TEST(BezierTool, OfNodesThatLieOnEachOtherTheUppermostIsTaken) {
  OpenCurve canvas;
  canvas.drag({23, 10}, {36, 10});
  canvas.drag({36, 10}, {36, 60});
  // The third node went: the curve leaves its start along the row, and comes to its end from below.
  const Rows rows = canvas.picture();
  EXPECT_EQ(rows[10].find_last_of('#'), 12U);
}

TEST(BezierTool, NodesFollowTheViewAndTheCurveStays) {
  ShapeCanvas canvas(kBezierOp, 80, 4);
  canvas.drag({2, 10}, {83, 10});
  canvas.core.SetScrollValues(22, 9, true, true);
  EXPECT_TRUE(canvas.inProgress());
  // The last node, image point (20, 2), is now half out of the view.
  canvas.drag({59, 1}, {59, 41});
  EXPECT_EQ(canvas.picture()[2][19], '.');
  EXPECT_EQ(canvas.picture()[11][19], '#');
}

TEST(BezierTool, AbandonedInAnyWayItLeavesThePictureAsItWas) {
  const std::function<void(CanvasCore&)> ways[] = {
      [](CanvasCore& core) { EXPECT_TRUE(core.keyPress(CanvasKey::Escape, {})); },
      [](CanvasCore& core) { core.setCanvasOp(kScrollOp); },
      [](CanvasCore& core) { core.finishStroke(); },
      [](CanvasCore& core) { core.commitFloating(); },
  };
  for (const auto& leave : ways) {
    for (const bool held : {false, true}) {
      OpenCurve canvas;
      if (held) {
        canvas.press({10, 10});
        canvas.move({30, 60});
      }
      canvas.clear();
      leave(canvas.core);
      EXPECT_EQ(canvas.events, Events{"NotifyBezierStatus"});
      EXPECT_FALSE(canvas.inProgress());
      EXPECT_EQ(canvas.inked(), 0);
      EXPECT_EQ(canvas.shown(), canvas.picture());
      EXPECT_TRUE(canvas.core.bitmaps.DIBsnap.empty());
    }
  }
}

// Escape, another tool, another picture: no trace of a band or an arc, or of the line that a curve begins with.
TEST(ShapeTools, AnUnfinishedFigureLeavesNothing) {
  const std::function<void(CanvasCore&)> ways[] = {
      [](CanvasCore& core) { EXPECT_TRUE(core.keyPress(CanvasKey::Escape, {})); },
      [](CanvasCore& core) { core.setCanvasOp(kScrollOp); },
      [](CanvasCore& core) { core.dropFloating(); },
      [](CanvasCore& core) { core.bitmaps.DIB = plainDib(7, 7, kWhite); },
  };
  for (const int op : {4, 5, kBezierOp, 8, 9}) {
    for (const auto& leave : ways) {
      ShapeCanvas canvas(op, 40);
      if (op == 5) {
        canvas.click({1, 1});
        canvas.click({9, 3});
      }
      canvas.press({2, 2});
      canvas.move({38, 30});
      leave(canvas.core);
      canvas.core.CanvasPicPaint();
      canvas.clear();
      EXPECT_EQ(canvas.shown(), canvas.picture());
      canvas.move({35, 35});
      canvas.release({35, 35});
      EXPECT_EQ(canvas.events, Events{}) << op;
      EXPECT_EQ(canvas.inked(), 0);
      EXPECT_FALSE(canvas.inProgress());
    }
  }
}

// A host puts another picture in place while a curve is open: the new one is not painted over with the old.
TEST(BezierTool, AnOpenCurveDoesNotFollowIntoAnotherPicture) {
  OpenCurve canvas;
  canvas.press({23, 10});
  canvas.core.bitmaps.DIB = plainDib(80, 70, kWhite);
  canvas.core.CanvasPicPaint();
  canvas.move({23, 60});
  canvas.release({23, 60});
  canvas.click({5, 5}, MouseButton::Right);
  EXPECT_EQ(canvas.inked(), 0);
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NotifyBezierStatus", "DispMeasureClear"}));
}

}  // namespace
}  // namespace ruvo
