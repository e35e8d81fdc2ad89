// What the fields of the properties accept. Numbers are read with the graph's decimal separator, so
// that a field reads what it shows. Nothing: the text is refused.
#pragma once

#include <KurvGraph/values.h>

#include <optional>
#include <string_view>

namespace kurv {

// 5 to 100 before it is rounded, so 4.9 is refused and 99.5 is 100.
std::optional<Integer> tick_count(std::string_view text, char decimal_separator);
// 10 to 200 twips, likewise.
std::optional<Integer> marker_size(std::string_view text, char decimal_separator);
// 1 to 4 pixels, likewise.
std::optional<Integer> line_width(std::string_view text, char decimal_separator);

// Twips for set_margin(), which judges and complains. What is beyond an Integer becomes the nearest
// one, and what is no number becomes zero, which no margin accepts.
Integer margin_twips(std::string_view text, char decimal_separator);

// The text of one limit's field, and those of both fields of its axis, of which it is one. A finite
// number, as long as the minimum is below the maximum.
std::optional<Double> axis_limit(std::string_view changed, std::string_view min,
                                 std::string_view max, char decimal_separator);

}  // namespace kurv
