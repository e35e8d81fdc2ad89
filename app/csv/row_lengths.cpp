#include "app/csv/row_lengths.h"

#include <KurvGraph/text.h>

#include <string>

namespace kurv::app {

namespace {

// The columns that count for the length of a row: those that have a name or a value.
std::size_t expected_width(TableColumns& columns) {
  std::size_t width = columns.size();
  const auto has_name = [&](std::size_t column) {
    return !header_text(columns.table(), columns.dialect(), column).empty();
  };
  while (width > 1 && !has_name(width - 1) && columns.kind(width - 1) == ColumnKind::kEmpty) {
    --width;
  }
  return width;
}

}  // namespace

void warn_of_long_rows(const TableColumns& columns, TableData& data) {
  const CsvTable& table = columns.table();
  const DataRows& rows = columns.rows();
  std::size_t count = 0;
  std::size_t first = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t row = rows.row(i);
    bool longer = false;
    for (std::size_t column = columns.size(); column < table.width(row) && !longer; ++column) {
      longer = !trim_whitespace(table.cell(row, column)).empty();
    }
    if (longer && count++ == 0) first = row;
  }
  if (count == 0) return;
  data.warnings.push_back(std::to_string(count) + (count == 1 ? " row is" : " rows are") +
                          " longer than the header (line " + std::to_string(table.line(first)) +
                          (count == 1 ? ")" : " is the first)") +
                          "; the fields without a name are left out.");
}

void warn_of_short_rows(TableColumns& columns, TableData& data) {
  const CsvTable& table = columns.table();
  const DataRows& rows = columns.rows();
  const bool header = columns.dialect().header;
  std::size_t count = 0;
  std::size_t first = 0;
  std::size_t width = columns.size();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (table.width(rows.row(i)) >= width) continue;
    if (count == 0 && width == columns.size()) width = expected_width(columns);
    if (table.width(rows.row(i)) >= width) continue;
    if (count++ == 0) first = rows.row(i);
  }
  if (count == 0) return;
  data.warnings.push_back(
      std::to_string(count) + (count == 1 ? " row is" : " rows are") + " shorter than the " +
      (header ? "header" : "longest one") + " (line " + std::to_string(table.line(first)) +
      (count == 1 ? ")" : " is the first)") + "; the fields that are not there count as missing.");
}

}  // namespace kurv::app
