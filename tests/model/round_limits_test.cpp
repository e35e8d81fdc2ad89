#include "model/round_limits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "model/tick_labels.h"
#include "render/number_format.h"

namespace kurv {
namespace {

using Limits = std::numeric_limits<Double>;

constexpr Double kEnough = 0.75;

std::vector<String> labels(const AxisLimits& axis, int ticks) {
  const String format = exact_label_format(axis.min, axis.max, ticks);
  std::vector<String> texts;
  for (int i = 0; i <= ticks; ++i) {
    texts.push_back(format_number(tick_value(axis.min, axis.max, ticks, i), format));
  }
  return texts;
}

Double number_in(String label) {
  label.erase(std::remove(label.begin(), label.end(), ','), label.end());
  return std::stod(label);
}

DataRange with_zero(DataRange range) {
  if (range.min > 0 && range.min <= range.max / 4) range.min = 0;
  if (range.max < 0 && range.max >= range.min / 4) range.max = 0;
  return range;
}

Double used(const DataRange& data, const AxisLimits& axis) {
  const DataRange shown = with_zero(data);
  return (shown.max - shown.min) / (axis.max - axis.min);
}

// The first two digits of the distance of the ticks: 10 for 1, 25 for 2.5.
int step_digits(const AxisLimits& axis, int ticks) {
  const Double step = (axis.max - axis.min) / ticks;
  const Double mantissa = step / std::pow(10.0, std::floor(std::log10(step * 1.0001)));
  return static_cast<int>(std::lround(mantissa * 10));
}

const std::vector<Double> kUsual{1, 2, 2.5, 5};
const std::vector<Double> kAll{1, 1.5, 2, 2.5, 3, 4, 5, 6};

bool is_usual(const AxisLimits& axis, int ticks) {
  const Double digits = step_digits(axis, ticks) / 10.0;
  return std::find(kUsual.begin(), kUsual.end(), digits) != kUsual.end();
}

// An independent search for limits of this number of ticks that use three quarters.
bool is_enough(const DataRange& data, int ticks, const std::vector<Double>& steps) {
  const DataRange shown = with_zero(data);
  const Double span = shown.max - shown.min;
  const int power = static_cast<int>(std::floor(std::log10(span)));
  for (int p = power - 3; p <= power + 2; ++p) {
    for (const Double digits : steps) {
      const Double step = digits * std::pow(10.0, p);
      const Double first = std::floor(shown.min / step + 1e-9);
      const Double last = std::ceil(shown.max / step - 1e-9);
      if (last - first <= ticks && span / (step * ticks) >= kEnough) return true;
    }
  }
  return false;
}

class Ranges {
 public:
  // Of a magnitude from 10^least to 10^most, on either side of zero or across it.
  DataRange next(Double least, Double most) {
    const Double magnitude = std::pow(10.0, least + (most - least) * m_unit(m_random));
    const Double kind = m_unit(m_random);
    const Double offset = kind < 0.3 ? 0 : kind < 0.6 ? 1 : 10;
    const Double min = (2 * m_unit(m_random) - 1) * offset * magnitude;
    return {min, min + magnitude * (0.01 + m_unit(m_random))};
  }

 private:
  std::mt19937 m_random{20};
  std::uniform_real_distribution<Double> m_unit{0, 1};
};

void expect_data_inside(const DataRange& data, const AxisLimits& axis) {
  ASSERT_TRUE(std::isfinite(axis.min) && std::isfinite(axis.max)) << data.min << ' ' << data.max;
  EXPECT_LT(axis.min, axis.max) << data.min << ' ' << data.max;
  EXPECT_LE(axis.min, data.min);
  EXPECT_GE(axis.max, data.max);
}

void expect_exact_labels(const AxisLimits& axis, int ticks) {
  const std::vector<String> texts = labels(axis, ticks);
  const Double error = std::max(std::abs(axis.min), std::abs(axis.max)) * 4 * Limits::epsilon();
  for (int i = 0; i <= ticks; ++i) {
    const String& label = texts[static_cast<std::size_t>(i)];
    const Double value = tick_value(axis.min, axis.max, ticks, i);
    EXPECT_NEAR(number_in(label), value, error) << label << " of " << axis.min << ".." << axis.max;
    EXPECT_EQ(std::count(texts.begin(), texts.end(), label), 1) << label;
  }
}

void expect_round_ticks(const AxisLimits& axis, int ticks) {
  constexpr std::array<int, 8> kRound{10, 15, 20, 25, 30, 40, 50, 60};
  const int digits = step_digits(axis, ticks);
  EXPECT_TRUE(std::find(kRound.begin(), kRound.end(), digits) != kRound.end()) << digits;
  const Double first = axis.min / ((axis.max - axis.min) / ticks);
  EXPECT_NEAR(first, std::round(first), 1e-6 * std::max(1.0, std::abs(first)));
}

TEST(RoundLimits, TicksAreRoundAndLabelsExactForAnyData) {
  Ranges ranges;
  for (int i = 0; i < 4000; ++i) {
    const DataRange x = ranges.next(-9, 9);
    const DataRange y = ranges.next(-9, 9);
    const RoundLimits chosen = choose_round_limits(x, y);
    EXPECT_GE(chosen.ticks, 5);
    EXPECT_LE(chosen.ticks, 20);
    expect_data_inside(x, chosen.x);
    expect_data_inside(y, chosen.y);
    for (const AxisLimits& axis : {chosen.x, chosen.y}) {
      expect_round_ticks(axis, chosen.ticks);
      expect_exact_labels(axis, chosen.ticks);
    }
    if (HasFailure()) FAIL() << x.min << ".." << x.max << ", " << y.min << ".." << y.max;
  }
}

TEST(RoundLimits, ThreeQuartersAreUsedWhereOneNumberOfTicksAllowsIt) {
  Ranges ranges;
  int too_empty = 0;
  for (int i = 0; i < 4000; ++i) {
    const DataRange x = ranges.next(-9, 9);
    const DataRange y = ranges.next(-9, 9);
    const RoundLimits chosen = choose_round_limits(x, y);
    if (used(x, chosen.x) >= kEnough && used(y, chosen.y) >= kEnough) continue;
    ++too_empty;
    for (int ticks = 5; ticks <= 20; ++ticks) {
      EXPECT_FALSE(is_enough(x, ticks, kAll) && is_enough(y, ticks, kAll))
          << x.min << ".." << x.max << ", " << y.min << ".." << y.max << " with " << ticks;
    }
  }
  EXPECT_LT(too_empty, 10);
}

TEST(RoundLimits, OtherDigitsOnlyWhereTheUsualOnesLeaveAQuarterEmpty) {
  Ranges ranges;
  int others = 0;
  for (int i = 0; i < 4000; ++i) {
    // Without exponents, whose zero is not exact with each number of ticks.
    const DataRange x = ranges.next(-1, 5);
    const DataRange y = ranges.next(-1, 5);
    const RoundLimits chosen = choose_round_limits(x, y);
    if (is_usual(chosen.x, chosen.ticks) && is_usual(chosen.y, chosen.ticks)) continue;
    ++others;
    for (int ticks = 5; ticks <= 12; ++ticks) {
      EXPECT_FALSE(is_enough(x, ticks, kUsual) && is_enough(y, ticks, kUsual))
          << x.min << ".." << x.max << ", " << y.min << ".." << y.max << " with " << ticks;
    }
  }
  EXPECT_GT(others, 100);
}

TEST(RoundLimits, DataThatAreRoundFillTheAxes) {
  const RoundLimits chosen = choose_round_limits({0.3, 0.9}, {-0.3, 0.3});
  EXPECT_EQ(chosen.x.min, 0.3);
  EXPECT_EQ(chosen.x.max, 0.9);
  EXPECT_EQ(chosen.y.min, -0.3);
  EXPECT_EQ(chosen.y.max, 0.3);
}

TEST(RoundLimits, BeginAtZeroWhereThatIsNear) {
  const RoundLimits near = choose_round_limits({1, 10}, {-100, -20});
  EXPECT_EQ(near.x.min, 0);
  EXPECT_EQ(near.y.max, 0);
  EXPECT_GT(choose_round_limits({5, 10}, {0, 1}).x.min, 0);
}

TEST(RoundLimits, NeverPassZeroWithoutNeed) {
  Ranges ranges;
  for (int i = 0; i < 2000; ++i) {
    const DataRange x = ranges.next(-3, 3);
    const DataRange y = ranges.next(-3, 3);
    const RoundLimits chosen = choose_round_limits(x, y);
    EXPECT_EQ(chosen.x.min < 0, x.min < 0) << x.min;
    EXPECT_EQ(chosen.y.max > 0, y.max > 0) << y.max;
  }
}

TEST(RoundLimits, ASingleValueIsInsideAnAxisThatBeginsAtZero) {
  const RoundLimits chosen = choose_round_limits({0, 10}, {5, 5});
  EXPECT_EQ(chosen.y.min, 0);
  EXPECT_EQ(chosen.y.max, 10);
  const RoundLimits zero = choose_round_limits({0, 10}, {0, 0});
  EXPECT_EQ(zero.y.min, -1);
  EXPECT_EQ(zero.y.max, 1);
}

TEST(RoundLimits, HoldDataOfAnySize) {
  const std::vector<Double> values{0,
                                   1,
                                   -1,
                                   32767,
                                   -32768,
                                   65535,
                                   std::nextafter(1.0, 2.0),
                                   std::nextafter(1e15, 0.0),
                                   1e15,
                                   1.0f / 3,
                                   double(std::numeric_limits<float>::max()),
                                   double(std::numeric_limits<float>::min()),
                                   1e-300,
                                   1e300,
                                   1e308,
                                   -1e308,
                                   Limits::max(),
                                   Limits::lowest(),
                                   Limits::min(),
                                   -Limits::min(),
                                   Limits::denorm_min()};
  for (const Double a : values) {
    for (const Double b : values) {
      const DataRange x{std::min(a, b), std::max(a, b)};
      const RoundLimits chosen = choose_round_limits(x, {0, 1});
      EXPECT_GE(chosen.ticks, 2);
      expect_data_inside(x, chosen.x);
      expect_data_inside({0, 1}, chosen.y);
      expect_round_ticks(chosen.y, chosen.ticks);
      if (!std::isfinite(x.max - x.min) || chosen.x.max > 1e300 || chosen.x.min < -1e300) continue;
      expect_exact_labels(chosen.x, chosen.ticks);
      if (HasFailure()) FAIL() << x.min << ".." << x.max;
    }
  }
}

TEST(RoundLimits, AreFittedToANumberOfTicks) {
  for (const int ticks : {2, 7, 13, 100, 1000}) {
    const RoundLimits chosen = choose_round_limits({0, 97}, {-3, 8.5}, ticks);
    EXPECT_EQ(chosen.ticks, ticks);
    expect_data_inside({0, 97}, chosen.x);
    expect_round_ticks(chosen.x, ticks);
    expect_round_ticks(chosen.y, ticks);
    expect_exact_labels(chosen.y, ticks);
  }
}

TEST(RoundLimits, ASingleIntervalAcrossZeroIsNotRound) {
  const RoundLimits chosen = choose_round_limits({0, 97}, {-3, 8.5}, 1);
  EXPECT_EQ(chosen.x.max, 100);
  EXPECT_EQ(chosen.y.min, -3);
  EXPECT_EQ(chosen.y.max, 8.5);
}

TEST(RoundLimits, AnExactAxisKeepsItsLimits) {
  const RoundLimits chosen =
      choose_round_limits({0.37, 17.93, AxisUnit::kNumbers, false}, {0, 812});
  EXPECT_EQ(chosen.x.min, 0.37);
  EXPECT_EQ(chosen.x.max, 17.93);
  expect_round_ticks(chosen.y, chosen.ticks);
}

// The distance of the ticks of a time axis.
Double time_step(AxisUnit unit, Double min, Double max, const DataRange& y) {
  const RoundLimits chosen = choose_round_limits({min, max, unit}, y);
  expect_data_inside({min, max}, chosen.x);
  return (chosen.x.max - chosen.x.min) / chosen.ticks;
}

TEST(RoundLimits, TicksOfTimeAreWholeUnits) {
  const std::array<DataRange, 3> others{{{0, 1}, {-3, 812}, {172, 231}}};
  for (const DataRange& y : others) {
    for (const AxisUnit unit : {AxisUnit::kYears, AxisUnit::kMonths, AxisUnit::kDays,
                                AxisUnit::kHours, AxisUnit::kMinutes, AxisUnit::kSeconds}) {
      for (const Double span : {8.0, 13.0, 23.0, 44.5, 71.5}) {
        const Double step = time_step(unit, 0, span, y);
        EXPECT_EQ(step, std::round(step)) << span;
      }
    }
  }
}

TEST(RoundLimits, MonthsMakeYearsAndHoursMakeDays) {
  for (const Double span : {11.0, 14.0, 18.0, 23.0}) {
    EXPECT_EQ(std::fmod(12, time_step(AxisUnit::kMonths, 0, span, {0, 1})), 0) << span;
  }
  for (const Double span : {24.0, 48.0, 71.5}) {
    EXPECT_EQ(std::fmod(24, time_step(AxisUnit::kHours, 0, span, {0, 1})), 0) << span;
  }
}

TEST(RoundLimits, YearsAreFractionsWhereWholeOnesWouldLeaveTooMuchEmpty) {
  EXPECT_EQ(time_step(AxisUnit::kYears, 2012.1, 2014.4, {0, 1}), 0.25);
  EXPECT_EQ(time_step(AxisUnit::kYears, 1958.21, 2001.95, {313, 374}), 4);
}

TEST(RoundLimits, TimeBeyondTheDigitsOfLabelsHasLabelsThatDiffer) {
  for (const AxisUnit unit :
       {AxisUnit::kSeconds, AxisUnit::kMinutes, AxisUnit::kHours, AxisUnit::kMonths}) {
    for (const Double start : {1.36e16, 2.5e15, 1.2e17}) {
      for (const Double span : {150.0, 1000.0, 12345.0}) {
        const RoundLimits chosen = choose_round_limits({start, start + span, unit}, {0, 1});
        const std::vector<String> texts = labels(chosen.x, chosen.ticks);
        EXPECT_EQ(std::adjacent_find(texts.begin(), texts.end()), texts.end())
            << start << " + " << span << ", " << texts.front();
      }
    }
  }
}

}  // namespace
}  // namespace kurv
