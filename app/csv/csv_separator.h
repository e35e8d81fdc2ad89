// What separates the fields of a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

// Where the columns of a text of fixed width begin, in characters: after each place that is blank
// in all lines. Lines that begin with `comment`, and what is above the first of at least `columns`
// fields, do not count.
std::vector<std::uint32_t> fixed_columns(std::string_view text, const std::string& comment);

// The separator that the first line declares, as in "sep=;". Spreadsheets write such a line.
std::optional<char> declared_separator(std::string_view bytes);

// What comment lines begin with, "#", "%" or "//", where the text begins with one of them;
// otherwise an empty text.
std::string find_comment_prefix(std::string_view text);
// The same for comments below the beginning: lines with another number of fields than usual.
std::string find_later_comment_prefix(std::string_view text, char separator);

// Rows from the beginning, the middle and the end of a text: all of a short one.
std::vector<std::string_view> sample_rows(std::string_view text, const std::string& comment);

// The last third of these rows, but at least three of them: a preamble is at the beginning.
std::vector<std::string_view> last_rows(const std::vector<std::string_view>& rows);

// The number of fields that most of the lines have with this separator.
std::size_t usual_width(std::string_view text, char separator, const std::string& comment);

}  // namespace kurv::app
