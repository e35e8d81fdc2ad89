#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "control/axis_zoom.h"

namespace kurv {
namespace {

constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
constexpr AxisBounds kBounds{1e300, 10};

AxisLimits zoomed(const AxisLimits& limits, Double place, Double factor,
                  const AxisBounds& bounds = kBounds) {
  return moved_limits(limits, {place, place, factor}, bounds);
}

MATCHER_P2(AreLimits, min, max, "") {
  *result_listener << "limits " << arg.min << ", " << arg.max;
  return arg.min == min && arg.max == max;
}

Double value_at(const AxisLimits& limits, Double place) {
  return limits.min + place * (limits.max - limits.min);
}

TEST(AxisZoom, TheValueUnderThePointerStays) {
  EXPECT_THAT(zoomed({0, 10}, 0.5, 0.8), AreLimits(1, 9));
  EXPECT_THAT(zoomed({0, 10}, 0, 0.8), AreLimits(0, 8));
  EXPECT_THAT(zoomed({0, 10}, 1, 0.8), AreLimits(2, 10));
  EXPECT_THAT(zoomed({0, 8}, 0.25, 1.25), AreLimits(-0.5, 9.5));
}

TEST(AxisZoom, TheValueStaysWithinAQuarterOfAThousandth) {
  AxisLimits limits{-3.7, 141.23};
  for (int i = 0; i < 60; ++i) {
    const Double place = std::fmod(i * 0.37, 1.0);
    const Double value = value_at(limits, place);
    limits = zoomed(limits, place, i % 3 == 0 ? 1.25 : 0.8);
    const Double span = limits.max - limits.min;
    EXPECT_NEAR(value_at(limits, place), value, span / 3999) << i;
  }
}

TEST(AxisZoom, EachTickIsADecimalNumber) {
  const AxisLimits limits = zoomed({0, 10}, 1.0 / 3, 1.0 / 7);
  EXPECT_THAT(limits, AreLimits(2.857, 4.286));
}

TEST(AxisZoom, LimitsThatAreReversedStayReversed) {
  EXPECT_THAT(zoomed({10, 0}, 0.25, 0.5), AreLimits(8.75, 3.75));
  EXPECT_THAT(moved_limits({10, 0}, {0, 0.5, 1}, kBounds), AreLimits(15, 5));
}

TEST(AxisZoom, APanKeepsTheSpan) {
  EXPECT_THAT(moved_limits({0, 10}, {0, 0.25, 1}, kBounds), AreLimits(-2.5, 7.5));
  EXPECT_THAT(moved_limits({0.1, 0.4}, {0.5, 0, 1}, kBounds), AreLimits(0.25, 0.55));
  const AxisLimits odd{1.0 / 3, 2.0 / 3};
  EXPECT_THAT(moved_limits(odd, {0, 0, 1}, kBounds), AreLimits(odd.min, odd.max));
}

TEST(AxisZoom, ARectangleBecomesTheAxis) {
  EXPECT_THAT(moved_limits({0, 100}, {0.25, 0, 0.5}, kBounds), AreLimits(25, 75));
}

TEST(AxisZoom, AThousandStepsInAndOutReturn) {
  for (const AxisLimits start : {AxisLimits{0, 10}, {-3.71, 141.23}, {1958.21, 2020.6}}) {
    AxisLimits limits = start;
    for (int i = 0; i < 1000; ++i) {
      limits = zoomed(limits, 0.5, i % 20 < 10 ? 0.8 : 1.25);
    }
    const Double span = start.max - start.min;
    EXPECT_NEAR(limits.min, start.min, span * 0.02);
    EXPECT_NEAR(limits.max, start.max, span * 0.02);
  }
}

// Towards zero it ends where numbers do, elsewhere where labels do.
TEST(AxisZoom, EndsWhereNumbersOrLabelsEnd) {
  for (const AxisLimits start : {AxisLimits{0, 10}, {5, 10}, {-1e6, 3}, {1e299, 2e299}, {7, 3}}) {
    for (const Double place : {0.0, 0.3, 1.0}) {
      AxisLimits limits = start;
      for (int i = 0; i < 5000; ++i) {
        limits = zoomed(limits, place, 0.8);
        ASSERT_TRUE(std::isfinite(limits.min) && std::isfinite(limits.max));
        ASSERT_EQ(limits.min < limits.max, start.min < start.max);
      }
      EXPECT_THAT(zoomed(limits, place, 0.8), AreLimits(limits.min, limits.max));
      const Double largest = std::max(std::abs(limits.min), std::abs(limits.max));
      EXPECT_GE(std::abs(limits.max - limits.min), largest * 0.9e-10);
      EXPECT_GE(std::abs(limits.max - limits.min), 0.9e-290);
    }
  }
}

TEST(AxisZoom, ZoomingOutEndsAtTheLargestSpan) {
  AxisLimits limits{0, 10};
  for (int i = 0; i < 100; ++i) limits = zoomed(limits, 0.5, 1.25, {1000, 10});
  EXPECT_NEAR(limits.max - limits.min, 1000, 1);
  EXPECT_THAT(zoomed(limits, 0.5, 1.25, {1000, 10}), AreLimits(limits.min, limits.max));
  // A larger one does not become smaller by zooming out.
  EXPECT_THAT(zoomed({0, 5000}, 0.5, 2, {1000, 10}), AreLimits(0, 5000));
  for (int i = 0; i < 5000; ++i) limits = zoomed(limits, 0.5, 1.25, {kInfinity, 10});
  EXPECT_LE(limits.max, 1e300);
  EXPECT_GE(limits.max, 1e299);
}

TEST(AxisZoom, LimitsThatCannotBeZoomedStay) {
  EXPECT_THAT(zoomed({3, 3}, 0.5, 0.8), AreLimits(3, 3));
  EXPECT_THAT(zoomed({0, kInfinity}, 0.5, 0.8), AreLimits(0, kInfinity));
  EXPECT_THAT(zoomed({-1.7e308, 1.7e308}, 0.5, 0.8), AreLimits(-1.7e308, 1.7e308));
  EXPECT_TRUE(std::isnan(zoomed({kNaN, 1}, 0.5, 0.8).min));
  EXPECT_THAT(zoomed({0, 1}, kNaN, 0.8), AreLimits(0, 1));
  for (const Double factor : {0.0, -1.0, kNaN, kInfinity}) {
    EXPECT_THAT(zoomed({0, 1}, 0.5, factor, {kInfinity, 10}), AreLimits(0, 1)) << factor;
  }
  EXPECT_THAT(moved_limits({0, 1}, {0, 1e300, 1}, kBounds), AreLimits(0, 1));
}

TEST(AxisZoom, VeryLargeLimitsCanComeCloser) {
  const AxisLimits limits = zoomed({1e308, 1.5e308}, 0, 0.5);
  EXPECT_EQ(limits.min, 1e308);
  EXPECT_NEAR(limits.max / 1e308, 1.25, 1e-3);
}

TEST(AxisZoom, LimitsOneBitApartOnlyGrow) {
  const AxisLimits limits{1, std::nextafter(1.0, 2)};
  EXPECT_THAT(zoomed(limits, 0.5, 0.8), AreLimits(limits.min, limits.max));
  AxisLimits wider = limits;
  for (int i = 0; i < 200; ++i) wider = zoomed(wider, 0.5, 1.25);
  EXPECT_GT(wider.max - wider.min, 1);
  const Double least = std::numeric_limits<Double>::denorm_min();
  EXPECT_THAT(zoomed({0, least}, 0.5, 0.8), AreLimits(0, least));
  wider = {0, least};
  for (int i = 0; i < 5000; ++i) wider = zoomed(wider, 0.5, 1.25);
  EXPECT_GT(wider.max - wider.min, 1);
}

TEST(AxisZoom, AnyNumberOfTicksWillDo) {
  for (const int ticks : {-5, 0, 1, 7, 99, 101, 32767}) {
    const AxisLimits limits = zoomed({0, 10}, 0.5, 0.5, {1e300, ticks});
    EXPECT_NEAR(limits.min, 2.5, 0.15) << ticks;
    EXPECT_NEAR(limits.max, 7.5, 0.15) << ticks;
  }
}

}  // namespace
}  // namespace kurv
