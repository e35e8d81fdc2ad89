// Which texts the fields of the properties accept. Numbers are read with the graph's decimal
// separator, with which the fields show them. Without a value, the text is refused.
#pragma once

#include <KurvGraph/values.h>

#include <optional>
#include <string_view>

namespace kurv {

// 5 to 100, checked before it is rounded: 4.9 is refused, and 99.5 becomes 100.
std::optional<Integer> tick_count(std::string_view text, char decimal_separator);
// 10 to 200 twips, checked before it is rounded too. May have a unit; see length_text.h.
std::optional<Integer> marker_size(std::string_view text, char decimal_separator);
// 1 to 4 pixels, checked before it is rounded too.
std::optional<Integer> line_width(std::string_view text, char decimal_separator);

// Twips for set_margin(), which checks them and shows the message; may have a unit as well. A
// number outside the range of an Integer is clamped; what is no length becomes zero, which no
// margin accepts.
Integer margin_twips(std::string_view text, char decimal_separator);

// The limit in the field `changed`, which is one of the two fields `min` and `max` of its axis. It
// has to be finite, and the minimum has to be below the maximum.
std::optional<Double> axis_limit(std::string_view changed, std::string_view min,
                                 std::string_view max, char decimal_separator);
// Why axis_limit() refuses a field of these two, in a few words; empty where it refuses neither.
String limits_refusal(std::string_view min, std::string_view max, char decimal_separator);

// Why the text is not taken for the number format of an axis: all labels would be the same. Empty
// where it is taken.
String format_refusal(std::string_view format);

}  // namespace kurv
