// A table of cells as tab-separated text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// `text` as one field: in quotation marks where it holds a tab, a line end or a quotation mark, and
// where it begins a line with "#", which would make that line a comment.
void append_tsv_field(std::string& line, std::string_view text, bool begins_line);

// Takes the cells that have a value, at positions that count from 0. The text has a line for each
// row of the sheet from the first one on, so the number of a line is that of its row. Columns
// before the first used one are left out.
class TsvWriter {
 public:
  // Messages begin with `path`.
  explicit TsvWriter(std::string path) : m_path(std::move(path)) {}

  // Row by row, and from left to right in each. An empty text is no cell. Throws UserError for
  // another order, and where the table becomes larger than 64 million cells or 1 GiB.
  void add(std::size_t row, std::size_t column, std::string_view text);

  // Throws UserError unless so many more cells may be added.
  void check_size(std::size_t cells) const;

  bool is_empty() const { return m_rows.empty(); }

  // The table. Its rows have the same number of fields, unless most of these fields would be empty:
  // one cell far from the others makes its own row long, not all of them. With a header, which
  // needs row 0 to be empty, no column is left out.
  std::string take(const std::vector<std::string>& header = {});

 private:
  struct Row {
    std::size_t number;
    std::size_t first_column;
    std::size_t end_column;
    std::size_t begin;  // in m_text
  };

  void begin_row(std::size_t row, std::size_t column);
  void count_fields(std::size_t fields);

  std::string m_path;
  // The fields of all rows, each row from its first cell on.
  std::string m_text;
  std::vector<Row> m_rows;
  std::size_t m_fields = 0;
};

}  // namespace kurv::app
