#include "base/number_format.h"

#include <limits>

namespace ruvo {
namespace {

TEST(NumberFormat, DigitsGroupsAndDecimals) {
  EXPECT_EQ(formatNumber(3000000, kFormatLimit), "3,000,000");
  EXPECT_EQ(formatNumber(25000000, kFormatLimit), "25,000,000");
  EXPECT_EQ(formatNumber(1234, kFormatLimit), "001,234");
  EXPECT_EQ(formatNumber(2000, kFormatSideLimit), "2,000");
  EXPECT_EQ(formatNumber(0, kFormatFileSize), "0");
  EXPECT_EQ(formatNumber(999, kFormatFileSize), "999");
  EXPECT_EQ(formatNumber(1234567890, kFormatFileSize), "1,234,567,890");
  EXPECT_EQ(formatNumber(7, "###"), "7");
  EXPECT_EQ(formatNumber(0, "###"), "");
}

TEST(NumberFormat, RoundsHalfAwayFromZero) {
  EXPECT_EQ(formatNumber(0.25, kFormatAngle), "0.3");
  EXPECT_EQ(formatNumber(-0.25, kFormatAngle), "-0.3");
  EXPECT_EQ(formatNumber(-0.04, kFormatAngle), "0.0");
  EXPECT_EQ(formatNumber(179.96, kFormatAngle), "180.0");
  EXPECT_EQ(formatNumber(45, kFormatAngle), "45.0");
  EXPECT_EQ(formatNumber(1.05, "0.000"), "1.050");
  EXPECT_EQ(formatNumber(std::numeric_limits<double>::quiet_NaN(), kFormatAngle), "0");
  EXPECT_EQ(formatNumber(1e300, "0").size(), 18u);
}

}  // namespace
}  // namespace ruvo
