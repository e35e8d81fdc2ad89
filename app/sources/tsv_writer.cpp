#include "app/sources/tsv_writer.h"

#include <algorithm>

#include "app/base/user_error.h"

namespace kurv::app {

namespace {

constexpr std::size_t kMaxFields = std::size_t{64} << 20;
constexpr std::size_t kMaxTextSize = std::size_t{1} << 30;
// Rows are filled up with empty fields as long as the table has at most so many times the fields
// that it needs.
constexpr std::size_t kMaxPadding = 8;

}  // namespace

void append_tsv_field(std::string& line, std::string_view text, bool begins_line) {
  const bool is_like_comment = begins_line && text.starts_with('#');
  if (text.find_first_of("\t\n\r\"") == std::string_view::npos && !is_like_comment) {
    line += text;
    return;
  }
  line += '"';
  for (const char c : text) {
    if (c == '"') line += '"';
    line += c;
  }
  line += '"';
}

void TsvWriter::check_size(std::size_t cells) const {
  if (cells <= kMaxFields - m_fields && m_text.size() <= kMaxTextSize) return;
  throw UserError(m_path +
                  " holds a table that is too large: more than 64 million cells, or 1 GiB of text; "
                  "save a part of it as a file of its own.");
}

void TsvWriter::count_fields(std::size_t fields) {
  check_size(fields);
  m_fields += fields;
}

void TsvWriter::begin_row(std::size_t row, std::size_t column) {
  // The empty rows in between are lines as well.
  count_fields(m_rows.empty() ? row : row - m_rows.back().number);
  m_rows.push_back({row, column, column, m_text.size()});
}

void TsvWriter::add(std::size_t row, std::size_t column, std::string_view text) {
  if (text.empty()) return;
  const bool is_new = m_rows.empty() || row > m_rows.back().number;
  if (!is_new && (row < m_rows.back().number || column < m_rows.back().end_column)) {
    throw UserError(m_path + " is damaged: its cells are out of order; save it again.");
  }
  if (is_new) begin_row(row, column);
  Row& last = m_rows.back();
  const std::size_t tabs = column - last.end_column + (is_new ? 0 : 1);
  count_fields(tabs + 1);
  m_text.append(tabs, '\t');
  append_tsv_field(m_text, text, is_new);
  last.end_column = column + 1;
}

std::string TsvWriter::take(const std::vector<std::string>& header) {
  if (m_rows.empty()) return {};
  std::size_t first = header.empty() ? m_rows.front().first_column : 0;
  std::size_t end = header.size();
  std::size_t needed = 0;
  for (const Row& row : m_rows) {
    first = std::min(first, row.first_column);
    end = std::max(end, row.end_column);
  }
  for (const Row& row : m_rows) needed += row.end_column - first;
  const bool is_padded = (end - first) <= kMaxPadding * needed / m_rows.size();
  const std::size_t fields = is_padded ? (end - first) * m_rows.size() : needed;
  m_fields = 0;
  count_fields(fields + m_rows.back().number);

  std::string table;
  table.reserve(m_text.size() + fields + m_rows.back().number);
  for (std::size_t i = 0; i < header.size(); ++i) {
    if (i > 0) table += '\t';
    append_tsv_field(table, header[i], i == 0);
  }
  std::size_t line = 0;
  for (std::size_t i = 0; i < m_rows.size(); ++i) {
    const Row& row = m_rows[i];
    table.append(row.number - line, '\n');
    line = row.number + 1;
    table.append(row.first_column - first, '\t');
    const std::size_t row_end = i + 1 < m_rows.size() ? m_rows[i + 1].begin : m_text.size();
    table.append(m_text, row.begin, row_end - row.begin);
    if (is_padded) table.append(end - row.end_column, '\t');
    table += '\n';
  }
  m_text = {};
  m_rows = {};
  return table;
}

}  // namespace kurv::app
