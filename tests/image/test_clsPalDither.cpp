#include "image/clsPalDither.h"

#include <set>

#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

std::vector<int> greysOf(const clsDIB& dib, int row) {
  std::vector<int> greys;
  for (int x = 0; x < dib.DIBWidth(); ++x) greys.push_back(dib.surface().view32().at(x, row).green);
  return greys;
}

using Dither = void (clsPalDither::*)(clsDIB&, int);

TEST(ClsPalDither, GreyAtTheMeanGivesAPatternThatStartsWhite) {
  for (const Dither dither : {Dither{&clsPalDither::DitherToBW_Stucki}, &clsPalDither::DitherToBW_FloydSteinberg,
                              &clsPalDither::DitherToBW_Burke}) {
    clsDIB dib = plainDib(33, 9, rgb(128, 128, 128));
    clsPalDither work;
    (work.*dither)(dib, clsPalDither::kUsualScale);
    EXPECT_EQ(dib.surface().view32().at(0, 0).colour(), kWhite);
    EXPECT_EQ(clsDIB::CountColorsDIB(dib), 2);
    EXPECT_EQ(work.stride(), 8);
    int white = 0;
    for (int y = 0; y < 9; ++y) {
      for (int x = 0; x < 33; ++x) {
        const bool bit = work.row(y)[static_cast<std::size_t>(x / 8)] >> (7 - x % 8) & 1;
        EXPECT_EQ(bit, dib.surface().view32().at(x, y).colour() == kWhite);
        white += bit;
      }
      EXPECT_EQ(work.row(y)[4] & 0x7F, 0);  // padding
    }
    EXPECT_GT(white, 33 * 9 / 3);
    EXPECT_LT(white, 33 * 9 * 2 / 3);
  }
}

TEST(ClsPalDither, FewWhiteDotsOnBlackStayFew) {
  clsDIB dib = plainDib(64, 8, kBlack);
  dib.surface().view32().at(5, 0) = Pixel32::plain(kWhite);
  clsPalDither work;
  work.DitherToBW_Stucki(dib);
  EXPECT_EQ(work.row(0)[0], 0x04);
  EXPECT_EQ(dib.surface().view32().at(6, 7), Pixel32::plain(kBlack));
}

TEST(ClsPalDither, ErrorsFollowTheShortWeightsByHand) {
  // The mean 90 is the threshold. 90: white, error -165. 90 - 61 x 10 / 15 = 50: black, error 50. 90 + 18 x 10 / 15 =
  // 102: white. The published weights would carry 7 / 16 and, below, 5, 3 and 1.
  clsDIB dib = plainDib(3, 2, rgb(90, 90, 90));
  clsPalDither work;
  work.DitherToBW_FloydSteinberg(dib, 15);
  EXPECT_EQ(greysOf(dib, 0), (std::vector{255, 0, 255}));
  // Row 1: 90 + ((-41) + 6) x 10 / 15 = 67: black, e 67. Then 90 + (12 - 19 + 25) x 10 / 15 = 102: white.
  EXPECT_EQ(greysOf(dib, 1), (std::vector{0, 255, 0}));
  EXPECT_EQ(work.row(0)[0], 0xA0);
  EXPECT_EQ(work.row(1)[0], 0x40);
}

TEST(ClsPalDither, OrderedUsesTheMatrixFromTheMemoryOrigin) {
  clsPalDither work;
  for (const auto& [grey, white] : {std::pair{0, 1}, {127, 8}, {128, 9}, {255, 16}}) {
    clsDIB dib = plainDib(4, 4, rgb(grey, grey, grey));
    work.DitherToBW_Ordered(dib);
    int count = 0;
    for (int y = 0; y < 4; ++y) {
      for (const int g : greysOf(dib, y)) count += g == 255;
    }
    EXPECT_EQ(count, white);
    EXPECT_EQ(work.row(0)[0] >> 7, 1);
  }
}

TEST(ClsPalDither, ColoursOfTheTableComeBackUnchanged) {
  clsPal pal;
  pal.CreateGrays(256);  // neighbours share a cell
  pal.setRgbR(200, 7);
  pal.setRgbG(200, 7);
  pal.setRgbB(200, 7);  // the second entry of that grey
  const auto pixel = [&](int x, int) { return Pixel32::plain(rgb(x, x, x)); };
  clsDIB dib = dibOf(200, 2, pixel);
  clsPalDither work;
  work.DitherToPalette256(dib, pal);
  EXPECT_EQ(farthest(&dib.surface(), pixel), 0);
  for (const int x : {0, 7, 8, 9, 199}) EXPECT_EQ(work.row(1)[static_cast<std::size_t>(x)], x);
  // One colour more, and each cell has one entry: that of its corner.
  dib.surface().view32().at(0, 0) = Pixel32::plain(rgb(1, 2, 3));
  work.DitherToPalette256(dib, pal);
  EXPECT_EQ(work.row(1)[10], 17);
}

TEST(ClsPalDither, ErrorsOfThreeAreDroppedAndOthersSpread) {
  clsPal pal;
  pal.CreatePalette16();
  clsPalDither work;
  clsDIB dib = plainDib(3, 2, kBlack);
  auto view = dib.surface().view32();
  view.at(1, 0) = Pixel32::plain(rgb(1, 1, 1));
  work.DitherToPalette16(dib, pal);
  EXPECT_EQ(clsDIB::IsMultiColorDIB(dib), kBlack);

  dib = plainDib(3, 2, kBlack);
  view = dib.surface().view32();
  view.at(1, 0) = Pixel32{0, 0, 200, 0};  // nearest 192 grey is far; red 255 has error -55
  view.at(2, 0) = view.at(0, 1) = view.at(1, 1) = view.at(2, 1) = Pixel32{0, 0, 100, 0};
  work.DitherToPalette256(dib, pal);
  EXPECT_EQ(view.at(1, 0).red, 255);
  EXPECT_EQ(view.at(2, 0).red, 128);  // 100 - 24 = 76: cell 4 is 68, nearest 128
  EXPECT_EQ(work.row(0)[1], 9);
}

TEST(ClsPalDither, FourBitRowsPackTheEvenColumnHigh) {
  clsPal pal;
  pal.CreatePalette16();
  clsDIB dib = plainDib(3, 1, kWhite);
  dib.surface().view32().at(1, 0) = Pixel32::plain(rgb(255, 0, 0));
  clsPalDither work;
  int told = 0, ends = 0;
  work.cPalDither_Progress = [&](int) { ++told; };
  work.cPalDither_ProgressEnd = [&] { ++ends; };
  work.DitherToPalette16(dib, pal);
  EXPECT_THAT(work.TableEntry(), testing::ElementsAre(0xF9, 0xF0, 0, 0));
  work.DitherToTrueColor(dib);
  work.DitherToBW_Stucki(dib);
  EXPECT_EQ(told, 4);
  EXPECT_EQ(ends, 4);
  clsDIB none;
  work.DitherToPalette16(none, pal);
  EXPECT_TRUE(work.TableEntry().empty());
}

TEST(ClsPalDither, ExactRowsLoseNothingOrSayNo) {
  clsPal pal;
  clsPalDither work;
  // All black stays black; a dither's threshold would make it white.
  ASSERT_TRUE(work.ExactRows(plainDib(9, 1, kBlack), pal, 1));
  EXPECT_THAT(work.TableEntry(), testing::ElementsAre(0, 0, 0, 0));
  EXPECT_EQ(pal.MaxCount(), 2);
  ASSERT_TRUE(work.ExactRows(dibOf({"#.", ".#"}), pal, 1));
  EXPECT_EQ(work.row(0)[0], 0x80);
  EXPECT_EQ(work.row(1)[0], 0x40);

  const Ink ink = {{'r', rgb(255, 0, 0)}, {'w', kWhite}, {'o', rgb(255, 128, 1)}};
  ASSERT_TRUE(work.ExactRows(dibOf({"rw"}, ink), pal, 4));  // among the sixteen
  EXPECT_EQ(pal.MaxCount(), 16);
  EXPECT_EQ(work.row(0)[0], 0x9F);
  ASSERT_TRUE(work.ExactRows(dibOf({"ro"}, ink), pal, 1));  // two others
  EXPECT_EQ(pal.MaxCount(), 2);
  EXPECT_EQ(pal.rgbG(1), 128);
  EXPECT_EQ(work.row(0)[0], 0x40);
  EXPECT_FALSE(work.ExactRows(dibOf({"row"}, ink), pal, 1));
  EXPECT_EQ(pal.MaxCount(), 2);  // as it was
  EXPECT_EQ(work.width(), 2);

  clsDIB greys = plainDib(257, 2, kBlack);
  for (int x = 0; x < 256; ++x) greys.surface().view32().at(x, 1) = Pixel32::plain(rgb(x, x, x));
  ASSERT_TRUE(work.ExactRows(greys, pal, 8));
  for (int x = 0; x < 256; ++x) EXPECT_EQ(pal.rgbR(work.row(1)[static_cast<std::size_t>(x)]), x);
  greys.surface().view32().at(256, 1) = Pixel32::plain(rgb(1, 0, 0));
  EXPECT_FALSE(work.ExactRows(greys, pal, 8));
  EXPECT_FALSE(work.ExactRows(greys, pal, 3));
}

}  // namespace
}  // namespace ruvo
