#include "model/tick_labels.h"

#include <gtest/gtest.h>

#include <limits>

namespace kurv {
namespace {

TEST(TickLabels, HaveAsManyDecimalsAsTheTicksNeed) {
  EXPECT_EQ(exact_label_format(0, 10, 10), "0");
  EXPECT_EQ(exact_label_format(0, 1, 10), "0.0");
  EXPECT_EQ(exact_label_format(0, 1, 4), "0.00");
  EXPECT_EQ(exact_label_format(0, 0.002, 10), "0.0000");
  EXPECT_EQ(exact_label_format(-0.3, 0.7, 10), "0.0");
}

TEST(TickLabels, GroupThousandsFromTenThousandOn) {
  EXPECT_EQ(exact_label_format(1950, 2010, 6), "0");
  EXPECT_EQ(exact_label_format(0, 9000, 9), "0");
  EXPECT_EQ(exact_label_format(0, 10000, 10), "#,##0");
  EXPECT_EQ(exact_label_format(-20000, 0, 10), "#,##0");
  EXPECT_EQ(exact_label_format(20000, 20005, 10), "#,##0.0");
}

TEST(TickLabels, HaveAnExponentOnlyOutsideOfWhatIsReadable) {
  EXPECT_EQ(exact_label_format(0, 0.001, 10), "0.0000");
  EXPECT_EQ(exact_label_format(0, 0.0009, 9), "0E+0;-0E+0;0");
  EXPECT_EQ(exact_label_format(0, 999999, 1), "#,##0");
  EXPECT_EQ(exact_label_format(0, 1500000, 6), "#,##0");
  EXPECT_EQ(exact_label_format(0, 15000000, 6), "0.00E+0;-0.00E+0;0");
  EXPECT_EQ(exact_label_format(10000000, 20000000, 10), "0.0E+0");
}

TEST(TickLabels, TicksThatNeedMoreDigitsAreShownToAHundredth) {
  EXPECT_EQ(exact_label_format(0, 1, 3), "0.000");
  EXPECT_EQ(exact_label_format(0.37123456789012345, 17.93, 10), "0.00");
}

TEST(TickLabels, TakeLimitsOfAnySize) {
  constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
  EXPECT_EQ(exact_label_format(0, kInfinity, 10), "0.00E+0");
  EXPECT_EQ(exact_label_format(-1e308, 1e308, 10), "0.00E+0");
  EXPECT_EQ(exact_label_format(0, 0, 10), "0.00E+0");
  EXPECT_EQ(exact_label_format(0, 1, 0), "0.00E+0");
  EXPECT_FALSE(exact_label_format(1, 1 + 1e-15, 10).empty());
  EXPECT_FALSE(exact_label_format(0, 5e-324, 10).empty());
}

}  // namespace
}  // namespace kurv
