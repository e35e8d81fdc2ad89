#include "app/csv/cell_value.h"

#include <KurvGraph/text.h>

#include <array>
#include <cmath>
#include <optional>

#include "app/csv/missing_text.h"

namespace kurv::app {

namespace {

CellValue of_kind(CellKind kind) {
  return {kind, DateKind::kDay, kNoValue, {}};
}

// Without the blanks at both ends, also those that do not break a line.
std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kFixedBlank = "\u00A0";
  text = trim_whitespace(text);
  while (text.starts_with(kFixedBlank)) text.remove_prefix(kFixedBlank.size());
  while (text.ends_with(kFixedBlank)) text.remove_suffix(kFixedBlank.size());
  return trim_whitespace(text);
}

// Whether the text is a number after "<", ">", "<=", ">=", "≤" or "≥".
bool is_limit(std::string_view text, const NumberNotation& notation) {
  for (const std::string_view sign : {"<=", ">=", "<", ">", "\u2264", "\u2265"}) {
    if (!text.starts_with(sign)) continue;
    text = trimmed(text.substr(sign.size()));
    return read_number(text, notation) || read_quantity(text, notation);
  }
  return false;
}

// "#DIV/0!", "#NAME?" and the like, in the languages that spreadsheets have.
bool is_spreadsheet_error(std::string_view text) {
  constexpr std::size_t kLongest = 12;
  return text.size() > 3 && text.size() <= kLongest && text.front() == '#' &&
         (text.back() == '!' || text.back() == '?');
}

}  // namespace

CellValue read_cell(std::string_view text, const CsvDialect& dialect) {
  text = trimmed(text);
  if (is_missing_text(text, dialect.missing)) return of_kind(CellKind::kMissing);
  const NumberNotation& numbers = dialect.notation.numbers;
  if (const std::optional<Double> value = read_number(text, numbers)) {
    if (std::isfinite(*value)) return {CellKind::kNumber, DateKind::kDay, *value, {}};
    return of_kind(std::isnan(*value) ? CellKind::kMissing : CellKind::kInfinite);
  }
  if (const std::optional<DateValue> date = parse_date(text, dialect.notation.dates)) {
    const bool time = date->kind == DateKind::kTimeOfDay;
    return {time ? CellKind::kTime : CellKind::kDate, date->kind, date->days, {}};
  }
  if (const std::optional<Quantity> quantity = read_quantity(text, numbers)) {
    if (!std::isfinite(quantity->value)) return of_kind(CellKind::kInfinite);
    return {CellKind::kNumber, DateKind::kDay, quantity->value, quantity->unit};
  }
  if (is_spreadsheet_error(text)) return of_kind(CellKind::kError);
  return of_kind(is_limit(text, numbers) ? CellKind::kLimit : CellKind::kWord);
}

}  // namespace kurv::app
