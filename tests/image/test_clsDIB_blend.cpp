#include <cmath>

#include "image/clsDIB.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

clsDIB plain(int width, int height, Colour colour, int bpp = 32) {
  return plainDib(width, height, colour, bpp);
}

TEST(ClsDibBlend, FractionsAreFloatsAndTheSumIsRoundedOnce) {
  const auto mixed = [](int dst, int src, int percent) {
    clsDIB to = plain(1, 1, rgb(dst, dst, dst));
    clsDIB::BlendIn(to, plain(1, 1, rgb(src, src, src)), percent, -1);
    return int{pixelAt(to, 0, 0).green};
  };
  // Sums in single precision, or fractions in double, give 0 and 230 here.
  EXPECT_EQ(mixed(0, 10, 5), 1);
  EXPECT_EQ(mixed(255, 0, 10), 229);
  for (int percent = 0; percent <= 100; percent += 7) {
    const float f = static_cast<float>(percent) / 100.0f, g = 1.0f - f;
    for (int dst = 0; dst < 256; dst += 5) {
      for (int src = 0; src < 256; src += 3) {
        ASSERT_EQ(mixed(dst, src, percent), static_cast<int>(std::nearbyint(double{g} * dst + double{f} * src)));
      }
    }
  }
}

TEST(ClsDibBlend, SkipsAColourAndKeepsToTheSmallerSize) {
  clsDIB dst = dibOf({"...", "..."});
  std::vector<int> told;
  bool ended = false;
  clsDIB::BlendIn(dst, dibOf({"#.", "##", "##"}), 100, kWhite,
                  {[&](int p) { told.push_back(p); }, [&] { ended = true; }});
  EXPECT_PICTURE(rowsOf(dst), ({"#..", "##."}));
  EXPECT_EQ(told, (std::vector{50, 100}));
  EXPECT_TRUE(ended);
  dst = dibOf({"...", "..."});
  clsDIB::BlendIn_Masked(dst, dibOf({"###", "###"}), dibOf({"#.", ".#"}), 100);
  EXPECT_PICTURE(rowsOf(dst), ({"#..", ".#."})) << "a mask lets black through";

  clsDIB deep = plain(2, 1, kWhite, 24);  // other depths go through 32 bits
  clsDIB::BlendIn(deep, dibOf({"#"}), 50, -1);
  EXPECT_THAT(std::vector(deep.DIBBitsPtr(), deep.DIBBitsPtr() + 6),
              testing::ElementsAre(128, 128, 128, 255, 255, 255));
}

TEST(ClsDibBlend, AlphaIsShownInWholePercents) {
  const std::uint8_t alphas[] = {0, 128, 255};
  clsDIB dib = dibOf(3, 2, [&](int x, int y) {
    return y == 0 ? Pixel32{200, 100, 0, alphas[x]} : Pixel32{1, 1, 1, 255};
  });
  dib.setDIBhasAlpha(true);
  clsDIB target = plain(3, 2, kBlack);
  clsDIB::Display_DIB_With_Alpha(dib, target.surface(), kWhite);
  EXPECT_EQ(pixelAt(target, 0, 0), (Pixel32{255, 255, 255, 0}));
  EXPECT_EQ(pixelAt(target, 1, 0), (Pixel32{228, 178, 128, 0}));  // half: 227.5 and 127.5 and 177.5 to even
  EXPECT_EQ(pixelAt(target, 2, 0), (Pixel32{200, 100, 0, 0}));
  EXPECT_EQ(pixelAt(target, 0, 1), (Pixel32{1, 1, 1, 0}));
  clsDIB::Display_DIB_With_Alpha(dib, target.surface(), kWhite, true);
  EXPECT_EQ(pixelAt(target, 0, 0).colour(), rgb(1, 1, 1));
  dib.setDIBhasAlpha(false);
  clsDIB::Display_DIB_With_Alpha(dib, target.surface(), kWhite);
  EXPECT_EQ(pixelAt(target, 0, 0).colour(), rgb(0, 100, 200));
}

TEST(ClsDibBlend, AlphaValuesComeInWhereTheMaskIsBlack) {
  clsDIB dib = plain(2, 2, rgb(1, 2, 3));
  const std::vector<std::uint8_t> alpha = {10, 20, 30, 40};
  clsDIB::Fill_DIB_With_AlphaValues(dib, dibOf({"#.", "##"}).surface(), alpha);
  EXPECT_EQ(pixelAt(dib, 0, 0), (Pixel32{3, 2, 1, 10}));
  EXPECT_EQ(pixelAt(dib, 1, 0), (Pixel32{255, 255, 255, 255}));
  EXPECT_EQ(pixelAt(dib, 1, 1), (Pixel32{3, 2, 1, 40}));
  dib.setDIBhasAlpha(true);
  clsDIB::CreateMask_viaDC(dib);
  EXPECT_FALSE(dib.DIBhasAlpha());
  EXPECT_EQ(pixelAt(dib, 1, 0), (Pixel32{255, 255, 255, 0}));
}

TEST(ClsDibBlend, TurnsAtEveryDepth) {
  const Rows rows = {"#..", "##."};
  const Rows expected[] = {{"..#", ".##"}, {"##.", "#.."}, {"..", ".#", "##"}, {"##", "#.", ".."}, rows};
  for (const int bpp : {1, 4, 8, 24, 32}) {
    for (int mode = 0; mode < 5; ++mode) {
      clsDIB dib = plain(3, 2, kWhite, bpp);
      clsDIB::PaintFromDIBtoDIB(dibOf(rows), dib);
      clsDIB::RotateDIB(dib, mode);
      EXPECT_EQ(dib.DIBbpp(), mode == 2 || mode == 3 ? 32 : bpp);
      EXPECT_TRUE(samePicture(rowsOf(dib), expected[mode])) << bpp << ' ' << mode;
    }
  }
  // Larger than the squares in which it is turned, and with alpha.
  const auto numbered = [](int x, int y) {
    return Pixel32{static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 1, 7};
  };
  clsDIB large = dibOf(70, 41, numbered);
  large.setDIBhasAlpha(true);
  clsDIB::RotateDIB(large, 2);
  EXPECT_TRUE(large.DIBhasAlpha());
  EXPECT_EQ(farthest(&large.surface(), [&](int x, int y) { return numbered(69 - y, x); }), 0);
  clsDIB::RotateDIB(large, 3);
  EXPECT_EQ(farthest(&large.surface(), numbered), 0);
}

TEST(ClsDibPaint, SizesBelowOneMeanTheWholeAndTilesRepeat) {
  clsDIB dst = dibOf({"....", "....", "...."});
  clsDIB::PaintFromDIBtoDIB(dibOf({"##", "##"}), dst, 3, 1);
  EXPECT_PICTURE(rowsOf(dst), ({"....", "...#", "...#"}));
  clsDIB::PaintFromDIBtoDIB(dibOf({"#.", "##"}), dst, 0, 0, 1, 0, 1, 1);
  EXPECT_PICTURE(rowsOf(dst), ({"#...", "...#", "...#"}));
  clsDIB::TileDIB(dibOf({"#.", ".."}), dst);
  EXPECT_PICTURE(rowsOf(dst), ({"#.#.", "....", "#.#."}));
  clsDIB::TileDIB(dibOf({"#....", "....#"}), dst);
  EXPECT_PICTURE(rowsOf(dst), ({"#...", "....", "#..."}));
  clsDIB::ColorBackGroundDIB(dst, kBlack);
  EXPECT_EQ(dst.DIBBackColor(), kBlack);
  clsDIB::StretchPaintFromDIBtoDIB(dibOf({".."}), dst, false, 1, 1, 2, 1);
  EXPECT_PICTURE(rowsOf(dst), ({"####", "#..#", "####"}));
  clsDIB::StretchPaintFromDIBtoDIB(dst, dst, false, 0, 0, 4, 3, 1, 1, 1, 1);  // onto itself
  EXPECT_PICTURE(rowsOf(dst), ({"....", "....", "...."}));
}

TEST(ClsDibPaint, BilinearReachesTheLastColumnOnlyByAWholeStep) {
  const clsDIB src = dibOf(3, 1, [](int x, int) { return Pixel32::plain(rgb(100 * x, 0, 0)); });
  clsDIB dst = dibOf(4, 1, [](int, int) { return Pixel32{0, 0, 0, 5}; });
  clsDIB::StretchPaintFromDIBtoDIB_Antialias_NativeDB(src, dst);
  const std::uint8_t reds[] = {0, 50, 100, 100};  // column 2 is no neighbour: 2 is not below 3 - 1
  EXPECT_EQ(farthest(&dst.surface(), [&](int x, int) { return Pixel32{0, 0, reds[x], 5}; }), 0);
}

TEST(ClsDibPaint, BestFitKeepsProportionsAndNeverVanishes) {
  const auto fit = [](int width, int height, int maxW, int maxH, bool force) {
    std::array<int, 4> r{};
    plain(width, height, kWhite, 1).GetBestFitPointAndSize(maxW, maxH, r[0], r[1], r[2], r[3], force);
    return r;
  };
  EXPECT_EQ(fit(50, 20, 100, 100, false), (std::array{25, 40, 50, 20}));
  EXPECT_EQ(fit(50, 20, 100, 100, true), (std::array{0, 30, 100, 40}));
  EXPECT_EQ(fit(300, 400, 100, 100, false), (std::array{12, 0, 75, 100}));
  EXPECT_EQ(fit(1000, 1, 100, 100, false), (std::array{0, 49, 100, 1}));
  EXPECT_EQ(fit(0, 0, 100, 100, false), (std::array{0, 0, 0, 0}));
}

}  // namespace
}  // namespace ruvo
