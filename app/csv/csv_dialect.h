// How a CSV table is written: what its cells do not say one by one.
#pragma once

#include "app/csv/csv_table.h"

namespace kurv::app {

struct CsvDialect {
  // Numbers have a decimal comma instead of a decimal point.
  bool decimal_comma = false;
  // The first row holds the names of the columns.
  bool header = false;
};

// All detection is done here; every other function takes the dialect as a parameter.
//
// A table has decimal commas if more of its numbers need one than have a decimal point, and never
// where commas separate its fields. It has a header unless each field of its first row is a number,
// a date or missing.
CsvDialect detect_dialect(const CsvTable& table);

}  // namespace kurv::app
