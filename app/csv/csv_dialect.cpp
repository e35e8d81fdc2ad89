#include "app/csv/csv_dialect.h"

#include <cstddef>
#include <string_view>

#include "app/csv/cell_value.h"

namespace kurv::app {

namespace {

bool has_decimal_commas(const CsvTable& table) {
  // Between separating commas, a comma in a quoted number can be a decimal or a thousands comma.
  if (table.separator() == ',') return false;
  std::size_t commas = 0;
  std::size_t points = 0;
  for (std::size_t row = 0; row < table.rows(); ++row) {
    for (std::size_t column = 0; column < table.width(row); ++column) {
      const std::string_view text = table.cell(row, column);
      const bool comma = text.find(',') != std::string_view::npos;
      const bool point = text.find('.') != std::string_view::npos;
      if (comma && cell_number(text, true)) ++commas;
      if (point && cell_number(text, false)) ++points;
    }
  }
  return commas > points;
}

bool has_header(const CsvTable& table, const CsvDialect& dialect) {
  if (table.rows() == 0) return false;
  for (std::size_t column = 0; column < table.width(0); ++column) {
    if (read_cell(table.cell(0, column), dialect).kind == CellKind::kWord) return true;
  }
  return false;
}

}  // namespace

CsvDialect detect_dialect(const CsvTable& table) {
  CsvDialect dialect;
  dialect.decimal_comma = has_decimal_commas(table);
  dialect.header = has_header(table, dialect);
  return dialect;
}

}  // namespace kurv::app
