// Where in a file its table begins: files of instruments have a preamble above it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kurv::app {

struct TableStart {
  // The first byte of the line of the table, and the line's number.
  std::size_t offset = 0;
  std::size_t line = 1;
  // That line is a comment, which names the columns.
  bool is_comment = false;
};

// A preamble is what is above the names of the columns: lines with fewer fields than the table has,
// and lines with a word where the table has numbers or dates, such as "Serial number;1234". The
// table begins with the line above its first row of values; of several lines of names, with the
// first one. A last comment line with as many fields as the table has holds the names where there
// is no other line of names.
TableStart find_table_start(std::string_view text, char separator, const std::string& comment);

}  // namespace kurv::app
