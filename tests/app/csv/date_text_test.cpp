#include "app/csv/date_text.h"

#include <gmock/gmock.h>

namespace kurv::app {
namespace {

std::optional<double> days_of(std::string_view text, DateOrder order = DateOrder::kDayFirst) {
  const std::optional<DateValue> date = parse_date(text, order);
  return date ? std::optional(date->days) : std::nullopt;
}

TEST(DateText, IsCountedInDaysSince1970) {
  EXPECT_EQ(days_of("1970-01-01"), 0);
  EXPECT_EQ(days_of("1970-02-01"), 31);
  EXPECT_EQ(days_of("1969-12-31"), -1);
  EXPECT_EQ(days_of("2012-02-29"), 15399);
  EXPECT_EQ(days_of("0001-01-01"), -719162);
}

TEST(DateText, MayHaveATime) {
  EXPECT_EQ(days_of("1970-01-02T12:00"), 1.5);
  EXPECT_EQ(days_of("1970-01-02 12:00"), 1.5);
  EXPECT_EQ(days_of("1970-01-02T06:00:00Z"), 1.25);
  EXPECT_EQ(days_of("1970-01-02 18:00:00 UTC"), 1.75);
  EXPECT_EQ(days_of("2.1.1970 6:00 PM"), 1.75);
  EXPECT_EQ(days_of("2/1/1970, 12:00 AM"), 1);
  EXPECT_DOUBLE_EQ(days_of("1970-01-01T00:00:43.2").value(), 0.0005);
  EXPECT_DOUBLE_EQ(days_of("1970-01-01T00:00:10,125Z").value(), 10.125 / 86400);
}

TEST(DateText, ATimeOfAnotherZoneIsMovedToTheCommonOne) {
  EXPECT_EQ(days_of("1970-01-02T12:00+06"), 1.25);
  EXPECT_EQ(days_of("1970-01-02T12:00:00+0600"), 1.25);
  EXPECT_EQ(days_of("1970-01-02 12:00-06:00"), 1.75);
  EXPECT_EQ(days_of("1970-01-02T00:00+12:00"), 0.5);
  EXPECT_EQ(days_of("1970-01-02T18:00-12"), 2.25);
  EXPECT_EQ(days_of("1970-01-02T12:00 +06:00"), 1.25);
  EXPECT_DOUBLE_EQ(days_of("1970-01-02T05:30:00.0+05:30").value(), 1);
  for (const char* text :
       {"1970-01-02T12:00+", "1970-01-02T12:00+6", "1970-01-02T12:00+06:", "1970-01-02T12:00+060",
        "1970-01-02T12:00+06:0", "1970-01-02T12:00+24", "1970-01-02T12:00+06:60",
        "1970-01-02T12:00+06:000", "1970-01-02T12:00Z+06", "1970-01-02+06"}) {
    EXPECT_FALSE(days_of(text)) << text;
  }
}

TEST(DateText, OfNumbersHasTheDayWhereTheOrderSaysSo) {
  EXPECT_EQ(days_of("2/1/1970"), 1);
  EXPECT_EQ(days_of("1/2/1970", DateOrder::kMonthFirst), 1);
  EXPECT_EQ(days_of("01/02/70", DateOrder::kMonthFirst), 1);
  EXPECT_EQ(days_of("02-01-1970"), 1);
  EXPECT_EQ(days_of("2.1.1970", DateOrder::kMonthFirst), 1) << "points have the day first";
  EXPECT_EQ(days_of("02.01.70"), 1);
  EXPECT_EQ(days_of("70/01/02", DateOrder::kYearFirst), 1);
  for (const DateOrder order :
       {DateOrder::kDayFirst, DateOrder::kMonthFirst, DateOrder::kYearFirst}) {
    EXPECT_EQ(days_of("1970/1/2", order), 1);
    EXPECT_EQ(days_of("1970-01-02", order), 1);
  }
  EXPECT_FALSE(days_of("1970-01-02", DateOrder::kNone));
}

TEST(DateText, MayNameTheMonth) {
  for (const char* text :
       {"02-Jan-1970", "2 January 1970", "2. Januar 1970", "Jan 2, 1970", "1970-Jan-02", "2-jan-70",
        "Fri, 2 Jan 1970", "2 JAN. 1970", "2 janvier 1970"}) {
    EXPECT_EQ(days_of(text), 1) << text;
  }
  EXPECT_EQ(days_of("Fri, 02 Jan 1970 12:00:00 +0600"), 1.25);
}

TEST(DateText, MayHaveATimeWithoutSigns) {
  EXPECT_EQ(days_of("19700102T060000Z"), 1.25);
  EXPECT_EQ(days_of("19700102T060000+0600"), 1);
  EXPECT_EQ(days_of("19700102T0600"), 1.25);
  for (const char* text : {"19700102T240000", "19700102T06000", "19700132T060000", "19700102T06"})
    EXPECT_FALSE(days_of(text)) << text;
  EXPECT_EQ(instant_of_digits(19700102060000), 1.25);
}

TEST(DateText, MayHaveItsYearAfterTheTime) {
  EXPECT_EQ(days_of("Fri Jan  2 06:00:00 UTC 1970"), 1.25);
  EXPECT_EQ(days_of("Fri Jan  2 06:00:00 1970"), 1.25);
  EXPECT_EQ(days_of("Fri Jan  2 06:00:00 AM UTC 1970"), 1.25);
  EXPECT_FALSE(days_of("Fri Jan  2 06:00:00 UTC 197"));
  EXPECT_FALSE(days_of(": 1970"));
}

TEST(DateText, MayNameTheTimeZoneAfterItsOffset) {
  EXPECT_EQ(days_of("1970-01-02T12:00+06:00[Asia/Omsk]"), 1.25);
  EXPECT_EQ(days_of("1970-01-02T06:00Z[UTC]"), 1.25);
  EXPECT_FALSE(days_of("1970-01-02T12:00[Asia/Omsk]"));
}

TEST(DateText, MayBeAMonthOrAQuarter) {
  for (const char* text : {"1970-04", "1970/04", "04/1970", "04.1970", "Apr 1970", "April-1970",
                           "1970-Q2", "Q2 1970", "1970Q2"}) {
    EXPECT_EQ(days_of(text), 90) << text;
    EXPECT_EQ(parse_date(text, DateOrder::kDayFirst)->kind, DateKind::kMonth) << text;
  }
}

TEST(DateText, MayBeATimeAlone) {
  EXPECT_EQ(days_of("18:00"), 0.75);
  EXPECT_EQ(days_of("6:00:00 PM"), 0.75);
  EXPECT_EQ(days_of("12:00 am"), 0);
  EXPECT_EQ(parse_date("18:00:00.5", DateOrder::kDayFirst)->kind, DateKind::kTimeOfDay);
}

TEST(DateText, MayBeAnElapsedTimeWithSeconds) {
  EXPECT_EQ(days_of("24:00:00"), 1);
  EXPECT_EQ(days_of("36:00:00"), 1.5);
  EXPECT_EQ(days_of("2400:00:00.0"), 100);
  // It may be minutes and seconds.
  EXPECT_FALSE(days_of("75:30"));
  EXPECT_FALSE(days_of("1970-01-02 36:00:00"));
  EXPECT_FALSE(days_of("36:00:00 PM"));
  EXPECT_FALSE(days_of("36:00:00Z"));
  EXPECT_FALSE(days_of("12345:00:00"));
}

TEST(DateText, IsNothingElse) {
  for (const char* text : {"",
                           "2012",
                           "word",
                           "a1",
                           "2012-13-01",
                           "2012-02-30",
                           "2011-02-29",
                           "2012-00-01",
                           "2012-01-00",
                           "2012-13",
                           "1.2.3",
                           "1.2.345",
                           "32.1.2012",
                           "1/2-2012",
                           "2012-01-31x",
                           "2012-01-31T",
                           "2012-01-31T24:00",
                           "2012-01-31T12",
                           "2012-01-31T12:60",
                           "2012-01-31T12:00:60",
                           "2012-01-31T12:00:00.",
                           "2012-01-31T12:00ZZ",
                           "2012-01-31Z",
                           "13:00 PM",
                           "25:00",
                           ":12",
                           "12:",
                           "-2012-01-31",
                           "2012-+1-31",
                           "12345-01-01",
                           "12-Dec",
                           "Maybe 2012",
                           "1970-Q5"}) {
    EXPECT_FALSE(days_of(text)) << text;
  }
}

TEST(DateText, OfEightDigitsIsANumberBetween1900And2099) {
  EXPECT_EQ(days_of_digits(19700102), 1);
  for (const double value : {18991231.0, 19700230.0, 19701301.0, 21000101.0, 19700102.5, 0.0}) {
    EXPECT_FALSE(days_of_digits(value)) << value;
  }
}

}  // namespace
}  // namespace kurv::app
