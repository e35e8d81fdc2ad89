// What a cell of a table means.
#pragma once

#include <KurvGraph/values.h>

#include <cstdint>
#include <limits>
#include <string_view>

#include "app/csv/csv_dialect.h"
#include "app/csv/date_text.h"

namespace kurv::app {

enum class CellKind : std::uint8_t {
  kMissing,
  kNumber,
  kLimit,  // "< 0.5", "> 10": the value is beyond what could be measured
  kInfinite,
  kError,  // "#DIV/0!": what a spreadsheet could not compute
  kDate,
  kTime,  // a time of day alone
  kWord
};
inline constexpr int kCellKinds = 8;

// The value of a cell that has none.
inline constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

struct CellValue {
  CellKind kind = CellKind::kMissing;
  // Of a date or time.
  DateKind date = DateKind::kDay;
  // The number; the days since the beginning of 1970, or since midnight; NaN for everything else.
  double value = kNoValue;
  // What is written beside the number, such as "%".
  std::string_view unit = {};
};

// The meaning of a cell in a table of this dialect. A number is infinite if it is written so or too
// large. Blanks around the text are ignored.
CellValue read_cell(std::string_view text, const CsvDialect& dialect);

}  // namespace kurv::app
