#include "canvas/engine/recorded_canvas.h"
#include "canvas/engine/shape_polygon.h"

namespace ruvo {
namespace {

using namespace test;

const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'x', rgb(9, 9, 9)}};

struct Polygons : RecordedCanvas {
  explicit Polygons(int operation, int side = 6) : RecordedCanvas(side, side) {
    core.settings.ColorToUse = kBlack;
    core.settings.TransparentColor = rgb(9, 9, 9);
    core.settings.BrushSize = 1;
    core.settings.PolygonOperationType = operation;
    core.setCanvasOp(kPolygonOp);
    clear();
  }
  // Vertices where the left button is let go, maybe outside the view, the last one where the right button is.
  Events draw(std::vector<Point> corners) {
    for (const Point& corner : corners) {
      const auto button = &corner == &corners.back() ? MouseButton::Right : MouseButton::Left;
      press({1, 1}, button);
      release(corner, button);
    }
    std::erase(events, "DispMeasureClear");
    return taken();
  }
};

const Rows kBlank(6, "......");

TEST(PolygonTool, EachOperationActsOnceWhenTheFigureIsClosed) {
  const Rows drawn[] = {{"......", ".####.", ".#..#.", ".#..#.", ".####.", "......"},
                        {"......", ".###..", ".###..", ".###..", "......", "......"},
                        {"......", ".xxx..", ".xxx..", ".xxx..", "......", "......"}};
  const Rows cut[] = {{"####", "#..#", "#..#", "####"}, {"###x", "###x", "###x", "xxxx"}, Rows(4, "xxxx")};
  for (int operation = 0; operation < 9; ++operation) {
    Polygons canvas(operation);
    const bool crops = operation >= 6, copies = operation >= 3 && !crops;
    EXPECT_EQ(canvas.draw({{4, 1}, {4, 4}, {1, 4}}), Events{crops ? "NotifyPolygonCrop" : "NotifyToPrepareUndo"})
        << operation;
    EXPECT_PICTURE(canvas.picture(kInk), (crops ? kBlank : drawn[operation % 3])) << operation;
    const Rows taken = copies || crops ? rowsOf(crops ? canvas.cutOut : canvas.clipboard, kInk) : cut[operation % 3];
    EXPECT_PICTURE(taken, (cut[operation % 3])) << operation;
    EXPECT_TRUE(canvas.core.bitmaps.DIBregion.empty() && canvas.clipboard.empty() == !copies) << operation;
    Polygons point(operation);
    EXPECT_EQ(point.draw({{1, 1}, {1, 1}}).empty(), operation % 3 != 0) << "nothing is inside";
  }
}

TEST(PolygonTool, UntilThenThePictureIsAsItWasAndTheFigureCanBeAbandoned) {
  const std::vector<std::function<void(Polygons&)>> ways = {
      [](Polygons& c) { EXPECT_TRUE(c.core.keyPress(CanvasKey::Escape, {})); },
      [](Polygons& c) { c.core.setCanvasOp(2); },
      [](Polygons& c) { c.core.setPolygonDrawMethod(0); },
      [](Polygons& c) { c.core.SetScrollValues(0, 0, false, false); },
      [](Polygons& c) { c.core.bitmaps.DIB = dibOf(kBlank), c.core.CanvasPicPaint(); },
  };
  for (const auto& leave : ways) {
    Polygons canvas(0);
    canvas.press({1, 1});
    canvas.release({4, 1});  // held for the first edge
    canvas.move({4, 4});
    EXPECT_PICTURE(rowsOf(canvas.seen()), {"......", ".###..", "....#.", "....#.", "....#.", "......"});
    canvas.press({4, 4});
    leave(canvas);
    canvas.release({4, 4});
    canvas.click({2, 4}, MouseButton::Right);
    EXPECT_PICTURE(rowsOf(canvas.seen()), (kBlank));
    EXPECT_FALSE(canvas.core.toolInProgress(kPolygonOp));
    EXPECT_EQ(std::count(canvas.events.begin(), canvas.events.end(), "NotifyToPrepareUndo"), 0);
  }
}

TEST(PolygonTool, VerticesMayLieOutsideAndAreAThousandAtMost) {
  Polygons canvas(1, 60);
  std::vector<Point> toAndFro(shape::kMaxPolygonVertices - 1, Point{1, 50});
  for (std::size_t i = 0; i < toAndFro.size(); i += 2) toAndFro[i].y = 10;
  toAndFro.insert(toAndFro.end(), {{20, 50}, {20, 10}});
  EXPECT_EQ(canvas.draw(toAndFro), Events{}) << "no room for what would make an inside";
  canvas.draw({{-30, 1}, {-30, 90}, {59, 90}, {4, 1}});
  EXPECT_EQ(canvas.picture()[59], std::string(40, '#') + std::string(20, '.'));
}

TEST(PolygonTool, TheAutomaticFigureStandsAroundThePressInAScrolledView) {
  Polygons canvas(3, 40);
  canvas.core.settings.Magnify = canvas.core.settings.PolygonNumPoints = 4;
  canvas.core.settings.PolygonRadius = 6;
  canvas.core.setPolygonDrawMethod(1);
  canvas.core.CanvasResize();
  canvas.core.SetScrollValues(41, 20, true, true);
  canvas.clear();
  canvas.press({40, 40});  // the pixel (20, 15)
  canvas.release({60, 60});
  canvas.click({10, 10}, MouseButton::Right);
  EXPECT_EQ(std::count(canvas.events.begin(), canvas.events.end(), "NotifyToPrepareUndo"), 1);
  const std::string aside(14, '.');
  EXPECT_EQ(canvas.picture()[15], aside + "##........##" + aside);
  EXPECT_EQ(rowsOf(canvas.clipboard, kInk)[10], "xxxx##........##xxxx");
}

}  // namespace
}  // namespace ruvo
