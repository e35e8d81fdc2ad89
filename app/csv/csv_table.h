// A CSV file as a table of texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// Rows may be of different length. Empty lines are not rows. All text is stored in one
// buffer, so that the table needs a few times the memory of the file whatever the file holds.
class CsvTable {
 public:
  explicit CsvTable(char separator) : m_separator(separator) {}

  char separator() const { return m_separator; }
  std::size_t rows() const { return m_row_starts.size(); }
  // How many fields a row has.
  std::size_t width(std::size_t row) const { return cells_end(row) - m_row_starts[row]; }
  // Without blanks around a field that has no quotes.
  std::string_view cell(std::size_t row, std::size_t column) const;
  // The line of the file on which the row begins, counted from 1.
  std::size_t line(std::size_t row) const { return m_lines[row]; }

  // For the parser, which fills the table row by row.
  void reserve_text(std::size_t bytes) { m_text.reserve(bytes); }
  void begin_row(std::size_t line);
  void add_cell(std::string_view text);

 private:
  std::size_t cells_end(std::size_t row) const {
    return row + 1 < rows() ? m_row_starts[row + 1] : m_cell_ends.size();
  }

  char m_separator;
  // No file above 2 GiB is read, so 32 bits count its bytes and its fields.
  std::string m_text;
  std::vector<std::uint32_t> m_cell_ends;
  std::vector<std::uint32_t> m_row_starts;
  std::vector<std::uint32_t> m_lines;
};

// Fields may be quoted; quoted ones may hold separators, line ends, and doubled quotation marks.
// Lines end in LF, CR LF or CR. Throws UserError, which begins with `path`, when a quotation mark
// is never closed.
CsvTable parse_csv(std::string_view bytes, char separator, const std::string& path);

// The same with the separator that the first line declares, or else the one that the lines agree
// on. The line of a declaration is no row.
CsvTable parse_csv(std::string_view bytes, const std::string& path);

// The same for the text of a file. Throws as read_csv_text() does, too.
CsvTable read_csv(const std::string& path);

}  // namespace kurv::app
