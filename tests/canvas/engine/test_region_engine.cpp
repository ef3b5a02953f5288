#include "canvas/engine/recorded_canvas.h"

namespace ruvo {
namespace {

using namespace test;

const KeyModifiers kShift{true, false, false}, kCtrl{false, true, false};
const Colour kDarkRed = rgb(200, 0, 0), kOther = rgb(1, 2, 3);
const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'r', kDarkRed}, {'m', rgb(100, 0, 0)}, {'g', rgb(128, 128, 128)}};
const char* const kBlock = "12,12### 12,13### 12,14### ";

// A white picture of 40 x 30 with a black block of 3 x 3 at (12, 12), and a region tool.
struct Selecting : RecordedCanvas {
  explicit Selecting(int op = 11, int magnify = 1) {
    core.settings.Magnify = magnify;
    showBlank(40, 30);
    raster::fillRect(core.bitmaps.DIB.surface(), {12, 12, 15, 15}, kBlack);
    core.setCanvasOp(op);
    clear();
  }
  RegionEngine& region() { return core.region(); }
  Rect box() {
    int x1 = 0, y1 = 0, x2 = -1, y2 = -1;
    region().GetRegionData(x1, y1, x2, y2);
    return {x1, y1, x2 + 1, y2 + 1};
  }
  void key(CanvasKey which, KeyModifiers keys = {}) { core.keyPress(which, keys); }
  // Selects image pixels, first and last.
  void select(Point from, Point to) {
    drag(core.view().toDisplay(from), core.view().toDisplay(to));
    clear();
  }
  void fill(Colour colour) {
    clsDIB::ColorBackGroundDIB(core.bitmaps.DIB, colour);
    if (!core.bitmaps.DIBsnap.empty()) clsDIB::ColorBackGroundDIB(core.bitmaps.DIBsnap, colour);
  }
  // What is not white of each row, with its place.
  std::string blocks() {
    std::string found;
    const Rows rows = picture();
    for (std::size_t y = 0; y < rows.size(); ++y) {
      const auto first = rows[y].find_first_not_of('.');
      if (first == std::string::npos) continue;
      const auto last = rows[y].find_last_not_of('.');
      found += std::to_string(first) + "," + std::to_string(y) + rows[y].substr(first, last - first + 1) + " ";
    }
    return found;
  }
  Rows part(const Rect& area) {
    Rows rows;
    for (int y = area.top; y < area.bottom; ++y) rows.push_back(picture(kInk)[y].substr(area.left, area.width()));
    return rows;
  }
};

TEST(Region, TheBandBecomesAMarqueeOfWholePixels) {
  for (const int m : {1, 4}) {
    Selecting canvas(11, m);
    canvas.press({6 * m, 7 * m});
    canvas.move({2 * m, 3 * m});
    EXPECT_FALSE(canvas.region().HasRegion());
    canvas.release({2 * m, 3 * m});
    EXPECT_EQ(canvas.events, (Events{"DispMeasureClear", "DispMeasureRectangle 2 3 5 5", "DispMeasureRectangle 2 3 5 5",
                                     "NotifyRegionStatus"}));
    EXPECT_EQ(canvas.region().RegionRect(), (Rect{2 * m, 3 * m, 7 * m, 8 * m}));
    EXPECT_TRUE(canvas.ticking && !canvas.region().floats());
  }
  Selecting canvas(12, 2);
  canvas.drag({5, 5}, {4, 40});  // one image pixel wide
  EXPECT_FALSE(canvas.region().HasRegion() || canvas.ticking);
  EXPECT_EQ(canvas.events.back(), "DispMeasureClear") << "no numbers of what does not stand";
  canvas.drag({40, 20}, {22, 28}, kShift);
  EXPECT_EQ(canvas.box(), (Rect{16, 10, 21, 15}));
  canvas.key(CanvasKey::Escape);
  canvas.press({60, 40});
  canvas.move({70, 50});
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
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NotifyRegionMoved", "DispMeasureRectangle 17 12 7 7"}));
  EXPECT_EQ(canvas.blocks(), "19,14### 19,15### 19,16### ");
  // Only the old and the new box are touched: marks beside them stay.
  Pixel32& mark = pixelAt(canvas.core.bitmaps.DIB, 16, 11);
  mark.red = 9;
  canvas.clear();
  canvas.move({22, 14});
  EXPECT_EQ(std::exchange(mark.red, 255), 9);
  const Point corner = canvas.control({17, 11});
  EXPECT_EQ(canvas.repaintedInAll(), Rect::fromSize(corner.x, corner.y, 9, 8));
  canvas.release({22, 14});
  for (int i = 0; i < 9; ++i) canvas.key(CanvasKey::Left, kShift);
  EXPECT_EQ(canvas.box(), (Rect{-6, 11, 1, 18}));
  EXPECT_EQ(canvas.blocks(), "");
  canvas.key(CanvasKey::Escape);
  EXPECT_EQ(canvas.picture(), before);
  EXPECT_TRUE(canvas.box() == Rect({10, 10, 17, 17}) && !canvas.region().floats());
}

TEST(Region, StepsFollowTheMagnificationAndTheScroll) {
  Selecting canvas(11, 4);
  canvas.core.SetScrollValues(18, 6, true, true);
  canvas.select({10, 10}, {16, 16});
  const Point at = canvas.core.view().toDisplay(Point{13, 13});
  canvas.press(at);
  canvas.move({at.x + 3, at.y});  // still the same image pixel
  EXPECT_FALSE(canvas.region().floats());
  canvas.move({at.x + 9, at.y});
  canvas.release({at.x + 9, at.y});
  canvas.core.SetScrollValues(0, 0, true, true);
  EXPECT_EQ(canvas.region().RegionRect(), (Rect{48, 40, 76, 68}));
  EXPECT_EQ(canvas.blocks(), "14,12### 14,13### 14,14### ");
}

TEST(Region, CommitsTellOnceAndBareMarqueesJustGo) {
  for (int end = 0; end < 8; ++end) {
    const bool lift = end >= 4;
    Selecting canvas(12);
    canvas.select({8, 8}, {28, 28});
    if (lift) canvas.key(CanvasKey::Down);
    canvas.clear();
    if (end % 4 == 0) canvas.click({30, 5});
    if (end % 4 == 1) canvas.click({8, 9});  // in the box, beside the oval
    if (end % 4 == 2) canvas.core.setCanvasOp(11);
    if (end % 4 == 3) canvas.core.commitFloating();
    std::erase(canvas.events, "DispMeasureClear");
    EXPECT_EQ(canvas.events,
              lift ? Events({"NotifyToPrepareUndo", "NotifyRegionStatus"}) : Events{"NotifyRegionStatus"});
    EXPECT_EQ(canvas.blocks(), lift ? "12,13### 12,14### 12,15### " : kBlock);
    EXPECT_FALSE(canvas.region().HasRegion() || canvas.ticking || !canvas.core.bitmaps.DIBsnap.empty());
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
    EXPECT_EQ(canvas.picture()[13], before[13]);
    EXPECT_NE(canvas.picture()[21], before[21]);
    canvas.key(CanvasKey::Escape);  // with the copy of this drag
    EXPECT_EQ(canvas.picture(), before);
    EXPECT_EQ(canvas.box(), (Rect{20, 10, 27, 17}));
    for (const bool leavesCopy : {false, true}) {  // at home it would change nothing; elsewhere it stays
      if (leavesCopy) canvas.key(CanvasKey::Down, kShift), canvas.drag({13, 23}, {23, 13}, keys);
      canvas.clear();
      canvas.key(CanvasKey::Escape);
      EXPECT_EQ(std::count(canvas.events.begin(), canvas.events.end(), "NotifyToPrepareUndo"), leavesCopy);
      EXPECT_EQ(canvas.blocks(), kBlock + std::string(leavesCopy ? "12,22### 12,23### 12,24### " : ""));
    }
  }
}

TEST(Region, EdgesResizeAndEscapeTakesBackStepByStep) {
  Selecting canvas;
  const auto before = canvas.picture();
  canvas.select({8, 5}, {31, 24});
  for (const bool abandoned : {true, false}) {
    canvas.move({20, 24});
    EXPECT_EQ(canvas.cursor, CursorWord::SizeVertical);
    canvas.press({20, 24});
    canvas.move({20, 27});
    canvas.move({20, 10});  // too near: the last place holds
    EXPECT_EQ(canvas.taken().back(), "DispMeasureRectangle 8 5 24 23");
    if (abandoned) canvas.key(CanvasKey::Escape);
    canvas.release({20, 10});
    EXPECT_EQ(canvas.box(), (Rect{8, 5, 32, abandoned ? 25 : 28}));
  }
  for (const KeyModifiers keys : {KeyModifiers{}, kCtrl}) {
    canvas.press({20, 15}, MouseButton::Left, keys);
    canvas.move({25, 24}, keys);
    EXPECT_TRUE(canvas.region().floats());
    canvas.key(CanvasKey::Escape);
    canvas.release({25, 24});
    EXPECT_EQ(canvas.picture(), before);
    EXPECT_TRUE(canvas.box() == Rect({8, 5, 32, 28}) && !canvas.region().floats());
  }
  canvas.core.settings.SuspendRegionResizeByEdgeDragging = true;
  canvas.move({35, 24});
  EXPECT_EQ(canvas.cursor, CursorWord::Arrow);
  canvas.move({20, 27});
  EXPECT_EQ(canvas.cursor, CursorWord::RegionDrag);
  EXPECT_TRUE(canvas.core.keyPress(CanvasKey::Escape, {}));
  EXPECT_FALSE(canvas.core.keyPress(CanvasKey::Escape, {}) || canvas.core.keyPress(CanvasKey::Left, {}));
}

// Three by two pixels on black: red, with white at the right.
struct Pasting : Selecting {
  explicit Pasting(PasteManner manner) : Selecting(18, 2) {
    core.settings.TransparentColor = kOther;
    EXPECT_TRUE(core.startPaste(dibOf({"rr.", "r.."}, kInk), manner));
    fill(kBlack);
    region().UpdateRegionDragging();
    clear();
  }
};

TEST(RegionPaste, LandsInEveryManner) {
  const struct {
    PasteManner manner;
    Rows shown;
  } cases[] = {{{}, {"rr.##", "r..##", "#####"}},
               {{true, false, false, 100}, {"##.##", "#..##", "#####"}},
               {{false, true, false, 50}, {"mmg##", "mgg##", "#####"}},
               {{true, true, false, 50}, {"##g##", "#gg##", "#####"}}};
  for (const auto& c : cases) {
    Pasting canvas(c.manner);
    EXPECT_TRUE(canvas.core.CanvasOp() == 11 && canvas.region().PasteOn() && !canvas.region().PasteOnText());
    EXPECT_EQ(canvas.core.settings.TransparentColor, c.manner.transparent ? kDarkRed : kOther);
    EXPECT_PICTURE(canvas.part({0, 0, 5, 3}), (c.shown));
    canvas.region().setPasteOn(false);
    EXPECT_TRUE(canvas.events[1] == "NotifyToPrepareUndo" && canvas.core.CanvasOp() == 18);
    EXPECT_EQ(canvas.core.settings.TransparentColor, kOther);
    EXPECT_PICTURE(canvas.part({0, 0, 5, 3}), (c.shown));
  }
  // When it is translucent, only TranslucentTransparent keeps the colour out.
  Pasting canvas({true, false, false, 100});
  canvas.region().setFlags({true, true, false, 100});
  EXPECT_PICTURE(canvas.part({0, 0, 3, 1}), {"rr."});
}

TEST(RegionPaste, ASecondPasteCommitsTheFirstAndEscapeDropsIt) {
  Pasting canvas({true, false, false, 100});
  const auto before = canvas.picture();
  EXPECT_TRUE(canvas.core.startPaste(dibOf({"##", "##"}), {}));
  EXPECT_EQ(std::count(canvas.events.begin(), canvas.events.end(), "NotifyToPrepareUndo"), 1);
  canvas.key(CanvasKey::Down, kShift);
  canvas.events.clear();
  canvas.key(CanvasKey::Escape);
  EXPECT_EQ(canvas.picture(), before);
  EXPECT_EQ(std::count(canvas.events.begin(), canvas.events.end(), "DispMeasureClear"), 1);
  EXPECT_TRUE(!canvas.region().HasRegion() && canvas.core.settings.TransparentColor == kOther);
}

TEST(RegionPaste, TranslucentIsFlatWhileItMovesAndBlendsWhenItStops) {
  for (int stop = 0; stop < 5; ++stop) {
    Pasting canvas({false, true, false, 50});
    canvas.press({0, 0});
    canvas.move({8, 8});
    canvas.move({10, 10});
    if (stop == 0) canvas.core.tick();  // it has moved since the last one
    EXPECT_PICTURE(canvas.part({5, 5, 8, 6}), {"rr."});
    if (stop == 0) canvas.core.tick();
    if (stop == 1) canvas.release({10, 10});
    if (stop == 2) canvas.move({-20, 10});
    if (stop == 3) canvas.core.mouseLeave();
    if (stop == 4) canvas.core.commitFloating();
    EXPECT_PICTURE(canvas.part({5, 5, 8, 6}), {"mmg"});
  }
}

// Three by one: dark red at full, half and no cover, on black.
struct PastingSoft : Pasting {
  explicit PastingSoft(bool translucent = false) : Pasting({}) {
    core.dropFloating();
    fill(kBlack);
    PasteManner manner{false, translucent, true, 50};
    manner.soft = true;
    EXPECT_TRUE(core.startPaste(letters({255, 128, 0}), manner));
  }
  static clsDIB letters(const std::vector<std::uint8_t>& cover) {
    clsDIB dib = dibOf(static_cast<int>(cover.size()), 1, [&](int x, int) { return Pixel32{0, 0, 200, cover[x]}; });
    dib.setDIBhasAlpha(true);
    return dib;
  }
  int red(int x, int y) const { return pixelAt(core.bitmaps.DIB, x, y).red; }
};

TEST(RegionPaste, ASoftOneKeepsItsEdgesWhereverItIsMovedAndTurned) {
  PastingSoft canvas;
  canvas.drag({0, 0}, {20, 10});
  EXPECT_EQ((std::array{canvas.red(0, 0), canvas.red(10, 5), canvas.red(11, 5), canvas.red(12, 5)}),
            (std::array{0, 200, 100, 0}));
  clsDIB copy;
  EXPECT_TRUE(canvas.region().copy(copy) && copy.DIBhasAlpha());
  EXPECT_EQ(pixelAt(copy, 1, 0), (Pixel32{0, 0, 200, 128}));
  EXPECT_EQ(pixelAt(copy, 2, 0), (Pixel32{0, 0, 200, 0})) << "no other colour comes in by its edges";
  // An effect that knows no alpha leaves the shape, another one may change it.
  for (const bool hasAlpha : {false, true}) {
    PastingSoft changed;
    clsDIB green = dibOf(3, 1, [](int x, int) {
      return Pixel32{0, 200, 0, static_cast<std::uint8_t>(x == 2 ? 255 : 0)};
    });
    green.setDIBhasAlpha(hasAlpha);
    EXPECT_TRUE(changed.region().replace(green));
    const auto at = [&](int x) { return static_cast<int>(pixelAt(changed.core.bitmaps.DIB, x, 0).green); };
    EXPECT_EQ((std::array{at(0), at(1), at(2)}), (hasAlpha ? std::array{0, 0, 200} : std::array{200, 100, 0}));
  }
  canvas.region().turn(3);  // upright, its first pixel on top
  EXPECT_EQ((std::array{canvas.red(11, 4), canvas.red(11, 5), canvas.red(11, 6)}), (std::array{200, 100, 0}));
  canvas.drag({22, 8}, {24, 8}, kCtrl);
  canvas.key(CanvasKey::Escape);
  EXPECT_EQ((std::array{canvas.red(11, 4), canvas.red(12, 4)}), (std::array{200, 0})) << "the copy stays";

  PastingSoft faint(true);
  EXPECT_EQ((std::array{faint.red(0, 0), faint.red(1, 0)}), (std::array{100, 50}));
  faint.clear();
  EXPECT_TRUE(faint.region().commit());
  EXPECT_EQ(std::count(faint.events.begin(), faint.events.end(), "NotifyToPrepareUndo"), 1);
  EXPECT_EQ(faint.red(0, 0), 100);
}

// The first pixel tells the turns apart, whichever way they were made.
TEST(RegionPaste, AnotherTakesItsPlaceWithItsTurns) {
  const struct {
    std::vector<int> turns;
    Point first;  // of four by one
  } cases[] = {{{}, {0, 0}},     {{0}, {3, 0}},    {{2}, {0, 3}},       {{3}, {0, 0}},
               {{2, 1}, {0, 0}}, {{0, 2}, {0, 0}}, {{3, 0, 3}, {3, 0}}, {{3, 3}, {3, 0}}};
  for (const auto& c : cases) {
    PastingSoft canvas;
    canvas.drag({0, 0}, {20, 20});
    for (const int kind : c.turns) canvas.region().turn(kind);
    const Rect before = canvas.box();
    canvas.clear();
    EXPECT_TRUE(canvas.region().replacePaste(PastingSoft::letters({255, 128, 128, 128})));
    const Rect box = canvas.box();
    EXPECT_TRUE(box.left == before.left && box.top == before.top && box.width() * box.height() == 4);
    EXPECT_EQ(canvas.red(box.left + c.first.x, box.top + c.first.y), 200) << testing::PrintToString(c.turns);
    EXPECT_EQ(std::count(canvas.events.begin(), canvas.events.end(), "NotifyToPrepareUndo"), 0);
    canvas.key(CanvasKey::Escape);
    EXPECT_FALSE(canvas.region().replacePaste(PastingSoft::letters({255})));
    EXPECT_EQ(canvas.red(box.left + c.first.x, box.top + c.first.y), 0);
  }
}

TEST(RegionPaste, RightClicksAskForTheMenuOfATextOrCentreTheView) {
  Pasting canvas({false, false, true, 100});
  canvas.click({1, 1}, MouseButton::Right);
  EXPECT_EQ(canvas.taken(), (Events{"DispMeasureClear", "NotifyRightClickOnPastedText"}));
  EXPECT_FALSE(canvas.core.held());
  canvas.click({50, 40}, MouseButton::Right);
  EXPECT_TRUE(canvas.region().PasteOnText());

  Selecting wide(11, 8);
  wide.select({2, 3}, {9, 9});
  wide.press({40, 40}, MouseButton::Right, kCtrl);
  EXPECT_EQ(wide.core.view().ScrollY, (3 + 10) * 4 - wide.core.view().displaySize().height / 2);
}

TEST(RegionCommands, TurnsAndFlipsLiftAndEscapeTakesThemBack) {
  const char* const shown[] = {"11,12### 11,13### 12,14### ", "12,11### 12,12### 12,14### ",
                               "12,11## 12,12## 12,13## 14,14# ", "11,12## 11,13## 11,14##.# ", kBlock};
  for (int kind = 0; kind <= 4; ++kind) {
    Selecting canvas;
    canvas.select({11, 11}, {14, 13});
    EXPECT_EQ(canvas.region().turn(kind), kind < 4);
    EXPECT_EQ(canvas.blocks(), shown[kind]);
    EXPECT_EQ(canvas.box(), (kind == 2 || kind == 3 ? Rect{11, 11, 14, 15} : Rect{11, 11, 15, 14}));
    if (kind == 2) canvas.region().turn(kind);
    if (kind < 4) canvas.key(CanvasKey::Escape);
    EXPECT_TRUE(canvas.blocks() == kBlock && canvas.box() == Rect({11, 11, 15, 14}) && !canvas.region().floats());
  }
  Selecting rim;
  rim.select({0, 10}, {19, 11});
  rim.region().turn(0);
  for (int i = 0; i < 2; ++i) rim.key(CanvasKey::Left, kShift);
  rim.region().turn(3);
  EXPECT_EQ(rim.box(), (Rect{-1, 1, 1, 21})) << "a pixel of it stays inside";
  // An oval of 4 x 7 is not one of 7 x 4 that was turned: the mask turns with the pixels.
  Selecting oval(12);
  oval.fill(kBlack);
  oval.select({10, 10}, {16, 13});
  clsDIB before, after;
  oval.region().copy(before);
  clsDIB::RotateDIB(before, 3);
  oval.region().turn(3);
  EXPECT_TRUE(oval.region().copy(after));
  EXPECT_EQ(rowsOf(after), rowsOf(before));
}

TEST(RegionCommands, CopyAndErase) {
  for (const bool lifted : {false, true}) {
    for (const int op : {11, 12}) {
      Selecting canvas(op);
      canvas.fill(kBlack);
      canvas.select({10, 10}, {13, 13});
      if (lifted) canvas.key(CanvasKey::Up, kShift);
      clsDIB copy;
      EXPECT_TRUE(canvas.region().copy(copy));
      const char* const rim = op == 11 ? "####" : ".##.";
      const Rows shape = {rim, "####", "####", rim};
      EXPECT_PICTURE(rowsOf(copy), (shape));
      EXPECT_TRUE(canvas.region().erase());
      EXPECT_FALSE(canvas.region().HasRegion() || canvas.region().copy(copy));
      for (int i = 0; i < 16; ++i) EXPECT_NE(canvas.picture()[10 + i / 4][10 + i % 4], shape[i / 4][i % 4]);
    }
  }
  EXPECT_FALSE(Pasting({}).region().erase());
}

TEST(Region, AntsMarchButNotWhileTheButtonIsHeldOrWhenSuspended) {
  Selecting canvas;
  canvas.select({10, 10}, {29, 27});
  const Rows first = rowsOf(canvas.seen());
  canvas.core.tick();
  EXPECT_NE(rowsOf(canvas.seen()), first);
  canvas.core.tick();
  canvas.press({20, 20});
  canvas.core.tick();
  EXPECT_EQ(rowsOf(canvas.seen()), first);
  canvas.region().setSuspendAntsMarching(true);
  EXPECT_TRUE(!canvas.ticking && rowsOf(canvas.seen()) != first);
}

TEST(Region, AnotherPictureEndsItWithoutATrace) {
  for (const bool drag : {false, true}) {
    Selecting canvas;
    if (drag) canvas.select({10, 10}, {16, 16});
    canvas.press({13, 13});
    canvas.move({20, 13});
    canvas.core.bitmaps.DIB = dibOf({"...", "..."});
    if (drag) canvas.core.CanvasPicPaint();
    canvas.clear();
    canvas.move({1, 1});
    canvas.release({1, 1});
    EXPECT_EQ(canvas.events, Events{});
    EXPECT_FALSE(canvas.region().HasRegion() || !canvas.core.bitmaps.DIBregion.empty());
    EXPECT_PICTURE(canvas.picture(), {"...", "..."});
  }
}

TEST(Region, LiftedPixelsKeepTheirAlpha) {
  Selecting canvas;
  clsDIB see = dibOf(20, 20, [](int, int) { return Pixel32{10, 20, 30, 100}; });
  see.setDIBhasAlpha(true);
  canvas.show(std::move(see));
  canvas.select({2, 2}, {5, 5});
  canvas.key(CanvasKey::Right, kShift);
  const clsDIB& dib = canvas.core.bitmaps.DIB;
  EXPECT_EQ(pixelAt(dib, 12, 2), (Pixel32{10, 20, 30, 100}));
  EXPECT_EQ(pixelAt(dib, 2, 2), Pixel32::opaque(kWhite));
  EXPECT_TRUE(canvas.core.startPaste(dibOf({"#"}), {}));
  EXPECT_EQ(pixelAt(dib, 0, 0), Pixel32::opaque(kBlack));
}

}  // namespace
}  // namespace ruvo
