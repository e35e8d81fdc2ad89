#include "app/csv/iso_date.h"

#include <gmock/gmock.h>

namespace kurv::app {
namespace {

TEST(IsoDate, IsCountedInDaysSince1970) {
  EXPECT_EQ(parse_iso_date("1970-01-01"), 0);
  EXPECT_EQ(parse_iso_date("1970-02-01"), 31);
  EXPECT_EQ(parse_iso_date("1969-12-31"), -1);
  EXPECT_EQ(parse_iso_date("2012-02-29"), 15399);
  EXPECT_EQ(parse_iso_date("0001-01-01"), -719162);
}

TEST(IsoDate, MayHaveATime) {
  EXPECT_EQ(parse_iso_date("1970-01-02T12:00"), 1.5);
  EXPECT_EQ(parse_iso_date("1970-01-02 12:00"), 1.5);
  EXPECT_EQ(parse_iso_date("1970-01-02T06:00:00Z"), 1.25);
  EXPECT_EQ(parse_iso_date("1970-01-02 18:00:00"), 1.75);
  EXPECT_DOUBLE_EQ(parse_iso_date("1970-01-01T00:00:43.2").value(), 0.0005);
  EXPECT_DOUBLE_EQ(parse_iso_date("1970-01-01T00:00:10.125Z").value(), 10.125 / 86400);
}

TEST(IsoDate, ATimeOfAnotherZoneIsMovedToTheCommonOne) {
  EXPECT_EQ(parse_iso_date("1970-01-02T12:00+06"), 1.25);
  EXPECT_EQ(parse_iso_date("1970-01-02T12:00:00+0600"), 1.25);
  EXPECT_EQ(parse_iso_date("1970-01-02 12:00-06:00"), 1.75);
  EXPECT_EQ(parse_iso_date("1970-01-02T00:00+12:00"), 0.5);
  EXPECT_EQ(parse_iso_date("1970-01-02T18:00-12"), 2.25);
  EXPECT_DOUBLE_EQ(parse_iso_date("1970-01-02T05:30:00.0+05:30").value(), 1);
  for (const char* text : {"1970-01-02T12:00+", "1970-01-02T12:00+6", "1970-01-02T12:00+06:",
                           "1970-01-02T12:00+060", "1970-01-02T12:00+06:0", "1970-01-02T12:00+24",
                           "1970-01-02T12:00+06:60", "1970-01-02T12:00+06:000",
                           "1970-01-02T12:00Z+06", "1970-01-02+06", "1970-01-02T12:00 +06"}) {
    EXPECT_FALSE(parse_iso_date(text)) << text;
  }
}

TEST(IsoDate, IsNothingElse) {
  for (const char* text : {"",
                           "2012",
                           "2012-01",
                           "2012-1-1",
                           "2012-13-01",
                           "2012-02-30",
                           "2011-02-29",
                           "2012-00-01",
                           "2012-01-00",
                           "20120131",
                           "31.01.2012",
                           "2012-01-31x",
                           "2012-01-31T",
                           "2012-01-31T24:00",
                           "2012-01-31T12",
                           "2012-01-31T12:60",
                           "2012-01-31T12:00:60",
                           "2012-01-31T12:00:00.",
                           "2012-01-31T12:00ZZ",
                           "2012-01-31Z",
                           " 2012-01-31",
                           "-2012-01-31",
                           "2012-+1-31",
                           "12345-01-01"}) {
    EXPECT_FALSE(parse_iso_date(text)) << text;
  }
}

TEST(DecimalYear, GoesByTheLengthOfItsOwnYear) {
  EXPECT_EQ(decimal_year(*parse_iso_date("2012-01-01")), 2012);
  EXPECT_DOUBLE_EQ(decimal_year(*parse_iso_date("2012-07-02")), 2012.5);
  EXPECT_DOUBLE_EQ(decimal_year(*parse_iso_date("2011-07-02T12:00")), 2011.5);
  EXPECT_DOUBLE_EQ(decimal_year(*parse_iso_date("2012-12-31")), 2012 + 365.0 / 366);
  EXPECT_DOUBLE_EQ(decimal_year(*parse_iso_date("1900-12-31")), 1900 + 364.0 / 365);
}

TEST(IsoDate, IsWrittenWithoutItsTime) {
  EXPECT_EQ(iso_date_text(*parse_iso_date("2012-01-31T23:59:59")), "2012-01-31");
  EXPECT_EQ(iso_date_text(*parse_iso_date("0099-12-01")), "0099-12-01");
}

TEST(IsoDate, TwoYearsAreCalendarYears) {
  const auto within = [](const char* first, const char* last) {
    return within_two_years(*parse_iso_date(first), *parse_iso_date(last));
  };
  EXPECT_TRUE(within("2012-01-01", "2013-12-31"));
  EXPECT_FALSE(within("2012-01-01", "2014-01-01"));
  EXPECT_TRUE(within("2012-03-01", "2014-02-28T23:59"));
  EXPECT_FALSE(within("2012-03-01", "2014-03-01"));
  EXPECT_TRUE(within("2012-02-29", "2014-02-28"));
  EXPECT_FALSE(within("2012-02-29", "2014-03-01"));
}

}  // namespace
}  // namespace kurv::app
