// Which character separates the fields of a file.
#pragma once

#include <optional>
#include <string_view>

namespace kurv::app {

// Comma, semicolon or tab: the one that most of the first lines have equally often, outside quotes.
// Where two are as good, a tab goes before a semicolon and a semicolon before a comma, because the
// commas between semicolons are decimal commas. A comma where no line has any of them.
char find_separator(std::string_view bytes);

// The separator that a first line such as "sep=;" sets, as spreadsheets write it for one another.
std::optional<char> declared_separator(std::string_view bytes);

}  // namespace kurv::app
