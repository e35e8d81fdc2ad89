// Lines and fields of the beginning of a text, before it is known how the text is to be parsed.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace kurv::app {

// The first line without its end; the text becomes what is after it. LF, CR LF and CR end a line.
std::string_view take_line(std::string_view& text);

// The same for a row, which goes on after a line end inside quotes. A quotation mark opens quotes
// at the start of a field, whichever of the usual separators it is that may begin one there.
std::string_view take_row(std::string_view& text);

// The fields of a row, without the blanks and quotes around them. A doubled quotation mark stays as
// it is. Between blanks, the parts of a time are one field as in are_one_time().
std::vector<std::string_view> split_row(std::string_view row, char separator,
                                        bool with_dates = false);

// Whether two fields with blanks between them are one text: a time and "AM" or "PM", and where
// `with_dates` is set, a date and a time.
bool are_one_time(std::string_view field, std::string_view next, bool with_dates);

// Whether the text looks like a number, a date or a time, whatever its notation: it begins with a
// digit, maybe after a sign or a currency, has nothing but the characters of such texts up to a
// unit at its end, and no blank that separates two numbers.
bool looks_like_value(std::string_view text);

// Whether the line is a rule of a table that is drawn with characters, such as "---+---" or
// "|---|---|".
bool is_rule(std::string_view line);

}  // namespace kurv::app
