#include <set>

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
  // The middle of what differs from the display without the lens; nothing when nothing does.
  std::optional<Point> middle() {
    const clsDIB with = seen();
    Rect box;
    for (int y = 0; y < with.DIBHeight(); ++y) {
      for (int x = 0; x < with.DIBWidth(); ++x) {
        const Point at = core.view().toImage({x, y});
        if (pixelAt(with, x, y).colour() != pixelAt(core.bitmaps.DIB, at.x, at.y).colour())
          box = box.united(Rect::fromSize(x, y, 1, 1));
      }
    }
    if (box.empty()) return std::nullopt;
    return Point{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
  }
};

TEST(GlassTool, IsCarriedOverTheViewAndLeavesThePictureAlone) {
  Glass canvas;
  const auto picture = canvas.core.bitmaps.DIB.surface().bytes();
  const std::vector<std::uint8_t> before(picture.begin(), picture.end());
  EXPECT_EQ(canvas.middle(), (Point{200, 150}));
  canvas.press({190, 130});
  canvas.move({150, 140});
  EXPECT_EQ(canvas.middle(), (Point{160, 160}));
  // Only what it covered and covers is painted again.
  EXPECT_LE(canvas.repaintedInAll().width(), glass::kSide + 40);
  canvas.move({0, 300});
  canvas.release({0, 300});
  canvas.move({300, 20});
  EXPECT_EQ(canvas.middle(), (Point{kHalf, 300 - kHalf}));
  EXPECT_EQ(canvas.taken(), Events{"DispMeasureClear"});
  canvas.core.setCanvasOp(0);
  EXPECT_EQ(canvas.middle(), std::nullopt);
  EXPECT_TRUE(std::equal(before.begin(), before.end(), picture.begin(), picture.end()));
}

// The corner of its box is not in the lens; the right button does nothing.
TEST(GlassTool, APressBesideItPutsItAway) {
  Glass canvas;
  canvas.click({125, 75}, MouseButton::Right);
  EXPECT_EQ(canvas.core.CanvasOp(), 17);
  canvas.clear();
  canvas.click({125, 75});
  EXPECT_EQ(canvas.core.CanvasOp(), 18);
  EXPECT_EQ(canvas.events, (Events{"DispMeasureClear", "NotifyCancelGlassOp"}));
}

TEST(GlassTool, EscapeTakesBackTheWayAndThenTheLens) {
  Glass canvas;
  canvas.press({200, 150});
  canvas.move({260, 170});
  for (const int left : {17, 18}) {
    EXPECT_TRUE(canvas.core.keyPress(CanvasKey::Escape, {}));
    EXPECT_EQ(canvas.core.CanvasOp(), left);
    if (left == 17) {
      EXPECT_EQ(canvas.middle(), (Point{200, 150}));
    }
  }
}

TEST(GlassTool, FollowsFactorKindPictureScrollAndMagnification) {
  Glass canvas;
  const auto colour = [&] { return pixelAt(canvas.seen(), 230, 150).colour(); };
  std::set<Colour> seen{colour()};
  canvas.core.settings.MagnifyGlassFactor = 5;
  canvas.core.overlayChanged();
  seen.insert(colour());
  canvas.core.settings.UseConvexGlass = true;
  canvas.core.overlayChanged();
  seen.insert(colour());
  canvas.core.SetScrollValues(57, 31, true, true);
  seen.insert(colour());
  EXPECT_EQ(seen.size(), 4U);
  EXPECT_EQ(canvas.middle(), (Point{200, 150}));
  // Smaller than the lens: only pixels of the picture are to be seen in it.
  canvas.press({200, 150});
  canvas.core.bitmaps.DIB = plainDib(60, 50, kWhite);
  canvas.core.CanvasPicPaint();
  EXPECT_EQ(canvas.middle(), std::nullopt);
  canvas.move({40, 40});
  canvas.core.settings.Magnify = 4;
  canvas.core.CanvasPicPaint();
  EXPECT_EQ(canvas.middle(), (Point{120, 100}));
}

TEST(GlassTool, NeedsAFifthOfItsSizeInEachAxis) {
  for (const Size size : {Size{32, 32}, Size{31, 300}, Size{300, 31}}) {
    Glass canvas(size);
    EXPECT_EQ(canvas.core.CanvasOp(), 17);
    canvas.click({16, 16});
    EXPECT_EQ(canvas.core.CanvasOp(), std::min(size.width, size.height) == 32 ? 17 : 18);
  }
}

}  // namespace
}  // namespace ruvo
