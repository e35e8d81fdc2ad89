// What a cell of a table means.
#pragma once

#include <KurvGraph/values.h>

#include <limits>
#include <optional>
#include <string_view>

#include "app/csv/csv_dialect.h"

namespace kurv::app {

enum class CellKind { kMissing, kNumber, kInfinite, kDate, kWord };
inline constexpr int kCellKinds = 5;

struct CellValue {
  CellKind kind = CellKind::kMissing;
  // The number, or the days since the beginning of 1970; NaN for everything else.
  double value = std::numeric_limits<double>::quiet_NaN();
};

// The meaning of a cell in a table of this dialect. An empty text, "NA" and "NaN" in any letter
// case are missing values. A number is infinite if it is written so or too large. Blanks around the
// text are ignored.
CellValue read_cell(std::string_view text, const CsvDialect& dialect);

// The number in a cell, if it is one with this decimal sign or without any.
std::optional<Double> cell_number(std::string_view text, bool decimal_comma);

}  // namespace kurv::app
