#include "app/csv/time_axis.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <limits>

namespace kurv::app {

namespace {

namespace chrono = std::chrono;

chrono::sys_days whole_day(double days) {
  return chrono::sys_days(chrono::days(static_cast<int>(std::floor(days))));
}

double count(chrono::sys_days day) {
  return static_cast<double>(day.time_since_epoch().count());
}

std::string padded(unsigned value, std::size_t width) {
  const std::string digits = std::to_string(value);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

// A clock time, "12:34" or "12:34:56", of the seconds since midnight.
std::string clock_text(unsigned seconds, bool with_seconds) {
  return padded(seconds / 3600, 2) + ':' + padded(seconds / 60 % 60, 2) +
         (with_seconds ? ':' + padded(seconds % 60, 2) : "");
}

// Milliseconds since midnight; the day is raised where they are rounded up to its end.
unsigned milliseconds_of_day(double& day, double days) {
  day = std::floor(days);
  auto result = static_cast<unsigned>(std::lround((days - day) * kSecondsPerDay * 1000));
  if (result == static_cast<unsigned>(kSecondsPerDay * 1000)) {
    day += 1;
    result = 0;
  }
  return result;
}

struct Span {
  double first = std::numeric_limits<double>::infinity();
  double last = -std::numeric_limits<double>::infinity();
};

Span span_of(const Column<Double>& days) {
  Span span;
  for (int i = days.lower(); i <= days.upper(); ++i) {
    // Comparisons with a missing value are false.
    if (days(i) < span.first) span.first = days(i);
    if (days(i) > span.last) span.last = days(i);
  }
  return span;
}

double months_since_year_0(double days) {
  const chrono::year_month_day date(whole_day(days));
  return static_cast<int>(date.year()) * 12.0 + static_cast<unsigned>(date.month()) - 1;
}

// A unit of time below a day.
struct ClockUnit {
  const char* name;
  double per_day;
  // Spans below this many days are in it.
  double longest;
};

constexpr std::array<ClockUnit, 3> kClockUnits{{{"seconds", kSecondsPerDay, 5.0 / (24 * 60)},
                                                {"minutes", 24 * 60, 3.0 / 24},
                                                {"hours", 24, 3}}};

// The unit for this span; nullptr where days suit it.
const ClockUnit* clock_unit(double span) {
  for (const ClockUnit& unit : kClockUnits) {
    if (span < unit.longest) return &unit;
  }
  return nullptr;
}

// The inverse of decimal_year(); `year` may be any number.
double days_of_year(double year) {
  const chrono::year whole(static_cast<int>(std::floor(year)));
  const double start = count(chrono::sys_days(whole / chrono::January / 1));
  const double end = count(chrono::sys_days((whole + chrono::years(1)) / chrono::January / 1));
  return start + (year - std::floor(year)) * (end - start);
}

// Dates have years of four digits: so many, and the first of January of the year 0.
constexpr double kYears = 10000;
constexpr double kDaysOfYears = 365.2425 * kYears;
constexpr double kFirstDay = -719528;

bool has_no_dates(const TimeScale& scale) {
  return scale.unit == TimeUnit::kNone || scale.unit == TimeUnit::kElapsedHours ||
         (scale.unit == TimeUnit::kDays && scale.kind == DateKind::kTimeOfDay);
}

// The inverse of TimeScale::operator(), but for months, which differ in length.
double days_of(const TimeScale& scale, double number) {
  if (scale.unit == TimeUnit::kYears) return days_of_year(number);
  if (scale.unit == TimeUnit::kDays) return number + scale.start;
  return (number * scale.step + scale.start) / kSecondsPerDay;
}

double days_per_number(const TimeScale& scale) {
  if (scale.unit == TimeUnit::kYears) return 365.2425;
  return scale.unit == TimeUnit::kDays ? 1 : scale.step / kSecondsPerDay;
}

std::string month_text(double months) {
  const double year = std::floor(months / 12);
  const auto month = static_cast<unsigned>(months - year * 12);
  return padded(static_cast<unsigned>(year), 4) + '-' + padded(month + 1, 2);
}

// The time of day "12:34", or with seconds and their fraction where they are wanted.
std::string time_text(unsigned milliseconds, bool with_seconds) {
  std::string text = clock_text(milliseconds / 1000, with_seconds);
  if (!with_seconds || milliseconds % 1000 == 0) return text;
  return text + '.' + padded(milliseconds % 1000, 3);
}

// Since the beginning of the unit in which the first instant is.
TimeScale clock_scale(const ClockUnit& unit, double first) {
  // Rounded, because a time of day is no exact part of a day.
  const double seconds = std::round(first * kSecondsPerDay * 1000) / 1000;
  const double step = kSecondsPerDay / unit.per_day;
  const double start = std::floor(seconds / step) * step;
  const double day = std::floor(start / kSecondsPerDay);
  const auto clock = static_cast<unsigned>(start - day * kSecondsPerDay);
  return {TimeUnit::kClock, start, step, iso_date_text(day) + ' ' + clock_text(clock, step < 60)};
}

// Times of which some are beyond 24 hours: since they began, not since a time of day.
TimeScale elapsed_scale(double last) {
  constexpr double kLongestInHours = 10;  // days
  if (last >= kLongestInHours) return {TimeUnit::kDays, 0, 1, "days"};
  return {TimeUnit::kElapsedHours, 0, 1, "hours"};
}

}  // namespace

double decimal_year(double days) {
  const chrono::year year = chrono::year_month_day(whole_day(days)).year();
  const double start = count(chrono::sys_days(year / chrono::January / 1));
  const double end = count(chrono::sys_days((year + chrono::years(1)) / chrono::January / 1));
  return static_cast<int>(year) + (days - start) / (end - start);
}

std::string iso_date_text(double days) {
  const chrono::year_month_day date(whole_day(days));
  return padded(static_cast<unsigned>(static_cast<int>(date.year())), 4) + '-' +
         padded(static_cast<unsigned>(date.month()), 2) + '-' +
         padded(static_cast<unsigned>(date.day()), 2);
}

std::string iso_instant_text(double days) {
  double day = 0;
  const unsigned clock = milliseconds_of_day(day, days);
  std::string text = iso_date_text(day) + 'T' + clock_text(clock / 1000, true);
  if (clock % 1000 == 0) return text;
  text += '.' + padded(clock % 1000, 3);
  text.resize(text.find_last_not_of('0') + 1);
  return text;
}

bool within_two_years(double first_days, double last_days) {
  const chrono::sys_days first = whole_day(first_days);
  // Two years after the 29th of February is the 1st of March.
  const chrono::sys_days limit(chrono::year_month_day(first) + chrono::years(2));
  return last_days - first_days < static_cast<double>((limit - first).count());
}

double TimeScale::operator()(double days) const {
  if (std::isnan(days)) return days;
  switch (unit) {
    case TimeUnit::kNone:
      return days;
    case TimeUnit::kYears:
      return decimal_year(days);
    case TimeUnit::kMonths:
      return months_since_year_0(days) - start;
    case TimeUnit::kDays:
      return days - start;
    case TimeUnit::kElapsedHours:
      return std::round(days * kSecondsPerDay * 1e5) / 3600e5;
    case TimeUnit::kClock:
      break;
  }
  // A hundredth of a millisecond is what days can hold.
  const double since = std::round((days * kSecondsPerDay - start) * 1e5) / 1e5;
  return since / step;
}

AxisUnit axis_unit(const TimeScale& scale) {
  switch (scale.unit) {
    case TimeUnit::kNone:
      return AxisUnit::kNumbers;
    case TimeUnit::kYears:
      return AxisUnit::kYears;
    case TimeUnit::kMonths:
      return AxisUnit::kMonths;
    case TimeUnit::kDays:
      return AxisUnit::kDays;
    case TimeUnit::kElapsedHours:
      return AxisUnit::kHours;
    case TimeUnit::kClock:
      break;
  }
  if (scale.step < 60) return AxisUnit::kSeconds;
  return scale.step < 3600 ? AxisUnit::kMinutes : AxisUnit::kHours;
}

std::vector<int> roll_over_midnights(Column<Double> times) {
  constexpr double kHalfADay = 0.5;
  std::vector<int> midnights;
  double last = 0;
  for (int i = times.lower(); i <= times.upper(); ++i) {
    if (std::isnan(times(i))) continue;
    const bool is_elapsed = times(i) >= 1;
    const bool is_back = times(i) < last;
    if (is_elapsed || (is_back && times(i) >= last - kHalfADay)) return {};
    if (is_back) midnights.push_back(i);
    last = times(i);
  }
  auto next = midnights.begin();
  int days = 0;
  for (int i = times.lower(); i <= times.upper(); ++i) {
    for (; next != midnights.end() && *next == i; ++next) ++days;
    times(i) += days;
  }
  return midnights;
}

std::string date_text(const TimeScale& scale, double number, double resolution) {
  if (has_no_dates(scale) || !std::isfinite(number)) return {};
  if (scale.unit == TimeUnit::kMonths) {
    const double months = std::floor(number + scale.start);
    return 0 <= months && months < 12 * kYears ? month_text(months) : std::string();
  }
  if (scale.unit == TimeUnit::kYears && !(0 <= number && number < kYears)) return {};
  const double days = days_of(scale, number);
  // Some of the texts below are of the nearest day.
  if (!(kFirstDay <= days && days + 0.5 < kFirstDay + kDaysOfYears)) return {};
  // Half a day from the first of the month is what a rounded number may be off.
  if (scale.kind == DateKind::kMonth) return iso_date_text(days + 0.5).substr(0, 7);

  constexpr unsigned kMillisecondsPerMinute = 60000;
  const double step = resolution * days_per_number(scale);
  const bool is_day = scale.kind == DateKind::kDay || step > 0.5;
  if (is_day && scale.kind != DateKind::kTimeOfDay) {
    // The number of a day may be slightly less than that of its beginning.
    return iso_date_text(resolution > 0 ? days : std::floor(days + 0.5));
  }
  double day = 0;
  unsigned clock = milliseconds_of_day(day, days);
  const bool with_seconds =
      resolution > 0 ? step * kSecondsPerDay < 60 : clock % kMillisecondsPerMinute != 0;
  if (resolution > 0 && step * kSecondsPerDay >= 0.5) clock -= clock % 1000;
  const std::string time = time_text(clock, with_seconds);
  return scale.kind == DateKind::kTimeOfDay ? time : iso_date_text(day) + ' ' + time;
}

namespace {

TimeScale scale_of(const Column<Double>& days, DateKind kind, bool are_past_midnight) {
  const Span span = span_of(days);
  if (!(span.first <= span.last)) return {TimeUnit::kNone, 0, 1, "no dates"};
  if (kind == DateKind::kTimeOfDay && span.last >= 1 && !are_past_midnight)
    return elapsed_scale(span.last);
  if (kind == DateKind::kTimeOfDay) {
    const ClockUnit* unit = clock_unit(span.last - span.first);
    if (unit == nullptr) unit = &kClockUnits.back();
    TimeScale scale = clock_scale(*unit, span.first);
    scale.name = std::string(unit->name) + " since " + scale.name.substr(scale.name.find(' ') + 1);
    return scale;
  }
  if (!within_two_years(span.first, span.last)) return {TimeUnit::kYears, 0, 1, "decimal year"};
  if (kind == DateKind::kMonth) {
    return {TimeUnit::kMonths, months_since_year_0(span.first), 1,
            "months since " + iso_date_text(span.first).substr(0, 7)};
  }
  const ClockUnit* const unit =
      kind == DateKind::kInstant ? clock_unit(span.last - span.first) : nullptr;
  if (unit != nullptr) {
    TimeScale scale = clock_scale(*unit, span.first);
    scale.name = std::string(unit->name) + " since " + scale.name;
    return scale;
  }
  return {TimeUnit::kDays, std::floor(span.first), 1, "days since " + iso_date_text(span.first)};
}

}  // namespace

TimeScale choose_time_scale(const Column<Double>& days, DateKind kind, bool are_past_midnight) {
  TimeScale scale = scale_of(days, kind, are_past_midnight);
  scale.kind = kind;
  return scale;
}

std::string rescale_dates(Column<Double> days, DateKind kind) {
  const TimeScale scale = choose_time_scale(days, kind);
  for (int i = days.lower(); i <= days.upper(); ++i) days(i) = scale(days(i));
  return scale.name;
}

}  // namespace kurv::app
