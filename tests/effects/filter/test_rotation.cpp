#include <cmath>

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/rotation_size.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

clsDIB turned(const clsDIB& source, Size size, double angle, bool antialias, std::int64_t transparent = -1,
              Colour fill = kWhite) {
  clsDIB target = test::plainDib(size.width, size.height, kBlack);
  EXPECT_TRUE(clsDIBFilter().RotateDIB_To_DIB(source, target, angle, antialias, transparent, fill));
  return target;
}

TEST(Rotation, growsToASquareOfTheDiagonalWithinTheLimits) {
  EXPECT_EQ(rotatedSide({100, 100}), 143);
  EXPECT_EQ(rotatedSide({1, 1}), 3);
  EXPECT_EQ(rotatedSide({4998, 4}), 5000);
  EXPECT_TRUE(rotationMayGrow({4998, 4}));  // 25,000,000 pixels
  EXPECT_FALSE(rotationMayGrow({4999, 4}));
  EXPECT_FALSE(rotationMayGrow({25000000, 1}));
}

TEST(Rotation, angleZeroIsTheSamePicture) {
  for (const Size size : {Size{5, 3}, Size{4, 6}, Size{1, 1}, Size{1, 4}}) {
    const auto pixel = [](int x, int y) {
      return Pixel32{static_cast<std::uint8_t>(9 * x), static_cast<std::uint8_t>(7 * y), 3, 8};
    };
    const clsDIB source = test::dibOf(size.width, size.height, pixel);
    for (const bool antialias : {false, true}) {
      EXPECT_EQ(test::farthest(&turned(source, size, 0, antialias).surface(), pixel), 0);
      EXPECT_EQ(test::farthest(&turned(source, size, 360, antialias).surface(), pixel), 0);
    }
  }
}

TEST(Rotation, quarterTurnsAreAnticlockwiseAndTheRestIsFilled) {
  const test::Ink ink = {
      {'a', rgb(1, 0, 0)}, {'b', rgb(2, 0, 0)}, {'c', rgb(3, 0, 0)}, {'d', rgb(4, 0, 0)}, {'.', rgb(0, 0, 9)}};
  const clsDIB source = test::dibOf({"abc", "d.."}, ink);
  for (const bool antialias : {false, true}) {
    const clsDIB result = turned(source, {6, 6}, 90, antialias, -1, rgb(0, 0, 9));
    EXPECT_PICTURE(test::rowsOf(result, ink), ({"......", "......", "......", "..c...", "..b...", "..ad.."}));
  }
  clsDIB alpha = test::dibOf(1, 1, [](int, int) { return Pixel32{1, 2, 3, 200}; });
  const clsDIB grown = turned(alpha, {3, 3}, 0, true);
  EXPECT_EQ(test::pixelAt(grown, 0, 0), (Pixel32{255, 255, 255, 0}));
  EXPECT_EQ(test::pixelAt(grown, 1, 1), (Pixel32{1, 2, 3, 200}));
}

// The stated mapping, point by point.
TEST(Rotation, everyPixelIsTheStatedMix) {
  const int w = 9, h = 7;
  const auto level = [](int x, int y) { return x % 2 == 0 ? 255 : 10 * x + 3 * y; };
  const clsDIB source = test::dibOf(w, h, [&](int x, int y) {
    return Pixel32{static_cast<std::uint8_t>(level(x, y)), static_cast<std::uint8_t>(20 * y), 0, 50};
  });
  const Size size{15, 14};
  for (const double angle : {17.0, 45.0, 200.5, -80.0}) {
    const double c = std::cos(angle * 3.14159265359 / 180), s = std::sin(angle * 3.14159265359 / 180);
    const auto wanted = [&](bool antialias) {
      return [=](int x, int y) -> Pixel32 {
        const double u = x - 8, v = y - 7;
        const double sx = c * u - s * v + 5, sy = s * u + c * v + 4;
        const int nx = roundToInt(sx), ny = roundToInt(sy);
        if (nx < 0 || ny < 0 || nx >= w || ny >= h) return {255, 255, 255, 0};
        const auto at = [&](int px, int py, bool green) -> double {
          px = std::clamp(px, 0, w - 1), py = std::clamp(py, 0, h - 1);
          return green ? 20 * py : level(px, py);
        };
        if (!antialias) {
          return {static_cast<std::uint8_t>(at(nx, ny, false)), static_cast<std::uint8_t>(at(nx, ny, true)), 0, 50};
        }
        const int fx = static_cast<int>(std::floor(sx)), fy = static_cast<int>(std::floor(sy));
        const auto mix = [&](bool green) {
          const double top = at(fx, fy, green) * (1 - sx + fx) + at(fx + 1, fy, green) * (sx - fx);
          const double low = at(fx, fy + 1, green) * (1 - sx + fx) + at(fx + 1, fy + 1, green) * (sx - fx);
          return static_cast<std::uint8_t>(roundToInt(top * (1 - sy + fy) + low * (sy - fy)));
        };
        return {mix(false), mix(true), 0, 50};
      };
    };
    EXPECT_EQ(test::farthest(&turned(source, size, angle, false).surface(), wanted(false)), 0) << angle;
    EXPECT_EQ(test::farthest(&turned(source, size, angle, true).surface(), wanted(true)), 0) << angle;
  }
}

TEST(Rotation, theTransparentColourGivesTheFillAndNeverBleeds) {
  const test::Ink ink = {{'t', rgb(255, 0, 255)}, {'#', kBlack}, {'.', kWhite}};
  const clsDIB source = test::dibOf({"tttt", "t##t", "t##t", "tttt"}, ink);
  for (const double angle : {0.0, 30.0, 45.0}) {
    const clsDIB result = turned(source, {8, 8}, angle, true, rgb(255, 0, 255));
    for (const std::string& row : test::rowsOf(result, ink)) EXPECT_EQ(row.find_first_not_of("#."), std::string::npos);
  }
  EXPECT_PICTURE(test::rowsOf(turned(source, {4, 4}, 0, true, rgb(255, 0, 255)), ink),
                 ({"....", ".##.", ".##.", "...."}));
}

TEST(Rotation, aColourThatNobodySeesNeverBleeds) {
  clsDIB source = test::dibOf(
      9, 9, [](int x, int y) { return x > 2 && y > 2 && x < 6 && y < 6 ? Pixel32::opaque(kWhite) : Pixel32{}; });
  source.setDIBhasAlpha(true);
  const clsDIB result = turned(source, {9, 9}, 30, true);
  int rims = 0;
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 9; ++x) {
      const Pixel32 p = test::pixelAt(result, x, y);
      if (p.alpha > 0) EXPECT_EQ(p.colour(), kWhite) << x << ' ' << y;
      rims += p.alpha > 0 && p.alpha < 255;
    }
  }
  EXPECT_GT(rims, 5);
}

TEST(Rotation, readsOtherDepthsAndLeavesWhatItCanNotDo) {
  clsDIB shallow = test::plainDib(2, 2, kBlack, 8), empty, target = test::plainDib(2, 2, kWhite);
  clsDIBFilter filter;
  EXPECT_TRUE(filter.RotateDIB_To_DIB(empty, target, 10, true));
  EXPECT_PICTURE(test::rowsOf(target), ({"..", ".."}));
  EXPECT_TRUE(filter.RotatePic_To_DIB(shallow.surface(), target, 0, false));
  EXPECT_PICTURE(test::rowsOf(target), ({"##", "##"}));
  EXPECT_TRUE(filter.RotateDIB_To_DIB(target, shallow, 10, true) && filter.RotateDIB_To_DIB(target, empty, 10, true));
  const Progress stopping{{}, {}, [] { return true; }};
  EXPECT_FALSE(clsDIBFilter(stopping).RotatePic_To_Pic(shallow.surface(), target.surface(), 10, true));
}

}  // namespace
}  // namespace ruvo
