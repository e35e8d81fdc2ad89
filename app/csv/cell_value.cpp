#include "app/csv/cell_value.h"

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>

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

}  // namespace

CellValue read_cell(std::string_view text, const CsvDialect& dialect) {
  text = trim_whitespace(text);
  if (is_missing(text)) return {CellKind::kMissing, kNoValue};
  if (const std::optional<Double> value = cell_number(text, dialect.decimal_comma)) {
    if (std::isfinite(*value)) return {CellKind::kNumber, *value};
    return {std::isnan(*value) ? CellKind::kMissing : CellKind::kInfinite, kNoValue};
  }
  if (const std::optional<double> days = parse_iso_date(text)) return {CellKind::kDate, *days};
  return {CellKind::kWord, kNoValue};
}

std::optional<Double> cell_number(std::string_view text, bool decimal_comma) {
  if (!decimal_comma) return text_to_number(text);
  return text.find('.') == std::string_view::npos ? number_with_comma(text) : std::nullopt;
}

}  // namespace kurv::app
