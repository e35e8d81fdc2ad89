// The names of months and days in dates.
#pragma once

#include <optional>
#include <string_view>

namespace kurv::app {

// 1 for "January", "Jan" or "Jan." in any letter case, in English, a few other languages and that
// of the user's locale.
std::optional<unsigned> month_named(std::string_view name);

// Whether it is the name of a day of the week, "Monday" or "Mon", in these languages.
bool is_weekday_name(std::string_view name);

}  // namespace kurv::app
