#include "canvas/engine/recorded_canvas.h"

namespace ruvo {
namespace {

using namespace test;

const KeyModifiers kShift{true, false, false}, kCtrl{false, true, false};

// A picture in editor mode with a region tool. Unless `picture` says so it is 40 x 30, white, with a black block of 3 x 3
// at (12, 12).
struct Selecting : RecordedCanvas {
  explicit Selecting(int op = 11, Size client = {100, 100}) : RecordedCanvas(client) {
    core.setCanvasScreenMode(1);
    show(dibOf(40, 30,
               [](int x, int y) { return Pixel32::plain(x >= 12 && x < 15 && y >= 12 && y < 15 ? kBlack : kWhite); }));
    core.setCanvasOp(op);
    core.settings.TransparentColor = kWhite;
    clear();
  }
  RegionEngine& region() { return core.region(); }
  Rect box() {
    int x1 = 0, y1 = 0, x2 = -1, y2 = -1;
    region().GetRegionData(x1, y1, x2, y2);
    return {x1, y1, x2 + 1, y2 + 1};
  }
  // Selects image pixels, first and last.
  void select(Point from, Point to) {
    const int m = core.settings.Magnify;
    const ViewGeometry& view = core.view();
    const Point a = view.toDisplay(from), b = view.toDisplay(to);
    drag({a.x + m / 2, a.y + m / 2}, {b.x + m / 2, b.y + m / 2});
    clear();
  }
  // The rows of the picture that are not white, cut to their box; "" when all is white.
  std::string blocks() {
    std::string found;
    const Rows rows = picture({{'.', kWhite}, {'#', kBlack}});
    for (std::size_t y = 0; y < rows.size(); ++y) {
      const auto first = rows[y].find_first_not_of('.');
      if (first == std::string::npos) continue;
      found += std::to_string(first) + "," + std::to_string(y) +
               rows[y].substr(first, rows[y].find_last_not_of('.') - first + 1) + " ";
    }
    return found;
  }
};

const char* const kBlock = "12,12### 12,13### 12,14### ";

TEST(Region, TheBandBecomesAMarqueeOfWholePixels) {
  for (const int magnify : {1, 4}) {
    Selecting canvas;
    canvas.core.settings.Magnify = magnify;
    canvas.core.CanvasResize();
    canvas.press({6 * magnify, 7 * magnify});
    canvas.move({2 * magnify, 3 * magnify});
    EXPECT_FALSE(canvas.region().HasRegion());
    EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "DispMeasureRectangle 2 3 5 5"}));
    canvas.release({2 * magnify, 3 * magnify});
    EXPECT_EQ(canvas.taken(), (Events{"DispMeasureRectangle 2 3 5 5", "NotifyRegionStatus"}));
    EXPECT_EQ(canvas.box(), (Rect{2, 3, 7, 8}));
    EXPECT_EQ(canvas.region().RegionRect(), (Rect{2 * magnify, 3 * magnify, 7 * magnify, 8 * magnify}));
    EXPECT_TRUE(canvas.ticking);
    EXPECT_FALSE(canvas.region().floats());
  }
}

TEST(Region, BandsOfOnePixelVanishKeysMakeSquaresAndThePictureHoldsThem) {
  Selecting canvas(12);
  canvas.drag({5, 5}, {5, 20});
  canvas.click({8, 8});
  EXPECT_FALSE(canvas.region().HasRegion());
  EXPECT_FALSE(canvas.ticking);
  canvas.clear();
  canvas.drag({20, 10}, {11, 14}, kShift);
  EXPECT_EQ(canvas.box(), (Rect{16, 10, 21, 15}));
  EXPECT_EQ(canvas.events.back(), "NotifyRegionStatus");
  EXPECT_EQ(canvas.events[1].substr(0, 15), "DispMeasureOval");
  canvas.core.keyPress(CanvasKey::Escape, {});
  canvas.press({30, 20});
  canvas.move({35, 25});
  canvas.release({400, -80});  // let go outside the window
  EXPECT_EQ(canvas.box(), (Rect{30, 0, 40, 21}));
}

TEST(Region, DraggingLiftsMovesAndStaysOnePixelInside) {
  Selecting canvas;
  canvas.select({10, 10}, {16, 16});
  const auto before = canvas.picture();
  canvas.press({13, 13});
  EXPECT_FALSE(canvas.region().floats());
  canvas.move({20, 15});
  EXPECT_TRUE(canvas.region().floats());
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NotifyRegionMoved", "DispMeasureRectangle 17 12 7 7"}));
  EXPECT_EQ(canvas.blocks(), "19,14### 19,15### 19,16### ");
  canvas.move({20, 15});
  EXPECT_EQ(canvas.taken(), Events{});
  canvas.move({39, 29});
  canvas.move({20, 15});
  canvas.release({20, 15});
  canvas.drag({20, 15}, {0, 0});
  EXPECT_EQ(canvas.box(), (Rect{-3, -3, 4, 4}));
  for (int i = 0; i < 9; ++i) canvas.core.keyPress(CanvasKey::Left, kShift);
  EXPECT_EQ(canvas.box(), (Rect{-6, -3, 1, 4}));
  EXPECT_EQ(canvas.blocks(), "");
  canvas.core.keyPress(CanvasKey::Escape, {});  // back to where it was lifted
  EXPECT_EQ(canvas.picture(), before);
  EXPECT_EQ(canvas.box(), (Rect{10, 10, 17, 17}));
  EXPECT_FALSE(canvas.region().floats());
}

TEST(Region, AMoveTouchesOnlyTheTwoBoxes) {
  Selecting canvas;
  canvas.select({2, 2}, {9, 9});
  canvas.press({5, 5});
  canvas.move({6, 5});
  // Marks on the picture that a whole restore would wipe.
  pixelAt(canvas.core.bitmaps.DIB, 30, 20) = pixelAt(canvas.core.bitmaps.DIB, 1, 2) = Pixel32::plain(rgb(9, 9, 9));
  canvas.clear();
  canvas.move({8, 6});
  EXPECT_EQ(pixelAt(canvas.core.bitmaps.DIB, 30, 20).red, 9);
  EXPECT_EQ(pixelAt(canvas.core.bitmaps.DIB, 1, 2).red, 9);
  const Point corner = canvas.control({3, 2});
  EXPECT_EQ(canvas.repaintedInAll(), Rect::fromSize(corner.x, corner.y, 10, 9));
}

TEST(Region, StepsFollowTheMagnificationAndTheScroll) {
  Selecting canvas;
  canvas.core.settings.Magnify = 4;
  canvas.core.CanvasResize();
  canvas.core.SetScrollValues(18, 6, true, true);
  canvas.select({10, 10}, {16, 16});
  EXPECT_EQ(canvas.box(), (Rect{10, 10, 17, 17}));
  const Point at = canvas.core.view().toDisplay(Point{13, 13});
  canvas.press(at);
  canvas.move({at.x + 3, at.y});  // still the same image pixel
  EXPECT_FALSE(canvas.region().floats());
  canvas.move({at.x + 9, at.y});
  EXPECT_EQ(canvas.box(), (Rect{12, 10, 19, 17}));
  canvas.release({at.x + 9, at.y});
  canvas.core.SetScrollValues(0, 0, true, true);
  EXPECT_EQ(canvas.region().RegionRect(), (Rect{48, 40, 76, 68}));
  EXPECT_EQ(canvas.blocks(), "14,12### 14,13### 14,14### ");
}

TEST(Region, OvalsLiftOnlyTheirEllipse) {
  Selecting canvas(12);
  clsDIB::ColorBackGroundDIB(canvas.core.bitmaps.DIB, kBlack);
  canvas.select({4, 4}, {7, 7});
  canvas.core.keyPress(CanvasKey::Right, kShift);
  canvas.core.keyPress(CanvasKey::Right, {});
  Rows hole, moved;
  for (const std::string& row : canvas.picture()) hole.push_back(row.substr(3, 6)), moved.push_back(row.substr(14, 6));
  EXPECT_PICTURE(Rows(hole.begin() + 3, hole.begin() + 9),
                 {"######", "##..##", "#....#", "#....#", "##..##", "######"});
  EXPECT_PICTURE(Rows(moved.begin() + 3, moved.begin() + 9),
                 {"######", "######", "######", "######", "######", "######"});
  EXPECT_TRUE(canvas.region().commit());
  // The corner of the box counts as outside: a press there ends the region.
  canvas.select({10, 10}, {29, 29});
  canvas.press({11, 11});
  EXPECT_EQ(canvas.events, (Events{"DispMeasureClear", "NotifyRegionStatus"}));
}

TEST(Region, CommitsTellOnceAndBareMarqueesJustGo) {
  const Events landed = {"NotifyToPrepareUndo", "NotifyRegionStatus"}, gone = {"NotifyRegionStatus"};
  const auto ended = [](const std::function<void(Selecting&)>& end, bool lift) {
    Selecting canvas;
    canvas.select({10, 10}, {16, 16});
    if (lift) canvas.core.keyPress(CanvasKey::Down, {});
    canvas.clear();
    end(canvas);
    EXPECT_FALSE(canvas.region().HasRegion());
    EXPECT_FALSE(canvas.ticking);
    EXPECT_EQ(canvas.blocks(), lift ? "12,13### 12,14### 12,15### " : kBlock);
    EXPECT_TRUE(canvas.core.bitmaps.DIBsnap.empty() && canvas.core.bitmaps.DIBregion.empty());
    auto events = canvas.taken();
    std::erase(events, "DispMeasureClear");
    return events;
  };
  const std::function<void(Selecting&)> ends[] = {
      [](Selecting& c) {
        c.click({30, 5});
      },
      [](Selecting& c) { c.core.setCanvasOp(12); },
      [](Selecting& c) { c.core.commitFloating(); },
  };
  for (const auto& end : ends) {
    EXPECT_EQ(ended(end, true), landed);
    EXPECT_EQ(ended(end, false), gone);
  }
}

TEST(Region, ShiftOrCtrlLeavesACopyAtTheFirstMove) {
  for (const KeyModifiers keys : {kShift, kCtrl}) {
    Selecting canvas;
    canvas.select({10, 10}, {16, 16});
    canvas.drag({13, 13}, {23, 13}, keys);
    EXPECT_EQ(canvas.blocks(), "12,12###.......### 12,13###.......### 12,14###.......### ");
    const auto before = canvas.picture();
    canvas.press({23, 13}, MouseButton::Left, keys);
    canvas.move({23, 16}, keys);
    canvas.move({23, 20}, keys);
    EXPECT_EQ(canvas.blocks().substr(canvas.blocks().find("22,19")), "22,19### 22,20### 22,21### ");
    EXPECT_EQ(canvas.picture()[13], before[13]);
    canvas.core.keyPress(CanvasKey::Escape, {});  // with the copy of this drag
    EXPECT_EQ(canvas.picture(), before);
    EXPECT_EQ(canvas.box(), (Rect{20, 10, 27, 17}));
    for (const bool leavesCopy : {false, true}) {
      if (leavesCopy) canvas.core.keyPress(CanvasKey::Down, {}), canvas.drag({13, 14}, {23, 13}, keys);
      canvas.clear();
      canvas.core.keyPress(CanvasKey::Escape, {});
      EXPECT_EQ(std::count(canvas.events.begin(), canvas.events.end(), "NotifyToPrepareUndo"), leavesCopy);
      // What an earlier drag has left behind stays.
      EXPECT_EQ(canvas.blocks(), kBlock + std::string(leavesCopy ? "12,15### " : ""));
    }
  }
}

TEST(Region, EscapeTakesBackStepByStep) {
  Selecting canvas;
  const auto before = canvas.picture();
  canvas.press({5, 5});
  canvas.move({9, 9});
  EXPECT_TRUE(canvas.core.keyPress(CanvasKey::Escape, {}));
  canvas.release({9, 9});
  EXPECT_FALSE(canvas.region().HasRegion());
  canvas.select({10, 10}, {29, 29});
  canvas.press({20, 10});  // an edge
  canvas.move({20, 6});
  EXPECT_EQ(canvas.box(), (Rect{10, 6, 30, 30}));
  canvas.core.keyPress(CanvasKey::Escape, {});
  EXPECT_EQ(canvas.box(), (Rect{10, 10, 30, 30}));
  for (const KeyModifiers keys : {KeyModifiers{}, kCtrl}) {
    canvas.press({20, 20}, MouseButton::Left, keys);
    canvas.move({25, 24}, keys);
    canvas.core.keyPress(CanvasKey::Escape, {});
    canvas.release({25, 24});
    EXPECT_EQ(canvas.picture(), before);
    EXPECT_EQ(canvas.box(), (Rect{10, 10, 30, 30}));
    EXPECT_FALSE(canvas.region().floats());
  }
  EXPECT_TRUE(canvas.core.keyPress(CanvasKey::Escape, {}));
  EXPECT_FALSE(canvas.core.keyPress(CanvasKey::Escape, {}));
  EXPECT_FALSE(canvas.core.keyPress(CanvasKey::Left, {}));
}

TEST(Region, EdgesResizeAMarqueeThatWasNotLifted) {
  Selecting canvas;
  canvas.select({8, 5}, {31, 24});
  canvas.move({20, 24});
  EXPECT_EQ(canvas.cursor, CursorWord::SizeVertical);
  canvas.press({20, 24});
  canvas.move({20, 27});
  canvas.move({20, 10});  // too near: the last place holds
  EXPECT_EQ(canvas.taken().back(), "DispMeasureRectangle 8 5 24 23");
  canvas.release({20, 10});
  EXPECT_FALSE(canvas.region().floats());
  canvas.core.settings.SuspendRegionResizeByEdgeDragging = true;
  canvas.move({35, 24});
  EXPECT_EQ(canvas.cursor, CursorWord::Arrow);
  canvas.drag({20, 27}, {20, 28});
  EXPECT_TRUE(canvas.region().floats());
  EXPECT_EQ(canvas.cursor, CursorWord::RegionDrag);
}

struct Pasting : Selecting {
  // Three by two: red but for a white right column.
  explicit Pasting(PasteManner manner) {
    core.settings.TransparentColor = rgb(1, 2, 3);
    core.settings.Magnify = 2;
    core.setCanvasOp(0);
    core.CanvasResize();
    clear();
    EXPECT_TRUE(core.startPaste(dibOf({"rr.", "r.."}, ink()), manner));
  }
  static const Ink& ink() {
    static const Ink inks = {
        {'r', rgb(200, 0, 0)}, {'.', kWhite}, {'#', kBlack}, {'m', rgb(100, 0, 0)}, {'g', rgb(128, 128, 128)}};
    return inks;
  }
  Rows corner() {
    Rows rows = picture(ink());
    rows.resize(4);
    for (std::string& row : rows) row.resize(5);
    return rows;
  }
};

TEST(RegionPaste, LandsInEveryManner) {
  const struct {
    PasteManner manner;
    Rows shown;
  } cases[] = {{{}, {"rr.##", "r..##", "#####", "#####"}},
               {{true, false, false, 100}, {"##.##", "#..##", "#####", "#####"}},
               {{false, true, false, 50}, {"mmg##", "mgg##", "#####", "#####"}},
               {{true, true, false, 50}, {"##g##", "#gg##", "#####", "#####"}}};
  for (const auto& c : cases) {
    Pasting canvas(c.manner);
    EXPECT_EQ(canvas.core.CanvasOp(), 11);
    EXPECT_TRUE(canvas.region().PasteOn() && !canvas.region().PasteOnText() && canvas.region().floats());
    EXPECT_EQ(canvas.core.settings.TransparentColor, c.manner.transparent ? rgb(200, 0, 0) : rgb(1, 2, 3));
    // On black, for what shines through to be seen.
    clsDIB::ColorBackGroundDIB(canvas.core.bitmaps.DIBsnap, kBlack);
    clsDIB::ColorBackGroundDIB(canvas.core.bitmaps.DIB, kBlack);
    canvas.region().UpdateRegionDragging();
    EXPECT_PICTURE(canvas.corner(), (c.shown));
    canvas.clear();
    canvas.region().setPasteOn(false);
    EXPECT_EQ(canvas.events[0], "NotifyToPrepareUndo");
    EXPECT_EQ(canvas.core.CanvasOp(), 18);
    EXPECT_EQ(canvas.core.settings.TransparentColor, rgb(1, 2, 3));
    EXPECT_PICTURE(canvas.corner(), (c.shown));
  }
}

TEST(RegionPaste, ASecondPasteCommitsTheFirstAndEscapeDropsIt) {
  Pasting canvas({true, false, false, 100});
  const auto before = canvas.picture();
  canvas.clear();
  EXPECT_TRUE(canvas.core.startPaste(dibOf({"##", "##"}), {}));
  EXPECT_EQ(canvas.events[0], "NotifyToPrepareUndo");
  EXPECT_EQ(std::count(canvas.events.begin(), canvas.events.end(), "NotifyToPrepareUndo"), 1);
  canvas.core.keyPress(CanvasKey::Down, kShift);
  EXPECT_TRUE(canvas.core.keyPress(CanvasKey::Escape, {}));
  EXPECT_EQ(canvas.picture(), before);
  EXPECT_FALSE(canvas.region().HasRegion());
  EXPECT_EQ(canvas.core.settings.TransparentColor, rgb(1, 2, 3));
}

TEST(RegionPaste, TranslucentIsFlatWhileItMovesAndBlendsWhenItStops) {
  const auto seen = [](Pasting& canvas) { return canvas.picture(Pasting::ink())[5][5]; };
  const std::function<void(Pasting&)> stops[] = {
      [](Pasting& c) { c.core.tick(), c.core.tick(); },
      [](Pasting& c) {
        c.release({10, 10});
      },
      [](Pasting& c) {
        c.move({-20, 10});
      },
      [](Pasting& c) { c.core.mouseLeave(); },
      [](Pasting& c) { c.core.commitFloating(); },
  };
  for (const auto& stop : stops) {
    Pasting canvas({false, true, false, 50});
    clsDIB::ColorBackGroundDIB(canvas.core.bitmaps.DIBsnap, kBlack);
    clsDIB::ColorBackGroundDIB(canvas.core.bitmaps.DIB, kBlack);
    canvas.press({0, 0});
    canvas.move({8, 8});
    canvas.move({10, 10});
    EXPECT_EQ(seen(canvas), 'r');
    EXPECT_TRUE(canvas.region().TranslucencyPending());
    stop(canvas);
    EXPECT_EQ(seen(canvas), 'm');
    EXPECT_FALSE(canvas.region().TranslucencyPending());
  }
}

TEST(RegionPaste, RightClicksAskForTheMenuOfATextOrCentreTheView) {
  Pasting canvas({false, false, true, 100});
  canvas.clear();
  canvas.click({1, 1}, MouseButton::Right);
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NotifyRightClickOnPastedText"}));
  EXPECT_FALSE(canvas.core.held());
  canvas.click({50, 40}, MouseButton::Right);
  EXPECT_TRUE(canvas.region().PasteOnText());

  Selecting wide(11, {40, 40});
  wide.select({10, 8}, {25, 20});
  wide.press({15, 15}, MouseButton::Right, kCtrl);
  EXPECT_EQ(wide.core.view().ScrollX, 18 - wide.core.view().displaySize().width / 2);
  EXPECT_EQ(wide.core.view().ScrollY,
            std::min(wide.core.view().ScrollMaxY, 14 - wide.core.view().displaySize().height / 2));
}

TEST(RegionCommands, CopyAndErase) {
  for (const bool lifted : {false, true}) {
    for (const int op : {11, 12}) {
      Selecting canvas(op);
      clsDIB::ColorBackGroundDIB(canvas.core.bitmaps.DIB, kBlack);
      canvas.select({10, 10}, {13, 13});
      if (lifted) canvas.core.keyPress(CanvasKey::Up, kShift);
      clsDIB copy;
      EXPECT_TRUE(canvas.region().copy(copy));
      const Rows shape = op == 11 ? Rows{"####", "####", "####", "####"} : Rows{".##.", "####", "####", ".##."};
      EXPECT_PICTURE(rowsOf(copy), (shape));
      EXPECT_TRUE(canvas.region().erase());
      EXPECT_FALSE(canvas.region().HasRegion());
      EXPECT_FALSE(canvas.region().copy(copy));
      for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x) EXPECT_NE(canvas.picture()[10 + y][10 + x], shape[y][x]);
      }
      EXPECT_EQ(canvas.picture()[0], std::string(40, '#'));
    }
  }
  Pasting paste({});
  const auto before = paste.picture();
  EXPECT_FALSE(paste.region().erase());
  EXPECT_EQ(paste.blocks(), kBlock);
}

// Flags that a host sets on what floats; the mask follows, and a pending blend is no longer one when it is switched off.
TEST(RegionCommands, FlagsComposeAnew) {
  Selecting canvas;
  canvas.select({10, 10}, {16, 16});
  canvas.region().PrepareRegionDragging();
  EXPECT_EQ(canvas.blocks(), kBlock);
  EXPECT_TRUE(canvas.core.bitmaps.DIBmask.empty());
  canvas.core.settings.TransparentColor = kBlack;
  canvas.region().setFlags({true, false, false, 100});
  EXPECT_EQ(canvas.blocks(), "");
  canvas.region().setFlags({true, true, false, 100});  // translucent: only TranslucentTransparent counts
  EXPECT_EQ(canvas.blocks(), kBlock);
  canvas.region().setFlags({true, true, true, 100});
  EXPECT_EQ(canvas.blocks(), "");
}

TEST(Region, AntsMarchButNotWhileTheButtonIsHeldOrWhenSuspended) {
  Selecting canvas;
  canvas.select({10, 10}, {29, 27});
  const auto shown = [&] { return rowsOf(canvas.seen()); };
  const Rows first = shown();
  canvas.core.tick();
  EXPECT_NE(shown(), first);
  canvas.core.tick();
  EXPECT_EQ(shown(), first);
  canvas.press({20, 20});
  canvas.core.tick();
  EXPECT_EQ(shown(), first);
  canvas.release({20, 20});
  canvas.region().setSuspendAntsMarching(true);
  EXPECT_FALSE(canvas.ticking);
  EXPECT_NE(shown(), first);
  canvas.region().setSuspendAntsMarching(false);
  EXPECT_TRUE(canvas.ticking);
}

TEST(Region, AnotherPictureEndsItWithoutATrace) {
  for (const bool drag : {false, true}) {
    Selecting canvas;
    canvas.press({10, 10});
    canvas.move({16, 16});
    if (drag) {
      canvas.release({16, 16});
      canvas.press({13, 13});
      canvas.move({20, 13});
    }
    canvas.core.bitmaps.DIB = dibOf({"...", "..."});
    if (drag) canvas.core.CanvasPicPaint();
    canvas.clear();
    canvas.move({1, 1});
    canvas.release({1, 1});
    EXPECT_EQ(canvas.events, Events{});
    EXPECT_FALSE(canvas.region().HasRegion());
    EXPECT_PICTURE(canvas.picture(), {"...", "..."});
    canvas.core.CanvasCleanse();
    EXPECT_TRUE(canvas.core.bitmaps.DIBregion.empty());
  }
}

TEST(Region, LiftedPixelsKeepTheirAlpha) {
  Selecting canvas;
  clsDIB see = dibOf(20, 20, [](int, int) { return Pixel32{10, 20, 30, 100}; });
  see.setDIBhasAlpha(true);
  canvas.show(std::move(see));
  canvas.select({2, 2}, {5, 5});
  canvas.core.keyPress(CanvasKey::Right, kShift);
  const clsDIB& dib = canvas.core.bitmaps.DIB;
  EXPECT_EQ(pixelAt(dib, 12, 2), (Pixel32{10, 20, 30, 100}));
  EXPECT_EQ(pixelAt(dib, 2, 2), Pixel32::opaque(kWhite));
  canvas.core.commitFloating();
  EXPECT_TRUE(canvas.core.startPaste(dibOf({"#"}), {}));
  EXPECT_EQ(pixelAt(dib, 0, 0), Pixel32::opaque(kBlack));
}

}  // namespace
}  // namespace ruvo
