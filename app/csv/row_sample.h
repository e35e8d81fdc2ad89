// Some rows of a text, from which its layout is guessed before it is parsed as a whole.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// Rows from the beginning, the middle and the end of a text: all of a short one. Empty lines, rules
// and lines that begin with `comment` are no rows.
std::vector<std::string_view> sample_rows(std::string_view text, const std::string& comment);

// The last third of these rows, but at least three of them: a preamble is at the beginning.
std::vector<std::string_view> last_rows(const std::vector<std::string_view>& rows);

}  // namespace kurv::app
