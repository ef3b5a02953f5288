#include "canvas/engine/recorded_canvas.h"

namespace ruvo {
namespace {

using namespace test;

constexpr auto kRight = MouseButton::Right;

TEST(CanvasCore, ABlankCanvasIgnoresTheMouse) {
  RecordedCanvas canvas;
  canvas.core.CanvasResize();
  for (int op = 0; op <= kScrollOp; ++op) {
    canvas.core.setCanvasOp(op);
    canvas.clear();
    canvas.core.mousePress({50, 50}, MouseButton::Left, {});
    canvas.core.mouseMove({55, 55}, {});
    canvas.core.mouseRelease({55, 55}, MouseButton::Left, {});
    canvas.core.edgePress(CanvasEdge::Right, {50, 50});
    EXPECT_EQ(canvas.events, Events{}) << op;
  }
  EXPECT_EQ(canvas.core.view().ScrollMaxX, 0);
}

TEST(CanvasCore, WritingTheSameToolDoesNothingButForEighteen) {
  for (const int op : {0, 18}) {
    RecordedCanvas canvas(20, 20);
    canvas.core.setCanvasOp(op);
    EXPECT_EQ(canvas.cursor, op == 0 ? CursorWord::Paint : CursorWord::Arrow);
    canvas.clear();
    canvas.core.setCanvasOp(op);
    canvas.core.setCanvasOp(19);
    EXPECT_EQ(canvas.repainted.empty(), op == 0);
  }
}

TEST(CanvasCore, RightPressesReachOnlySomeTools) {
  RecordedCanvas canvas(20, 20);
  for (int op = 0; op < kScrollOp; ++op) {
    canvas.core.setCanvasOp(op);
    canvas.clear();
    canvas.click({5, 5}, kRight);
    const bool reaches = op == 3 || op == 6 || op == 17;
    if (op == 16) {
      EXPECT_EQ(canvas.events, Events{"NotifyClickData 2 16777215 5 5"});
    } else {
      EXPECT_EQ(canvas.events, reaches ? Events{"DispMeasureClear"} : Events{}) << op;
    }
  }
}

TEST(CanvasCore, OnlyTheButtonWhosePressWasTakenEndsAStroke) {
  RecordedCanvas canvas(20, 20);
  canvas.core.setCanvasOp(14);
  canvas.press({5, 5});
  EXPECT_TRUE(canvas.core.held());
  canvas.click({5, 5}, kRight);
  EXPECT_TRUE(canvas.core.held());
  canvas.release({5, 5});
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NotifyToPrepareUndo"}));
  canvas.release({5, 5});
  EXPECT_EQ(canvas.events, Events{});
  // A command that comes between ends it where the pointer was last.
  canvas.press({5, 5});
  canvas.move({9, 5});
  canvas.move({900, 5});
  canvas.core.letGo();
  canvas.core.letGo();
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NotifyToPrepareUndo"}));
  EXPECT_FALSE(canvas.core.held());
}

TEST(CanvasCore, ClicksOnTheBackgroundAndLeavingThePicture) {
  RecordedCanvas canvas(20, 20);
  canvas.click({-10, -10});
  EXPECT_EQ(canvas.taken(), Events{});
  canvas.core.settings.ToNotifyCanvasMouseClick = true;
  canvas.core.settings.ToNotifyCanvasMouseMove = true;
  canvas.core.settings.ToMonitorXYdata = true;
  canvas.click({-10, -10});
  canvas.move({3, 4});
  canvas.move({-10, 4});
  canvas.move({-11, 4});
  EXPECT_EQ(canvas.taken(), (Events{"NotifyCanvasMouseClick", "MonitorXYdata 3 4", "NotifyCanvasMouseMove"}));
}

TEST(CanvasCore, CleansingGoesBackToBlank) {
  RecordedCanvas canvas(300, 300);
  canvas.core.setCanvasOp(0);
  canvas.core.settings.Magnify = 4;
  canvas.core.CanvasResize();
  canvas.core.SetScrollValues(9, 9, true, true);
  canvas.press({5, 5});
  canvas.clear();
  canvas.core.CanvasCleanse();
  EXPECT_EQ(canvas.taken(), (Events{"NotifyScroll", "DispMeasureClear"}));
  EXPECT_TRUE(canvas.core.blank());
  EXPECT_EQ(canvas.core.CanvasOp(), kScrollOp);
  EXPECT_EQ(canvas.core.settings.Magnify, 1);
  EXPECT_EQ(canvas.core.view().ScrollMaxX, 0);
  EXPECT_FALSE(canvas.core.held());
}

TEST(CanvasCore, TheHandDragsThePictureAndStopsAtItsEnds) {
  RecordedCanvas canvas(150, 300);
  canvas.move({50, 50});
  EXPECT_EQ(canvas.cursor, CursorWord::HandOff);
  canvas.move({0, 50});
  EXPECT_EQ(canvas.cursor, CursorWord::Arrow);
  canvas.press({50, 50});
  EXPECT_EQ(canvas.cursor, CursorWord::HandOn);
  const auto scroll = [&] { return Point{canvas.core.view().ScrollX, canvas.core.view().ScrollY}; };
  canvas.move({40, 30});
  EXPECT_EQ(scroll(), (Point{10, 20}));
  canvas.clear();
  canvas.move({40, 30});
  EXPECT_EQ(canvas.events, Events{});
  canvas.move({80, 80});
  EXPECT_EQ(scroll(), (Point{0, 0}));
  canvas.release({80, 80});
  canvas.core.settings.HandScrollEnabled = false;
  canvas.press({50, 50});
  canvas.move({40, 40});
  EXPECT_EQ(scroll(), (Point{0, 0}));
}

TEST(CanvasCore, RightClicksInScrollModeTellThePoint) {
  RecordedCanvas canvas(20, 20);
  canvas.click({4, 3}, kRight);
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "DispPointOfClick 4 3 16777215"}));
  canvas.core.settings.ToReportRightClickDataInScrollMode = true;
  canvas.click({4, 3}, kRight);
  EXPECT_EQ(canvas.taken().back(), "NotifyClickData 2 16777215 4 3");
}

TEST(CanvasCore, CrossHairFollowsTheFreePointerAndIsWiped) {
  RecordedCanvas canvas;
  canvas.show(dibOf({"...", "...", "..."}));
  canvas.core.settings.TurnOnXYlines = true;
  const auto shown = [&] {
    std::vector<Pixel32> pixels(9);
    canvas.core.render({0, 0, 3, 3}, {reinterpret_cast<std::uint8_t*>(pixels.data()), 12});
    std::string text;
    for (const Pixel32 p : pixels) text += p.colour() == kBlack ? '#' : '.';
    return text;
  };
  canvas.core.setCanvasOp(2);
  canvas.move({1, 0});
  EXPECT_EQ(shown(), ".........");
  canvas.core.setCanvasOp(0);
  canvas.move({1, 0});
  EXPECT_EQ(shown(), "###.#..#.");
  canvas.clear();
  canvas.move({2, 2});
  EXPECT_EQ(shown(), "..#..####");
  EXPECT_EQ(canvas.repaintedInAll(), canvas.core.view().picDisp);
  canvas.move({-8, 2});
  EXPECT_EQ(shown(), ".........");
}

TEST(CanvasCore, PixelReadoutOfFillAndReplace) {
  RecordedCanvas canvas;
  canvas.show(dibOf({".#"}, {{'.', kWhite}, {'#', rgb(1, 2, 3)}}));
  canvas.core.setToShowPixelRGB(true);
  canvas.core.setCanvasOp(0);
  canvas.move({1, 0});
  EXPECT_EQ(canvas.toolTip, "");
  canvas.core.setCanvasOp(15);
  canvas.move({1, 0});
  EXPECT_EQ(canvas.toolTip, "RGB(1, 2, 3)");
  canvas.core.setToShowPixelRGB(false);
  EXPECT_EQ(canvas.toolTip, "");
}

TEST(CanvasCore, DroppedNamesNeedAnAllowedExtension) {
  RecordedCanvas canvas;
  canvas.core.settings.FileExtAllowed = "bmp/jpg/jpeg";
  for (const char* name : {"a.BMP", "photo.jpeg", "two.dots.jpg"}) EXPECT_TRUE(canvas.core.dropAllowed(name)) << name;
  for (const char* name : {".bmp", "bmp", "a.txt", "noext", "name.", ""})
    EXPECT_FALSE(canvas.core.dropAllowed(name)) << name;
}

TEST(CanvasCore, FittingKeepsSmallPicturesUnlessAskedOtherwise) {
  RecordedCanvas canvas(Size{102, 102});
  canvas.show(dibOf({"....", "...."}));
  canvas.core.settings.FitInView = true;
  canvas.core.CanvasResize();
  EXPECT_EQ(canvas.core.view().picDisp, Rect::fromSize(49, 50, 4, 2));
  canvas.core.settings.FitInEvenIfSmaller = true;
  canvas.core.CanvasResize();
  EXPECT_EQ(canvas.core.view().picDisp, Rect::fromSize(1, 26, 100, 50));
  EXPECT_FALSE(canvas.core.edgeHandlesShown());
}

// --- Edge dragging

// Presses at 50, 50 and lets go after the travel.
void dragEdge(RecordedCanvas& canvas, CanvasEdge edge, Point travel) {
  canvas.core.edgePress(edge, {50, 50});
  canvas.core.edgeMove({50 + travel.x, 50 + travel.y});
  canvas.core.edgeRelease();
}

TEST(CanvasEdges, HandlesShowOnlyWhereADragMakesSense) {
  const auto shown = [](const std::function<void(RecordedCanvas&)>& change) {
    RecordedCanvas canvas(6, 5);
    change(canvas);
    canvas.core.CanvasResize();
    return canvas.core.edgeHandlesShown();
  };
  EXPECT_TRUE(shown([](RecordedCanvas&) {}));
  EXPECT_FALSE(shown([](RecordedCanvas& c) { c.showBlank(5, 5); }));
  EXPECT_FALSE(shown([](RecordedCanvas& c) { c.core.setCanvasOp(0); }));
  EXPECT_FALSE(shown([](RecordedCanvas& c) { c.core.setSuspendCanvasResizeByEdgeDragging(true); }));
  EXPECT_FALSE(shown([](RecordedCanvas& c) { c.core.settings.Magnify = 2; }));
  EXPECT_FALSE(shown([](RecordedCanvas& c) { c.core.setCanvasScreenMode(0); }));
  EXPECT_FALSE(shown([](RecordedCanvas& c) { c.showBlank(200, 20); }));
}

TEST(CanvasEdges, TheOppositeEdgeStaysWhereItIs) {
  struct EdgeCase {
    CanvasEdge edge;
    Point travel;
    Size size;
    Point blackAt;  // where the picture's own top left pixel is afterwards
  };
  for (const EdgeCase& c :
       {EdgeCase{CanvasEdge::Right, {5, 9}, {25, 20}, {0, 0}}, EdgeCase{CanvasEdge::Bottom, {9, -3}, {20, 17}, {0, 0}},
        EdgeCase{CanvasEdge::Left, {-5, 0}, {25, 20}, {5, 0}}, EdgeCase{CanvasEdge::Top, {0, -4}, {20, 24}, {0, 4}}}) {
    RecordedCanvas canvas(20, 20);
    pixelAt(canvas.core.bitmaps.DIB, 0, 0) = Pixel32::plain(kBlack);
    dragEdge(canvas, c.edge, c.travel);
    const std::string proforma = "NotifyDragResizeProforma ";
    EXPECT_EQ(canvas.events,
              (Events{proforma + "20 20", proforma + std::to_string(c.size.width) + ' ' + std::to_string(c.size.height),
                      "NotifyDragResize 1"}));
    EXPECT_EQ(canvas.core.bitmaps.DIB.size(), c.size);
    EXPECT_EQ(canvas.picture()[c.blackAt.y][c.blackAt.x], '#');
    EXPECT_EQ(canvas.picture()[0][19], '.');
  }
}

TEST(CanvasEdges, TooSmallAnExtentIsRefusedAtEachStep) {
  RecordedCanvas canvas(20, 20);
  canvas.core.edgePress(CanvasEdge::Right, {50, 50});
  canvas.core.edgeMove({46, 50});
  canvas.core.edgeMove({45, 50});
  EXPECT_EQ(canvas.core.edgeDrag().size(), (Size{16, 20}));
  canvas.core.edgeRelease();
  EXPECT_EQ(canvas.core.bitmaps.DIB.size(), (Size{16, 20}));
  canvas.clear();
  canvas.core.edgePress(CanvasEdge::Left, {50, 50});
  canvas.core.edgeRelease();
  EXPECT_EQ(canvas.events.back(), "NotifyDragResize 0");
}

TEST(CanvasEdges, NewGroundOfATransparentPictureIsOpaqueWhite) {
  RecordedCanvas canvas(20, 20);
  canvas.core.bitmaps.DIB.setDIBhasAlpha(true);
  dragEdge(canvas, CanvasEdge::Bottom, {0, 1});
  const clsDIB& dib = canvas.core.bitmaps.DIB;
  EXPECT_TRUE(dib.DIBhasAlpha());
  EXPECT_EQ(pixelAt(dib, 0, 20), Pixel32::opaque(kWhite));
  EXPECT_EQ(pixelAt(dib, 0, 19), Pixel32::plain(kWhite));
}

}  // namespace
}  // namespace ruvo
