// Workbooks of spreadsheet programs as tables.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "app/sources/sheet_choice.h"

namespace kurv::app {

// One sheet of a workbook as text, in UTF-8: fields are separated by tabs, rows by line feeds. A
// line is the row of the sheet that has its number. Numbers are written in the shortest way, with a
// decimal point; percentages as "12%", dates as "2012-01-31" or "2012-01-31T12:00:00", times as
// "12:34:56", Booleans as "TRUE" and "FALSE", errors as "#N/A". Of merged cells the first one
// has the value. Formulas are their stored results.
struct SheetText {
  std::string text;
  // The names of all sheets, and which of them the text is, from 0 on.
  std::vector<std::string> sheets;
  std::size_t sheet = 0;
  // Whole sentences about what is missing.
  std::vector<std::string> notes;
};

// Whether a file begins like a zip archive, as .xlsx and .ods do, or like an old binary document.
// No text begins so. The first eight bytes are enough.
bool looks_like_spreadsheet(std::string_view bytes);

// Reads .xlsx and .ods. Throws UserError, which begins with `path`, for other files, for damaged
// and protected ones, and where the sheet is missing or empty.
SheetText read_spreadsheet(std::string_view bytes, const std::string& path,
                           const WantedSheet& wanted = {});

}  // namespace kurv::app
