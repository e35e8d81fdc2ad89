#include "app/sources/cell_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace kurv::app {
namespace {

using enum FormatKind;

std::string date(double days, FormatKind kind, DateSystem system = DateSystem::k1900) {
  return date_cell(days, kind, system).value_or("none");
}

TEST(CellText, NumbersAreTheShortestThatReadBack) {
  EXPECT_EQ(number_cell("1.50"), "1.5");
  EXPECT_EQ(number_cell("0.1000000000000000055511151231257827"), "0.1");
  EXPECT_EQ(number_cell("1E3"), "1000");
  EXPECT_EQ(number_cell("-2.5e-20"), "-2.5E-20");
  EXPECT_EQ(number_cell("12345678901234567890"), "1.2345678901234567E+19");
  EXPECT_EQ(number_cell("none"), "none");
}

TEST(CellText, PercentagesHaveNoErrorOfRounding) {
  EXPECT_EQ(percent_cell("0.12"), "12%");
  EXPECT_EQ(percent_cell("0.07"), "7%");
  EXPECT_EQ(percent_cell("0.29"), "29%");
  EXPECT_EQ(percent_cell("-1.155"), "-115.5%");
  EXPECT_EQ(percent_cell("0"), "0%");
  EXPECT_EQ(percent_cell("1e300"), "1E+302%");
  EXPECT_EQ(percent_cell("none"), "none");
}

TEST(CellText, DatesCountFrom1900) {
  EXPECT_EQ(date(40939, kDate), "2012-01-31");
  EXPECT_EQ(date(1, kDate), "1900-01-01");
  EXPECT_EQ(date(59, kDate), "1900-02-28");
  EXPECT_EQ(date(61, kDate), "1900-03-01");
  EXPECT_EQ(date(2958465, kDate), "9999-12-31");
}

// The system counts that day, but it is no date.
TEST(CellText, The29thOfFebruary1900IsNoDate) {
  EXPECT_EQ(date(60, kDate), "none");
}

TEST(CellText, DatesCountFrom1904) {
  EXPECT_EQ(date(0, kDate, DateSystem::k1904), "1904-01-01");
  EXPECT_EQ(date(39477, kDate, DateSystem::k1904), "2012-01-31");
}

TEST(CellText, NumbersThatAreNoDatesStayNumbers) {
  EXPECT_EQ(date(-1, kDate), "none");
  EXPECT_EQ(date(2958466, kDate), "none");
  EXPECT_EQ(date(1e300, kDateTime), "none");
  EXPECT_EQ(date(std::numeric_limits<double>::quiet_NaN(), kDate), "none");
  EXPECT_EQ(date(std::numeric_limits<double>::infinity(), kDuration), "none");
}

TEST(CellText, TheTimeOfDayIsShownEvenWhereTheFormatHidesIt) {
  EXPECT_EQ(date(40939.5, kDate), "2012-01-31T12:00:00");
  EXPECT_EQ(date(40939.5, kTime), "2012-01-31T12:00:00");
  EXPECT_EQ(date(40939, kDateTime), "2012-01-31T00:00:00");
}

TEST(CellText, ATimeHasNoDate) {
  EXPECT_EQ(date(0.5242592592592593, kTime), "12:34:56");
  EXPECT_EQ(date(0.25, kDateTime), "06:00:00");
  EXPECT_EQ(date(0.25, kTime, DateSystem::k1904), "06:00:00");
  EXPECT_EQ(date(1.5, kDuration), "36:00:00");
}

// A double holds a date and time to about a microsecond, so 12:00:00 is often 11:59:59.9999997.
TEST(CellText, SecondsAreRoundedToMilliseconds) {
  EXPECT_EQ(date(40939.499999999996, kDateTime), "2012-01-31T12:00:00");
  EXPECT_EQ(date(40939 + 0.25 / 86400, kDateTime), "2012-01-31T00:00:00.25");
  EXPECT_EQ(date(40939.9999999999, kDateTime), "2012-02-01T00:00:00");
}

TEST(CellText, IsoTextsLoseTheZerosAtTheirEnd) {
  EXPECT_EQ(iso_cell("2012-01-31"), "2012-01-31");
  EXPECT_EQ(iso_cell("2012-01-31T12:00:00.000000000"), "2012-01-31T12:00:00");
  EXPECT_EQ(iso_cell("2012-01-31T12:00:00.250000000"), "2012-01-31T12:00:00.25");
  EXPECT_EQ(iso_cell("2012-01-31T12:00:00.5Z"), "2012-01-31T12:00:00.5Z");
  EXPECT_EQ(iso_cell("31.01.00."), "31.01.00.");
}

TEST(CellText, DurationsBecomeTimes) {
  EXPECT_EQ(duration_cell("PT12H34M56S"), "12:34:56");
  EXPECT_EQ(duration_cell("PT012H34M56S"), "12:34:56");
  EXPECT_EQ(duration_cell("PT36H00M00S"), "36:00:00");
  EXPECT_EQ(duration_cell("P1DT2H"), "26:00:00");
  EXPECT_EQ(duration_cell("PT00H00M00.500000000S"), "00:00:00.5");
  EXPECT_EQ(duration_cell("-PT1H"), "-01:00:00");
}

TEST(CellText, OtherTextsAreNoDurations) {
  for (const char* text : {"", "12:34", "PT5", "PT5X", "PTS", "P1Y"}) {
    EXPECT_EQ(duration_cell(text), text);
  }
  EXPECT_EQ(duration_cell("PT99999999999999999999H"), "PT99999999999999999999H");
}

}  // namespace
}  // namespace kurv::app
