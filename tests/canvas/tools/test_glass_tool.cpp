#include "canvas/engine/glass_lens.h"
#include "canvas/engine/recorded_canvas.h"

namespace ruvo {
namespace {

using namespace test;

constexpr int kHalf = glass::kSide / 2;

// A view of 400 x 300 with the lens out.
struct Glass : RecordedCanvas {
  explicit Glass(Size image = {900, 700}) : RecordedCanvas(Size{414, 314}) {
    core.setCanvasScreenMode(1);
    show(dibOf(image.width, image.height, [](int x, int y) {
      return Pixel32{static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), static_cast<std::uint8_t>(x / 3), 0};
    }));
    core.setCanvasOp(17);
    clear();
  }
  std::vector<std::uint8_t> bytes() const {
    const auto all = core.bitmaps.DIB.surface().bytes();
    return {all.begin(), all.end()};
  }
  // The box of what differs from the display without the lens.
  Rect lensBox() {
    const clsDIB with = seen();
    const Size size = core.view().displaySize();
    clsDIB bare = plainDib(size.width, size.height, kWhite, 32, true);
    ViewRenderer().render(core.bitmaps.DIB, core.view(), false, {0, 0, size.width, size.height},
                          {bare.surface().bits(), bare.surface().stride()});
    Rect box;
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) {
        if (pixelAt(with, x, y).colour() == pixelAt(bare, x, y).colour()) continue;
        box = box.united(Rect::fromSize(x, y, 1, 1));
      }
    }
    return box;
  }
  // Where the lens's middle stands; the outermost pixels of the rim are too faint to count on.
  Point middle() {
    const Rect box = lensBox();
    return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
  }
};

TEST(GlassTool, IsCarriedOverTheViewAndLeavesThePictureAlone) {
  Glass canvas;
  const auto before = canvas.bytes();
  EXPECT_EQ(canvas.middle(), (Point{200, 150}));
  canvas.press({190, 130});
  canvas.move({150, 140});
  EXPECT_EQ(canvas.middle(), (Point{160, 160}));
  // Only what it covered and covers is painted again.
  EXPECT_LE(canvas.repaintedInAll().width(), glass::kSide + 40);
  EXPECT_LE(canvas.repaintedInAll().height(), glass::kSide + 10);
  canvas.move({0, 300});
  EXPECT_EQ(canvas.middle(), (Point{kHalf, 300 - kHalf}));
  canvas.release({0, 300});
  canvas.move({300, 20});
  EXPECT_EQ(canvas.middle(), (Point{kHalf, 300 - kHalf}));
  EXPECT_EQ(canvas.taken(), Events{"DispMeasureClear"});
  canvas.core.setCanvasOp(0);
  EXPECT_EQ(canvas.lensBox(), Rect{});
  EXPECT_EQ(canvas.bytes(), before);
}

// The corner of its box is not in the lens.
TEST(GlassTool, APressBesideItPutsItAway) {
  for (const Point at : {Point{10, 10}, Point{125, 75}}) {
    Glass canvas;
    canvas.click(at, MouseButton::Right);
    EXPECT_EQ(canvas.core.CanvasOp(), 17);
    canvas.clear();
    canvas.click(at);
    EXPECT_EQ(canvas.core.CanvasOp(), 18);
    EXPECT_EQ(canvas.events, (Events{"DispMeasureClear", "NotifyCancelGlassOp"}));
    EXPECT_EQ(canvas.lensBox(), Rect{});
  }
}

TEST(GlassTool, EscapeTakesBackTheWayAndThenTheLens) {
  Glass canvas;
  canvas.press({200, 150});
  canvas.move({260, 170});
  EXPECT_TRUE(canvas.core.keyPress(CanvasKey::Escape, {}));
  EXPECT_EQ(canvas.middle(), (Point{200, 150}));
  canvas.move({260, 170});
  EXPECT_EQ(canvas.middle(), (Point{200, 150}));
  EXPECT_TRUE(canvas.core.keyPress(CanvasKey::Escape, {}));
  EXPECT_EQ(canvas.core.CanvasOp(), 18);
  EXPECT_EQ(canvas.events.back(), "NotifyCancelGlassOp");
}

TEST(GlassTool, FollowsFactorKindPictureScrollAndMagnification) {
  Glass canvas;
  clsDIB last = canvas.seen();
  const auto changedAt = [&](Point at) {
    clsDIB now = canvas.seen();
    const bool changed = pixelAt(now, at.x, at.y).colour() != pixelAt(last, at.x, at.y).colour();
    last = std::move(now);
    return changed;
  };
  const Point inLens{230, 150};
  canvas.core.settings.MagnifyGlassFactor = 5;
  canvas.core.overlayChanged();
  EXPECT_FALSE(canvas.repainted.empty());
  EXPECT_TRUE(changedAt(inLens));
  canvas.core.settings.UseConvexGlass = true;
  canvas.core.overlayChanged();
  EXPECT_TRUE(changedAt(inLens));
  canvas.core.SetScrollValues(57, 31, true, true);
  EXPECT_TRUE(changedAt(inLens));
  EXPECT_EQ(canvas.middle(), (Point{200, 150}));
  clsDIB::ColorBackGroundDIB(canvas.core.bitmaps.DIB, kBlack);
  canvas.core.CanvasPicPaint();
  EXPECT_TRUE(changedAt(inLens));
  canvas.core.bitmaps.DIB = plainDib(60, 50, kWhite);
  canvas.core.CanvasPicPaint();
  // Smaller than the lens: only pixels of the picture are to be seen in it.
  EXPECT_EQ(canvas.lensBox(), Rect{});
  canvas.core.settings.Magnify = 4;
  canvas.core.CanvasPicPaint();
  EXPECT_EQ(canvas.middle(), (Point{120, 100}));
}

TEST(GlassTool, NeedsAFifthOfItsSizeInEachAxis) {
  constexpr int kLeast = glass::kSide / 5;
  for (const Size size : {Size{kLeast, kLeast}, Size{kLeast - 1, 300}, Size{300, kLeast - 1}}) {
    Glass canvas(size);
    canvas.core.settings.MagnifyGlassFactor = 8;
    canvas.core.overlayChanged();
    EXPECT_EQ(canvas.core.CanvasOp(), 17);
    EXPECT_EQ(canvas.lensBox().empty(), size != (Size{kLeast, kLeast})) << size.width;
    canvas.click({size.width / 2, size.height / 2});
    EXPECT_EQ(canvas.core.CanvasOp(), size == (Size{kLeast, kLeast}) ? 17 : 18);
  }
}

// The picture is replaced, and then closed, while the lens is carried.
TEST(GlassTool, LosesItsPictureUnderWay) {
  Glass canvas;
  canvas.press({200, 150});
  canvas.core.bitmaps.DIB = plainDib(200, 100, kWhite);
  canvas.move({150, 100});
  canvas.core.CanvasResize();
  canvas.move({90, 60});
  EXPECT_FALSE(canvas.seen().empty());
  canvas.core.CanvasCleanse();
  canvas.move({90, 60});
  canvas.release({90, 60});
  EXPECT_EQ(canvas.core.CanvasOp(), 18);
}

}  // namespace
}  // namespace ruvo
