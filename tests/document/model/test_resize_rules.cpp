#include "document/model/resize_rules.h"

#include "platform/imaging/imaging_service.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using enum ResizeMethod;
using test::pixelAt;

TEST(ResizeRules, PercentsOfAreaAndOfSides) {
  const std::vector<int> percents = resizePercents();
  ASSERT_EQ(percents.size(), 31u);
  EXPECT_TRUE(percents[0] == 10 && percents[18] == 100 && percents[19] == 125 && percents[30] == 400);
  const auto of = [](Size size, ResizeMethod method, int percent) {
    return resizedTo(size, {method, percent, percent});
  };
  EXPECT_EQ(of({640, 480}, PercentOfArea, 50), (Size{453, 339}));
  EXPECT_EQ(of({640, 480}, PercentOfSides, 50), (Size{320, 240}));
  EXPECT_EQ(of({5, 7}, PercentOfSides, 50), (Size{2, 4})) << "ties to even";
}

TEST(ResizeRules, WhatIsRefusedAndInWhichWords) {
  const auto of = [](Size original, ResizeMethod method, int percent) {
    return resizeRefusal(original, {method, percent, percent}).value_or("none");
  };
  const std::string threshold = "Width x height exceeds the threshhold set (25,000,000 pixels)";
  EXPECT_EQ(of({5000, 5000}, PercentOfArea, 200), threshold);
  EXPECT_EQ(of({2500, 2500}, PercentOfArea, 400), "none");
  EXPECT_EQ(of({2501, 2500}, PercentOfSides, 200), threshold);
  EXPECT_EQ(of({8190, 10}, PercentOfSides, 400), "none");
  EXPECT_EQ(of({8191, 10}, PercentOfSides, 400), "Width or height over the maximum set (32,760 pixels)");
  EXPECT_EQ(of({32000, 10}, PercentOfArea, 200),
            "As it will result in width or height exceeding the maxiuum allowed,\ncannot proceed.");
  EXPECT_EQ(of({5, 80}, PercentOfSides, 10), "Width or height below the minimum set (1 pixels)");
  EXPECT_EQ(of({6, 80}, PercentOfSides, 10), "none");
  EXPECT_EQ(resizeRefusal({9, 9}, {WidthAndHeight, 100, 100, {5000, 5001}, SizeField::Height}).value_or("none"),
            "Value entered in height will result in W x H exceeding the threshhold.");
}

TEST(ResizeRules, ShapeAndLabels) {
  EXPECT_EQ(otherSideFor({640, 480}, SizeField::Width, 320), 240);
  EXPECT_EQ(otherSideFor({640, 480}, SizeField::Height, 99999), kMostTypedSide) << "never longer than a field holds";
  EXPECT_EQ(otherSideFor({32760, 1}, SizeField::Width, 5), 1);
  EXPECT_EQ(originalSizeText({640, 480}), "(Orig:  640 x 480)");
  EXPECT_EQ(largestTryText({5000, 5000}), "(Approx largest try:   5000  by  5000)");
  EXPECT_EQ(largestTryText({100, 1}), "(Approx largest try:   32760  by  327)");
  EXPECT_EQ(largestAreaText(), "Set width x height:  Max area = 25,000,000 pixels");
}

TEST(ResizeRules, EveryModeWithAndWithoutTheImagingService) {
  for (const bool service : {true, false}) {
    service ? (void)imaging::startImagingService() : imaging::stopImagingService();
    clsDIB copy;
    const auto made = [&](Size size, ResizeMode mode) {
      EXPECT_TRUE(resizedCopy(test::dibOf({"#.#", "..#"}), size, mode, copy));
      return test::rowsOf(copy);
    };
    EXPECT_PICTURE(made({6, 4}, ResizeMode::Picked), {"##..##", "##..##", "....##", "....##"});
    EXPECT_PICTURE(made({6, 4}, ResizeMode::PickedOnCanvas), {"##.", "##."});
    EXPECT_PICTURE(made({2, 3}, ResizeMode::RightBottomEdges), {"#.", "..", ".."});
    EXPECT_PICTURE(made({2, 3}, ResizeMode::LeftTopEdges), {"..", ".#", ".#"});
    clsDIB soft = test::dibOf(3, 2, [](int x, int) { return Pixel32{0, 0, 0, std::uint8_t(x == 0 ? 0 : 255)}; });
    soft.setDIBhasAlpha(true);
    ASSERT_TRUE(resizedCopy(soft, {2, 1}, ResizeMode::SmoothOnCanvas, copy));
    EXPECT_TRUE(copy.DIBhasAlpha() && copy.size() == soft.size());
    EXPECT_GT(pixelAt(copy, 1, 0).alpha, 100) << "what was opaque";
    EXPECT_LT(pixelAt(copy, 0, 0).alpha, 100);
    EXPECT_EQ(pixelAt(copy, 2, 1).alpha, 255) << "the white that was added";
  }
  imaging::startImagingService();
}

TEST(ResizeRules, AStoppedOrImpossibleResizeGivesNothing) {
  ASSERT_TRUE(imaging::startImagingService());
  const clsDIB picture = test::plainDib(40, 40, kBlack);
  clsDIB copy;
  int last = 0;
  Progress progress{[&](int percent) { last = percent; }, {}, {}};
  EXPECT_TRUE(resizedCopy(picture, {20, 20}, ResizeMode::Smooth, copy, progress));
  EXPECT_EQ(last, 100);
  progress.stop = [] { return true; };
  EXPECT_FALSE(resizedCopy(picture, {20, 20}, ResizeMode::Smooth, copy, progress));
  EXPECT_FALSE(resizedCopy(picture, {5000, 5001}, ResizeMode::RightBottomEdges, copy));
}

TEST(AdjustEdge, GrowsInWhiteAndCuts) {
  clsDIB copy;
  ASSERT_TRUE(adjustedCopy(test::dibOf({"##", "##"}), {1, -1, 2, 1}, copy));
  EXPECT_PICTURE(test::rowsOf(copy), {".##..", "....."});
  ASSERT_TRUE(adjustedCopy(test::dibOf({"##", "##"}), {-1, 1, 1, -1}, copy));
  EXPECT_PICTURE(test::rowsOf(copy), {"..", "#."});
  const auto refused = [](Size size, EdgeChange change) { return adjustRefusal(size, change).value_or("none"); };
  EXPECT_EQ(refused({10, 10}, {-5, 0, -5, 0}), kSideTooSmall);
  EXPECT_EQ(refused({10, 10}, {-5, 0, -4, 0}), "none");
  EXPECT_EQ(refused({10, 10}, {0, 0, 32750, 0}), "none");
  EXPECT_EQ(refused({10, 10}, {0, 0, 32751, 0}), kSideTooLarge);
  EXPECT_EQ(refused({5000, 4999}, {0, 1, 0, 1}), thresholdText());
  EXPECT_EQ(refused({10, 10}, {0, -10, 0, 5}), kNothingKept);
}

}  // namespace
}  // namespace ruvo
