// Which character separates the fields of a file.
#pragma once

#include <optional>
#include <string_view>

namespace kurv::app {

// Comma, semicolon or tab: the one that most of the first lines have equally often, outside quotes.
// On a tie, a tab takes precedence over a semicolon, and a semicolon over a comma, because the
// commas between semicolons are decimal commas. A comma where no line has any of them.
char find_separator(std::string_view bytes);

// The separator that the first line declares, as in "sep=;". Spreadsheets write such a line.
std::optional<char> declared_separator(std::string_view bytes);

}  // namespace kurv::app
