// The lines that kurv info prints.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace kurv::app {

// The label in a column of its own, and the value as one line of UTF-8 after it.
void print_info_line(std::ostream& out, std::string label, std::string_view value);

}  // namespace kurv::app
