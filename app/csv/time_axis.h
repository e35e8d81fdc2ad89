// Dates as what an axis can show.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/axis_unit.h>
#include <KurvGraph/values.h>

#include <string>
#include <vector>

#include "app/csv/date_text.h"

namespace kurv::app {

// The year, and the part of it that has passed, in a year of its own length.
double decimal_year(double days);

// The calendar day of the instant, in UTC, as "2012-01-31".
std::string iso_date_text(double days);
// The instant as "2012-01-31T12:34:56", with as many digits of the second as it needs.
std::string iso_instant_text(double days);

// Whether the second instant is less than two calendar years after the first one.
bool within_two_years(double first_days, double last_days);

enum class TimeUnit { kNone, kYears, kMonths, kDays, kElapsedHours, kClock };

// How the dates of a column become numbers of an axis.
struct TimeScale {
  TimeUnit unit = TimeUnit::kNone;
  double start = 0;                // seconds for a unit of the clock, otherwise days or months
  double step = 1;                 // seconds
  std::string name = {};           // such as "days since 2012-01-31"
  DateKind kind = DateKind::kDay;  // of the dates

  // The number for days since 1970, or since midnight; NaN for NaN.
  double operator()(double days) const;
};

// The date that a number of an axis with this scale stands for, such as "2012-01-31" or "2012-01-31
// 12:34:56": a month where the dates are months, a time alone where they are times of day, and no
// finer than numbers that differ by `resolution`, which is 0 for the number of a date of the table.
// Empty for elapsed times, and for dates outside of the years 0 to 9999.
std::string date_text(const TimeScale& scale, double number, double resolution);

// What the numbers of an axis with this scale count.
AxisUnit axis_unit(const TimeScale& scale);

// Where times of day ascend, except for steps back by more than twelve hours, adds a day after each
// of these steps: they are past midnight. The indexes of the first times of a new day; none where
// nothing is changed.
std::vector<int> roll_over_midnights(Column<Double> times);

// The unit that suits the span of the days: years with their fraction from two years on; months
// where the dates are months alone; days; or hours, minutes and seconds where the dates have times
// and the span is below three days, three hours or five minutes. Times of which one is beyond 24
// hours are elapsed ones, in hours, or in days from ten days on, unless they are past midnight.
TimeScale choose_time_scale(const Column<Double>& days, DateKind kind,
                            bool are_past_midnight = false);

// Chooses the scale, makes the days numbers of it, and returns its name.
std::string rescale_dates(Column<Double> days, DateKind kind);

}  // namespace kurv::app
