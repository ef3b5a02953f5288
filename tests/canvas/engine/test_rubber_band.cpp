#include "canvas/engine/rubber_band.h"

#include <gtest/gtest.h>

namespace ruvo::shape {
namespace {

TEST(RubberBand, KeysHoldItInWholePixelsWithinTheView) {
  constexpr Size kView{100, 80};
  EXPECT_EQ(constrainedBox({10, 10}, {4, 50}, kView, 1), (Point{4, 16}));
  EXPECT_EQ(constrainedBox({10, 10}, {25, 50}, kView, 4), (Point{22, 22}));
  EXPECT_EQ(constrainedBox({60, 60}, {120, 100}, kView, 1), (Point{79, 79}));
  EXPECT_EQ(constrainedBox({60, 20}, {-30, -50}, kView, 4), (Point{40, 0}));
  EXPECT_EQ(constrainedLine({10, 10}, {50, 29}, kView, 1), (Point{50, 10}));
  EXPECT_EQ(constrainedLine({10, 10}, {50, 30}, kView, 1), (Point{30, 30}));
  EXPECT_EQ(constrainedLine({10, 70}, {12, -3}, kView, 4), (Point{10, 2}));
}

}  // namespace
}  // namespace ruvo::shape
