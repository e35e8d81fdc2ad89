// Rows that are longer or shorter than the header.
#pragma once

#include "app/csv/table_columns.h"
#include "app/csv/table_data.h"

namespace kurv::app {

// The cells beyond the header have no name and are not drawn. Blank ones, such as a separator at
// the end of each line makes, are not reported.
void warn_of_long_rows(const TableColumns& columns, TableData& data);

// The fields that are not there count as missing.
void warn_of_short_rows(TableColumns& columns, TableData& data);

}  // namespace kurv::app
