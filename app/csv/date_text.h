// Texts of dates and times of the usual kinds.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "app/csv/table_options.h"

namespace kurv::app {

enum class DateKind : std::uint8_t { kMonth, kDay, kInstant, kTimeOfDay };

inline constexpr double kSecondsPerDay = 86400;

struct DateValue {
  // Since the beginning of 1970, in UTC where the text has a zone; of a time of day, since
  // midnight.
  double days;
  DateKind kind;
};

// "2012-01-31", "31.1.2012", "31/01/2012" or "01/31/2012" as `order` says, "2012/1/31",
// "31-Jan-2012", "Jan 31, 2012", "2012-01", "Jan 2012", "2012-Q1"; each with or without a time
// such as "12:34:56.5", "1:05 PM" or "T12:34+02:00"; and a time alone, also an elapsed one such as
// "100:15:00". Without signs, a day and its time are "20120131T123456Z". The month may be before
// the time and the year after it, as in "Tue Jan 31 12:34:56 UTC 2012". After an offset from UTC,
// the name of a time zone in brackets is ignored. A year of two digits is between 1970 and 2069.
// Nothing for any other text.
std::optional<DateValue> parse_date(std::string_view text, DateOrder order);

// A date of eight digits, "20120131", as the number that its digits are.
std::optional<double> days_of_digits(double value);
// The same with the time of day, "20120131123456".
std::optional<double> instant_of_digits(double value);

// A date with two numbers of which either may be the day: their values, and the year.
struct NumericDate {
  int first;
  int second;
  int year;
  char separator;
};
std::optional<NumericDate> numeric_date(std::string_view text);

}  // namespace kurv::app
