// Splits a text into rows and fields.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/csv/csv_table.h"

namespace kurv::app {

struct ParseRules {
  char separator = ',';
  // Where the columns of a table of fixed width begin, in characters; the first one is 0.
  std::vector<std::uint32_t> starts;
  std::string comment;
  // The first line is none although it begins so.
  bool first_is_no_comment = false;
  // Each row begins and ends with a separator, as in "| 1 | 2 |".
  bool outer_bars = false;
  // Between blanks, a date and the time after it are one field.
  bool joins_dates_and_times = false;
  // Where the table begins: its first byte and the number of its line.
  std::size_t offset = 0;
  std::size_t line = 1;
};

// Fields may be quoted, unless columns have a fixed width; quoted ones may hold separators, line
// ends, and doubled quotation marks. Lines end in LF, CR LF or CR. Throws UserError, which begins
// with `path`, when a quotation mark is never closed, or a row has more than 100,000 fields.
CsvTable parse_csv(std::string text, const ParseRules& rules, const std::string& path);
// The same where a separator is all there is to say.
CsvTable parse_csv(std::string text, char separator, const std::string& path);

}  // namespace kurv::app
