// How a table is written: what its cells do not say one by one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/csv_table.h"
#include "app/csv/notation_survey.h"

namespace kurv::app {

struct CsvDialect {
  Notation notation;
  // The texts that stand for no value, where the user names them.
  std::optional<std::vector<std::string>> missing;
  // What the user says about dates.
  std::optional<DateOrder> chosen_dates;
  // The first row holds the names of the columns, and the second one their units.
  bool header = false;
  bool units = false;
  // The header has no name for the first column, where the rows have numbers or names of their own.
  bool first_has_no_name = false;
  // The first row of data.
  std::size_t first_row = 0;
  // Rows after it that hold no data, in ascending order: repeated headers, totals, empty rows at
  // the end.
  std::vector<std::uint32_t> left_out;
  // Whole sentences about what was left out or guessed.
  std::vector<std::string> notes;
};

// The text of the header above a column; empty without one.
std::string_view header_text(const CsvTable& table, const CsvDialect& dialect, std::size_t column);

// All detection is done here and in what parses the file; every other function takes the dialect as
// a parameter.
//
// What the options of the table say is not guessed. It has a header unless each field of its first
// row is a number, a date or missing.
CsvDialect detect_dialect(const CsvTable& table);

}  // namespace kurv::app
