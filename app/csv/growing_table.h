// A table of text that grows: its rows as numbers, as far as they have come.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/csv/line_buffer.h"
#include "app/csv/row_reader.h"
#include "app/csv/table_data.h"
#include "app/csv/table_options.h"

namespace kurv::app {

// How the table is written is decided from what has come, and again while there are fewer than 100
// rows. From then on each row is read in that way and costs the same, however many there are.
// Memory is bounded: beyond the points that a graph holds, the last ones are kept.
class GrowingTable {
 public:
  // What is new since the last time.
  struct News {
    // The points are all that there are, in place of those before; otherwise more of them.
    bool is_all = false;
    TableData data;
    // While it is not decided yet how the table is written: the warnings of all points so far, in
    // place of those before.
    std::vector<std::string> warnings_so_far = {};
  };

  // `name` begins the messages.
  GrowingTable(const TableOptions& options, const std::string& name);

  // More bytes. A line counts when its end has come. Throws UserError for what can never become a
  // table: no text, a workbook, JSON, a line of more than 64 MiB, or many rows without a number.
  void append(std::string_view bytes);
  // No more bytes come: the last line needs no end.
  void finish();
  // The text goes on from a new beginning, as where a file is truncated. A line that is not
  // complete is forgotten, and the header is skipped if it comes again.
  void begin_anew();

  // Nothing where nothing is new, or the table cannot be drawn yet. The warnings of the data have
  // not been in any news before.
  std::optional<News> take_news();
  // Why the table cannot be drawn yet; empty where it can, and before there is a line.
  const std::string& obstacle() const { return m_obstacle; }
  // The rows of data that have come; those that --every leaves out are among them.
  std::size_t rows() const;

 private:
  void read_text(const std::string& text);
  void read_beginning(std::size_t lines);
  void decide(const std::string& text);
  void read_rows(const std::string& text);
  void read_line_by_line();
  std::optional<News> news_of_beginning();

  TableOptions m_options;
  std::string m_name;
  LineBuffer m_lines;
  // The lines from which the table is decided; empty once that is over.
  std::string m_beginning;
  bool m_is_undecided = false;  // lines have come since the last decision
  std::size_t m_next_try = 0;   // the number of lines of the next one
  std::size_t m_beginning_lines = 0;
  std::string m_obstacle;
  std::optional<TableData> m_data;   // of the beginning
  std::optional<TableData> m_given;  // what the last news of the beginning were made of
  std::size_t m_rows = 0;
  bool m_has_ended = false;
  bool m_gave_warnings = false;
  std::optional<RowReader> m_reader;
  // Lines with a quotation mark that is not closed yet.
  std::string m_held;
  std::size_t m_held_next_try = 0;
};

}  // namespace kurv::app
