// The values of spreadsheet cells as texts that depend on no language.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/sources/number_format_kind.h"

namespace kurv::app {

// The day that dates count from.
enum class DateSystem { k1900, k1904 };

// The shortest text that reads back to the same number; the text itself where it is none.
std::string number_cell(std::string_view text);
// The same a hundred times as large with "%": "12%" for 0.12, without an error of rounding.
std::string percent_cell(std::string_view text);

const char* boolean_cell(bool value);

// A number of days as "2012-01-31", "2012-01-31T12:00:00", "12:34:56" or, for a duration,
// "36:00:00"; seconds have up to three decimals. What the format hides is shown: a date with a time
// of day is a date and time. Nothing for a number that is no such date.
std::optional<std::string> date_cell(double days, FormatKind kind, DateSystem system);

// "2012-01-31T12:00:00.5000" without the zeros at its end; other texts as they are.
std::string iso_cell(std::string_view text);

// A duration such as "PT12H34M56S" as "12:34:56"; the text itself where it is none.
std::string duration_cell(std::string_view text);

}  // namespace kurv::app
