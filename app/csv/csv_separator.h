// What separates the fields of a file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kurv::app {

// The character, kBlanks or kFixedWidth by which the lines have the same number of fields most
// often, and most fields that look like values. On a tie, a tab takes precedence over a semicolon,
// and a semicolon over a comma, because the commas between semicolons are decimal commas. A comma
// where no line has any of them. Looks at lines from the beginning, the middle and the end of the
// text, because the beginning may be a preamble. Lines that begin with `comment` do not count, and
// neither do commas where they are decimal ones.
char find_separator(std::string_view text, const std::string& comment = {},
                    bool commas_are_decimal = false);

// Whether most rows begin and end with this separator, as in "| 1 | 2 |".
bool has_outer_separators(std::string_view text, char separator, const std::string& comment);

// The separator that the first line declares, as in "sep=;". Spreadsheets write such a line.
std::optional<char> declared_separator(std::string_view bytes);

// The number of fields that most of the lines have with this separator.
std::size_t usual_width(std::string_view text, char separator, const std::string& comment);

}  // namespace kurv::app
