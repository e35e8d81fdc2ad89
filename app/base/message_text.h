// Texts of users and files inside a message: quoted, on one line, not too long.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// Control characters become blanks, so that the text stays on its line.
std::string on_one_line(std::string_view text);

// `text` in quotation marks, on one line, and cut where it is too long for a sentence.
std::string in_quotes(std::string_view text);

// The names as a sentence part, each quoted: "a", "b" and 7 more.
std::string enumeration(const std::vector<std::string>& names, std::size_t at_most);

}  // namespace kurv::app
