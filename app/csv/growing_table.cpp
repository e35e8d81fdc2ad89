#include "app/csv/growing_table.h"

#include <KurvGraph/limits.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "app/base/user_error.h"
#include "app/csv/csv_reader.h"
#include "app/csv/csv_text.h"
#include "app/csv/line_fields.h"
#include "app/sources/json_table.h"
#include "app/sources/spreadsheet.h"

namespace kurv::app {

namespace {

// From this many rows on, it stays as it is decided how the table is written.
constexpr std::size_t kDecidingRows = 100;
// The lines of a long text that are looked at for that, at first and at most.
constexpr std::size_t kFirstLines = 4000;
constexpr std::size_t kMostLines = 32000;
// Text in which a quotation mark is not closed is held back up to here.
constexpr std::size_t kMostHeld = std::size_t{64} << 10;
constexpr std::size_t kLongestBeginning = std::size_t{64} << 20;

std::size_t count_line_feeds(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::size_t end_of_lines(std::string_view text, std::size_t lines) {
  std::size_t end = 0;
  for (; lines > 0; --lines) {
    const std::size_t at = text.find('\n', end);
    if (at == std::string_view::npos) return text.size();
    end = at + 1;
  }
  return end;
}

bool is_same(Double one, Double other) {
  return one == other || (std::isnan(one) && std::isnan(other));
}

// Whether the data are those before and more rows.
bool extends(const TableData& data, const TableData& before) {
  if (data.names != before.names) return false;
  if (data.values.upper_column() != before.values.upper_column()) return false;
  if (data.values.upper_point() < before.values.upper_point()) return false;
  for (int c = 1; c <= before.values.upper_column(); ++c) {
    for (int i = 1; i <= before.values.upper_point(); ++i) {
      if (!is_same(data.values(c, i), before.values(c, i))) return false;
    }
  }
  return true;
}

int point_count(const Matrix<Double>& points) {
  return std::max(0, points.upper_point());
}

// The points from `first` on, and more points; the last ones that a graph holds.
Matrix<Double> joined(const Matrix<Double>& points, int first, const Matrix<Double>& more) {
  const int count = point_count(points) - first + 1 + point_count(more);
  const int dropped = std::max(0, count - kMaxPoints);
  const int columns = points.upper_column();
  Matrix<Double> result(1, columns, 1, count - dropped);
  for (int c = 1; c <= columns; ++c) {
    const Column<Double> own = result.column(c);
    int target = 1 - dropped;
    for (int i = first; i <= points.upper_point(); ++i, ++target) {
      if (target >= 1) own(target) = points(c, i);
    }
    for (int i = 1; i <= more.upper_point(); ++i, ++target) {
      if (target >= 1) own(target) = more(c, i);
    }
  }
  return result;
}

}  // namespace

GrowingTable::GrowingTable(const TableOptions& options, const std::string& name)
    : m_options(options), m_name(name), m_lines(options.encoding, name) {}

void GrowingTable::append(std::string_view bytes) {
  if (!m_reader && m_beginning.empty() && looks_like_spreadsheet(bytes)) {
    throw UserError(m_name +
                    " is a workbook, which does not grow line by line; leave out "
                    "--follow.");
  }
  m_lines.append(bytes);
  read_text(m_lines.take_lines());
}

void GrowingTable::finish() {
  m_has_ended = true;
  std::string rest = m_lines.take_rest();
  if (!rest.empty()) rest += '\n';
  read_text(rest);
  // The warnings are given now, also where all rows have been in news already.
  if (!m_reader && !m_beginning.empty()) m_is_undecided = true;
  if (m_reader && !m_held.empty()) read_line_by_line();
}

void GrowingTable::begin_anew() {
  m_lines.clear_rest();
  m_held.clear();
  if (m_reader) return;
  m_beginning.clear();
  m_beginning_lines = 0;
  m_next_try = 0;
}

std::size_t GrowingTable::rows() const {
  return m_reader ? m_reader->rows() : m_rows;
}

void GrowingTable::read_text(const std::string& text) {
  if (text.empty()) return;
  if (m_reader) return read_rows(text);
  m_beginning += text;
  m_beginning_lines += count_line_feeds(text);
  m_is_undecided = true;
  if (!m_options.separator && looks_like_json(m_beginning)) {
    throw UserError(m_name + " is JSON, which is read as a whole; leave out --follow.");
  }
  if (m_beginning_lines < std::max(kDecidingRows, m_next_try)) return;
  read_beginning(std::min(std::max(m_next_try, kFirstLines), m_beginning_lines));
}

void GrowingTable::read_beginning(std::size_t lines) {
  const std::size_t end = end_of_lines(m_beginning, lines);
  decide(m_beginning.substr(0, end));
  if (m_reader) {
    const std::string rest = m_beginning.substr(end);
    m_beginning = {};
    return read_rows(rest);
  }
  if (m_obstacle.empty()) return;
  if (lines >= kMostLines || m_beginning.size() > kLongestBeginning) throw UserError(m_obstacle);
  m_next_try = 2 * lines;
  if (m_beginning_lines > lines) read_beginning(std::min(m_next_try, m_beginning_lines));
}

// Sets the data or the obstacle, and the reader where there are enough rows.
void GrowingTable::decide(const std::string& text) {
  m_is_undecided = false;
  m_obstacle.clear();
  m_data.reset();
  if (trim_whitespace(text).empty()) return;
  try {
    ParsedText parsed = parse_text(text, m_name, m_options);
    TableColumns columns(parsed.table, detect_dialect(parsed.table), m_options.selection.every);
    m_rows = columns.rows().total();
    TableData data = make_table_data(columns, m_options.selection, m_name);
    check_drawable(data, m_options.selection, m_name);
    if (m_rows >= kDecidingRows) {
      const Choice choice = choose_columns(columns, m_options.selection, m_name);
      parsed.rules.line = 1 + count_line_feeds(text);
      m_reader.emplace(columns, choice, data, std::move(parsed.rules), m_name);
    }
    m_data = std::move(data);
  } catch (const UserError& error) {
    m_obstacle = error.what();
  }
}

// A quotation mark that is not closed may be closed by what comes. Trying again at twice the size
// costs no more than reading the text twice.
void GrowingTable::read_rows(const std::string& text) {
  m_held += text;
  if (m_held.size() < m_held_next_try) return;
  try {
    m_reader->read(m_held);
    m_held.clear();
    m_held_next_try = 0;
  } catch (const UserError&) {
    m_held_next_try = 2 * m_held.size();
    if (m_held.size() > kMostHeld) read_line_by_line();
  }
}

// What is held back, without the lines that cannot be read.
void GrowingTable::read_line_by_line() {
  std::string_view text = m_held;
  while (!text.empty()) {
    const std::size_t size = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string line(text.substr(0, size));
    text.remove_prefix(size);
    try {
      m_reader->read(line);
    } catch (const UserError&) {
      m_reader->leave_out(line);
    }
  }
  m_held.clear();
  m_held_next_try = 0;
}

// The news of the lines from which the table is decided.
std::optional<GrowingTable::News> GrowingTable::news_of_beginning() {
  if (!m_reader && m_is_undecided) decide(m_beginning);
  if (!m_data) return std::nullopt;
  TableData data = *std::exchange(m_data, std::nullopt);
  const bool is_all = !m_given || !extends(data, *m_given);
  const int first = is_all ? 1 : point_count(m_given->values) + 1;
  // Of a table that is still being decided, the next data may have other warnings.
  const bool gives_warnings = m_reader || m_has_ended;
  News news{is_all, {joined(data.values, first, {}), data.names, {}, data.x_scale}};
  if (!gives_warnings) {
    news.warnings_so_far = data.warnings;
  } else if (!std::exchange(m_gave_warnings, true)) {
    news.data.warnings = data.warnings;
  }
  m_given = std::move(data);
  return news;
}

std::optional<GrowingTable::News> GrowingTable::take_news() {
  std::optional<News> news = news_of_beginning();
  if (m_reader) {
    const Matrix<Double> points = m_reader->take_points();
    std::vector<std::string> notes = m_reader->take_notes();
    if (!news) news = News{false, {{}, m_given->names, {}, {}}};
    std::vector<std::string>& warnings = news->data.warnings;
    warnings.insert(warnings.end(), notes.begin(), notes.end());
    news->data.values =
        point_count(news->data.values) == 0 ? points : joined(news->data.values, 1, points);
    // Nothing of the beginning is needed any more but the names.
    m_given->values = {};
  }
  if (!news) return std::nullopt;
  const bool is_new =
      news->is_all || point_count(news->data.values) > 0 || !news->data.warnings.empty();
  return is_new ? news : std::nullopt;
}

}  // namespace kurv::app
