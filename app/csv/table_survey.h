// A summary of a table for the import dialog.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/csv/table_columns.h"

namespace kurv::app {

struct TableSurvey {
  CsvDialect dialect;
  std::size_t rows = 0;  // of data, without the header
  std::vector<std::string> names;
  std::vector<ColumnKind> kinds;
  // The column that is x unless the user chooses another; without it x is the row number.
  std::optional<std::size_t> x;
};

// Reads all columns. A table without rows or without a column of numbers can be surveyed, too.
TableSurvey survey_table(TableColumns& columns);

// One line, such as: The fields are separated by semicolons, numbers have a decimal comma, and the
// first line holds the names.
std::string description(const CsvDialect& dialect, const TableSource& source);

// As the options of the command line take them: "tab", "blanks", "fixed width" or the character,
// and a sign, "none" without one. The kind is "numbers", "dates", "words" or "empty".
std::string separator_text(char separator);
std::string sign_text(char sign);
std::string kind_name(ColumnKind kind);

// Replaces the names of command line options by those of the fields of the import dialog and of the
// properties.
std::string in_dialog_words(std::string sentence);

}  // namespace kurv::app
