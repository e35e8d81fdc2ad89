// Small questions about texts. Letters are ASCII letters: no locale decides what a file means.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// Without blanks, tabs and line ends on either side.
std::string_view trimmed(std::string_view text);

std::string lower_case(std::string_view text);

// Control characters become blanks, so that the text stays on its line.
std::string on_one_line(std::string_view text);

// `text` in quotation marks, on one line, and cut where it is too long for a sentence.
std::string in_quotes(std::string_view text);

// The names as a sentence part, each quoted: "a", "b" and 7 more.
std::string enumeration(const std::vector<std::string>& names, std::size_t at_most);

// Whether the bytes are UTF-8, and as UTF-8 what they say: older programs write one byte per
// letter.
bool is_utf8(std::string_view bytes);
std::string as_utf8(std::string_view bytes);

}  // namespace kurv::app
