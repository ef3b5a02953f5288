#include "effects/filter/clsDIBFilter.h"

#include "base/rounding.h"
#include "support/pictures.h"
#include "support/steady_random.h"

namespace ruvo {
namespace {

Colour grey(int level) {
  return rgb(level, level, level);
}

// The greens of one row of memory order, left to right.
std::vector<int> greens(const clsDIB& dib, int memoryRow = 0) {
  std::vector<int> levels;
  for (int x = 0; x < dib.DIBWidth(); ++x) levels.push_back(dib.surface().view32().at(x, memoryRow).green);
  return levels;
}

// Rows of grey levels, the picture's top line first; byte 3 of each pixel is 77.
clsDIB greys(const std::vector<std::vector<int>>& rows) {
  return test::dibOf(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()), [&](int x, int y) {
    const auto level = static_cast<std::uint8_t>(rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
    return Pixel32{level, level, level, 77};
  });
}

// What an operation makes of one row of greys, byte 3 being checked on the way.
template <typename Operation>
std::vector<int> rowAfter(const std::vector<int>& row, const Operation& operation) {
  clsDIB dib = greys({row});
  EXPECT_TRUE(operation(dib));
  for (int x = 0; x < dib.DIBWidth(); ++x) EXPECT_EQ(test::pixelAt(dib, x, 0).alpha, 77);
  return greens(dib);
}

// A sink that notes what it hears and stops after so many steps.
struct Heard {
  std::vector<int> percents;
  int ends = 0;
  std::size_t patience = 1000;
  Progress progress() {
    return {[this](int percent) { percents.push_back(percent); }, [this] { ++ends; },
            [this] { return percents.size() >= patience; }};
  }
};

clsDIBFilter plain;
using Levels = std::vector<int>;

TEST(clsDIBFilter, brightenHoldsOnlyItsMultiplierIn32Bits) {
  const auto brightened = [](float amount, const Levels& row, std::int64_t exclude = -1) {
    return rowAfter(row, [&](clsDIB& dib) { return plain.BrightenDarken(dib, amount, exclude); });
  };
  // 1.1 as a 32-bit float is a little more: 15 x 1.1 goes past 16.5.
  EXPECT_EQ(brightened(0.1f, {0, 15, 240, 100}), (Levels{0, 17, 255, 110}));
  EXPECT_EQ(brightened(-0.5f, {5, 7, 200}), (Levels{2, 4, 100}));  // halves to even
  EXPECT_EQ(brightened(-3, {5, 200}), (Levels{0, 0}));
  EXPECT_EQ(brightened(0.5f, {100, 10}, grey(100)), (Levels{100, 15}));

  Heard heard;
  clsDIB dib = greys({{1}, {2}});
  EXPECT_TRUE(clsDIBFilter(heard.progress()).BrightenDarken(dib, 0));
  EXPECT_TRUE(heard.percents.empty() && heard.ends == 0);
}

TEST(clsDIBFilter, toneOfEachChannel) {
  const auto contrast = [](float factor, int offset, const Levels& row, std::int64_t exclude = -1) {
    return rowAfter(row, [&](clsDIB& dib) { return plain.Contrast(dib, factor, offset, exclude); });
  };
  EXPECT_EQ(contrast(1, 0, {0, 77, 255}), (Levels{0, 77, 255}));
  EXPECT_EQ(contrast(1, -20, {10, 77, 255}), (Levels{0, 57, 235}));
  // The offset comes after the rounding: 128.5 and 129.5 go to the even ones first.
  EXPECT_EQ(contrast(0.5f, 3, {129, 131, 0}), (Levels{131, 133, 67}));
  EXPECT_EQ(contrast(100, 0, {127, 128, 129}, grey(129)), (Levels{28, 128, 129}));

  const auto faded = [](int percent, const Levels& row) {
    return rowAfter(row, [&](clsDIB& dib) { return plain.Fade(dib, percent); });
  };
  EXPECT_EQ(faded(150, {0, 9}), (Levels{255, 255}));
  EXPECT_EQ(faded(50, {0, 1, 255}), (Levels{128, 128, 255}));  // 127.5 is 128, 128.5 too
  EXPECT_EQ(faded(-50, {100}), (Levels{50}));

  EXPECT_EQ(rowAfter({0, 3, 255}, [](clsDIB& dib) { return plain.Negative(dib, grey(3)); }), (Levels{255, 3, 0}));
  Levels wide, inverted;
  for (int x = 0; x < 103; ++x) wide.push_back(x), inverted.push_back(255 - x);
  EXPECT_EQ(rowAfter(wide, [](clsDIB& dib) { return plain.Negative(dib); }), inverted);
  EXPECT_EQ(rowAfter({0, 64, 255}, [](clsDIB& dib) { return plain.Gamma(dib, 2); }), (Levels{0, 128, 255}));
  EXPECT_EQ(rowAfter({5}, [](clsDIB& dib) { return plain.Gamma(dib, 0); }), (Levels{5}));

  clsDIB dib = test::dibOf({"ab"}, {{'a', rgb(10, 20, 30)}, {'b', rgb(250, 20, 30)}});
  plain.AdjustElement(dib, clsDIBFilter::Element::Red, 9);
  plain.AdjustElement(dib, clsDIBFilter::Element::Blue, -31, rgb(255, 20, 30));
  EXPECT_EQ(test::pixelAt(dib, 0, 0).colour(), rgb(19, 20, 0));
  EXPECT_EQ(test::pixelAt(dib, 1, 0).colour(), rgb(255, 20, 30));
}

TEST(clsDIBFilter, greyAndColorizeAreTheDoublesForEveryKindOfPixel) {
  // All sums that end in a half are among these.
  const auto pixel = [](int x, int y) {
    return Pixel32{static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), static_cast<std::uint8_t>(x * 7 + y), 3};
  };
  clsDIB dib = test::dibOf(257, 256, pixel);  // one more than goes by fours
  plain.Grayscale(dib);
  EXPECT_EQ(test::farthest(&dib.surface(),
                           [&](int x, int y) {
                             const Pixel32 p = pixel(x, y);
                             const auto level =
                                 static_cast<std::uint8_t>(roundToInt(0.3 * p.red + 0.59 * p.green + 0.11 * p.blue));
                             return Pixel32{level, level, level, 3};
                           }),
            0);
  dib = test::dibOf(256, 256, pixel);
  plain.Colorize(dib, rgb(200, 99, 1));
  EXPECT_EQ(test::farthest(&dib.surface(),
                           [&](int x, int y) {
                             const Pixel32 p = pixel(x, y);
                             const double bright = (p.red + p.green + p.blue) / 765.0;
                             const auto of = [&](int c) { return static_cast<std::uint8_t>(roundToInt(c * bright)); };
                             return Pixel32{of(1), of(99), of(200), 3};
                           }),
            0);
}

TEST(clsDIBFilter, hueLuminationSaturation) {
  const auto hls = [](int r, int g, int b) { return clsDIBFilter::RGBToHLS(r, g, b); };
  EXPECT_DOUBLE_EQ(hls(255, 0, 0).h, 0);
  EXPECT_DOUBLE_EQ(hls(0, 255, 0).h, 2);
  EXPECT_DOUBLE_EQ(hls(255, 0, 255).h, 5);  // below 0 gains a turn
  EXPECT_DOUBLE_EQ(hls(255, 153, 153).s, 1);
  EXPECT_DOUBLE_EQ(hls(90, 90, 90).s, 0);
  for (const Colour colour : {rgb(1, 2, 3), rgb(200, 10, 90), rgb(9, 250, 140), rgb(80, 80, 79), kWhite}) {
    const auto there = hls(redOf(colour), greenOf(colour), blueOf(colour));
    const auto back = clsDIBFilter::HLSToRGB(there.h, there.l, there.s);
    EXPECT_EQ(rgb(roundToInt(back.r), roundToInt(back.g), roundToInt(back.b)), colour);
  }
  const test::Ink ink = {{'r', rgb(200, 0, 0)}, {'=', grey(100)}};
  clsDIB dib = test::dibOf({"r="}, ink);
  plain.ColorTheme_HLS(dib, {.Hue = 120, .SkipGreys = true});
  EXPECT_EQ(test::pixelAt(dib, 0, 0).colour(), rgb(0, 200, 0));
  EXPECT_EQ(test::pixelAt(dib, 1, 0).colour(), grey(100));
  plain.ColorTheme_HLS(dib, {.Hue = 240, .Lumination = 120, .Saturation = 240});
  EXPECT_EQ(test::pixelAt(dib, 1, 0).colour(), rgb(0, 0, 255));
  dib = test::dibOf({"r="}, ink);
  plain.ColorTheme_RGB(dib, {10, 0, -100});
  EXPECT_EQ(test::pixelAt(dib, 0, 0).colour(), rgb(77, 67, 0));  // 200 / 3 is 66.67
  EXPECT_EQ(test::pixelAt(dib, 1, 0).colour(), rgb(110, 100, 0));
  plain.SwapElements(dib, clsDIBFilter::Order::GBR);
  EXPECT_EQ(test::pixelAt(dib, 0, 0).colour(), rgb(67, 0, 77));
}

TEST(clsDIBFilter, softenAndSharpenLeaveTheOuterRing) {
  const std::vector<Levels> rows = {{9, 9, 9, 9}, {8, 100, 4, 7}, {5, 3, 250, 2}, {1, 6, 1, 1}};
  clsDIB dib = greys(rows);
  plain.Soften(dib);
  EXPECT_EQ(greens(dib, 3), rows[0]);
  EXPECT_EQ(greens(dib, 2), (Levels{8, 24, 74, 7}));  // (100 + 8 + 4 + 9 + 3) / 5 = 24.8
  EXPECT_EQ(greens(dib, 1), (Levels{5, 72, 52, 2}));
  dib = greys(rows);
  plain.Sharpen(dib, 0.5f, grey(4));
  EXPECT_EQ(greens(dib, 2), (Levels{8, 169, 4, 7}));  // 100 + 92 / 2 x 1.5
  EXPECT_EQ(greens(dib, 1), (Levels{5, 1, 255, 2}));  // 3 - 1.5, which is rounded to -2
  for (Levels small : {Levels{7}, Levels{7, 8}, Levels{1, 2, 3}}) {
    EXPECT_EQ(rowAfter(small, [](clsDIB& d) { return plain.Soften(d) && plain.Sharpen(d, 3); }), small);
  }
}

TEST(clsDIBFilter, embossComparesWithLeftAndAboveAndWrapsTheTopLine) {
  // Memory row 0 is the bottom line.
  const std::vector<Levels> rows = {{0, 100, 200}, {200, 0, 100}};
  Heard heard;
  clsDIB dib = greys(rows);
  EXPECT_TRUE(clsDIBFilter(heard.progress()).Emboss(dib, 1, 128, 128, 128));
  // Bottom: c-a, a-a, b-b (the neighbours stand in the line above, one column to the left).
  EXPECT_EQ(greens(dib, 0), (Levels{255, 128, 128}));
  // Top wraps to the bottom: a-c, b-c, c-a.
  EXPECT_EQ(greens(dib, 1), (Levels{72, 28, 255}));
  EXPECT_EQ(heard.percents, (Levels{0, 100}));
  EXPECT_EQ(heard.ends, 1);

  clsDIB engraved = greys(rows);
  plain.Engrave(engraved, 0.5f, 128, 128, 128);
  EXPECT_EQ(greens(engraved, 0), (Levels{28, 128, 128}));
  EXPECT_EQ(greens(engraved, 1), (Levels{228, 178, 28}));
  // 0.2 x 255 + 0.7 x 20 + 0.1 x 10
  EXPECT_EQ(rowAfter({9}, [](clsDIB& one) { return plain.Emboss(one, 1, 10, 20, 400); }), (Levels{66}));
}

TEST(clsDIBFilter, castWrapsRoundAndGivesItsLevelsAtTheEdge) {
  const test::Ink ink = {{'a', rgb(250, 10, 100)}, {'b', rgb(50, 200, 100)}, {'.', kWhite}};
  clsDIB dib = test::dibOf({".b", "a."}, ink);
  plain.Cast(dib, 128, -128, 300);
  // Bottom left against top right: 200 + 128 wraps, |-190 - 128| wraps, 300 wraps.
  EXPECT_EQ(test::pixelAt(dib, 0, 1).colour(), rgb(328 - 256, 318 - 256, 300 - 256));
  for (const auto& [x, y] : {std::pair{1, 1}, {0, 0}, {1, 0}}) {
    EXPECT_EQ(test::pixelAt(dib, x, y).colour(), rgb(128, 128, 44));
  }
}

TEST(clsDIBFilter, reliefAndTileRepeat) {
  const auto textured = [](const Levels& relief) {
    return rowAfter({100, 100, 100, 100, 100}, [&](clsDIB& dib) { return plain.Texturize(dib, greys({relief})); });
  };
  // Half a step goes to the even one: 64 / 128 is 0, 192 / 128 is 2.
  EXPECT_EQ(textured({64, 65, 191, 192, 128}), (Levels{0, 37, 163, 255, 100}));
  EXPECT_EQ(textured({65, 191}), (Levels{37, 163, 37, 163, 37}));

  clsDIB dib = test::plainDib(5, 3, kWhite);
  plain.Tile(dib, test::dibOf({"#.", ".."}));
  EXPECT_PICTURE(test::rowsOf(dib), ({"#.#.#", ".....", "#.#.#"}));
}

TEST(clsDIBFilter, pixelateStartsAtTheLowerLeftAndTheLaterSquareWins) {
  clsDIB dib = test::dibOf({"abcde", "fghij", "klmno", "pqrst"}, [] {
    test::Ink letters;
    for (char c = 'a'; c <= 't'; ++c) letters[c] = grey(c);
    return letters;
  }());
  const auto text = [&] {
    test::Rows rows;
    for (int y = 3; y >= 0; --y) {
      rows.emplace_back();
      for (const int level : greens(dib, y)) rows.back() += static_cast<char>(level);
    }
    return rows;
  };
  plain.Pixelate(dib, 0);
  EXPECT_PICTURE(text(), ({"abcde", "fghij", "klmno", "pqrst"}));
  plain.Pixelate(dib, 1);  // the last column and line have no square of their own
  EXPECT_PICTURE(text(), ({"fghii", "fghii", "klmnn", "pqrss"}));
  plain.Pixelate(dib, 2);
  EXPECT_PICTURE(text(), ({"ffhhh", "ffhhh", "pprrr", "pprrr"}));
  plain.Pixelate(dib, 2000000000);
  EXPECT_PICTURE(text(), ({"ppppp", "ppppp", "ppppp", "ppppp"}));
  EXPECT_EQ(rowAfter({1, 2, 3}, [](clsDIB& line) { return plain.Pixelate(line, 2); }), (Levels{1, 2, 3}));
}

TEST(clsDIBFilter, grainMultipliesAllChannelsOfAPixel) {
  test::SteadyRandom half(0.5);
  EXPECT_EQ(rowAfter({10, 200, 30}, [&](clsDIB& dib) { return plain.Grainize(dib, 1, half, grey(30)); }),
            (Levels{15, 255, 30}));
}

TEST(clsDIBFilter, reportsOnceARowAndStopsWhenTold) {
  Heard heard;
  clsDIB line = greys({{1, 2, 3}});
  EXPECT_TRUE(clsDIBFilter(heard.progress()).Negative(line));
  EXPECT_TRUE(clsDIBFilter(heard.progress()).Pixelate(line, 1));
  EXPECT_TRUE(heard.percents.empty());
  EXPECT_EQ(heard.ends, 2);

  clsDIB tall = test::plainDib(3, 5, kWhite);
  EXPECT_TRUE(clsDIBFilter(heard.progress()).Soften(tall));
  EXPECT_EQ(heard.percents, (Levels{0, 25, 50, 75, 100}));
  heard.patience = 7;
  EXPECT_FALSE(clsDIBFilter(heard.progress()).Negative(tall));
  EXPECT_EQ(heard.ends, 4);
  EXPECT_EQ(greens(tall, 1), (Levels{0, 0, 0}));
  EXPECT_EQ(greens(tall, 2), (Levels{255, 255, 255}));
  clsDIB empty, shallow = test::plainDib(2, 2, kBlack, 8);
  EXPECT_TRUE(plain.Cast(empty, 1, 2, 3) && plain.Emboss(shallow, 1, 0, 0, 0) && plain.AddShadow(empty, 1, 1, 1, 0));
}

TEST(clsDIBFilter, antialiasingFillsStepsAndNothingElse) {
  // A straight edge through steps of four covers 7, 5, 3 and 1 eighths of their pixels, above and below half of them.
  clsDIB dib = greys({{255, 255, 255, 255, 255, 255, 255, 255, 255, 255},
                      {255, 255, 255, 255, 255, 255, 255, 255, 0, 0},
                      {255, 255, 255, 255, 0, 0, 0, 0, 0, 0},
                      {0, 0, 0, 0, 0, 0, 0, 0, 0, 0}});
  clsDIB half = greys({greens(dib, 3), greens(dib, 2), greens(dib, 1), greens(dib, 0)});
  plain.doAntiAliasing(dib, 100);
  EXPECT_EQ(greens(dib, 3), (Levels(10, 255)));
  Levels row = greens(dib, 2);
  EXPECT_EQ((Levels{row.begin() + 4, row.begin() + 8}), (Levels{255, 255, 223, 159}));
  row = greens(dib, 1);
  EXPECT_EQ((Levels{row.begin() + 4, row.begin() + 8}), (Levels{96, 32, 0, 0}));
  plain.doAntiAliasing(half, 50);
  EXPECT_EQ(greens(half, 1)[4], 48);
  // A thin line passes gradually from one row to the next.
  clsDIB line = test::dibOf({"........", "####....", "....####", "........"});
  plain.doAntiAliasing(line, 100);
  const Levels leaving = greens(line, 2), entering = greens(line, 1);
  EXPECT_TRUE(std::ranges::is_sorted(leaving) && leaving[3] < 128 && leaving[4] > 127) << testing::PrintToString(leaving);
  for (std::size_t x = 0; x < leaving.size(); ++x) EXPECT_NEAR(leaving[x] + entering[x], 255, 1);
  // Corners and straight edges are meant.
  const test::Rows square = {"......", ".####.", ".####.", ".####.", "......"};
  dib = test::dibOf(square);
  plain.doAntiAliasing(dib, 100);
  EXPECT_TRUE(test::samePicture(test::rowsOf(dib), square));
  // A colour that nobody sees leaves no rim.
  const auto stepped = [](int x, int y) { return y > x / 4 ? Pixel32::opaque(kWhite) : Pixel32{}; };
  for (const bool hasAlpha : {false, true}) {
    clsDIB cutOut = test::dibOf(8, 4, stepped);
    cutOut.setDIBhasAlpha(hasAlpha);
    plain.doAntiAliasing(cutOut, 100);
    EXPECT_EQ(greens(cutOut, 2)[3] == 255, hasAlpha);
  }
}

TEST(clsDIBFilter, shadowFallsOnTheBackgroundOnly) {
  const test::Ink ink = {{'.', grey(100)}, {'#', rgb(1, 2, 3)}, {'s', grey(30)}};  // three tenths of the background
  clsDIB dib = test::dibOf({".....", ".##..", ".##..", "....."}, ink);
  plain.AddShadow(dib, 1, 1, 0, kBlack);
  EXPECT_PICTURE(test::rowsOf(dib, ink), ({".....", ".##..", ".##s.", "..ss."}));
  plain.AddShadow(dib, -2000000000, 2000000000, 2, kBlack);
  EXPECT_PICTURE(test::rowsOf(dib, ink), ({".....", ".##..", ".##s.", "..ss."}));

  clsDIB soft = test::plainDib(60, 60, kWhite);
  test::pixelAt(soft, 0, 0).alpha = 9;
  for (int y = 10; y < 40; ++y) {
    for (int x = 10; x < 40; ++x) test::pixelAt(soft, x, y) = {};
  }
  plain.AddShadow(soft, 8, 8, 12, kBlack);
  EXPECT_EQ(test::pixelAt(soft, 0, 0), (Pixel32{255, 255, 255, 9}));
  // Half strength at the shadow's edge, none beyond its reach.
  EXPECT_NEAR(test::pixelAt(soft, 47, 30).green + test::pixelAt(soft, 48, 30).green, 2 * 255 * 0.65, 2);
  EXPECT_EQ(test::pixelAt(soft, 54, 30).green, 255);
  EXPECT_NEAR(test::pixelAt(soft, 41, 30).green, 255 * 0.3, 2);
}

}  // namespace
}  // namespace ruvo
