// A table of texts as numbers that the control can draw.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

#include <string>
#include <vector>

#include "app/csv/column_choice.h"
#include "app/csv/csv_table.h"
#include "app/csv/table_columns.h"

namespace kurv::app {

// Column 1 is x and the others are curves; columns and points count from 1. A missing value is NaN,
// in x too: a row that cannot be drawn still is a row.
struct TableData {
  Matrix<Double> values;
  List<String> names;
  // Whole sentences about what was left out.
  std::vector<std::string> warnings;
};

// Dates in the x column become decimal years, or days where they span less than two years. The
// columns must have been made with the selection's `every`. Throws UserError, which begins with
// `path`, when the table cannot be drawn.
TableData make_table_data(TableColumns& columns, const Selection& selection,
                          const std::string& path);
// The same for a table that is used once.
TableData make_table_data(const CsvTable& table, const Selection& selection,
                          const std::string& path);

// Throws UserError for data that would leave the graph empty: it needs two rows, and values of x
// that differ.
void check_drawable(const TableData& data, const Selection& selection, const std::string& path);

}  // namespace kurv::app
