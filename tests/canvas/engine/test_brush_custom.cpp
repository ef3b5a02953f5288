#include "canvas/engine/brush_custom.h"

#include "canvas/engine/stamp.h"
#include "support/pictures.h"

namespace ruvo::brush {
namespace {

using namespace test;

const Ink kInk = {
    {'.', kWhite}, {'#', kBlack}, {'r', rgb(255, 0, 0)}, {'g', rgb(0, 128, 0)}, {'p', rgb(255, 128, 128)}};

// A plus of red on a see-through ground.
const clsDIB kPlus = dibOf({"#r#", "rrr", "#r#"}, kInk), kPlusMask = dibOf({".#.", "###", ".#."}, kInk);

TEST(CustomBrush, laysItsOpaquePartCentred) {
  clsDIB canvas = dibOf({"gggg", "gggg", "gggg", "gggg"}, kInk);
  CustomBrushStroke stroke(canvas, kPlus, kPlusMask, {});
  EXPECT_EQ(stroke.press({2, 2}), (Rect{1, 1, 4, 4}));
  EXPECT_PICTURE(rowsOf(canvas, kInk), {"gggg", "ggrg", "grrr", "ggrg"});
  EXPECT_EQ(stroke.move({0, 0}), (Rect{0, 0, 2, 2}));
  EXPECT_PICTURE(rowsOf(canvas, kInk), {"rrgg", "rgrg", "grrr", "ggrg"});
}

TEST(CustomBrush, mixesInAndLeavesItsWhiteOut) {
  const clsDIB picture = dibOf({"r.#"}, kInk), mask = dibOf({"##."}, kInk);
  clsDIB canvas = dibOf({".g."}, kInk);
  CustomBrushStroke stroke(canvas, picture, mask, {.percent = 50});
  stroke.press({1, 0});
  EXPECT_PICTURE(rowsOf(canvas, kInk), {"pg."});
}

TEST(CustomBrush, stopsPastTheFarSidesOnly) {
  clsDIB canvas = dibOf({"..", ".."}, kInk);
  CustomBrushStroke stroke(canvas, kPlus, kPlusMask, {});
  EXPECT_TRUE(stroke.move({3, 1}).empty());
  EXPECT_TRUE(stroke.move({1, 3}).empty());
  EXPECT_EQ(stroke.move({2, 1}), (Rect{1, 0, 2, 2}));
  EXPECT_EQ(stroke.move({0, -1}), (Rect{0, 0, 2, 1}));
}

TEST(CustomBrush, rectanglesInTheNormalMannerDoNotOverlap) {
  const clsDIB picture = dibOf({"rr", "rr"}, kInk), mask = dibOf({"##", "##"}, kInk);
  const auto stroked = [&](int shape, int manner) {
    clsDIB canvas = dibOf({"......", "......"}, kInk);
    CustomBrushStroke stroke(canvas, picture, mask, {100, shape, manner});
    stroke.press({1, 1});
    for (const int x : {2, 4, 5}) stroke.move({x, 1});
    return rowsOf(canvas, kInk);
  };
  EXPECT_PICTURE(stroked(1, 0), {"rr.rr.", "rr.rr."});
  EXPECT_PICTURE(stroked(1, 1), {"rrrrrr", "rrrrrr"});
  EXPECT_PICTURE(stroked(0, 0), {"rrrrrr", "rrrrrr"});
}

TEST(CustomBrush, touchedPixelsBecomeOpaque) {
  clsDIB canvas = dibOf({"###"}, kInk);
  canvas.setDIBhasAlpha(true);
  CustomBrushStroke(canvas, kPlus, kPlusMask, {}).press({1, 1});
  for (int x = 0; x < 3; ++x) EXPECT_EQ(pixelAt(canvas, x, 0).alpha, x == 1 ? 255 : 0);
}

TEST(Stamp, originalIsLaidCentredWithTheHalfTruncated) {
  const clsDIB picture = dibOf({"rg"}, kInk), mask = dibOf({"##"}, kInk);
  clsDIB canvas = dibOf({"....", "...."}, kInk);
  EXPECT_EQ(paintStamp(canvas, {2, 1}, picture, mask, kStampOriginal, 1), (Rect{1, 1, 3, 2}));
  EXPECT_PICTURE(rowsOf(canvas, kInk), {"....", ".rg."});
  EXPECT_TRUE(paintStamp(canvas, {2, 1}, clsDIB(), clsDIB(), kStampOriginal, 1).empty());
  EXPECT_TRUE(paintStamp(canvas, {9, 9}, picture, mask, kStampEngrave, 1).empty());
}

TEST(Stamp, texturePressesTheReliefIntoWhatLiesUnder) {
  // One dark dot in a flat grey stamp. Against its neighbour to the left and canvas, a difference d gives the relief
  // 128 + d / 2 at weight 0.5; the ground 100 then becomes 100 + that - 128.
  const Ink ink = {{'o', rgb(200, 200, 200)}, {'d', rgb(100, 100, 100)}, {'#', kBlack},
                   {'=', rgb(100, 100, 100)}, {'-', rgb(50, 50, 50)},    {'+', rgb(150, 150, 150)}};
  const clsDIB picture = dibOf({"oooo", "odoo", "oooo", "oooo"}, ink),
               mask = dibOf({"####", "####", "####", "####"}, ink);
  const auto stamped = [&](int style) {
    clsDIB canvas = dibOf({"====", "====", "====", "===="}, ink);
    paintStamp(canvas, {2, 2}, picture, mask, style, 0.5f);
    return rowsOf(canvas, {{'=', rgb(100, 100, 100)}, {'-', rgb(50, 50, 50)}, {'+', rgb(150, 150, 150)}});
  };
  EXPECT_PICTURE(stamped(kStampEmboss), {"====", "=-==", "==+=", "===="});
  EXPECT_PICTURE(stamped(kStampEngrave), {"====", "=+==", "==-=", "===="});
}

}  // namespace
}  // namespace ruvo::brush
