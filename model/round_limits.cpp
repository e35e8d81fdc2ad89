#include "model/round_limits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>
#include <vector>

#include <KurvGraph/number_text.h>

#include "model/tick_labels.h"

namespace kurv {

namespace {

constexpr int kFewestTicks = 5;
constexpr int kMostTicks = 20;  // all of them have labels
constexpr int kReadableTicks = 12;
constexpr int kUsualTicks = 10;
constexpr Double kEnoughUsed = 0.75;
// Of the digits that a Double holds, those that limits use.
constexpr int kMostDigits = 14;
constexpr int kSmallestExponent = -300;

// The distance of two ticks: digits times ten to the power of `exponent`.
struct Step {
  std::int64_t digits;
  int exponent;
  // 0 for steps that are tried first, 1 and 2 for those that are taken where these leave too much
  // empty.
  int rank;
};

// The Double that is nearest to a multiple of the step; infinite where none is.
Double multiple(const Step& step, std::int64_t index) {
  return *text_to_number(std::to_string(index * step.digits) + 'e' + std::to_string(step.exponent));
}

int decimal_exponent(Double magnitude) {
  if (magnitude < std::numeric_limits<Double>::min()) return kSmallestExponent;
  return static_cast<int>(std::floor(std::log10(magnitude)));
}

// -- What the axis shows ------------------------------------------------------------------------

DataRange around(Double value, AxisUnit unit) {
  if (value == 0) return {-1, 1, unit};
  const Double other = std::isfinite(2 * value) ? 2 * value : value;
  return {std::min<Double>(0, other), std::max<Double>(0, other), unit};
}

// The way to zero counts as used where it is short.
void extend_to_zero(DataRange& range) {
  if (range.unit == AxisUnit::kYears) return;
  if (range.min > 0 && range.min <= range.max / 4) range.min = 0;
  if (range.max < 0 && range.max >= range.min / 4) range.max = 0;
}

DataRange shown_range(DataRange range) {
  if (range.min == range.max) return around(range.min, range.unit);
  extend_to_zero(range);
  return range;
}

// -- The steps that suit it ---------------------------------------------------------------------

struct Digits {
  std::int64_t digits;  // tenfold, so that 2.5 is a whole number
  int rank;
};
constexpr std::array<Digits, 8> kRoundDigits{
    {{10, 0}, {15, 1}, {20, 0}, {25, 0}, {30, 1}, {40, 1}, {50, 0}, {60, 1}}};

bool is_whole(const Step& step) {
  return step.exponent >= 0 || (step.exponent == -1 && step.digits % 10 == 0);
}

// The power of ten below which steps have more digits than limits.
int smallest_power(const DataRange& range) {
  const Double magnitude = std::max(std::abs(range.min), std::abs(range.max));
  return std::max(decimal_exponent(magnitude) - kMostDigits + 1, kSmallestExponent);
}

// Round numbers from the smallest that `ticks` of them reach over the range to those that are
// larger than the range.
std::vector<Step> round_steps(const DataRange& range, int ticks) {
  const int smallest = smallest_power(range);
  const int first = decimal_exponent((range.max - range.min) / ticks);
  const int last = decimal_exponent(range.max - range.min) + 1;
  std::vector<Step> steps;
  for (int power = std::max(first, smallest); power <= std::max(last, smallest + 1); ++power) {
    for (const auto& [digits, rank] : kRoundDigits) steps.push_back({digits, power - 1, rank});
  }
  return steps;
}

void add(std::vector<Step>& steps, std::initializer_list<int> sizes, int rank, int smallest) {
  for (const int size : sizes) {
    if (decimal_exponent(size) >= smallest) steps.push_back({size, 0, rank});
  }
}

// Whole units; the round numbers that are fractions of the unit, or larger than these, come last.
std::vector<Step> time_steps(const DataRange& range, int ticks) {
  std::vector<Step> steps = round_steps(range, ticks);
  const int smallest = smallest_power(range);
  const bool is_calendar = range.unit == AxisUnit::kYears || range.unit == AxisUnit::kDays;
  for (Step& step : steps) {
    if (!is_calendar || !is_whole(step)) step.rank = 2;
  }
  if (range.unit == AxisUnit::kMonths) {
    add(steps, {1, 2, 3, 6, 12, 24, 60, 120}, 0, smallest);
    add(steps, {4}, 1, smallest);
  } else if (range.unit == AxisUnit::kHours) {
    add(steps, {1, 2, 3, 6, 12, 24, 48, 120, 240}, 0, smallest);
    add(steps, {4, 8, 72, 96}, 1, smallest);
  } else if (!is_calendar) {
    add(steps, {1, 2, 5, 10, 15, 30, 60}, 0, smallest);
    add(steps, {3, 4, 6, 20, 120}, 1, smallest);
  }
  return steps;
}

// -- Limits for a number of ticks -----------------------------------------------------------------

// Multiples of a step around the range: `count` intervals from the one with the index `first`.
struct Cover {
  Step step;
  std::int64_t first;
  std::int64_t count;
};

std::optional<Cover> cover(const DataRange& range, const Step& step) {
  constexpr Double kLargestIndex = 1e15;
  const Double size = multiple(step, 1);
  if (!(std::abs(range.min / size) < kLargestIndex && std::abs(range.max / size) < kLargestIndex))
    return std::nullopt;
  auto first = static_cast<std::int64_t>(std::floor(range.min / size));
  auto last = static_cast<std::int64_t>(std::ceil(range.max / size));
  // The quotients have rounding errors; the limits themselves decide.
  while (multiple(step, first) > range.min) --first;
  while (multiple(step, first + 1) <= range.min) ++first;
  while (multiple(step, last) < range.max) ++last;
  while (multiple(step, last - 1) >= range.max) --last;
  return Cover{step, first, last - first};
}

// The limits of an axis, and how much of it is used.
struct Fit {
  AxisLimits limits;
  Double used = 0;
};

bool shows_zero_exactly(const AxisLimits& limits, int ticks, std::int64_t first) {
  if (first > 0 || first < -ticks || !needs_exponent(limits.min, limits.max)) return true;
  return tick_value(limits.min, limits.max, ticks, static_cast<int>(-first)) == 0;
}

class Axis {
 public:
  Axis(const DataRange& range, int most_ticks) : m_range(range) {
    // Nothing can be drawn on an axis that is longer than a Double.
    if (!range.is_rounded || !std::isfinite(range.max - range.min)) return;
    const DataRange shown = shown_range(range);
    const bool is_time = range.unit != AxisUnit::kNumbers;
    for (const Step& step :
         is_time ? time_steps(shown, most_ticks) : round_steps(shown, most_ticks)) {
      if (const std::optional<Cover> found = cover(shown, step)) m_covers.push_back(*found);
    }
    if (!m_covers.empty()) m_range = shown;
  }

  // The best limits for this number of ticks with steps up to this rank; steps of a higher rank
  // only where lower ones leave too much empty. The extremes where there are none.
  Fit fit(int ticks, int rank) const {
    Fit best{{m_range.min, m_range.max}, m_covers.empty() ? 1.0 : 0.0};
    for (int r = 0; r <= rank && best.used < kEnoughUsed; ++r) {
      for (const Cover& candidate : m_covers) {
        if (candidate.step.rank != r) continue;
        const std::optional<Fit> found = fit(candidate, ticks);
        if (found && found->used > best.used) best = *found;
      }
    }
    return best;
  }

 private:
  // Intervals to spare are shared by both ends, but zero is never passed.
  std::optional<Fit> fit(const Cover& candidate, int ticks) const {
    const std::int64_t spare = ticks - candidate.count;
    if (spare < 0) return std::nullopt;
    std::int64_t first = candidate.first - spare / 2;
    if (m_range.min >= 0) first = std::max<std::int64_t>(first, 0);
    if (m_range.max <= 0) first = std::min<std::int64_t>(first, -ticks);
    const AxisLimits limits{multiple(candidate.step, first),
                            multiple(candidate.step, first + ticks)};
    const Double length = limits.max - limits.min;
    if (!std::isfinite(length) || !shows_zero_exactly(limits, ticks, first)) return std::nullopt;
    return Fit{limits, (m_range.max - m_range.min) / length};
  }

  DataRange m_range;
  std::vector<Cover> m_covers;
};

// -- Both axes ------------------------------------------------------------------------------------

struct Choice {
  RoundLimits limits;
  Double least_used = 0;  // of an axis
  Double used = 0;        // of the plot
};

bool is_enough(const Choice& choice) {
  return choice.least_used >= kEnoughUsed;
}

bool is_better(const Choice& choice, const Choice& best) {
  constexpr Double kEqual = 1e-9;
  if (is_enough(choice) != is_enough(best)) return is_enough(choice);
  if (std::abs(choice.used - best.used) > kEqual) return choice.used > best.used;
  return std::abs(choice.limits.ticks - kUsualTicks) < std::abs(best.limits.ticks - kUsualTicks);
}

Choice choose(const Axis& x, const Axis& y, int ticks, int rank) {
  const Fit x_fit = x.fit(ticks, rank);
  const Fit y_fit = y.fit(ticks, rank);
  return {{x_fit.limits, y_fit.limits, ticks},
          std::min(x_fit.used, y_fit.used),
          x_fit.used * y_fit.used};
}

// The numbers of ticks, and the rank of the steps, that are tried together.
struct Attempt {
  int fewest;
  int most;
  int rank;
};

std::vector<Attempt> attempts(std::optional<int> ticks) {
  if (ticks) return {{*ticks, *ticks, 0}, {*ticks, *ticks, 1}, {*ticks, *ticks, 2}};
  return {{kFewestTicks, kReadableTicks, 0},
          {kFewestTicks, kReadableTicks, 1},
          {kReadableTicks + 1, kMostTicks, 1},
          {kFewestTicks, kReadableTicks, 2},
          {kReadableTicks + 1, kMostTicks, 2}};
}

}  // namespace

RoundLimits choose_round_limits(const DataRange& x, const DataRange& y, std::optional<int> ticks) {
  const Axis x_axis(x, ticks.value_or(kMostTicks));
  const Axis y_axis(y, ticks.value_or(kMostTicks));
  Choice best = choose(x_axis, y_axis, ticks.value_or(kUsualTicks), 0);
  for (const auto& [fewest, most, rank] : attempts(ticks)) {
    if (is_enough(best) && rank > 0) break;
    for (int n = fewest; n <= most; ++n) {
      const Choice choice = choose(x_axis, y_axis, n, rank);
      if (is_better(choice, best)) best = choice;
    }
  }
  return best.limits;
}

}  // namespace kurv
