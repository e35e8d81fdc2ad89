#include "app/csv/table_columns.h"

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "app/base/user_error.h"
#include "app/csv/cell_value.h"
#include "app/csv/characters.h"
#include "app/csv/column_reference.h"
#include "app/csv/number_pattern.h"

namespace kurv::app {

namespace {

// x and the curves.
constexpr int kMaxKept = 1 + kMaxCurves;
// Columns that are read in one pass: enough to walk the rows in the order of the memory, few enough
// that the values of columns which turn out to be words take little of it.
constexpr std::size_t kColumnsAtOnce = 32;

// Empty where the rows come in that order.
std::vector<std::uint32_t> longest_rows_first(const CsvTable& table, const DataRows& rows) {
  const auto is_longer = [&](std::size_t one, std::size_t other) {
    return table.width(rows.row(one)) > table.width(rows.row(other));
  };
  std::size_t sorted = 1;
  while (sorted < rows.size() && !is_longer(sorted, sorted - 1)) ++sorted;
  if (sorted >= rows.size()) return {};
  std::vector<std::uint32_t> result(rows.size());
  std::iota(result.begin(), result.end(), 0);
  std::stable_sort(result.begin(), result.end(), is_longer);
  return result;
}

// The column that the user chooses for x; the first one without a choice.
std::size_t column_of_x(const CsvTable& table, const std::vector<std::string>& names) {
  const std::optional<std::string>& x = table.source().options.selection.x;
  if (!x || is_row_number(names, *x)) return 0;
  try {
    return find_column(names, *x, {});
  } catch (const UserError&) {
    return 0;  // The choice of the columns reports it.
  }
}

// Whether a whole number has more digits than its value.
bool is_rounded(std::string_view text, Double value) {
  constexpr Double kLastExact = 9007199254740992;
  constexpr Double kMost = 1e18;
  if (std::abs(value) <= kLastExact) return false;
  text = trim_whitespace(text);
  if (text.starts_with('-')) text.remove_prefix(1);
  while (text.starts_with('0')) text.remove_prefix(1);
  if (!std::all_of(text.begin(), text.end(), is_digit)) return false;
  return std::abs(value) > kMost * 9 || text != std::to_string(std::llround(std::abs(value)));
}

}  // namespace

// What a pass finds out about a column.
struct TableColumns::Reading {
  std::size_t column;
  ColumnSurvey survey;
  // The number of values to keep; none where the column is only counted.
  std::size_t points;
  // Empty until a cell has a number or a date.
  std::vector<Double> values;
  // Where the values are that are not numbers, and of which kind they are.
  std::vector<std::pair<std::uint32_t, CellKind>> others;
  // What all numbers of the column could be instead.
  NumberPattern pattern;

  void add_number(Double value, std::size_t row, std::size_t index) {
    survey.add_number(row);
    pattern.add(value);
    keep(value, index);
  }

  void add(const CellValue& cell, std::size_t row, std::size_t index) {
    survey.add(cell, row);
    const bool is_date = cell.kind == CellKind::kDate || cell.kind == CellKind::kTime;
    if (cell.kind == CellKind::kNumber) pattern.add(cell.value);
    if (cell.kind != CellKind::kNumber && !is_date) return;
    keep(cell.value, index);
    if (points > 0 && is_date) others.emplace_back(static_cast<std::uint32_t>(index), cell.kind);
  }

  void keep(Double value, std::size_t index) {
    if (points == 0) return;
    if (values.empty()) values.assign(points, kNoValue);
    values[index] = value;
  }

  // Keeps only the values of the column's kind.
  void drop_mismatches() {
    if (others.empty()) return;
    const bool dates = survey.kind() == ColumnKind::kDates;
    const CellKind wanted = survey.only_times() ? CellKind::kTime : CellKind::kDate;
    std::vector<Double> kept(values.size(), kNoValue);
    for (const auto& [index, kind] : others) {
      const Double value = std::exchange(values[index], kNoValue);
      if (kind == wanted) kept[index] = value;
    }
    if (dates) values = std::move(kept);
  }

  void read_numbers_as(DateSurvey::Digits digits) {
    if (digits == DateSurvey::Digits::kNone) return;
    survey.read_numbers_as(digits);
    for (Double& value : values) value = days_of_number(value, digits);
  }
};

TableColumns::TableColumns(const CsvTable& table, const CsvDialect& dialect, std::size_t every)
    : m_table(&table),
      m_dialect(dialect),
      m_rows(table, dialect, every),
      m_names(column_names(table, dialect)),
      m_longest_first(longest_rows_first(table, m_rows)),
      m_surveys(size()),
      m_kept(size()) {
  if (has_countable_rows()) {
    m_values = {1, static_cast<int>(size()), 1, static_cast<int>(m_rows.size())};
  }
}

// An index of a matrix counts them.
bool TableColumns::has_countable_rows() const {
  return m_rows.size() <= std::size_t{std::numeric_limits<int>::max()};
}

void TableColumns::read(std::vector<std::size_t> columns) {
  std::erase_if(columns, [this](std::size_t column) { return m_surveys[column].has_value(); });
  std::sort(columns.begin(), columns.end());
  columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
  for (auto first = columns.begin(); first != columns.end();) {
    const auto rest = static_cast<std::size_t>(columns.end() - first);
    const auto last = first + static_cast<std::ptrdiff_t>(std::min(kColumnsAtOnce, rest));
    const bool wants_values = has_countable_rows() && m_kept_count < kMaxKept;
    const std::size_t points = wants_values ? m_rows.size() : 0;
    for (Reading& reading : parsed({first, last}, points)) keep(std::move(reading));
    first = last;
  }
}

void TableColumns::read_all() {
  std::vector<std::size_t> columns(size());
  std::iota(columns.begin(), columns.end(), 0);
  read(std::move(columns));
}

const ColumnSurvey& TableColumns::survey(std::size_t column) {
  if (!m_surveys[column]) read({column});
  return *m_surveys[column];
}

const std::string& TableColumns::unit(std::size_t column) {
  const std::string& of_header = m_names.units[column];
  return of_header.empty() ? survey(column).unit() : of_header;
}

void TableColumns::copy_values(std::size_t column, Matrix<Double>& matrix, int target) {
  read({column});
  if (m_kept[column]) {
    matrix.share_column(target, m_values, static_cast<int>(column) + 1);
  } else {
    matrix.set_column(target, std::move(parsed({column}, m_rows.size()).front().values));
  }
}

// The columns, in ascending order, from one walk over the rows.
std::vector<TableColumns::Reading> TableColumns::parsed(const std::vector<std::size_t>& columns,
                                                        std::size_t points) const {
  std::vector<Reading> readings;
  for (const std::size_t column : columns) readings.push_back({column, {}, points, {}, {}, {}});
  const bool has_points = m_dialect.notation.numbers.decimal == '.' && !m_dialect.missing;
  for (std::size_t i = 0; i < m_rows.size(); ++i) {
    const std::size_t index = m_longest_first.empty() ? i : m_longest_first[i];
    const std::size_t row = m_rows.row(index);
    const std::size_t width = m_table->width(row);
    if (width <= columns.front()) break;
    for (Reading& reading : readings) {
      if (width <= reading.column) break;
      const std::string_view text = m_table->cell(row, reading.column);
      // Most cells are plain numbers.
      const std::optional<Double> value =
          has_points && begins_as_number(text) ? text_to_number(text) : std::nullopt;
      if (value && std::isfinite(*value)) {
        reading.add_number(*value, row, index);
        if (is_rounded(text, *value)) reading.survey.add_rounded(row);
      } else {
        reading.add(read_cell(text, m_dialect), row, index);
      }
    }
  }
  const std::size_t counted = column_of_x(*m_table, names());
  for (Reading& reading : readings) {
    reading.drop_mismatches();
    if (reading.survey.kind() != ColumnKind::kNumbers) continue;
    reading.read_numbers_as(reading.pattern.dates(m_dialect.chosen_dates, names()[reading.column],
                                                  reading.column == counted));
  }
  return readings;
}

void TableColumns::keep(Reading reading) {
  m_surveys[reading.column] = reading.survey;
  if (reading.values.empty() || !reading.survey.usable() || m_kept_count == kMaxKept) return;
  m_values.set_column(static_cast<int>(reading.column) + 1, std::move(reading.values));
  m_kept[reading.column] = true;
  ++m_kept_count;
}

}  // namespace kurv::app
