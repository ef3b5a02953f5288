#include "base/limits.h"
#include "effects/model/effect_fixture.h"

namespace ruvo {
namespace {

using namespace test;

TEST(Slant, MovesEachRowAndGrowsByTheReach) {
  const clsDIB source = speckled(6, 4);
  EXPECT_EQ(farthest(after(speckled(6, 4), "slant", {{"angle", 0}}), source), 0);
  // 45 degrees: a pixel a row.
  const clsDIB right = after(speckled(6, 4), "slant", {{"angle", 45}, {"fill", kBlack}});
  const clsDIB left = after(speckled(6, 4), "slant", {{"angle", -45}, {"fill", kBlack}, {"antialias", 0}});
  const clsDIB up = after(speckled(6, 4), "slant", {{"angle", 45}, {"fill", kBlack}, {"direction", 1}});
  ASSERT_EQ(right.size(), (Size{9, 4}));
  ASSERT_EQ(left.size(), (Size{9, 4}));
  ASSERT_EQ(up.size(), (Size{6, 9}));
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 6; ++x) {
      EXPECT_EQ(pixelAt(right, x + 3 - y, y), pixelAt(source, x, y));
      EXPECT_EQ(pixelAt(left, x + y, y), pixelAt(source, x, y));
      EXPECT_EQ(pixelAt(up, x, y + 5 - x), pixelAt(source, x, y));
    }
  }
  EXPECT_EQ(pixelAt(right, 2, 0).colour(), kBlack);
}

TEST(Slant, KeepsTheSizeOfARegionAndTheLimits) {
  EXPECT_EQ(after(speckled(8, 30), "slant", {{"angle", 60}}, true).size(), (Size{8, 30}));
  // One more column would make the picture wider than any may be.
  EXPECT_EQ(after(plainDib(kMaxPictureSide, 2, kWhite), "slant", {{"angle", 60}}).DIBWidth(), kMaxPictureSide);
  EXPECT_EQ(after(plainDib(kMaxPictureSide - 2, 2, kWhite), "slant", {{"angle", 60}}).DIBWidth(), kMaxPictureSide);
}

TEST(RowWarp, KeepsAreasAndAddsNoFringe) {
  struct Case {
    const char* name;
    Given given;
    double area;  // of what stays of a white picture
  };
  const std::vector<Case> cases = {
      {"slant", {{"angle", 33}}, 1},
      {"slant", {{"angle", -58}, {"direction", 1}}, 1},
      {"perspective", {{"shrink", 90}}, 0.55},
      {"perspective", {{"shrink", 40}, {"side", 1}, {"length", 63}}, 0.8 * 0.63},
      {"perspective", {{"shrink", 73}, {"side", 2}}, 0.635},
      {"perspective", {{"shrink", 10}, {"side", 3}, {"length", 10}}, 0.095},
  };
  for (const Case& c : cases) {
    Given white = c.given, black = c.given;
    white["fill"] = kWhite;
    black["fill"] = kBlack;
    EXPECT_EQ(clsDIB::IsMultiColorDIB(after(plainDib(90, 70, kWhite), c.name, white)), kWhite) << c.name;
    const clsDIB drawn = after(plainDib(90, 70, kWhite), c.name, black);
    const double area = meanChannel(drawn, 0) / 255 * drawn.DIBWidth() * drawn.DIBHeight();
    EXPECT_NEAR(area, c.area * 90 * 70, 0.006 * 90 * 70) << c.name;
  }
}

TEST(Perspective, SidesAreQuarterTurnsOfEachOther) {
  EXPECT_EQ(farthest(after(speckled(13, 9), "perspective", {{"shrink", 0}}), speckled(13, 9)), 0);
  const auto turned = [](clsDIB picture, int mode) {
    clsDIB::RotateDIB(picture, mode);
    return picture;
  };
  const clsDIB top = after(speckled(40, 40), "perspective");
  const auto viaSide = [&](double side, int there, int back) {
    return turned(after(turned(speckled(40, 40), there), "perspective", {{"side", side}}), back);
  };
  EXPECT_EQ(farthest(top, viaSide(3, 3, 2)), 0);
  EXPECT_EQ(farthest(top, viaSide(2, 2, 3)), 0);
  EXPECT_LE(
      farthest(top, turned(turned(after(turned(turned(speckled(40, 40), 2), 2), "perspective", {{"side", 1}}), 2), 2)),
      1);
}

TEST(Perspective, FinePatternsBecomeTheirMeanWhereTheyAreFar) {
  clsDIB lines = dibOf(400, 300, [](int x, int y) { return Pixel32::plain((x + y) % 2 ? kWhite : kBlack); });
  const clsDIB far = after(std::move(lines), "perspective", {{"shrink", 90}, {"fill", rgb(128, 128, 128)}});
  for (int x = 184; x < 216; ++x) EXPECT_NEAR(pixelAt(far, x, 0).red, 128, 24) << x;
}

TEST(Bevel, LightsTheSidesTowardsTheLight) {
  const clsDIB grey = plainDib(20, 14, rgb(100, 100, 100));
  const clsDIB raised = after(plainDib(20, 14, rgb(100, 100, 100)), "bevel", {{"width", 3}});
  const clsDIB sunken = after(plainDib(20, 14, rgb(100, 100, 100)), "bevel", {{"width", 3}, {"style", 1}});
  // Where a light and a dark side meet they cancel out.
  const auto isMitreOfBoth = [](int x, int y) { return (x < 3 && y == 13 - x) || (x > 16 && y == 19 - x); };
  for (int y = 0; y < 14; ++y) {
    for (int x = 0; x < 20; ++x) {
      const bool inner = x >= 3 && x < 17 && y >= 3 && y < 11;
      EXPECT_EQ(pixelAt(raised, x, y) == pixelAt(grey, x, y), inner || isMitreOfBoth(x, y)) << x << "," << y;
    }
  }
  EXPECT_GT(pixelAt(raised, 10, 0).red, 150);
  EXPECT_EQ(pixelAt(raised, 10, 0), pixelAt(raised, 0, 7));
  EXPECT_LT(pixelAt(raised, 10, 13).red, 60);
  EXPECT_EQ(pixelAt(raised, 10, 11), pixelAt(raised, 19, 7));
  EXPECT_EQ(pixelAt(sunken, 10, 0), pixelAt(raised, 10, 13));
  EXPECT_EQ(pixelAt(sunken, 19, 7), pixelAt(raised, 0, 7));
}

TEST(Border, GrowsAroundOrLiesOverTheEdges) {
  const Given plain = {{"width", 2}, {"colour", kBlack}};
  EXPECT_PICTURE(rowsOf(after(plainDib(3, 1, kWhite), "border", plain)),
                 {"#######", "#######", "##...##", "#######", "#######"});
  const Rows over = {"######", "######", "##..##", "######", "######"};
  EXPECT_PICTURE(rowsOf(after(plainDib(6, 5, kWhite), "border", plain, true)), {over});
  Given inside = plain;
  inside["place"] = 1;
  EXPECT_PICTURE(rowsOf(after(plainDib(6, 5, kWhite), "border", inside)), {over});
  EXPECT_PICTURE(rowsOf(after(plainDib(1, 1, kBlack), "border", {{"width", 3}, {"style", 1}, {"colour", kBlack}})),
                 {"#######", "#.....#", "#.###.#", "#.###.#", "#.###.#", "#.....#", "#######"});
  EXPECT_EQ(after(plainDib(kMaxPictureSide, 3, kWhite), "border", plain).size(), (Size{kMaxPictureSide, 3}));
}

TEST(DropShadow, FallsOnPlainGroundAndMakesRoom) {
  const Ink ink = {{'.', kWhite}, {'#', kBlack}, {'s', rgb(76, 76, 76)}};
  const Given sharp = {{"offset-x", 2}, {"offset-y", 1}, {"softness", 0}, {"strength", 100}};
  const Rows thing = {".....", ".##..", ".##..", "....."};
  EXPECT_PICTURE(rowsOf(after(dibOf(thing), "shadow", sharp), ink), {".....", ".##..", ".##ss", "...ss"});
  const Rows corner = {"....", "..##", "..##"};
  EXPECT_PICTURE(rowsOf(after(dibOf(corner), "shadow", sharp), ink), {"......", "..##..", "..##ss", "....ss"});
  EXPECT_PICTURE(rowsOf(after(dibOf(corner), "shadow", sharp, true), ink), {"....", "..##", "..##"});
  const clsDIB soft = after(dibOf(corner), "shadow", {{"offset-x", -9}, {"offset-y", 0}, {"softness", 8}});
  EXPECT_EQ(soft.size(), (Size{4 + 11, 3 + 4 + 3}));
  // A rim that is half ground gets half of the shadow.
  const Ink rim = {{'.', kWhite}, {'#', kBlack}, {'h', rgb(128, 128, 128)}};
  const clsDIB smooth = after(dibOf({".....", ".##h.", ".##h.", "....."}, rim), "shadow", sharp);
  EXPECT_NEAR(pixelAt(smooth, 3, 2).red, 128 * (1 - 0.7 / 2), 2);
}

TEST(DropShadow, OfAWholePhotographAndOfOpaqueParts) {
  const Given sharp = {{"offset-x", 3}, {"offset-y", -2}, {"softness", 0}, {"ground", kWhite}};
  const clsDIB photo = speckled(12, 9), drawn = after(speckled(12, 9), "shadow", sharp);
  ASSERT_EQ(drawn.size(), (Size{15, 11}));
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 12; ++x) EXPECT_EQ(pixelAt(drawn, x, y + 2), pixelAt(photo, x, y));
  }
  EXPECT_EQ(pixelAt(drawn, 0, 0).colour(), kWhite);
  EXPECT_LT(pixelAt(drawn, 13, 1).red, 130);
  EXPECT_EQ(pixelAt(drawn, 13, 1), pixelAt(drawn, 5, 0));
  EXPECT_EQ(farthest(after(speckled(12, 9), "shadow", sharp, true), photo), 0);

  clsDIB clear = dibOf(8, 4, [](int x, int y) { return x == 1 && y == 1 ? Pixel32::opaque(kWhite) : Pixel32{}; });
  clear.setDIBhasAlpha(true);
  const clsDIB under = after(std::move(clear), "shadow",
                             {{"offset-x", 2}, {"offset-y", 1}, {"softness", 0}, {"colour", rgb(9, 8, 7)}});
  EXPECT_EQ(pixelAt(under, 1, 1), Pixel32::opaque(kWhite));
  EXPECT_EQ(pixelAt(under, 3, 2).colour(), rgb(9, 8, 7));
  EXPECT_NEAR(pixelAt(under, 3, 2).alpha, 0.7 * 0.8 * 255, 2);
  EXPECT_EQ(pixelAt(under, 4, 2).alpha, 0);
}

std::vector<Effect> allShapes() {
  std::vector<Effect> all;
  for (const auto rows : {shapeEffects(), drawnEffects()}) all.insert(all.end(), rows.begin(), rows.end());
  return all;
}

TEST(DrawnAndShapeEffects, TakeEveryPictureAndEveryValueOfTheirRanges) {
  for (const Effect& effect : allShapes()) {
    for (const Size size : {Size{1, 1}, Size{1, 9}, Size{9, 1}, Size{40, 30}}) {
      for (const bool keep : {false, true}) {
        // Each argument at either end while the others are at their standard.
        for (std::size_t i = 0; i < effect.arguments.size() * 2; ++i) {
          std::vector<EffectValue> values = standardValues(effect);
          values[i / 2].number = i % 2 ? effect.arguments[i / 2].high : effect.arguments[i / 2].low;
          EffectInput input(values);
          input.keepSize = keep;
          input.scale = i % 3 ? 1 : 0.02;
          clsDIB picture = plainDib(size.width, size.height, kWhite);
          picture.setDIBhasAlpha(i % 2 == 0);
          ASSERT_TRUE(effect.apply(picture, input, {})) << effect.name << i;
          EXPECT_TRUE(pictureSizeAllowed(picture.DIBWidth(), picture.DIBHeight()));
          EXPECT_TRUE(!keep || picture.size() == size) << effect.name;
        }
      }
    }
  }
}

TEST(DrawnAndShapeEffects, ReportEachRowAndStopWhenTold) {
  for (const Effect& effect : allShapes()) {
    std::vector<int> steps;
    int rows = 0;
    Progress progress;
    progress.step = [&](int percent) { steps.push_back(percent); };
    clsDIB picture = plainDib(30, 20, kWhite);
    EXPECT_TRUE(effect.apply(picture, inputOf(effect), progress)) << effect.name;
    EXPECT_GE(steps.size(), 20u) << effect.name;
    EXPECT_TRUE(std::ranges::is_sorted(steps)) << effect.name;
    EXPECT_EQ(steps.back(), 100) << effect.name;
    progress.step = [&](int) { ++rows; };
    progress.stop = [&] { return rows == 3; };
    picture = plainDib(30, 20, kWhite);
    EXPECT_FALSE(effect.apply(picture, inputOf(effect), progress)) << effect.name;
    EXPECT_LE(rows, 4) << effect.name;
  }
}

}  // namespace
}  // namespace ruvo
