#include "app/csv/cell_value.h"

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>

#include "app/csv/iso_date.h"

namespace kurv::app {

namespace {

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

bool is_missing(std::string_view text) {
  if (text.empty()) return true;
  return equals_ignoring_case(text, "na") || equals_ignoring_case(text, "nan");
}

std::optional<Double> number_with_comma(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return text_to_number(text);
  std::string with_point(text);
  with_point[comma] = '.';
  return text_to_number(with_point);
}

// A point in a text without a comma, or the other way round.
std::optional<Double> number(std::string_view text, bool decimal_comma) {
  if (!decimal_comma) return text_to_number(text);
  return text.find('.') == std::string_view::npos ? number_with_comma(text) : std::nullopt;
}

}  // namespace

CellValue read_cell(std::string_view text, bool decimal_comma) {
  text = trim_whitespace(text);
  if (is_missing(text)) return {CellKind::kMissing, kNoValue};
  if (const std::optional<Double> value = number(text, decimal_comma)) {
    if (std::isfinite(*value)) return {CellKind::kNumber, *value};
    // A sign before "NaN" leaves it what it is.
    return {std::isnan(*value) ? CellKind::kMissing : CellKind::kInfinite, kNoValue};
  }
  if (const std::optional<double> days = parse_iso_date(text)) return {CellKind::kDate, *days};
  return {CellKind::kWord, kNoValue};
}

bool has_decimal_commas(const CsvTable& table) {
  // Between commas a comma in a number can only part thousands, and nobody knows which.
  if (table.separator() == ',') return false;
  std::size_t commas = 0;
  std::size_t points = 0;
  for (std::size_t row = 0; row < table.rows(); ++row) {
    for (std::size_t column = 0; column < table.width(row); ++column) {
      const std::string_view text = table.cell(row, column);
      const bool comma = text.find(',') != std::string_view::npos;
      const bool point = text.find('.') != std::string_view::npos;
      if (comma && number(text, true)) ++commas;
      if (point && number(text, false)) ++points;
    }
  }
  return commas > points;
}

}  // namespace kurv::app
