// Dates as numbers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kurv::app {

// Days since the beginning of 1970 of "2012-01-31", optionally followed by "T" or a blank and
// a time, "12:34", "12:34:56" or "12:34:56.5", and after the time "Z" or a UTC offset, "+02",
// "+0200" or "+02:00", which is subtracted. Nothing for anything else, such as the 30th of
// February.
std::optional<double> parse_iso_date(std::string_view text);

// The year, and the part of it that has passed, in a year of its own length.
double decimal_year(double days);

// The calendar day of the instant, in UTC, as "2012-01-31".
std::string iso_date_text(double days);

// Whether the second instant is less than two calendar years after the first one.
bool within_two_years(double first_days, double last_days);

}  // namespace kurv::app
