// Lines of a text that are no rows of its table.
#pragma once

#include <string>
#include <string_view>

namespace kurv::app {

// What comment lines begin with, "#", "%" or "//", where the text begins with one of them;
// otherwise an empty text.
std::string find_comment_prefix(std::string_view text);

// The same for comments below the beginning: lines with another number of fields than usual.
std::string find_later_comment_prefix(std::string_view text, char separator);

}  // namespace kurv::app
