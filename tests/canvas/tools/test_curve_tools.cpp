#include "canvas/tools/shape_canvas.h"

namespace ruvo {
namespace {

using namespace test;

TEST(OvalTool, LandsWhereTheBandStoodAndMeasuresItsBox) {
  ShapeCanvas canvas(9, 7);
  canvas.press({6, 5});
  canvas.move({1, 1});
  EXPECT_EQ(canvas.events.back(), "DispMeasureOval 1 1 2.75 6 5");
  EXPECT_PICTURE(canvas.shown(), {".......", "..####.", ".#....#", ".#....#", ".#....#", "..####.", "......."});
  EXPECT_EQ(canvas.inked(), 0);
  canvas.release({1, 1});
  EXPECT_EQ(canvas.taken().back(), "NotifyToPrepareUndo");
  EXPECT_EQ(canvas.picture(), canvas.shown());
  canvas.core.setCanvasOp(10);
  canvas.drag({0, 0}, {2, 6}, kShift);
  EXPECT_PICTURE(canvas.picture(), {".#.....", "######.", ".#....#", ".#....#", ".#....#", "..####.", "......."});
  canvas.clear();
  canvas.click({6, 0});  // no move, no oval
  EXPECT_EQ(canvas.events, Events{"DispMeasureClear"});
}

TEST(ArcTool, ThreePressesAndTheLastOneDrags) {
  ShapeCanvas canvas(5, 40);
  for (const int x : {1, 3, 5}) canvas.click({x, x});  // on a line: forgotten
  EXPECT_FALSE(canvas.inProgress());
  canvas.click({5, 20});
  canvas.move({30, 30});
  EXPECT_EQ(canvas.shown()[20].substr(0, 9), "...#####.");  // a marker, and no more
  canvas.click({20, 5});
  EXPECT_EQ(canvas.taken(), Events(5, "DispMeasureClear"));
  canvas.press({30, 10});
  canvas.move({35, 20});
  EXPECT_EQ(canvas.events.back(), "DispMeasureArc 5 20 35 20 20 20 15");
  EXPECT_EQ(canvas.shown()[9][10], '#');
  EXPECT_EQ(canvas.inked(), 0);
  canvas.release({35, 20});
  EXPECT_EQ(canvas.events.back(), "NotifyToPrepareUndo");
  EXPECT_EQ(canvas.picture()[9][10], '#');
  EXPECT_EQ(canvas.shown(), canvas.picture());
}

TEST(CurveTools, SoftEdgesNeedTheLeaveToSmooth) {
  for (const int op : {5, 9, 10}) {
    ShapeCanvas canvas(op, 40);
    canvas.core.settings.OvalEnhancement = 1;
    for (const bool allowed : {false, true}) {
      canvas.core.settings.AllowAntialiasing = allowed;
      // The third of them makes an arc; its chord comes by the key, even at the last moment.
      for (const Point& p : {Point{5, 20}, {20, 5}, {6, 6}}) {
        canvas.press(p);
        canvas.move({35, 35});
        canvas.release({35, 35}, MouseButton::Left, kShift);
      }
      EXPECT_EQ(clsDIB::CountColorsDIB(canvas.core.bitmaps.DIB) > 2, allowed) << op;
    }
  }
}

// A curve of 40 pixels along row 10 that is still open; its nodes stand at columns 10, 23, 36 and 50.
struct OpenCurve : ShapeCanvas {
  OpenCurve() : ShapeCanvas(kBezierOp, 80) {
    drag({10, 10}, {24, 23});  // too short
    EXPECT_FALSE(inProgress());
    drag({10, 10}, {50, 10});
    EXPECT_EQ(taken(), (Events{"DispMeasureClear", "DispMeasureClear", "NotifyBezierStatus"}));
    EXPECT_EQ(picture()[10], std::string(80, '.').replace(10, 40, 40, '#'));
  }
};

TEST(BezierTool, NodesBendTheCurveUntilTheRightButtonFixesIt) {
  OpenCurve canvas;
  EXPECT_EQ(canvas.cursor, CursorWord::Bezier);
  const Rows straight = canvas.picture();
  canvas.drag({24, 11}, {24, 51});
  const Rows bent = canvas.picture();
  EXPECT_EQ(std::count(bent[10].begin(), bent[10].end(), '#'), 2);
  EXPECT_NE(canvas.shown(), bent);  // the nodes
  canvas.core.settings.ColorToUse = rgb(255, 0, 0);
  canvas.drag({40, 60}, {50, 70});  // no node there
  EXPECT_EQ(canvas.picture(), bent);
  canvas.drag({24, 51}, {24, 11});
  EXPECT_EQ(canvas.picture({{'.', kWhite}, {'#', rgb(255, 0, 0)}}), straight);
  canvas.clear();
  for (int i = 0; i < 2; ++i) canvas.click({40, 40}, MouseButton::Right);
  EXPECT_EQ(canvas.events,
            (Events{"DispMeasureClear", "NotifyBezierStatus", "NotifyToPrepareUndo", "DispMeasureClear"}));
  EXPECT_EQ(canvas.shown(), canvas.picture());
  EXPECT_TRUE(canvas.core.bitmaps.DIBsnap.empty());
}

TEST(BezierTool, TheUppermostNodeIsTakenAndNodesFollowTheView) {
  OpenCurve below;
  below.drag({23, 10}, {36, 10});
  below.drag({36, 10}, {36, 60});
  // The third node went: the curve leaves its start along the row, and comes to its end from below.
  EXPECT_EQ(below.picture()[10].substr(10), std::string(70, '.').replace(0, 3, 3, '#'));

  ShapeCanvas scrolled(kBezierOp, 80, 4);
  scrolled.drag({2, 10}, {83, 10});
  scrolled.core.SetScrollValues(22, 9, true, true);
  scrolled.drag({59, 1}, {59, 41});  // the last node, image point (20, 2)
  EXPECT_TRUE(scrolled.inProgress());
  EXPECT_EQ(scrolled.picture()[2][19], '.');
  EXPECT_EQ(scrolled.picture()[11][19], '#');
}

// Escape, another tool, a command, another picture.
const std::function<void(CanvasCore&)> kWaysOut[] = {
    [](CanvasCore& core) { EXPECT_TRUE(core.keyPress(CanvasKey::Escape, {})); },
    [](CanvasCore& core) { core.setCanvasOp(kScrollOp); },
    [](CanvasCore& core) { core.commitFloating(); },
    [](CanvasCore& core) { core.bitmaps.DIB = plainDib(80, 79, kWhite); },
};

void expectNoTrace(ShapeCanvas& canvas) {
  canvas.core.CanvasPicPaint();
  canvas.clear();
  EXPECT_EQ(canvas.shown(), canvas.picture());
  canvas.move({35, 35});
  canvas.release({35, 35});
  EXPECT_EQ(std::count(canvas.events.begin(), canvas.events.end(), "NotifyToPrepareUndo"), 0);
  EXPECT_EQ(canvas.inked(), 0);
  EXPECT_FALSE(canvas.inProgress());
  EXPECT_TRUE(canvas.core.bitmaps.DIBsnap.empty());
}

TEST(CurveTools, AnUnfinishedFigureLeavesNothing) {
  for (const auto& leave : kWaysOut) {
    ShapeCanvas arc(5, 80), line(kBezierOp, 80);
    OpenCurve curve;
    for (const Point& p : {Point{1, 1}, {9, 3}}) arc.click(p);
    for (ShapeCanvas* canvas : {&arc, &line, static_cast<ShapeCanvas*>(&curve)}) {
      canvas->press({23, 10});
      canvas->move({38, 30});
      leave(canvas->core);
      expectNoTrace(*canvas);
    }
  }
}

}  // namespace
}  // namespace ruvo
