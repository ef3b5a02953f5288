#include "effects/model/effect_fixture.h"

namespace ruvo {
namespace {

using namespace test;

constexpr double kRed = rgb(250, 10, 30), kBlue = rgb(20, 40, 200);

TEST(Gradient, EndsAreExactAndTheMiddleIsTheHalfMix) {
  const Given ends = {{"first", kRed}, {"second", kBlue}};
  const auto with = [&](Given more) {
    more.insert(ends.begin(), ends.end());
    return more;
  };
  const clsDIB right = after(plainDib(101, 7, kWhite), "gradient", with({{"angle", 90}}));
  const clsDIB diagonal = after(plainDib(41, 21, kWhite), "gradient", with({{"angle", 135}, {"mixing", 1}}));
  const clsDIB radial = after(plainDib(41, 21, kWhite), "gradient", with({{"kind", 2}}));
  const clsDIB reflected = after(plainDib(41, 21, kWhite), "gradient", with({{"kind", 1}, {"angle", 90}}));
  for (int y = 0; y < 7; ++y) {
    EXPECT_EQ(pixelAt(right, 0, y).colour(), kRed);
    EXPECT_EQ(pixelAt(right, 100, y).colour(), kBlue);
    EXPECT_NEAR(pixelAt(right, 50, y).red, 135, 1);
    EXPECT_NEAR(pixelAt(right, 25, y).blue, 72, 1);
  }
  EXPECT_EQ(pixelAt(diagonal, 0, 0).colour(), kRed);
  EXPECT_EQ(pixelAt(diagonal, 40, 20).colour(), kBlue);
  EXPECT_EQ(pixelAt(radial, 20, 10).colour(), kRed);
  for (const int x : {0, 40}) {
    EXPECT_EQ(pixelAt(radial, x, 20).colour(), kBlue);
    EXPECT_EQ(pixelAt(reflected, x, 3).colour(), kBlue);
  }
  EXPECT_EQ(pixelAt(reflected, 20, 3).colour(), kRed);
  const clsDIB early = after(plainDib(101, 1, kWhite), "gradient", with({{"angle", 90}, {"midpoint", 20}}));
  EXPECT_NEAR(pixelAt(early, 20, 0).red, 135, 1);
}

TEST(Gradient, AngularGoesClockwiseOnceAround) {
  const clsDIB turned =
      after(plainDib(201, 201, kWhite), "gradient", {{"kind", 3}, {"angle", 0}, {"first", kBlack}, {"second", kWhite}});
  EXPECT_LE(pixelAt(turned, 102, 0).red, 2);
  EXPECT_NEAR(pixelAt(turned, 200, 100).red, 64, 1);
  EXPECT_NEAR(pixelAt(turned, 100, 200).red, 128, 1);
  EXPECT_NEAR(pixelAt(turned, 0, 100).red, 191, 1);
  EXPECT_GE(pixelAt(turned, 98, 0).red, 253);
  EXPECT_NEAR(pixelAt(turned, 150, 50).red, 32, 1);
}

TEST(Gradient, NoneAndStrengthLetThePictureShow) {
  const Given fading = {{"first", kNoColour}, {"second", kBlack}, {"angle", 90}};
  const clsDIB faded = after(speckled(65, 9), "gradient", fading), plain = speckled(65, 9);
  for (int y = 0; y < 9; ++y) {
    EXPECT_EQ(pixelAt(faded, 0, y), pixelAt(plain, 0, y));
    EXPECT_EQ(pixelAt(faded, 64, y).colour(), kBlack);
    EXPECT_NEAR(pixelAt(faded, 32, y).red, pixelAt(plain, 32, y).red / 2, 1);
  }
  EXPECT_EQ(farthest(after(speckled(9, 9), "gradient", {{"strength", 0}}), speckled(9, 9)), 0);
  // What is see-through takes on the drawn colour and none of the one that nobody sees.
  clsDIB clear = plainDib(9, 1, rgb(0, 255, 0));
  clear.setDIBhasAlpha(true);
  const clsDIB drawn = after(std::move(clear), "gradient", {{"first", kBlack}, {"second", kBlack}, {"strength", 50}});
  EXPECT_EQ(pixelAt(drawn, 4, 0).colour(), kBlack);
  EXPECT_NEAR(pixelAt(drawn, 4, 0).alpha, 128, 1);
}

TEST(Gradient, SlowRampsKeepTheirMean) {
  // Without grain half of the picture would be one level and half the next.
  const clsDIB slow = after(plainDib(256, 64, kWhite), "gradient",
                            {{"first", rgb(100, 100, 100)}, {"second", rgb(101, 101, 101)}, {"angle", 90}});
  int raised = 0;
  for (int y = 24; y < 32; ++y) {
    for (int x = 60; x < 68; ++x) raised += pixelAt(slow, x, y).red - 100;
  }
  EXPECT_NEAR(raised, 16, 2);
}

TEST(Grid, LinesLieOnWholePixels) {
  const Given grid = {{"spacing-x", 4}, {"spacing-y", 3}, {"colour", kBlack}, {"strength", 100}};
  EXPECT_PICTURE(rowsOf(after(plainDib(9, 5, kWhite), "grid", grid)),
                 {"#########", "#...#...#", "#...#...#", "#########", "#...#...#"});
  const Given moved = {{"spacing-x", 6}, {"spacing-y", 6},   {"width", 2},     {"offset-x", 8},
                       {"offset-y", 1},  {"colour", kBlack}, {"strength", 100}};
  EXPECT_PICTURE(rowsOf(after(plainDib(8, 4, kWhite), "grid", moved)),
                 {"..##....", "########", "########", "..##...."});
  const Given dotted = {{"spacing-x", 4}, {"spacing-y", 4}, {"style", 2}, {"colour", kBlack}, {"strength", 100}};
  EXPECT_PICTURE(rowsOf(after(plainDib(6, 5, kWhite), "grid", dotted)),
                 {"#.#.#.", "......", "#...#.", "......", "#.#.#."});
  const Given dashed = {{"spacing-x", 16}, {"spacing-y", 3}, {"style", 1}, {"colour", kBlack}, {"strength", 100}};
  const Rows dashes = rowsOf(after(plainDib(32, 1, kWhite), "grid", dashed));
  EXPECT_EQ(std::ranges::count(dashes[0], '#'), 16);
  EXPECT_EQ(dashes[0].substr(0, 16), dashes[0].substr(16));
}

TEST(Grid, AReducedSampleHasTheSameTone) {
  for (const double style : {0, 1, 2}) {
    const Given grid = {{"style", style}, {"width", 3}, {"spacing-x", 24}, {"spacing-y", 17}, {"colour", kBlack}};
    const clsDIB full = after(plainDib(816, 816, kWhite), "grid", grid);
    const clsDIB sample = after(plainDib(102, 102, kWhite), "grid", grid, false, 0.125);
    EXPECT_NEAR(meanChannel(full, 0), meanChannel(sample, 0), 3) << style;
  }
}

// Left and right exchanged.
clsDIB mirrored(clsDIB picture) {
  clsDIB::RotateDIB(picture, 0);
  return picture;
}

TEST(Solids, AreAsSymmetricAsTheirLight) {
  const Given above = {{"light-from", 0}, {"background", kWhite}};
  const clsDIB sphere = after(plainDib(120, 90, kBlack), "sphere", above);
  EXPECT_LE(farthest(sphere, mirrored(after(plainDib(120, 90, kBlack), "sphere", above))), 2);
  // A quarter turn brings a cube back to where it was.
  const auto cube = [](double turn) {
    return after(plainDib(120, 90, kBlack), "cube", {{"turn", turn}, {"light-from", 70}, {"background", kWhite}});
  };
  EXPECT_LE(farthest(cube(20), cube(110)), 2);
  EXPECT_GE(farthest(cube(20), cube(65)), 50);
  const Given upright = {{"light-from", 0}, {"turn", 45}, {"background", kWhite}};
  EXPECT_LE(farthest(after(plainDib(120, 90, kBlack), "cube", upright),
                     mirrored(after(plainDib(120, 90, kBlack), "cube", upright))),
            2);
}

TEST(Solids, StayInTheirCircleAndAreSmoothAtTheRim) {
  constexpr int kSide = 200;
  const double radius = 0.5 * kSide / 2;
  for (const char* name : {"sphere", "cube"}) {
    Given look = {{"size", 50}, {"shadow", 0}, {"gloss", 0}, {"ambient", 100}, {"colour", kWhite}};
    const clsDIB drawn = after(plainDib(kSide, kSide, rgb(0, 0, 255)), name, look);
    int solid = 0, mixed = 0;
    for (int y = 0; y < kSide; ++y) {
      for (int x = 0; x < kSide; ++x) {
        const Pixel32 p = pixelAt(drawn, x, y);
        const double distance = std::hypot(x + 0.5 - kSide / 2.0, y + 0.5 - kSide / 2.0);
        EXPECT_TRUE(distance <= radius + 1 || p.colour() == rgb(0, 0, 255)) << name << x << "," << y;
        (p.red == p.blue ? solid : p.red > 0 ? mixed : solid) += 1;
      }
    }
    EXPECT_GT(mixed, 100) << name;
    EXPECT_LT(mixed, 900) << name;
    if (name == std::string("sphere")) {
      EXPECT_EQ(pixelAt(drawn, kSide / 2, kSide / 2 - static_cast<int>(radius) - 1).red, 0);
      EXPECT_GT(pixelAt(drawn, kSide / 2, kSide / 2 - static_cast<int>(radius) + 1).red, 100);
    }
  }
}

TEST(Solids, LightSideIsLighterAndShadowFallsAway) {
  for (const char* name : {"sphere", "cube"}) {
    const auto lit = [&](double from) {
      Given look = {{"light-from", from}, {"size", 50}};
      if (name == std::string("cube")) look.insert({{"turn", 45}, {"tilt", 20}});
      return after(plainDib(300, 200, kWhite), name, look);
    };
    const clsDIB left = lit(300);
    int outLeft = 0, outRight = 0;
    for (int y = 0; y < 200; ++y) {
      for (int x = 0; x < 80; ++x) {
        outLeft += 255 - pixelAt(left, x, y).red;
        outRight += 255 - pixelAt(left, 299 - x, y).red;
      }
    }
    EXPECT_GT(outRight, 2 * outLeft + 500) << name;
    EXPECT_GT(pixelAt(left, 125, 95).green + pixelAt(left, 125, 95).red,
              pixelAt(left, 175, 95).green + pixelAt(left, 175, 95).red);
    EXPECT_LE(farthest(left, mirrored(lit(60))), 8) << name;
  }
}

TEST(Solids, ASampleLooksLikeTheReducedResult) {
  for (const char* name : {"sphere", "cube", "gradient"}) {
    const clsDIB large = after(plainDib(640, 480, kWhite), name);
    clsDIB reduced = plainDib(160, 120, kWhite);
    clsDIB::StretchPaintFromDIBtoDIB(large, reduced, true);
    const clsDIB sample = after(plainDib(160, 120, kWhite), name, {}, false, 0.25);
    double difference = 0;
    for (int y = 0; y < 120; ++y) {
      for (int x = 0; x < 160; ++x) difference += std::abs(pixelAt(reduced, x, y).red - pixelAt(sample, x, y).red);
    }
    EXPECT_LT(difference / (160 * 120), 1.0) << name;
  }
}

}  // namespace
}  // namespace ruvo
