// Files of all kinds as tables: text, workbooks and JSON.
#pragma once

#include <string>

#include "app/csv/csv_table.h"
#include "app/sources/spreadsheet.h"

namespace kurv::app {

// The table in a file, or in standard input where the path is "-". What kind of file it is follows
// from its content, never from its name. Throws UserError, which begins with the path, where it
// cannot be read, has no table, or has too much in it.
CsvTable read_table(const std::string& path, const TableOptions& options = {});
// The same for bytes that have been read by read_table_bytes(), or that come from elsewhere; `name`
// is what messages call them.
CsvTable parse_table(std::string bytes, const std::string& name, const TableOptions& options = {});
// The same for a sheet of a workbook that has been read already, which takes most of the time.
CsvTable parse_sheet(SheetText sheet, const std::string& name, const TableOptions& options = {});

}  // namespace kurv::app
