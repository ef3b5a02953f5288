#include "platform/imaging/resample.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/pictures.h"

namespace ruvo::imaging {
namespace {

using raster::Surface;
using namespace test;

Surface blank(int width, int height, int depth = 32) {
  Surface surface;
  surface.create(width, height, depth);
  return surface;
}

TEST(Resample, NearestTakesTheSourcePixelUnderTheCentre) {
  for (const auto& [from, to] : {std::pair{5, 3}, {3, 7}, {10, 10}, {1, 4}, {9, 1}}) {
    Surface source = blank(from, 1), target = blank(to, 1), packed = blank(from, 1, 4), packedTarget = blank(to, 1, 4);
    for (int x = 0; x < from; ++x) {
      pixelAt(source, x, 0) = {static_cast<std::uint8_t>(x), 0, 0, 77};
      packed.pictureRow(0)[x / 2] |= static_cast<std::uint8_t>(x % 2 ? x : x << 4);
    }
    resampleNearest(source, target);
    resampleNearest(packed, packedTarget);
    for (int i = 0; i < to; ++i) {
      const int wanted = static_cast<int>(std::floor((i + 0.5) * from / to));
      EXPECT_EQ(pixelAt(target, i, 0), (Pixel32{static_cast<std::uint8_t>(wanted), 0, 0, 77}))
          << from << ' ' << to << ' ' << i;
      EXPECT_EQ(packedTarget.pictureRow(0)[i / 2] >> (i % 2 ? 0 : 4) & 15, wanted);
    }
  }
}

TEST(Resample, BicubicKeepsFlatColoursSizesAndStraightRamps) {
  for (const auto& [width, height] : {std::pair{1, 1}, {3, 50}, {200, 7}, {37, 23}}) {
    Surface target = blank(width, height);
    resampleBicubic(surfaceOf(37, 23, [](int, int) { return Pixel32{10, 250, 255, 9}; }), target, false);
    // Corners too: edges do not fade.
    EXPECT_EQ(farthest(&target, [](int, int) { return Pixel32{10, 250, 255, 0}; }), 0);
  }
  Surface ramp = blank(40, 1), same = blank(40, 1), twice = blank(80, 1), half = blank(20, 1);
  for (int x = 0; x < 40; ++x) pixelAt(ramp, x, 0).green = static_cast<std::uint8_t>(6 * x);
  resampleBicubic(ramp, same, false);
  EXPECT_TRUE(std::equal(ramp.bits(), ramp.bits() + ramp.byteCount(), same.bits()));
  resampleBicubic(ramp, twice, false);
  resampleBicubic(ramp, half, false);
  for (int x = 8; x < 72; ++x) EXPECT_NEAR(pixelAt(twice, x, 0).green, 6 * ((x + 0.5) / 2 - 0.5), 0.51);
  for (int x = 4; x < 16; ++x) EXPECT_NEAR(pixelAt(half, x, 0).green, 6 * ((x + 0.5) * 2 - 0.5), 0.51);
}

TEST(Resample, BicubicHasTheCubicsWeights) {
  Surface step = blank(16, 1), target = blank(32, 1);
  for (int x = 0; x < 16; ++x) pixelAt(step, x, 0).red = x < 8 ? 40 : 200;
  resampleBicubic(step, target, false);
  // Keys' cubic at distances 1.25, 0.25, 0.75 and 1.75: the centre of target pixel 15 lies a quarter right of pixel 7.
  const double w[] = {-0.0703125, 0.8671875, 0.2265625, -0.0234375};
  EXPECT_NEAR(pixelAt(target, 15, 0).red, 40 * (w[0] + w[1]) + 200 * (w[2] + w[3]), 0.51);
  // On both sides of the step the curve overshoots.
  EXPECT_NEAR(pixelAt(target, 14, 0).red, 40 + 160 * w[0], 0.51);
  EXPECT_NEAR(pixelAt(target, 17, 0).red, 200 - 160 * w[0], 0.51);
  EXPECT_EQ(pixelAt(target, 5, 0).red, 40);
}

TEST(Resample, ShrinkingCountsEverySourcePixel) {
  Surface small = blank(10, 10);
  resampleBicubic(surfaceOf(100, 100, [](int x, int y) { return Pixel32::plain((x + y) % 2 ? kWhite : kBlack); }),
                  small, false);
  EXPECT_LE(farthest(&small, [](int, int) { return Pixel32{127, 127, 127, 0}; }), 3);
}

// So many rows go into each of so wide a target row that they can not be kept: a ramp down becomes its mean, the alpha too.
TEST(Resample, AColumnBecomesALine) {
  Surface column = surfaceOf(1, 32760, [](int, int y) {
    const auto level = static_cast<std::uint8_t>(y * 200 / 32760);
    return Pixel32{level, level, 30, 255};
  });
  Surface line = blank(32760, 1);
  resampleBicubic(column, line, true);
  for (const int x : {0, 16000, 32759}) {
    EXPECT_NEAR(pixelAt(line, x, 0).blue, 100, 1);
    EXPECT_EQ(pixelAt(line, x, 0).red, 30);
    EXPECT_EQ(pixelAt(line, x, 0).alpha, 255);
  }
}

TEST(Resample, SeeThroughColoursDoNotBleed) {
  const auto half = [](int x, int) { return x < 10 ? Pixel32{0, 0, 200, 255} : Pixel32{255, 255, 0, 0}; };
  Surface target = blank(7, 7);
  resampleBicubic(surfaceOf(20, 20, half), target, true);
  EXPECT_EQ(pixelAt(target, 0, 3), (Pixel32{0, 0, 200, 255}));
  EXPECT_EQ(pixelAt(target, 6, 3).alpha, 0);
  EXPECT_GT(pixelAt(target, 3, 3).alpha, 90);
  EXPECT_LT(pixelAt(target, 3, 3).alpha, 165);
  EXPECT_NEAR(pixelAt(target, 3, 3).red, 200, 1);
  EXPECT_EQ(pixelAt(target, 3, 3).blue, 0);
}

TEST(Resample, TablesTakeTheNearestEntry) {
  Surface source = blank(8, 8, 8), target = blank(4, 4, 8);
  for (Surface* surface : {&source, &target}) {
    surface->table()[5] = raster::TableEntry::of(kWhite);
    surface->table()[9] = raster::TableEntry::of(rgb(128, 128, 128));
  }
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) source.pictureRow(y)[x] = (x + y) % 2 ? 5 : 0;
  }
  resampleBicubic(source, target, false);
  EXPECT_EQ(target.pictureRow(1)[1], 9);
}

}  // namespace
}  // namespace ruvo::imaging
