// Columns at the same places in each line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// Where the columns begin, in characters: after each place that is blank in all lines. A word in
// the first line with nothing below it belongs to the name of the nearest column. Empty lines,
// rules and lines that begin with `comment` do not count.
std::vector<std::uint32_t> fixed_columns(std::string_view text, const std::string& comment);

}  // namespace kurv::app
