// A file of rows as a table of texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/csv/table_options.h"

namespace kurv::app {

// How a table is written in its file, apart from what its cells mean.
struct TableSource {
  // What the user says about the table, and what follows from the kind of its file.
  TableOptions options;
  // Such as "JSON", or the name of a sheet; empty for text.
  std::string kind;
  // A workbook has other sheets, and the user has chosen none.
  bool has_other_sheets = false;
  Encoding encoding = Encoding::kUtf8;
  char separator = ',';
  // What comment lines begin with; empty where there are none.
  std::string comment;
  // The lines before the table, comments among them, and the comment lines in it.
  std::size_t skipped_lines = 0;
  std::size_t comment_lines = 0;
  // The names of the columns are in the last comment line before the first row.
  bool header_in_comment = false;
  // Whole sentences about what was left out or guessed.
  std::vector<std::string> notes;
};

// Rows may be of different length. Empty lines and comment lines are not rows. The cells are views
// of the file's text, so that the table needs a few times the memory of the file whatever the file
// holds.
class CsvTable {
 public:
  explicit CsvTable(std::string text) : m_text(std::move(text)) {}

  char separator() const { return m_source.separator; }
  const TableSource& source() const { return m_source; }
  TableSource& source() { return m_source; }
  std::size_t rows() const { return m_row_starts.size(); }
  // How many fields a row has.
  std::size_t width(std::size_t row) const { return cells_end(row) - m_row_starts[row]; }
  // Without blanks around a field that has no quotes.
  std::string_view cell(std::size_t row, std::size_t column) const {
    if (column >= width(row)) return {};
    const Span& span = m_cells[m_row_starts[row] + column];
    return {m_text.data() + span.begin, span.end - span.begin};
  }
  // The line of the file on which the row begins, counted from 1.
  std::size_t line(std::size_t row) const { return m_lines[row]; }
  // Some field is in quotation marks.
  bool has_quotes() const { return m_has_quotes; }

 private:
  friend class CsvParser;
  // Where a cell is in the text, which is no larger than 32 bits can count.
  struct Span {
    std::uint32_t begin;
    std::uint32_t end;
  };

  std::size_t cells_end(std::size_t row) const {
    return row + 1 < rows() ? m_row_starts[row + 1] : m_cells.size();
  }

  std::string m_text;
  std::vector<Span> m_cells;
  std::vector<std::uint32_t> m_row_starts;
  std::vector<std::uint32_t> m_lines;
  bool m_has_quotes = false;
  TableSource m_source;
};

}  // namespace kurv::app
