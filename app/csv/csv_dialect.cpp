#include "app/csv/csv_dialect.h"

#include <cstddef>
#include <string_view>

#include "app/csv/cell_value.h"

namespace kurv::app {

namespace {

// The only comma or point of a cell that may be a number, as far as its characters show; otherwise
// 0. A number has no other characters than these.
char decimal_sign(std::string_view text) {
  char sign = 0;
  for (const char c : text) {
    if (c == ',' || c == '.') {
      if (sign != 0) return 0;
      sign = c;
      continue;
    }
    const bool blank = static_cast<unsigned char>(c) <= ' ';
    const bool digit = c >= '0' && c <= '9';
    if (!digit && !blank && c != '-' && c != '+' && c != 'e' && c != 'E') return 0;
  }
  return sign;
}

// Calls `visit` for every cell until it returns false.
template <class Visitor>
void visit_cells(const CsvTable& table, Visitor visit) {
  for (std::size_t row = 0; row < table.rows(); ++row) {
    for (std::size_t column = 0; column < table.width(row); ++column) {
      if (!visit(table.cell(row, column))) return;
    }
  }
}

// The number of numbers with this decimal sign, counted up to `limit`.
std::size_t count_numbers(const CsvTable& table, char sign, std::size_t limit) {
  std::size_t count = 0;
  visit_cells(table, [&](std::string_view text) {
    if (count < limit && decimal_sign(text) == sign && cell_number(text, sign == ',')) ++count;
    return count < limit;
  });
  return count;
}

// Looks at characters only, as far as they decide: TableColumns parses every cell anyway. Where
// both signs occur, parses the cells of the rarer one, and as many of the other as settle which of
// them are more.
bool has_decimal_commas(const CsvTable& table) {
  // Between separating commas, a comma in a quoted number can be a decimal or a thousands comma.
  if (table.separator() == ',') return false;
  std::size_t commas = 0;
  std::size_t points = 0;
  visit_cells(table, [&](std::string_view text) {
    const char sign = decimal_sign(text);
    if (sign == ',') ++commas;
    if (sign == '.') ++points;
    return true;
  });
  if (commas == 0) return false;
  if (commas < points) {
    const std::size_t numbers = count_numbers(table, ',', commas);
    return count_numbers(table, '.', numbers) < numbers;
  }
  const std::size_t numbers = points == 0 ? 0 : count_numbers(table, '.', points);
  return count_numbers(table, ',', numbers + 1) > numbers;
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
