#include "canvas/engine/region_compose.h"

#include "canvas/engine/region_marquee.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

const Colour kRed = rgb(255, 0, 0), kGreen = rgb(0, 255, 0), kMix = rgb(128, 128, 0);
const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'r', kRed}, {'g', kGreen}, {'m', kMix}};

// Whether it covers a pixel depends on the oval and on the colour that stays out; both count together.
TEST(RegionCompose, TheMaskIsBlackWhereTheRegionCovers) {
  const clsDIB region = dibOf({"rrrr", "rggr", "rggr", "rrrr"}, kInk);
  clsDIB mask;
  const auto masked = [&](bool oval, std::optional<Colour> key) {
    EXPECT_TRUE(makeRegionMask(region, oval, key, mask));
    return mask.empty() ? Rows{} : rowsOf(mask);
  };
  EXPECT_PICTURE(masked(false, std::nullopt), {});
  EXPECT_PICTURE(masked(true, std::nullopt), {".##.", "####", "####", ".##."});
  EXPECT_PICTURE(masked(false, kGreen), {"####", "#..#", "#..#", "####"});
  EXPECT_PICTURE(masked(true, kGreen), {".##.", "#..#", "#..#", ".##."});
  for (int y = 0; y < 4; ++y) {
    for (int x = -1; x < 5; ++x)
      EXPECT_EQ(inRegionOval({4, 4}, {x, y}), x >= 0 && x < 4 && Rows({".##.", "####", "####", ".##."})[y][x] == '#');
  }
}

struct Composed {
  bool oval = false;
  bool keyed = false;  // green stays out
  bool blended = false;
  Rows expected;
};

TEST(RegionCompose, EveryManner) {
  const clsDIB region = dibOf({"rrrr", "rggr", "rggr", "rrrr"}, kInk);
  const Composed cases[] = {
      {false, false, false, {"......", "...rrr", "...rgg", "...rgg"}},
      {true, false, false, {"......", "....rr", "...rgg", "...rgg"}},
      {false, true, false, {"......", "...rrr", "...r..", "...r.."}},
      {true, true, false, {"......", "....rr", "...r..", "...r.."}},
  };
  for (const Composed& c : cases) {
    clsDIB mask;
    makeRegionMask(region, c.oval, c.keyed ? std::optional(kGreen) : std::nullopt, mask);
    const clsDIB snap = plainDib(6, 4, kWhite);
    clsDIB dib = plainDib(6, 4, kWhite);
    composeFlat(dib, snap, region, mask, {3, 1});
    EXPECT_PICTURE(rowsOf(dib, kInk), (c.expected));
    // The mix lies on the same pixels, and takes the snapshot, whatever the picture shows there.
    const clsDIB green = plainDib(6, 4, kGreen);
    clsDIB shown = plainDib(6, 4, kBlack);
    composeBlended(shown, green, region, mask, {3, 1}, 50);
    for (int y = 0; y < 4; ++y) {
      for (int x = 0; x < 6; ++x) {
        const char flat = c.expected[y][x];
        const bool inBox = x >= 3 && y >= 1;
        EXPECT_EQ(rowsOf(shown, kInk)[y][x], !inBox ? '#' : flat == 'r' ? 'm' : 'g') << x << ' ' << y;
      }
    }
  }
}

TEST(RegionCompose, AlphaGoesWithTheRegionAndMixesByWhatIsSeen) {
  clsDIB snap = dibOf(3, 1, [](int x, int) { return Pixel32{200, 0, 0, static_cast<std::uint8_t>(x == 0 ? 0 : 255)}; });
  clsDIB region = dibOf(3, 1, [](int x, int) {
    return Pixel32{0, 0, 100, static_cast<std::uint8_t>(x == 2 ? 0 : 255)};
  });
  snap.setDIBhasAlpha(true);
  region.setDIBhasAlpha(true);
  clsDIB dib;
  clsDIB::CloneDIB(snap, dib, kWhite, false);
  composeFlat(dib, snap, region, {}, {0, 0});
  EXPECT_EQ(farthest(&dib.surface(), [&](int x, int y) { return pixelAt(region, x, y); }), 0);
  composeBlended(dib, snap, region, {}, {0, 0}, 50);
  EXPECT_EQ(pixelAt(dib, 0, 0), (Pixel32{0, 0, 100, 128}));  // nothing of the blue was seen there
  EXPECT_EQ(pixelAt(dib, 1, 0), (Pixel32{100, 0, 50, 255}));
  EXPECT_EQ(pixelAt(dib, 2, 0), (Pixel32{200, 0, 0, 128}));
}

TEST(RegionCompose, WhatTheRegionLeavesBehindAndHowFarItGoes) {
  clsDIB region, mask, picture = plainDib(5, 4, kBlack);
  EXPECT_TRUE(takeRegionPixels(dibOf({"##", "##"}), {1, 1, 4, 4}, region));
  EXPECT_PICTURE(rowsOf(region), {"#..", "...", "..."});
  makeRegionMask(plainDib(4, 4, kRed), true, std::nullopt, mask);
  clearBeneath(picture, mask, {2, 1, 6, 5}, kWhite);
  EXPECT_PICTURE(rowsOf(picture), {"#####", "###..", "##...", "##..."});
  clearBeneath(picture, {}, {-1, -1, 2, 2}, kRed);
  EXPECT_PICTURE(rowsOf(picture, kInk), {"rr###", "rr#..", "##...", "##..."});

  int covered = 0;
  for (const Rect& part : partsOutside({0, 0, 10, 10}, {3, -2, 20, 4}))
    if (!part.empty()) covered += part.width() * part.height();
  EXPECT_EQ(covered, 100 - 7 * 4);
  EXPECT_EQ(partsOutside({0, 0, 3, 3}, {3, 0, 6, 3})[0], (Rect{0, 0, 3, 3}));
  const RegionLimits limits = regionLimits({4, 3}, {10, 8});
  EXPECT_EQ(heldWithin(limits, {-50, -50}), (Point{-3, -2}));
  EXPECT_EQ(heldWithin(limits, {50, 50}), (Point{9, 7}));
}

TEST(RegionMarquee, EdgesAreCaughtInABandAndOvalsInTheMiddleOfASide) {
  const Rect box{20, 30, 121, 131};  // last pixels at 120 and 130
  const auto edge = [&](int x, int y, bool oval = false) { return edgeAt(box, {x, y}, oval, 1); };
  for (const int y : {26, 30, 37}) EXPECT_EQ(edge(60, y), CanvasEdge::Top) << y;
  for (const int y : {25, 38}) EXPECT_EQ(edge(60, y), CanvasEdge::None) << y;
  EXPECT_EQ(edge(116, 60), CanvasEdge::Right);
  EXPECT_EQ(edge(127, 60), CanvasEdge::Right);
  EXPECT_EQ(edge(60, 126), CanvasEdge::Bottom);
  EXPECT_EQ(edge(16, 60), CanvasEdge::Left);
  EXPECT_EQ(edge(28, 60), CanvasEdge::None);
  EXPECT_EQ(edge(120, 30), CanvasEdge::Top);  // corners belong to the first
  EXPECT_EQ(edge(15, 29), CanvasEdge::None);
  EXPECT_EQ(edge(22, 32, true), CanvasEdge::None);
  EXPECT_EQ(edge(70, 32, true), CanvasEdge::Top);
  EXPECT_EQ(edgeAt(box, {60, 44}, false, 2), CanvasEdge::Top);
  EXPECT_EQ(edgeAt({0, 0, 15, 100}, {14, 50}, false, 1), CanvasEdge::None);  // too near to each other to be moved
}

TEST(RegionMarquee, MovedEdgesStayInTheViewAndApart) {
  const Rect box{10, 10, 40, 40}, all{0, 0, 60, 60};
  const auto moved = [&](CanvasEdge edge, Point travel, int magnify = 1) {
    return withEdgeMoved(box, edge, travel, all, magnify);
  };
  EXPECT_EQ(moved(CanvasEdge::Top, {5, -3}), (Rect{10, 7, 40, 40}));
  EXPECT_EQ(moved(CanvasEdge::Left, {-99, 0}), (Rect{0, 10, 40, 40}));
  EXPECT_EQ(moved(CanvasEdge::Right, {99, 0}), (Rect{10, 10, 60, 40}));
  EXPECT_EQ(moved(CanvasEdge::Bottom, {0, -14}), (Rect{10, 10, 40, 26}));
  EXPECT_EQ(moved(CanvasEdge::Bottom, {0, -15}), box);  // 15 pixels are refused
  EXPECT_EQ(moved(CanvasEdge::Bottom, {0, -26}, 4), (Rect{10, 10, 40, 14}));
  EXPECT_EQ(moved(CanvasEdge::Left, {50, 0}), box);
}

TEST(RegionMarquee, AntsInEveryStyle) {
  const Rect box{0, 0, 9, 4};
  const auto drawn = [&](bool suspended, bool alternative, int phase, bool oval = false) {
    clsDIB shown = plainDib(9, 4, rgb(255, 0, 0), 32, true);
    paintOverlay({DrawRegionMarquee(box, {oval, suspended, alternative, phase})}, box,
                 {shown.surface().bits(), shown.surface().stride()});
    return rowsOf(shown, {{' ', kRed},
                          {'i', rgb(0, 255, 255)},
                          {'L', rgb(192, 192, 192)},
                          {'D', rgb(96, 96, 96)},
                          {'G', rgb(128, 128, 128)},
                          {'#', kBlack},
                          {'.', kWhite}});
  };
  EXPECT_PICTURE(drawn(false, false, 0), {"iiii    i", "        i", "        i", "iiii    i"});
  EXPECT_PICTURE(drawn(false, false, 1), {"    iiii ", "i        ", "i        ", "    iiii "});
  EXPECT_PICTURE(drawn(true, false, 1), {"iiiiiiiii", "i       i", "i       i", "iiiiiiiii"});
  EXPECT_PICTURE(drawn(true, true, 0), {"iiiiiiiii", "i       i", "i       i", "iiiiiiiii"});
  EXPECT_PICTURE(drawn(false, true, 0), {"LLLLDDDDL", "D       L", "D       L", "LLLLDDDDL"});
  EXPECT_PICTURE(drawn(false, true, 1), {"DDDDLLLLD", "L       D", "L       D", "DDDDLLLLD"});
  EXPECT_NE(drawn(false, false, 0, true), drawn(false, false, 1, true));
  const Rows oval = drawn(false, false, 0, true);
  EXPECT_EQ(oval[0][0], ' ');
  EXPECT_NE(oval[0].find_first_of("G#"), std::string::npos);
}

}  // namespace
}  // namespace ruvo
