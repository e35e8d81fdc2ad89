// Dates as numbers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kurv::app {

// Days since the beginning of 1970 of "2012-01-31", optionally with a time behind "T" or a blank:
// "12:34", "12:34:56" or "12:34:56.5", and behind the time "Z" or the zone's distance, "+02",
// "+0200" or "+02:00", which is taken off. Nothing for anything else, such as the 30th of February.
std::optional<double> parse_iso_date(std::string_view text);

// The year, and the part of it that has passed, in a year of its own length.
double decimal_year(double days);

// The day on which the moment lies, as "2012-01-31".
std::string iso_date_text(double days);

// Whether the second moment comes less than two calendar years after the first one.
bool within_two_years(double first_days, double last_days);

}  // namespace kurv::app
