#include "canvas/engine/glass_lens.h"

#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

// Each pixel's blue is its column, as far as it can say so: 60 to 315.
clsDIB columnsPicture(int width, int height) {
  return dibOf(width, height, [](int x, int) {
    return Pixel32{static_cast<std::uint8_t>(std::clamp(x - 60, 0, 255)), 9, 77, 0};
  });
}

TEST(GlassLens, GivesTheFactorInTheMiddleAndOneAtTheRim) {
  for (int factor = 2; factor <= 8; ++factor) {
    EXPECT_NEAR(glass::sourceDistance(1e-4, factor, true) * factor, 1e-4, 1e-9);
    EXPECT_DOUBLE_EQ(glass::sourceDistance(1, factor, true), 1);
    EXPECT_DOUBLE_EQ(glass::sourceDistance(1, factor, false), 1.0 / factor);
    for (int i = 1; i < 100; ++i) {
      const double near = i / 100.0, far = near + 0.01;
      const double nearSource = glass::sourceDistance(near, factor, true);
      const double farSource = glass::sourceDistance(far, factor, true);
      EXPECT_LT(nearSource, farSource);
      EXPECT_GT(near / nearSource, far / farSource);
    }
  }
}

TEST(GlassLens, ShowsThePictureBeneathItsMiddleEnlarged) {
  const clsDIB picture = columnsPicture(600, 500);
  const int mid = glass::kSide / 2;
  for (const int magnify : {1, 3, 4}) {
    ViewGeometry view;
    view.layout({.client = {414, 414}, .image = {600, 500}, .magnify = magnify, .fitted = {}, .bars = {10, 10}});
    view.setScroll(magnify == 1 ? 101 : 401, 50);
    for (const int factor : {2, 3, 8}) {
      for (const bool convex : {false, true}) {
        glass::Lens lens;
        ASSERT_TRUE(lens.compose(picture, view, {37, 120}, {factor, convex, 1}));
        const auto column = [&](int x) { return pixelAt(lens.contents(), x, mid).blue + 60; };
        const int middle = view.toImage({37 + mid, 120 + mid}).x;
        EXPECT_EQ(column(mid), middle);
        // The next column's width on the lens, and no way back anywhere inside the rim.
        int width = 0;
        for (int x = 5; x < glass::kSide - 5; ++x) {
          EXPECT_LE(column(x - 1), column(x));
          width += column(x) == middle + 1;
        }
        const int flat = factor * magnify;
        EXPECT_LE(width, flat);
        EXPECT_GE(width, convex ? flat / 3 : flat);
        const int atRim = view.toImage({37 + glass::kSide - 5, 0}).x - middle;
        EXPECT_NEAR(column(glass::kSide - 5) - middle, convex ? atRim : atRim / factor, convex ? atRim * 0.2 : 1);
      }
    }
  }
}

TEST(GlassLens, StaysWithinTheDisplayOrInItsMiddle) {
  EXPECT_EQ(glass::placed({200, 100}, 160, {400, 300}), (Rect{120, 20, 280, 180}));
  EXPECT_EQ(glass::placed({-50, 5000}, 160, {400, 300}), (Rect{0, 140, 160, 300}));
  EXPECT_EQ(glass::placed({399, 0}, 160, {400, 100}), (Rect{240, -30, 400, 130}));
}

}  // namespace
}  // namespace ruvo
