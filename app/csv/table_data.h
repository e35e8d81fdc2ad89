// A table of texts as numbers that the control can draw.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

#include <optional>
#include <string>
#include <vector>

#include "app/csv/column_choice.h"
#include "app/csv/csv_table.h"
#include "app/csv/table_columns.h"
#include "app/csv/time_axis.h"

namespace kurv::app {

class UserError;

// Column 1 is x and the others are curves; columns and points count from 1. A missing value is NaN,
// in x too: a row that cannot be drawn still is a row.
struct TableData {
  Matrix<Double> values;
  List<String> names;
  // Whole sentences about what was left out or guessed.
  std::vector<std::string> warnings;
  // How the dates of x have become numbers; nothing where x has none.
  std::optional<TimeScale> x_scale = {};
};

// Whether x goes back and forth from row to row, so that lines between the points would cross the
// plot in all directions.
bool has_unsorted_x(const TableData& data);

// What the values of x count: the unit of its dates, and years where the column is called "year".
AxisUnit x_unit(const TableData& data);

// Dates of x become numbers as rescale_dates() says, and commas in names blanks. More rows than a
// graph holds are thinned() where `every`, with which the columns must have been made, is 1. Throws
// UserError, which begins with `path`, when the table cannot be drawn.
TableData make_table_data(TableColumns& columns, const Selection& selection,
                          const std::string& path);
// The same for a table of which nothing has been chosen but this.
TableData make_table_data(const CsvTable& table, const Selection& selection,
                          const std::string& path);

// A file, or standard input where the path is "-", as data that can be drawn. This is all that a
// program needs of a table whose columns are not shown to anybody. Throws UserError as
// read_table(), make_table_data() and check_drawable() do.
TableData read_table_data(const std::string& path, const TableOptions& options);

// Throws UserError for a table without rows of data.
void check_has_rows(const TableColumns& columns, const std::string& path);

// `error` about a table that cannot be drawn, with advice where the table is one of several sheets
// and nobody has chosen it.
UserError with_sheet_advice(const UserError& error, const TableSource& source);

// Throws UserError for data that would leave the graph empty: it needs two rows, and values of x
// that differ.
void check_drawable(const TableData& data, const Selection& selection, const std::string& path);

}  // namespace kurv::app
