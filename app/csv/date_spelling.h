// Spellings of dates with times that are brought to the usual one, a day and "12:34:56" after it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kurv::app {

// Where the time begins in a text with a colon: after the last blank or "T" before it.
std::size_t start_of_time(std::string_view text, std::size_t colon);

// "20120131T123456Z" as "20120131T12:34:56Z"; empty for any other text.
std::string with_colons(std::string_view text);

// "Mon Jan  2 10:00:00 UTC 2023" as "Mon Jan 2 2023 10:00:00 UTC"; empty for any other text.
std::string with_year_before_time(std::string_view text);

// Without the name of a time zone in brackets after a UTC offset, such as "[Europe/Berlin]".
std::string_view without_zone_name(std::string_view text);

}  // namespace kurv::app
