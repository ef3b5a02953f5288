#include "canvas/engine/region_compose.h"

#include "canvas/engine/region_marquee.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

const Colour kDarkRed = rgb(200, 0, 0);
const Colour kRed = rgb(255, 0, 0), kGreen = rgb(0, 255, 0), kMix = rgb(128, 128, 0);
const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'r', kRed}, {'g', kGreen}, {'m', kMix}};

// Each with and without an oval, and with and without a colour that stays out: the mask, and the region laid over white,
// its right and lower part outside the picture. The blend lies on the same pixels, and mixes with the snapshot whatever
// the picture shows.
TEST(RegionCompose, EveryManner) {
  const clsDIB region = dibOf({"rrrr", "rggr", "rggr", "rrrr"}, kInk);
  const struct {
    bool oval, keyed;
    Rows mask, flat, blended;
  } cases[] = {{false, false, {}, {"....", ".rrr", ".rgg"}, {"####", "#mmm", "#mgg"}},
               {true, false, {".##.", "####", "####", ".##."}, {"....", "..rr", ".rgg"}, {"####", "#gmm", "#mgg"}},
               {false, true, {"####", "#..#", "#..#", "####"}, {"....", ".rrr", ".r.."}, {"####", "#mmm", "#mgg"}},
               {true, true, {".##.", "#..#", "#..#", ".##."}, {"....", "..rr", ".r.."}, {"####", "#gmm", "#mgg"}}};
  for (const auto& c : cases) {
    clsDIB mask, dib = plainDib(4, 3, kWhite), shown = plainDib(4, 3, kBlack);
    EXPECT_TRUE(makeRegionMask(region, c.oval, c.keyed ? std::optional(kGreen) : std::nullopt, mask));
    if (!mask.empty()) {
      EXPECT_PICTURE(rowsOf(mask), (c.mask));
    }
    composeFlat(dib, plainDib(4, 3, kWhite), region, mask, {1, 1});
    EXPECT_PICTURE(rowsOf(dib, kInk), (c.flat));
    composeBlended(shown, plainDib(4, 3, kGreen), region, mask, {1, 1}, 50);
    EXPECT_PICTURE(rowsOf(shown, kInk), (c.blended));
  }
}

TEST(RegionCompose, AlphaGoesWithTheRegionAndMixesByWhatIsSeen) {
  // Over see-through, over opaque, and see-through over opaque.
  const auto row = [](Pixel32 a, Pixel32 b, Pixel32 c) {
    clsDIB dib = dibOf(3, 1, [&](int x, int) { return x == 0 ? a : x == 1 ? b : c; });
    dib.setDIBhasAlpha(true);
    return dib;
  };
  const auto same = [](const clsDIB& a, const clsDIB& b) {
    return farthest(&a.surface(), [&](int x, int y) { return pixelAt(b, x, y); }) == 0;
  };
  const clsDIB snap = row({200, 0, 0, 0}, {200, 0, 0, 255}, {200, 0, 0, 255});
  const clsDIB region = row({0, 0, 100, 255}, {0, 0, 100, 255}, {0, 0, 100, 0});
  clsDIB dib = row({}, {}, {});
  composeFlat(dib, snap, region, {}, {0, 0});
  EXPECT_TRUE(same(dib, region));
  composeBlended(dib, snap, region, {}, {0, 0}, 50);
  EXPECT_TRUE(same(dib, row({0, 0, 100, 128}, {100, 0, 50, 255}, {200, 0, 0, 128})));
}

// Red letters at four strengths, over blue, over white, and over what is see-through or half so.
TEST(RegionCompose, SoftLettersMixWithWhatLiesBelowAndLeaveNoRim) {
  clsDIB region = dibOf(4, 1, [](int x, int) {
    return Pixel32{0, 0, 200, std::array<std::uint8_t, 4>{0, 64, 128, 255}[x]};
  });
  region.setDIBhasAlpha(true);
  const auto laid = [&](Pixel32 ground, bool hasAlpha, int percent, const clsDIB& mask = {}) {
    clsDIB dib = plainDib(4, 1, kBlack), snap = dibOf(4, 1, [&](int, int) { return ground; });
    dib.setDIBhasAlpha(hasAlpha);
    composeSoft(dib, snap, region, mask, {0, 0}, percent);
    return std::vector<Pixel32>{pixelAt(dib, 0, 0), pixelAt(dib, 1, 0), pixelAt(dib, 2, 0), pixelAt(dib, 3, 0)};
  };
  using Row = std::vector<Pixel32>;
  EXPECT_EQ(laid({100, 0, 0, 0}, false, 100), (Row{{100, 0, 0, 0}, {75, 0, 50, 0}, {50, 0, 100, 0}, {0, 0, 200, 0}}));
  EXPECT_EQ(laid({255, 255, 255, 9}, false, 100),
            (Row{{255, 255, 255, 9}, {191, 191, 241, 9}, {127, 127, 227, 9}, {0, 0, 200, 9}}));
  EXPECT_EQ(laid({100, 0, 0, 0}, false, 50), (Row{{100, 0, 0, 0}, {87, 0, 25, 0}, {75, 0, 50, 0}, {50, 0, 100, 0}}));
  EXPECT_EQ(laid({100, 0, 0, 0}, false, 0), Row(4, {100, 0, 0, 0}));
  EXPECT_EQ(laid({7, 7, 7, 0}, true, 100), (Row{{7, 7, 7, 0}, {0, 0, 200, 64}, {0, 0, 200, 128}, {0, 0, 200, 255}}));
  EXPECT_EQ(laid({200, 0, 0, 100}, true, 100)[2], (Pixel32{56, 0, 144, 178}));
  // Its mask leaves out what is see-through, and what else it is told to.
  clsDIB mask;
  EXPECT_TRUE(leaveOutSeeThrough(region, mask));
  EXPECT_PICTURE(rowsOf(mask), {".###"});
  makeRegionMask(region, false, kDarkRed, mask);
  EXPECT_EQ(laid({100, 0, 0, 0}, false, 100, mask), Row(4, {100, 0, 0, 0}));
  clsDIB sheet;
  EXPECT_TRUE(softOnWhite(region, {}, true, sheet) && sheet.DIBhasAlpha());
  EXPECT_EQ(pixelAt(sheet, 1, 0), (Pixel32{191, 191, 241, 255}));
  // Partly outside, and none of what lies beside it is touched.
  clsDIB dib = plainDib(3, 1, kWhite);
  composeSoft(dib, plainDib(3, 1, kWhite), region, {}, {-3, 0}, 100);
  EXPECT_PICTURE(rowsOf(dib, {{'.', kWhite}, {'r', kDarkRed}}), {"r.."});
}

TEST(RegionCompose, WhatTheRegionLeavesBehindAndHowFarItGoes) {
  clsDIB region, mask, picture = plainDib(5, 4, kBlack);
  EXPECT_TRUE(takeRegionPixels(dibOf({"##", "##"}), {1, 1, 4, 4}, region));
  EXPECT_PICTURE(rowsOf(region), {"#..", "...", "..."});
  makeRegionMask(plainDib(4, 4, kRed), true, std::nullopt, mask);
  clearBeneath(picture, mask, {2, 1, 6, 5}, kWhite);
  clearBeneath(picture, {}, {-1, -1, 2, 2}, kRed);
  EXPECT_PICTURE(rowsOf(picture, kInk), {"rr###", "rr#..", "##...", "##..."});

  int covered = 0;
  for (const Rect& part : partsOutside({0, 0, 10, 10}, {3, -2, 20, 4}))
    covered += part.empty() ? 0 : part.width() * part.height();
  EXPECT_EQ(covered, 100 - 7 * 4);
  const RegionLimits limits = regionLimits({4, 3}, {10, 8});
  EXPECT_EQ(heldWithin(limits, {-50, -50}), (Point{-3, -2}));
  EXPECT_EQ(heldWithin(limits, {50, 50}), (Point{9, 7}));
}

TEST(RegionMarquee, EdgesAreCaughtInABandAndMoveWithinTheView) {
  const Rect box{20, 30, 121, 131};  // last pixels at 120 and 130
  const auto edge = [&](int x, int y, bool oval = false) { return static_cast<int>(edgeAt(box, {x, y}, oval, 1)); };
  const int top = 1, right = 2, bottom = 3, left = 4;
  EXPECT_EQ((std::array{edge(60, 25), edge(60, 26), edge(60, 37), edge(60, 38)}), (std::array{0, top, top, 0}));
  EXPECT_EQ((std::array{edge(115, 60), edge(127, 60), edge(60, 126)}), (std::array{0, right, bottom}));
  EXPECT_EQ((std::array{edge(16, 60), edge(28, 60), edge(120, 30)}), (std::array{left, 0, top}));
  // Ovals: in the middle of a side only.
  EXPECT_EQ((std::array{edge(22, 32, true), edge(70, 32, true)}), (std::array{0, top}));
  EXPECT_EQ(edgeAt(box, {60, 44}, false, 2), CanvasEdge::Top);
  EXPECT_EQ(edgeAt({0, 0, 15, 100}, {14, 50}, false, 1), CanvasEdge::None);  // too narrow to be moved

  const auto moved = [&](CanvasEdge which, Point travel, int magnify = 1) {
    return withEdgeMoved({10, 10, 40, 40}, which, travel, {0, 0, 60, 60}, magnify);
  };
  EXPECT_EQ(moved(CanvasEdge::Left, {-99, 5}), (Rect{0, 10, 40, 40}));
  EXPECT_EQ(moved(CanvasEdge::Right, {99, 0}), (Rect{10, 10, 60, 40}));
  EXPECT_EQ(moved(CanvasEdge::Bottom, {0, -14}), (Rect{10, 10, 40, 26}));
  EXPECT_EQ(moved(CanvasEdge::Bottom, {0, -15}), (Rect{10, 10, 40, 40}));  // 15 pixels are refused
  EXPECT_EQ(moved(CanvasEdge::Top, {0, 26}, 4), (Rect{10, 36, 40, 40}));
}

TEST(RegionMarquee, AntsInEveryStyle) {
  const Rect box{0, 0, 9, 4};
  const auto drawn = [&](MarqueeStyle style) {
    clsDIB shown = plainDib(9, 4, kRed, 32, true);
    paintOverlay({DrawRegionMarquee(box, style)}, box, {shown.surface().bits(), shown.surface().stride()});
    return rowsOf(
        shown,
        {{' ', kRed}, {'i', rgb(0, 255, 255)}, {'L', rgb(192, 192, 192)}, {'D', rgb(96, 96, 96)}, {'.', kWhite}});
  };
  EXPECT_PICTURE(drawn({false, false, false, 0}), {"iiii    i", "        i", "        i", "iiii    i"});
  EXPECT_PICTURE(drawn({false, false, false, 1}), {"    iiii ", "i        ", "i        ", "    iiii "});
  EXPECT_PICTURE(drawn({false, true, true, 1}), {"iiiiiiiii", "i       i", "i       i", "iiiiiiiii"});
  EXPECT_PICTURE(drawn({false, false, true, 0}), {"LLLLDDDDL", "D       L", "D       L", "LLLLDDDDL"});
  EXPECT_PICTURE(drawn({false, false, true, 1}), {"DDDDLLLLD", "L       D", "L       D", "DDDDLLLLD"});
  EXPECT_EQ(drawn({true, true, false, 0})[0], "  iiiii  ");
  EXPECT_NE(drawn({true, false, false, 0}), drawn({true, false, false, 1}));
}

}  // namespace
}  // namespace ruvo
