// kurv info for a table: what would be read from it, and why.
#pragma once

#include <iosfwd>
#include <string>

#include "app/csv/table_options.h"

namespace kurv::app {

// Prints how the file is written, its columns and what they are drawn as, and the notes about it.
// Throws UserError when it cannot be read, and after printing when it cannot be drawn.
void print_table_info(const std::string& path, const TableOptions& options, std::ostream& out);

}  // namespace kurv::app
