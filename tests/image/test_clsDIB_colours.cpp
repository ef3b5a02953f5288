#include "image/clsDIB.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using test::dibOf;

// A row of the given colours.
clsDIB rowOf(const std::vector<Colour>& colours) {
  return dibOf(static_cast<int>(colours.size()), 1, [&](int x, int) { return Pixel32::plain(colours[x]); });
}

TEST(ClsDibColours, CountingIgnoresTheFourthByte) {
  clsDIB dib = dibOf({"#.#", "..."});
  test::pixelAt(dib, 1, 0).alpha = 200;
  EXPECT_EQ(clsDIB::CountColorsDIB(dib), 2);
  EXPECT_EQ(clsDIB::IsMultiColorDIB(dib), clsDIB::kMultiColor);
  EXPECT_EQ(clsDIB::IsMultiColorDIB(dibOf({".", "."})), kWhite);
  EXPECT_EQ(clsDIB::CountColorsDIB(clsDIB()), 0);

  clsDIB indexed = test::plainDib(3, 1, kBlack, 8);  // two entries of one colour are one colour
  indexed.surface().memoryRow(0)[2] = 9;
  EXPECT_EQ(clsDIB::CountColorsDIB(indexed), 1);
  indexed.surface().table()[9] = raster::TableEntry::of(kWhite);
  EXPECT_EQ(clsDIB::CountColorsDIB(indexed), 2);
}

TEST(ClsDibColours, TheCountEndsWhereTheTableOfPairsIsFull) {
  // Each pixel is a new blue-red pair until there are as many as asked for.
  const auto pairs = [](int count) {
    return clsDIB::CountColorsDIB(dibOf(256, 256, [&](int x, int y) {
      const int pair = std::min(x + 256 * y, count - 1);
      return Pixel32::plain(rgb(pair % 256, 0, pair / 256));
    }));
  };
  EXPECT_EQ(pairs(32767), 32767);
  EXPECT_EQ(pairs(32768), 32767);
  EXPECT_EQ(pairs(65536), 32767);
}

TEST(ClsDibColours, TheSmallestDepthThatHoldsThePicture) {
  std::vector<Colour> many = {kBlack};
  for (int i = 1; i < 256; ++i) many.push_back(rgb(i, 0, 0));
  EXPECT_EQ(clsDIB::BPPperActualDIB(rowOf({kWhite, kBlack, kWhite})), 1);
  EXPECT_EQ(clsDIB::BPPperActualDIB(rowOf({kBlack})), 1);
  EXPECT_EQ(clsDIB::BPPperActualDIB(rowOf({kWhite, kBlack, rgb(255, 0, 0)})), 4);
  EXPECT_EQ(clsDIB::BPPperActualDIB(rowOf({rgb(254, 0, 0)})), 8);
  EXPECT_EQ(clsDIB::BPPperActualDIB(rowOf(many)), 8);
  many.push_back(rgb(0, 1, 0));
  EXPECT_EQ(clsDIB::BPPperActualDIB(rowOf(many)), 24);
  clsDIB alpha = rowOf({kBlack});
  alpha.setDIBhasAlpha(true);
  EXPECT_EQ(clsDIB::BPPperActualDIB(alpha), 32);
  const auto& sixteen = clsDIB::sixteenColours();
  EXPECT_EQ(clsDIB::BPPperActualDIB(rowOf({sixteen.begin(), sixteen.end()})), 4);
}

TEST(ClsDibColours, ThePaintedAreaIsInMemoryRows) {
  const clsDIB dib = dibOf({"....", ".#..", "..#.", "....", "...."});  // memory rows 3 and 2
  int left = 0, top = 0, right = 0, bottom = 0;
  ASSERT_TRUE(clsDIB::DIBNetPaintedArea(dib, left, top, right, bottom, kWhite, false));
  EXPECT_EQ((std::array{left, top, right, bottom}), (std::array{1, 2, 2, 3}));
  ASSERT_TRUE(clsDIB::DIBNetPaintedArea(dib, left, top, right, bottom, kWhite, true));
  EXPECT_EQ((std::array{left, top, right, bottom}), (std::array{1, 2, 2, 3}));  // 5 - 3 and 5 - 2
  EXPECT_FALSE(clsDIB::DIBNetPaintedArea(dibOf({".."}), left, top, right, bottom, kWhite, false));
}

TEST(ClsDibColours, MasksSplitByTheTopLeftPixelOrAColour) {
  clsDIB image = dibOf({".#", "#."}), mask;
  clsDIB::Create_ImageMask_Pair(image, mask, -1);
  EXPECT_PICTURE(test::rowsOf(mask), ({".#", "#."}));
  EXPECT_PICTURE(test::rowsOf(image), ({"##", "##"}));
  image = dibOf({".#", "#."});
  clsDIB::Create_ImageMask_Pair(image, mask, kBlack);
  EXPECT_PICTURE(test::rowsOf(mask), ({"#.", ".#"}));
  EXPECT_PICTURE(test::rowsOf(image), ({".#", "#."}));
  // Drawn as AND then XOR the pair gives the picture back.
  const test::Ink ink = {{'a', rgb(9, 8, 7)}, {'b', rgb(1, 2, 3)}};
  clsDIB two = dibOf({"ab", "bb"}, ink);
  clsDIB::Create_ImageMask_Pair(two, mask, -1);
  EXPECT_PICTURE(test::rowsOf(two, {{'b', rgb(1, 2, 3)}, {'#', kBlack}}), ({"#b", "bb"}));
}

}  // namespace
}  // namespace ruvo
