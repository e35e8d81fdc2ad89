#include "app/csv/cell_check.h"

namespace kurv::app {

namespace {

bool has_value(CellKind kind, const ColumnSurvey& survey) {
  const bool are_digits = survey.dates().digits != DateSurvey::Digits::kNone;
  if (survey.kind() == ColumnKind::kNumbers || are_digits) return kind == CellKind::kNumber;
  return kind == (survey.only_times() ? CellKind::kTime : CellKind::kDate);
}

}  // namespace

std::string_view refusal_of(const CellValue& cell, const ColumnSurvey& survey) {
  if (cell.kind == CellKind::kMissing || !survey.usable()) return {};
  if (has_value(cell.kind, survey)) return {};
  if (cell.kind == CellKind::kLimit) return "a limit";
  if (cell.kind == CellKind::kInfinite) return "an infinite or too large number";
  if (cell.kind == CellKind::kError) return "an error of a spreadsheet";
  return survey.kind() == ColumnKind::kNumbers ? "not a number" : "not a date";
}

std::uint32_t refused_cells(const ColumnSurvey& survey) {
  if (!survey.usable()) return 0;
  return survey.mismatches().count + survey.limits().count + survey.infinite().count +
         survey.errors().count;
}

}  // namespace kurv::app
