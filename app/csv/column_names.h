// What the columns of a table are called.
#pragma once

#include <string>
#include <vector>

#include "app/csv/csv_dialect.h"
#include "app/csv/csv_table.h"

namespace kurv::app {

struct ColumnNames {
  std::vector<std::string> names;
  // Empty where there is none.
  std::vector<std::string> units;
  // The names that got a suffix because the header has them before.
  std::vector<std::string> repeated;
};

// One name per column, all different: those of the header, or "x", "y1", "y2" and so on where there
// is none ("y" for a single column). A repeated name gets a suffix, "name (2)", and an empty one is
// "column 3". A unit of a row of its own is added in brackets: "time [s]". A table without a header
// is as wide as its widest row.
ColumnNames column_names(const CsvTable& table, const CsvDialect& dialect);

}  // namespace kurv::app
