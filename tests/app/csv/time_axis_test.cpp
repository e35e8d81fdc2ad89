#include "app/csv/time_axis.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace kurv::app {
namespace {

double days_of(std::string_view text) {
  return parse_date(text, DateOrder::kDayFirst).value().days;
}

TEST(DecimalYear, GoesByTheLengthOfItsOwnYear) {
  EXPECT_EQ(decimal_year(days_of("2012-01-01")), 2012);
  EXPECT_DOUBLE_EQ(decimal_year(days_of("2012-07-02")), 2012.5);
  EXPECT_DOUBLE_EQ(decimal_year(days_of("2011-07-02T12:00")), 2011.5);
  EXPECT_DOUBLE_EQ(decimal_year(days_of("2012-12-31")), 2012 + 365.0 / 366);
  EXPECT_DOUBLE_EQ(decimal_year(days_of("1900-12-31")), 1900 + 364.0 / 365);
}

TEST(IsoDateText, IsWrittenWithoutItsTime) {
  EXPECT_EQ(iso_date_text(days_of("2012-01-31T23:59:59")), "2012-01-31");
  EXPECT_EQ(iso_date_text(days_of("0099-12-01")), "0099-12-01");
}

TEST(TimeAxis, TwoYearsAreCalendarYears) {
  const auto within = [](const char* first, const char* last) {
    return within_two_years(days_of(first), days_of(last));
  };
  EXPECT_TRUE(within("2012-01-01", "2013-12-31"));
  EXPECT_FALSE(within("2012-01-01", "2014-01-01"));
  EXPECT_TRUE(within("2012-03-01", "2014-02-28T23:59"));
  EXPECT_FALSE(within("2012-03-01", "2014-03-01"));
  EXPECT_TRUE(within("2012-02-29", "2014-02-28"));
  EXPECT_FALSE(within("2012-02-29", "2014-03-01"));
}

// What the days of these texts become, and what they are then.
std::pair<std::string, std::vector<double>> rescaled(const std::vector<std::string>& texts) {
  const int count = static_cast<int>(texts.size());
  Matrix<Double> days(1, 1, 1, count);
  DateKind kind = DateKind::kMonth;
  for (int i = 1; i <= count; ++i) {
    const std::optional<DateValue> date =
        parse_date(texts[static_cast<std::size_t>(i) - 1], DateOrder::kDayFirst);
    days(1, i) = date ? date->days : std::numeric_limits<double>::quiet_NaN();
    if (date) kind = std::max(kind, date->kind);
  }
  const std::string title = rescale_dates(days.column(1), kind);
  std::vector<double> values;
  for (int i = 1; i <= count; ++i) values.push_back(days(1, i));
  return {title, values};
}

TEST(TimeAxis, HasTheUnitThatSuitsTheSpan) {
  using testing::DoubleNear;
  using testing::ElementsAre;
  using testing::IsNan;
  using testing::Pair;
  EXPECT_THAT(rescaled({"2012-01-01", "2014-01-01"}),
              Pair("decimal year", ElementsAre(2012, 2014)));
  EXPECT_THAT(rescaled({"2012-11", "2013-02", "x"}),
              Pair("months since 2012-11", ElementsAre(0, 3, IsNan())));
  EXPECT_THAT(rescaled({"2012-02-28", "2012-03-01"}),
              Pair("days since 2012-02-28", ElementsAre(0, 2)));
  EXPECT_THAT(rescaled({"2012-02-28T12:00", "2012-03-03T00:00"}),
              Pair("days since 2012-02-28", ElementsAre(0.5, 4)));
  EXPECT_THAT(rescaled({"2012-02-28T12:15", "2012-02-29T11:00"}),
              Pair("hours since 2012-02-28 12:00", ElementsAre(0.25, 23)));
  EXPECT_THAT(rescaled({"2012-02-28T12:15:30", "2012-02-28T12:45:00"}),
              Pair("minutes since 2012-02-28 12:15", ElementsAre(0.5, 30)));
  EXPECT_THAT(rescaled({"2012-02-28T12:15:30", "2012-02-28T12:15:30.25"}),
              Pair("seconds since 2012-02-28 12:15:30", ElementsAre(0, DoubleNear(0.25, 1e-5))));
  EXPECT_THAT(rescaled({"8:00", "23:00"}), Pair("hours since 08:00", ElementsAre(0, 15)));
}

TEST(TimeAxis, CountsElapsedTimesFromTheirBeginning) {
  using testing::ElementsAre;
  using testing::Pair;
  EXPECT_THAT(rescaled({"23:15:00", "24:00:00", "25:30:00"}),
              Pair("hours", ElementsAre(23.25, 24, 25.5)));
  EXPECT_THAT(rescaled({"0:00:00", "360:00:00"}), Pair("days", ElementsAre(0, 15)));
}

TEST(TimeAxis, WithoutADateIsLeftAsItIs) {
  EXPECT_EQ(rescaled({"x"}).first, "no dates");
}

TEST(TimeAxis, TimesOfDayGoOnAfterMidnight) {
  const auto rolled = [](std::vector<double> hours) {
    const int count = static_cast<int>(hours.size());
    Matrix<Double> times(1, 1, 1, count);
    for (int i = 1; i <= count; ++i) times(1, i) = hours[static_cast<std::size_t>(i) - 1] / 24;
    roll_over_midnights(times.column(1));
    for (int i = 1; i <= count; ++i) hours[static_cast<std::size_t>(i) - 1] = times(1, i) * 24;
    return hours;
  };
  using testing::ElementsAre;
  EXPECT_THAT(rolled({18, 21, 0, 3}), ElementsAre(18, 21, 24, 27));
  EXPECT_THAT(rolled({12, 21, 3, 21, 3}), ElementsAre(12, 21, 27, 45, 51));
  EXPECT_THAT(rolled({18, 15, 0, 3}), ElementsAre(18, 15, 0, 3)) << "unsorted";
  EXPECT_THAT(rolled({21, 18}), ElementsAre(21, 18));
  EXPECT_THAT(rolled({18, 36, 0}), ElementsAre(18, 36, 0)) << "elapsed";
}

// The number of a date on the axis of dates between two others, and the date of that number.
std::string there_and_back(const char* first, const char* last, const char* text) {
  Matrix<Double> days(1, 1, 1, 2);
  const std::optional<DateValue> begin = parse_date(first, DateOrder::kYearFirst);
  days(1, 1) = begin->days;
  days(1, 2) = parse_date(last, DateOrder::kYearFirst)->days;
  const TimeScale scale = choose_time_scale(days.column(1), begin->kind);
  return date_text(scale, scale(parse_date(text, DateOrder::kYearFirst)->days), 0);
}

TEST(TimeAxis, GivesTheDateOfANumber) {
  EXPECT_EQ(there_and_back("1958-03-29", "2001-12-29", "1976-02-29"), "1976-02-29");
  EXPECT_EQ(there_and_back("1958-03", "2001-12", "1976-02"), "1976-02");
  EXPECT_EQ(there_and_back("2012-01-31", "2012-05-31", "2012-02-29"), "2012-02-29");
  EXPECT_EQ(there_and_back("2012-01", "2012-11", "2012-02"), "2012-02");
  EXPECT_EQ(there_and_back("2011-12", "2012-11", "2012-01"), "2012-01");
  EXPECT_EQ(there_and_back("2012-01-31T10:00", "2012-02-01T10:00", "2012-01-31T22:30"),
            "2012-01-31 22:30");
  EXPECT_EQ(there_and_back("2012-01-31T10:00:00", "2012-01-31T10:03:00", "2012-01-31T10:01:02.5"),
            "2012-01-31 10:01:02.500");
  EXPECT_EQ(there_and_back("2001-01-31T10:00", "2012-02-01T10:00", "2007-08-09T12:34:56"),
            "2007-08-09 12:34:56");
  EXPECT_EQ(there_and_back("10:00", "18:00", "12:34"), "12:34");
  EXPECT_EQ(there_and_back("10:00:00", "100:00:00", "30:15:00"), "") << "elapsed";
}

TEST(TimeAxis, GivesEveryDayBack) {
  for (const char* const last : {"1999-12-31", "2050-12-31"}) {
    Matrix<Double> days(1, 1, 1, 2);
    days(1, 1) = parse_date("1999-01-01", DateOrder::kYearFirst)->days;
    days(1, 2) = parse_date(last, DateOrder::kYearFirst)->days;
    const TimeScale scale = choose_time_scale(days.column(1), DateKind::kDay);
    for (double day = days(1, 1); day <= days(1, 2); ++day)
      ASSERT_EQ(date_text(scale, scale(day), 0), iso_date_text(day));
  }
}

TEST(TimeAxis, GivesThePlaceOnAnAxisNoFinerThanItIs) {
  const TimeScale years{TimeUnit::kYears, 0, 1, "", DateKind::kInstant};
  EXPECT_EQ(date_text(years, 2000.5, 0.01), "2000-07-02");
  EXPECT_EQ(date_text(years, 2000.5, 1e-5), "2000-07-02 00:00");
  const TimeScale clock{TimeUnit::kClock, 15000.0 * 86400, 60, "", DateKind::kInstant};
  EXPECT_EQ(date_text(clock, 1.51, 0.1), "2011-01-26 00:01:30");
  EXPECT_EQ(date_text(years, 1e9, 0), "") << "no calendar has that year";
  EXPECT_EQ(date_text(years, std::nan(""), 0), "");
}

// An axis may be zoomed out to them.
TEST(TimeAxis, GivesNoDateBeyondTheYearsOfFourDigits) {
  const TimeScale years{TimeUnit::kYears, 0, 1, "", DateKind::kDay};
  EXPECT_EQ(date_text(years, 0, 0.5), "0000-01-01");
  EXPECT_EQ(date_text(years, -3.2, 0.5), "");
  EXPECT_EQ(date_text(years, 9999, 0.5), "9999-01-01");
  EXPECT_EQ(date_text(years, 10000, 0.5), "");
  EXPECT_EQ(date_text(years, 9999.9999, 0), "");
  const TimeScale days{TimeUnit::kDays, 0, 1, "", DateKind::kDay};
  EXPECT_EQ(date_text(days, -719528, 1), "0000-01-01");
  EXPECT_EQ(date_text(days, -719529, 1), "");
  EXPECT_EQ(date_text(days, -1e6, 1), "");
  EXPECT_EQ(date_text(days, 2932896, 1), "9999-12-31");
  EXPECT_EQ(date_text(days, 2932897, 1), "");
  const TimeScale months{TimeUnit::kMonths, 0, 1, "", DateKind::kMonth};
  EXPECT_EQ(date_text(months, 0, 1), "0000-01");
  EXPECT_EQ(date_text(months, -1, 1), "");
  EXPECT_EQ(date_text(months, 119999, 1), "9999-12");
  EXPECT_EQ(date_text(months, 120000, 1), "");
  EXPECT_EQ(date_text(months, 1e12, 1), "");
  const TimeScale years_of_months{TimeUnit::kYears, 0, 1, "", DateKind::kMonth};
  EXPECT_EQ(date_text(years_of_months, 12345, 0), "");
  const TimeScale clock{TimeUnit::kClock, 0, 3600, "", DateKind::kInstant};
  EXPECT_EQ(date_text(clock, 1e8, 1), "");
}

TEST(TimeAxis, HasTheUnitOfItsScale) {
  const auto unit = [](TimeUnit of, double step = 1) {
    TimeScale scale;
    scale.unit = of;
    scale.step = step;
    return axis_unit(scale);
  };
  EXPECT_EQ(axis_unit(TimeScale()), AxisUnit::kNumbers);
  EXPECT_EQ(unit(TimeUnit::kYears), AxisUnit::kYears);
  EXPECT_EQ(unit(TimeUnit::kMonths), AxisUnit::kMonths);
  EXPECT_EQ(unit(TimeUnit::kDays), AxisUnit::kDays);
  EXPECT_EQ(unit(TimeUnit::kElapsedHours), AxisUnit::kHours);
  EXPECT_EQ(unit(TimeUnit::kClock, 3600), AxisUnit::kHours);
  EXPECT_EQ(unit(TimeUnit::kClock, 60), AxisUnit::kMinutes);
  EXPECT_EQ(unit(TimeUnit::kClock, 1), AxisUnit::kSeconds);
}

}  // namespace
}  // namespace kurv::app
