// What a table looks like to a person who is to choose from it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/csv/column_survey.h"
#include "app/csv/csv_table.h"

namespace kurv::app {

struct TableLook {
  bool header = false;
  bool decimal_comma = false;
  std::size_t rows = 0;  // of data, without the header
  std::vector<std::string> names;
  std::vector<ColumnKind> kinds;
  // What is x where nobody has chosen; without it the row number is.
  std::optional<std::size_t> x;
};

// A table without rows or without a column of numbers has a look as well.
TableLook look_at(const CsvTable& table);

// One line, such as: The fields are separated by semicolons, numbers have a decimal comma, and the
// first line holds the names.
std::string description(const TableLook& look, char separator);

// What speaks of the command line's options speaks of the fields of the import dialog instead.
std::string in_dialog_words(std::string sentence);

}  // namespace kurv::app
