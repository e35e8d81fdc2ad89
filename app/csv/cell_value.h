// What a field of a table stands for.
#pragma once

#include <string_view>

#include "app/csv/csv_table.h"

namespace kurv::app {

enum class CellKind { kMissing, kNumber, kInfinite, kDate, kWord };
inline constexpr int kCellKinds = 5;

struct CellValue {
  CellKind kind = CellKind::kMissing;
  // The number, or the days since the beginning of 1970; NaN for everything else.
  double value = 0;
};

// Nothing, "NA" and "NaN" in any letter case are missing values. An infinite number is one that is
// written so, or too large. Blanks around it do not count.
CellValue read_cell(std::string_view text, bool decimal_comma);

// Whether a table's numbers have a decimal comma: it has more numbers that need one than numbers
// with a decimal point. Never where commas separate the fields.
bool has_decimal_commas(const CsvTable& table);

}  // namespace kurv::app
