#include "app/csv/row_reader.h"

#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "app/base/message_text.h"
#include "app/csv/cell_value.h"
#include "app/csv/characters.h"
#include "app/csv/number_pattern.h"

namespace kurv::app {

namespace {

std::string_view shortened(std::string_view text) {
  constexpr std::size_t kMost = 40;
  text = trim_whitespace(text);
  if (text.size() <= kMost) return text;
  std::size_t end = kMost;
  while (end > 0 && is_utf8_continuation(text[end])) --end;
  return text.substr(0, end);
}

}  // namespace

RowReader::CellColumn RowReader::cell_column(TableColumns& columns, std::size_t column) {
  const ColumnSurvey& survey = columns.survey(column);
  return {column, columns.names()[column], survey.kind(), survey.only_times(),
          survey.dates().digits};
}

RowReader::RowReader(TableColumns& columns, const Choice& choice, const TableData& data,
                     ParseRules rules, std::string name)
    : m_dialect(columns.dialect()),
      m_rules(std::move(rules)),
      m_name(std::move(name)),
      m_scale(data.x_scale),
      m_every(columns.rows().every()),
      m_rows(columns.rows().total()) {
  const CsvTable& table = columns.table();
  m_rules.offset = 0;
  m_rules.first_is_no_comment = false;
  for (std::size_t i = 0; m_dialect.header && i < table.width(0); ++i) {
    m_header.emplace_back(table.cell(0, i));
  }
  if (choice.x) m_x = cell_column(columns, *choice.x);
  if (choice.time) m_time = cell_column(columns, *choice.time);
  for (const std::size_t column : choice.y) m_y.push_back(cell_column(columns, column));
  follow_times(data.values);
}

// Finds out whether the times of day go on after midnight.
void RowReader::follow_times(const Matrix<Double>& values) {
  m_ascending_times =
      m_x && m_x->only_times && !m_time && m_scale && m_scale->unit == TimeUnit::kClock;
  if (!m_ascending_times) return;
  m_last_time = 0;
  for (int i = 1; i <= values.upper_point(); ++i) {
    if (std::isnan(values(1, i))) continue;
    m_ascending_times = m_ascending_times && values(1, i) >= m_last_time;
    m_last_time = values(1, i);
  }
  m_midnights = std::floor((m_last_time * m_scale->step + m_scale->start) / kSecondsPerDay);
}

void RowReader::roll_over(Double& time) {
  if (std::isnan(time)) return;
  const Double day = kSecondsPerDay / m_scale->step;
  time += m_midnights * day;
  if (time < m_last_time - day / 2) {
    time += day;
    ++m_midnights;
  }
  m_last_time = time;
}

void RowReader::read(const std::string& text) {
  const CsvTable table = parse_csv(text, m_rules, m_name);
  for (std::size_t row = 0; row < table.rows(); ++row) {
    if (is_header(table, row)) continue;
    Row values = read_row(table, row);
    if (!values.has_value && values.unreadable == nullptr) continue;
    if (!values.has_value) {
      note_row(table.line(row), table.cell(row, 0));
      continue;
    }
    if (m_ascending_times) roll_over(values.values.front());
    if (values.unreadable != nullptr) note_cell(table, row, *values.unreadable);
    if (m_rows++ % m_every == 0) keep(std::move(values));
  }
  m_rules.line += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

void RowReader::leave_out(const std::string& line) {
  note_row(m_rules.line++, line);
}

bool RowReader::is_header(const CsvTable& table, std::size_t row) const {
  if (m_header.empty() || table.width(row) != m_header.size()) return false;
  for (std::size_t i = 0; i < m_header.size(); ++i) {
    if (table.cell(row, i) != m_header[i]) return false;
  }
  return true;
}

Double RowReader::read_value(const CsvTable& table, std::size_t row, const CellColumn& column,
                             Row& result) const {
  const std::string_view text = table.cell(row, column.column);
  // Most cells are plain numbers.
  if (column.kind == ColumnKind::kNumbers && m_dialect.notation.numbers.decimal == '.' &&
      !m_dialect.missing && begins_as_number(text)) {
    const std::optional<Double> value = text_to_number(text);
    if (value && std::isfinite(*value)) {
      result.has_value = true;
      return *value;
    }
  }
  const CellValue cell = read_cell(text, m_dialect);
  const bool digits = column.digits != DateSurvey::Digits::kNone;
  const CellKind date = column.only_times ? CellKind::kTime : CellKind::kDate;
  const bool are_numbers = column.kind == ColumnKind::kNumbers || digits;
  if (cell.kind == (are_numbers ? CellKind::kNumber : date)) {
    result.has_value = true;
    return digits ? days_of_number(cell.value, column.digits) : cell.value;
  }
  if (cell.kind != CellKind::kMissing && result.unreadable == nullptr) result.unreadable = &column;
  return kNoValue;
}

Double RowReader::x_value(const CsvTable& table, std::size_t row, Row& result) const {
  if (!m_x) return static_cast<Double>(m_rows + 1);
  Double x = read_value(table, row, *m_x, result);
  if (m_time) x += read_value(table, row, *m_time, result);
  return m_scale ? (*m_scale)(x) : x;
}

RowReader::Row RowReader::read_row(const CsvTable& table, std::size_t row) const {
  Row result;
  result.values.reserve(1 + m_y.size());
  result.values.push_back(x_value(table, row, result));
  for (const CellColumn& column : m_y) {
    const Double value = read_value(table, row, column, result);
    result.values.push_back(value);
  }
  return result;
}

void RowReader::keep(Row row) {
  constexpr std::size_t kMost = kMaxPoints;
  m_points.insert(m_points.end(), row.values.begin(), row.values.end());
  // Twice as many before the first ones are dropped, so that each value moves at most once.
  const std::size_t width = row.values.size();
  if (m_points.size() < 2 * kMost * width) return;
  m_points.erase(m_points.begin(), m_points.end() - static_cast<std::ptrdiff_t>(kMost * width));
}

Matrix<Double> RowReader::take_points() {
  const std::size_t width = 1 + m_y.size();
  const std::size_t count = m_points.size() / width;
  const std::size_t kept = std::min<std::size_t>(count, kMaxPoints);
  Matrix<Double> result(1, static_cast<int>(width), 1, static_cast<int>(kept));
  for (std::size_t c = 0; c < width; ++c) {
    const Column<Double> column = result.column(static_cast<int>(c) + 1);
    for (std::size_t i = 0; i < kept; ++i) {
      column(static_cast<int>(i) + 1) = m_points[(count - kept + i) * width + c];
    }
  }
  m_points.clear();
  return result;
}

std::vector<std::string> RowReader::take_notes() {
  return std::exchange(m_notes, {});
}

void RowReader::note_cell(const CsvTable& table, std::size_t row, const CellColumn& column) {
  if (std::exchange(m_noted_cell, true)) return;
  const bool dates = column.kind == ColumnKind::kDates;
  m_notes.push_back("column " + in_quotes(column.name) + " has " +
                    in_quotes(trim_whitespace(table.cell(row, column.column))) + " in line " +
                    std::to_string(table.line(row)) + ", which is no " +
                    (dates ? "date" : "number") +
                    " as those before; it counts as missing, and so do others that follow.");
}

void RowReader::note_row(std::size_t line, std::string_view text) {
  if (std::exchange(m_noted_row, true)) return;
  m_notes.push_back("line " + std::to_string(line) + ", which begins with " +
                    in_quotes(shortened(text)) +
                    ", is left out, because it is no row like those before; so are others that "
                    "follow.");
}

}  // namespace kurv::app
