#include "canvas/engine/recorded_canvas.h"
#include "canvas/engine/shape_polygon.h"

namespace ruvo {
namespace {

using namespace test;

const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'x', rgb(9, 9, 9)}};
const KeyModifiers kNoKeys;

struct Polygons : RecordedCanvas {
  explicit Polygons(int operation, int side = 7) : RecordedCanvas(side, side) {
    core.settings.ColorToUse = kBlack;
    core.settings.TransparentColor = rgb(9, 9, 9);
    core.settings.BrushSize = 1;
    core.settings.PolygonOperationType = operation;
    core.setCanvasOp(kPolygonOp);
    clear();
  }
  // The corners by the left button, the last one by the right.
  void draw(std::vector<Point> corners) {
    for (std::size_t i = 0; i + 1 < corners.size(); ++i) click(corners[i]);
    click(corners.back(), MouseButton::Right);
  }
  bool inProgress() const { return core.toolInProgress(kPolygonOp); }
  Events eventsButMeasures() {
    std::erase(events, "DispMeasureClear");
    return taken();
  }
};

const std::vector<Point> kSquare = {{1, 1}, {5, 1}, {5, 5}, {1, 5}};
const Rows kOutline = {".......", ".#####.", ".#...#.", ".#...#.", ".#...#.", ".#####.", "......."};
const Rows kFilled = {".......", ".####..", ".####..", ".####..", ".####..", ".......", "......."};
const Rows kBlank(7, ".......");

TEST(PolygonTool, EachOperationActsOnceWhenTheFigureIsClosed) {
  for (int operation = 0; operation < 9; ++operation) {
    Polygons canvas(operation);
    canvas.draw(kSquare);
    const bool crops = operation >= 6, copies = operation >= 3 && !crops;
    EXPECT_EQ(canvas.eventsButMeasures(), Events{crops ? "NotifyPolygonCrop" : "NotifyToPrepareUndo"}) << operation;
    EXPECT_FALSE(canvas.inProgress() || !canvas.core.bitmaps.DIBregion.empty());
    Rows drawn = operation % 3 == 0 ? kOutline : kFilled;
    if (operation % 3 == 2) {
      for (std::string& row : drawn) std::replace(row.begin(), row.end(), '#', 'x');
    }
    EXPECT_PICTURE(canvas.picture(kInk), (crops ? kBlank : drawn)) << operation;
    EXPECT_EQ(canvas.clipboard.empty(), !copies) << operation;
    EXPECT_EQ(canvas.cutOut.empty(), !crops) << operation;
    if (operation < 3) continue;
    const Rows cut = rowsOf(copies ? canvas.clipboard : canvas.cutOut, kInk);
    const Rows expected[] = {{"#####", "#...#", "#...#", "#...#", "#####"},
                             {"####x", "####x", "####x", "####x", "xxxxx"},
                             {"xxxxx", "xxxxx", "xxxxx", "xxxxx", "xxxxx"}};
    EXPECT_EQ(cut, expected[operation % 3]) << operation;
  }
}

TEST(PolygonTool, ThePictureIsTheSameUntilThen) {
  Polygons canvas(1);
  canvas.press({1, 1});
  EXPECT_TRUE(canvas.inProgress());
  canvas.move({5, 1});
  canvas.release({5, 1});  // the button was held for the first edge
  canvas.move({5, 5});
  EXPECT_PICTURE(rowsOf(canvas.seen()), {".......", ".####..", ".....#.", ".....#.", ".....#.", ".....#.", "......."});
  EXPECT_PICTURE(canvas.picture(), (kBlank));
  canvas.move({0, 5});
  EXPECT_PICTURE(rowsOf(canvas.seen()), {".......", ".#####.", ".......", ".......", ".......", ".......", "......."});
  canvas.click({5, 5});
  canvas.click({5, 5});  // the same place again is no vertex
  canvas.press({3, 3}, MouseButton::Right);
  EXPECT_TRUE(canvas.inProgress());
  canvas.release({1, 5}, MouseButton::Right);
  EXPECT_PICTURE(canvas.picture(), (kFilled));
  canvas.click({3, 3}, MouseButton::Right);  // nothing to close
  EXPECT_EQ(canvas.eventsButMeasures(), Events{"NotifyToPrepareUndo"});
}

TEST(PolygonTool, AnAbandonedFigureLeavesNothing) {
  const std::vector<std::function<void(Polygons&)>> ways = {
      [](Polygons& c) { EXPECT_TRUE(c.core.keyPress(CanvasKey::Escape, kNoKeys)); },
      [](Polygons& c) { c.core.setCanvasOp(4); },
      [](Polygons& c) { c.core.setPolygonDrawMethod(0); },
      [](Polygons& c) { c.core.SetScrollValues(0, 0, false, false); },
      [](Polygons& c) { c.core.finishStroke(); },
  };
  for (const auto& leave : ways) {
    Polygons canvas(0);
    canvas.click({1, 1});
    canvas.press({5, 1});
    canvas.move({5, 3});
    leave(canvas);
    EXPECT_FALSE(canvas.inProgress());
    canvas.release({5, 5}, MouseButton::Left);
    canvas.click({5, 5}, MouseButton::Right);
    EXPECT_EQ(canvas.core.keyPress(CanvasKey::Escape, kNoKeys), false);
    EXPECT_PICTURE(canvas.picture(), (kBlank));
    EXPECT_PICTURE(rowsOf(canvas.seen()), (kBlank));
    const Events events = canvas.eventsButMeasures();
    EXPECT_EQ(std::count(events.begin(), events.end(), "NotifyToPrepareUndo"), 0);
  }
}

TEST(PolygonTool, AFigureDoesNotGoOnInAnotherPicture) {
  Polygons canvas(0);
  canvas.click({1, 1});
  canvas.click({5, 1});
  canvas.core.bitmaps.DIB = plainDib(8, 3, kWhite);
  canvas.core.CanvasPicPaint();
  EXPECT_PICTURE(rowsOf(canvas.seen()), {"........", "........", "........"});
  canvas.click({5, 2}, MouseButton::Right);
  EXPECT_FALSE(canvas.inProgress());
  canvas.click({0, 0});
  canvas.draw({{0, 2}, {0, 1}});
  EXPECT_PICTURE(canvas.picture(), {"#.......", "#.......", "#......."});
}

TEST(PolygonTool, VerticesMayLieOutsideAndAreAThousandAtMost) {
  Polygons canvas(1, 60);
  canvas.press({0, 50});
  canvas.release({-30, 50});
  // To and fro in one row: they add nothing to the figure.
  for (std::size_t i = 2; i < shape::kMaxPolygonVertices; ++i) canvas.click({i % 2 ? 5 : 0, 50});
  canvas.click({5, 10});
  canvas.draw({{5, 20}});
  EXPECT_EQ(canvas.eventsButMeasures(), Events{}) << "closed without the two that found no room: no inside";
  canvas.press({0, 0});
  canvas.release({-30, 0});
  for (const Point outside : {Point{-30, 90}, {59, 90}}) {
    canvas.press({9, 9});
    canvas.release(outside);
  }
  canvas.draw({{3, 0}});
  EXPECT_EQ(canvas.picture()[59], std::string(40, '#') + std::string(20, '.'));
}

TEST(PolygonTool, FiguresOfOnePointOrNoInside) {
  Polygons point(0);
  point.draw({{3, 3}, {3, 3}});
  EXPECT_EQ(point.picture()[3], "...#...");
  for (const int operation : {1, 4, 7}) {
    Polygons canvas(operation);
    canvas.draw({{3, 3}, {3, 3}});
    canvas.draw({{1, 1}, {5, 5}});
    EXPECT_PICTURE(canvas.picture(), (kBlank));
    EXPECT_EQ(canvas.eventsButMeasures(), Events{}) << "nothing changed, and nothing of it went anywhere";
    EXPECT_TRUE(canvas.clipboard.empty());
  }
}

TEST(PolygonTool, TheAutomaticFigureStandsAtThePress) {
  Polygons canvas(3, 40);
  canvas.core.settings.Magnify = 4;
  canvas.core.settings.PolygonNumPoints = 4;
  canvas.core.settings.PolygonRadius = 6;
  canvas.core.settings.PolygonAngle = 45;
  canvas.core.setPolygonDrawMethod(1);
  canvas.core.CanvasResize();
  canvas.core.SetScrollValues(41, 20, true, true);
  canvas.clear();
  canvas.press({40, 40});
  EXPECT_EQ(canvas.eventsButMeasures(), Events{"NotifyToPrepareUndo"});
  canvas.move({60, 60});
  canvas.release({60, 60});
  canvas.click({10, 10}, MouseButton::Right);
  EXPECT_EQ(canvas.eventsButMeasures(), Events{});
  // Around (20, 15): corners four pixels away, right and bottom left out.
  int left = 0, top = 0, right = 0, bottom = 0;
  clsDIB::DIBNetPaintedArea(canvas.core.bitmaps.DIB, left, top, right, bottom, kWhite, false);
  EXPECT_EQ((Rect{left, 39 - bottom, right, 39 - top}), (Rect{16, 11, 23, 18}));
  EXPECT_EQ(canvas.clipboard.size(), (Size{20, 20}));
  EXPECT_EQ(pixelAt(canvas.clipboard, 10, 10).colour(), kWhite);
}

}  // namespace
}  // namespace ruvo
