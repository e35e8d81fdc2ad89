// What the columns of a table are called.
#pragma once

#include <string>
#include <vector>

#include "app/csv/csv_table.h"

namespace kurv::app {

// One name per column, all different: those of the header, or "x", "y1", "y2" and so on where there
// is none ("y" for a single column). A repeated name gets a suffix, "name (2)", and an empty one is
// "column 3". A table without a header is as wide as its widest row.
std::vector<std::string> column_names(const CsvTable& table, bool header);

}  // namespace kurv::app
