// Texts become tables: the separator, comments and a preamble are found here.
#pragma once

#include <string>

#include "app/csv/csv_parser.h"
#include "app/csv/csv_table.h"

namespace kurv::app {

// The table in a text. What the options do not say is found out; a separator that the first line
// declares, as in "sep=;", counts. Throws UserError, which begins with `path`, when a quotation
// mark is never closed.
CsvTable parse_csv(std::string text, const std::string& path, const TableOptions& options = {});

// The same with the rules that were found, by which more of the text can be parsed.
struct ParsedText {
  CsvTable table;
  ParseRules rules;
};
ParsedText parse_text(std::string text, const std::string& path, const TableOptions& options);

}  // namespace kurv::app
